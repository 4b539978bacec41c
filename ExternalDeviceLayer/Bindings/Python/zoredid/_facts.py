"""Facts and modes of one EDID."""

from __future__ import annotations

from dataclasses import dataclass, field
from fractions import Fraction
from functools import cached_property
from typing import Any, NamedTuple, TypeVar

from ._codes import IDS, Error, make_error, own, require
from ._names import (
    AUDIOFORMAT_COLUMNS,
    COLOURSPACE_COLUMNS,
    CONFLICT_COLUMNS,
    FACTS,
    GROUPS,
    MODERECORD_COLUMNS,
    PLACES,
    VRRRANGE_COLUMNS,
    AudioFormat,
    ColourSpace,
    Conflict,
    Eotf,
    FactGroups,
    ModeRecord,
    Space,
    Transfer,
    VrrRange,
)
from ._zoredid import ffi, lib

RECORD = TypeVar("RECORD")
MOST_ELEMENTS = 32  # of any list of facts
_allocate = ffi.new_allocator(should_clear_after_alloc=False)
_NAMES = [(name, *PLACES[info.index][:2]) for name, info in FACTS.items()]


def _make(record: type[RECORD], values: dict[str, Any]) -> RECORD:
    """A frozen record whose other fields have their defaults, without the cost of its constructor."""
    made = object.__new__(record)
    object.__setattr__(made, "__dict__", values)
    return made


def _make_records(record: type[RECORD], columns: tuple[tuple[str, Any], ...], numbers: list[int]) -> tuple[RECORD, ...]:
    width = len(columns)
    return tuple(
        _make(record, {name: value if convert is None else convert[value]
                       for (name, convert), value in zip(columns, numbers[at:at + width])})
        for at in range(0, len(numbers), width))


class Source(NamedTuple):
    """The field that says a fact."""

    id: str
    offset: int  #: of its first byte in the image


@dataclass(frozen=True)
class Hdr:
    """HDR in short; Facts.colour has all of it.

    - hdr10: PQ with static metadata
    - hlg: hybrid log-gamma
    - hdr10plus, dolby_vision: their blocks are there
    - max_luminance, max_average_luminance, min_luminance: cd/m2, of desired content (static metadata of CTA-861); None
      where they are not said. What the screen itself reaches is in Facts.colour.luminance.
    """

    hdr10: bool
    hlg: bool
    hdr10plus: bool
    dolby_vision: bool
    max_luminance: float | None
    max_average_luminance: float | None
    min_luminance: float | None


@dataclass(frozen=True)
class Facts(FactGroups):
    """What a display can do, by its EDID: identity, size, link, colour and audio, with hdr and lists.

    A fact is None where the image does not say it: a False or a 0 is said. A code without a name is an int.
    """

    _data: bytes = field(default=b"", repr=False, compare=False)

    @cached_property
    def hdr(self) -> Hdr:
        """HDR in short."""
        colour = self.colour
        eotfs = colour.eotfs or Eotf(0)
        content = colour.content_luminance
        return Hdr(Eotf.PQ in eotfs and bool((colour.static_metadata or 0) & 1), Eotf.HLG in eotfs,
                   colour.hdr10plus.version is not None, colour.dolby_vision.version is not None,
                   content.max, content.max_frame_average, content.min)

    @cached_property
    def vrr_ranges(self) -> tuple[VrrRange, ...]:
        """Ranges of variable refresh, in the order of the bytes; link.vrr has the best one."""
        return self._list(lib.ZORPY_LIST_VRR, VrrRange, VRRRANGE_COLUMNS)

    @cached_property
    def spaces(self) -> tuple[ColourSpace, ...]:
        """Colour spaces with their transfer functions, of DisplayID 2.0."""
        return self._list(lib.ZORPY_LIST_SPACES, ColourSpace, COLOURSPACE_COLUMNS)

    @cached_property
    def audio_formats(self) -> tuple[AudioFormat, ...]:
        """Audio formats, of CTA-861 and HDMI 2.0."""
        return self._list(lib.ZORPY_LIST_AUDIO, AudioFormat, AUDIOFORMAT_COLUMNS)

    @cached_property
    def conflicts(self) -> tuple[Conflict, ...]:
        """Where sources contradict each other: of each the field that is taken, and the other one."""
        return self._list(lib.ZORPY_LIST_CONFLICTS, Conflict, CONFLICT_COLUMNS)

    def as_dict(self) -> dict[str, Any]:
        """What the image says, by the facts' full names: {"link.vrr.max_hz": 144, ...}."""
        groups: list[Any] = [None] * len(GROUPS) + [self]
        for place in range(len(GROUPS) - 1, -1, -1):
            groups[place] = getattr(groups[GROUPS[place][1]], GROUPS[place][2])
        pairs = ((name, getattr(groups[group], attribute)) for name, group, attribute in _NAMES)
        return {name: value for name, value in pairs if value is not None}

    def source(self, name: str) -> Source | None:
        """The field that says a fact, such as "link.vrr.max_hz"; None where the image does not say it."""
        number, offset = ffi.new("uint32_t *"), ffi.new("size_t *")
        if not lib.zoredid_facts_get_source(self._read(), get_fact(name), number, offset):
            return None
        return Source(IDS[number[0]], offset[0])

    def takes(self, space: Space, transfer: Transfer) -> bool:
        """Whether the display takes a colour space with a transfer function."""
        return bool(lib.zoredid_facts_takes_space(self._read(), space, transfer))

    @cached_property
    def unread(self) -> str:
        """Why the image may say what its facts do not have: "the image ends before block 2"; else empty."""
        room = ffi.new("char[]", 128)
        lib.zoredid_facts_get_unread(self._read(), room, 128)
        return bytes(ffi.string(room)).decode()

    def _read(self) -> Any:
        facts = own(lib.zoredid_facts_create(), lib.zoredid_facts_free)
        require(lib.zoredid_facts_read(facts, self._data, len(self._data)))
        return facts

    def _list(self, which: int, record: type[RECORD], columns: tuple[tuple[str, Any], ...]) -> tuple[RECORD, ...]:
        room = ffi.new("int64_t[]", MOST_ELEMENTS * len(columns))
        count = lib.zorpy_read_list(self._data, len(self._data), which, len(columns), MOST_ELEMENTS, room)
        return _make_records(record, columns, ffi.unpack(room, count * len(columns)))


def get_fact(name: str) -> int:
    """The number in C of a fact."""
    info = FACTS.get(name)
    if info is None:
        raise KeyError(f"no fact has this name: {name}")
    return int(lib.zoredid_fact_get(info.index))


def read_facts(data: bytes) -> Facts:
    """The facts of at least 128 bytes, in any state."""
    said = _allocate("zorpy_facts *")
    status = lib.zorpy_read_facts(data, len(data), said)
    if status:
        raise make_error(status)
    groups: list[dict[str, Any]] = [{} for _ in GROUPS]

    def put(index: int, value: Any) -> None:
        place, name, convert = PLACES[index]
        groups[place][name] = value if convert is None or convert is bytes else convert[value]

    unpack = ffi.unpack
    for index, value in zip(unpack(said.number_facts, said.numbers), unpack(said.number_values, said.numbers)):
        put(index, value)
    for index, value in zip(unpack(said.real_facts, said.reals), unpack(said.real_values, said.reals)):
        put(index, value)
    _put_texts(said, put)

    facts: dict[str, Any] = {"_data": data}
    for values, (record, parent, name) in zip(groups, GROUPS):
        if values:
            (facts if parent == len(GROUPS) else groups[parent])[name] = _make(record, values)
    return _make(Facts, facts)


def _put_texts(said: Any, put: Any) -> None:
    characters = ffi.unpack(said.characters, said.text_bytes) if said.text_bytes else b""
    begin = 0
    for index, end in zip(ffi.unpack(said.text_facts, said.texts), ffi.unpack(said.text_ends, said.texts)):
        text = characters[begin:end]
        put(index, text if PLACES[index][2] is bytes else text.decode())
        begin = end


@dataclass(frozen=True)
class Mode(ModeRecord):
    """A mode that the image announces; str gives it in short.

    Members of ModeRecord are numbers as C has them: where nothing is given they are 0, and bit is -1. The properties
    here are None then.
    """

    @property
    def rate(self) -> Fraction | None:
        """The exact rate in Hz: frames a second, of an interlaced mode fields; None where none is given."""
        return Fraction(self.rate_numerator, self.rate_denominator) if self.rate_denominator else None

    @property
    def nominal_rate(self) -> Fraction | None:
        """The rate as the standard names it: 60 of 640 x 480 at 59.94 Hz; else the same."""
        return Fraction(self.nominal_rate_numerator, self.nominal_rate_denominator) \
            if self.nominal_rate_denominator else None

    @property
    def rate_hz(self) -> float | None:
        """The rate in Hz, rounded to a float."""
        return self.rate_numerator / self.rate_denominator if self.rate_denominator else None

    @property
    def aspect(self) -> Fraction | None:
        """Width to height of the picture, such as 16/9; None where it is not given."""
        return Fraction(self.aspect_width, self.aspect_height) if self.aspect_height else None

    def __str__(self) -> str:
        size = f"{self.width} x {self.height}{'i' if self.interlaced else ''}"
        return size if self.rate_hz is None else f"{size} at {round(self.rate_hz, 3):g} Hz"


def read_modes(data: bytes) -> tuple[tuple[Mode, ...], Mode | None]:
    """The modes of at least 128 bytes, and the most preferred one."""
    modes = own(lib.zoredid_modes_create(), lib.zoredid_modes_free)
    require(lib.zoredid_modes_read(modes, data, len(data)))
    numbers = lib.zoredid_modes_get_count(modes) * len(MODERECORD_COLUMNS)
    room = _allocate("int64_t[]", numbers)
    lib.zorpy_fill_modes(modes, len(MODERECORD_COLUMNS), room)
    listed = _make_records(Mode, MODERECORD_COLUMNS, ffi.unpack(room, numbers) if numbers else [])
    preferred = lib.zoredid_modes_get_preferred(modes)
    return listed, listed[preferred] if preferred < len(listed) else None


__all__ = ["Error", "Facts", "Hdr", "Mode", "Source", "read_facts", "read_modes"]
