"""An image: its facts, modes, fields and findings, and edits of it."""

from __future__ import annotations

import operator
import os
import threading
from dataclasses import dataclass, field as member
from decimal import Decimal
from functools import cached_property
from html import escape
from numbers import Real
from types import TracebackType
from typing import Any, Callable, Generic, Iterable, Iterator, NamedTuple, TypeVar, Union, overload

from ._codes import (
    IDS,
    Codes,
    Error,
    NoFieldError,
    RefusedError,
    encode,
    make_error,
    own,
    refuse,
    require,
    to_text,
    to_whole,
)
from ._facts import Facts, Mode, read_facts, read_modes
from ._names import Area, Eotf, FieldKind, Link, Severity
from ._zoredid import ffi, lib

PathOrBytes = Union[str, "os.PathLike[str]", bytes, bytearray, memoryview]
Bytes = Union[bytes, bytearray, memoryview]
Value = Union[str, bool, int, float, Real, Decimal, Bytes]
ANSWER = TypeVar("ANSWER")
_KINDS, _AREAS, _SEVERITIES = Codes(FieldKind), Codes(Area), Codes(Severity)
_CUT = 256  # bytes of a value that are asked for first
_MOST_FILE = 16 << 20  # bytes: what has more is no file of EDIDs, or a device without an end
_MOST_SIZE = (1 << 31) - 1  # of an image; indexes and offsets are below
_MOST_YEAR = 0xFFFF


def read_bytes(source: PathOrBytes) -> bytes:
    """The bytes themselves, or those of a file."""
    if isinstance(source, (bytes, bytearray, memoryview)):
        return bytes(source)
    with open(os.fspath(source), "rb") as file:
        data = file.read(_MOST_FILE + 1)
    if len(data) > _MOST_FILE:
        raise make_error(lib.ZOREDID_ERROR_SIZE, "the file has more than 16 MiB")
    return data


def load(source: PathOrBytes) -> Image:
    """The image in a file or in bytes; the first one where several EDIDs follow each other (see load_all).

    A path is that of a raw image, such as "/sys/class/drm/card0-HDMI-A-1/edid". Bytes are taken in any state. Raises
    OSError for a file that cannot be read, Error without bytes and for a file of more than 16 MiB.
    """
    return load_all(source)[0]


def load_all(source: PathOrBytes) -> list[Image]:
    """All images in a file or in bytes: some tools write those of all monitors one after the other."""
    data = read_bytes(source)
    image, size = own(lib.zoredid_image_create(), lib.zoredid_image_free), ffi.new("size_t *")
    require(lib.zoredid_image_load(image, data, len(data)))
    count = lib.zoredid_image_get_count(image)
    if count == 0:
        require(lib.ZOREDID_ERROR_SIZE)
    return [Image(copy_bytes(lib.zoredid_image_get_edid(image, index, size), size[0])) for index in range(count)]


def copy_bytes(data: Any, size: int) -> bytes:
    """Bytes of C."""
    return bytes(ffi.buffer(data, size))


# ---- Fields ----


class Piece(NamedTuple):
    """Bits of a field: the mask of each of length bytes from offset on."""

    offset: int
    length: int
    mask: int


@dataclass(frozen=True)
class Field:
    """What some bytes or bits say.

    - index: among the fields of the image; id: as "base.display.gamma", which stays; name: by the standard
    - value: as text with its unit; empty of most groups
    - number: in unit; None where it has none, or where meaning takes its place
    - unit, meaning: None without one
    - offset, length: bytes in the image, whole or not; pieces: the bits of a leaf, most significant first
    - depth: 0 for a block; group: the index of the field that it lies in, None for a block
    - number_in_group: which of several of the same name in a group, from 0; None for the only one
    """

    index: int
    id: str
    name: str
    value: str
    number: int | float | None
    unit: str | None
    meaning: str | None
    kind: FieldKind
    area: Area
    offset: int
    length: int
    pieces: tuple[Piece, ...]
    depth: int
    group: int | None
    number_in_group: int | None

    def __str__(self) -> str:
        return f"{self.name}: {self.value}"


class Fields:
    """The fields of an image, depth first: a group, then its fields. Every bit belongs to exactly one leaf.

    fields["base.display.gamma"] is the first field with an id, fields[12] the one with an index. Iteration gives each.
    """

    def __init__(self, data: bytes) -> None:
        self._map = own(lib.zoredid_map_create(), lib.zoredid_map_free)
        require(lib.zoredid_map_read(self._map, data, len(data)))

    def __len__(self) -> int:
        return int(lib.zoredid_map_get_count(self._map))

    def __iter__(self) -> Iterator[Field]:
        return (self._get(index) for index in range(len(self)))

    def __contains__(self, key: object) -> bool:
        return isinstance(key, str) and bool(lib.zoredid_map_count(self._map, find_id(key)))

    @overload
    def __getitem__(self, key: int | str) -> Field: ...

    @overload
    def __getitem__(self, key: slice) -> list[Field]: ...

    def __getitem__(self, key: int | str | slice) -> Field | list[Field]:
        if isinstance(key, str):
            index = lib.zoredid_map_find(self._map, find_id(key), 0)
            if index == lib.ZOREDID_NONE:
                raise _make_no_field(key)
            return self._get(index)
        if isinstance(key, slice):
            return [self._get(index) for index in range(len(self))[key]]
        if not -len(self) <= key < len(self):
            raise IndexError(f"the image has {len(self)} fields")
        return self._get(range(len(self))[key])

    def all(self, id: str) -> list[Field]:  # pylint: disable=redefined-builtin
        """All fields with an id, in the order of their places."""
        number = find_id(id)
        return [self._get(lib.zoredid_map_find(self._map, number, rank))
                for rank in range(lib.zoredid_map_count(self._map, number))]

    def at(self, offset: int, bit: int = 7) -> Field | None:
        """The leaf that a bit (7 to 0) of a byte belongs to; None past the image."""
        inside = 0 <= offset <= _MOST_SIZE and 0 <= bit <= 7
        index = lib.zoredid_map_find_at(self._map, offset, bit) if inside else lib.ZOREDID_NONE
        return None if index == lib.ZOREDID_NONE else self._get(index)

    def __repr__(self) -> str:
        return f"<zoredid.Fields of {len(self)} fields>"

    def _get(self, index: int) -> Field:
        at, fields = lib, self._map
        return Field(
            index, IDS[at.zoredid_map_get_id(fields, index)], to_text(at.zoredid_map_get_name(fields, index)) or "",
            self._get_value(index), self._get_number(index), to_text(at.zoredid_map_get_unit(fields, index)),
            to_text(at.zoredid_map_get_meaning(fields, index)), _KINDS[at.zoredid_map_get_kind(fields, index)],
            _AREAS[at.zoredid_map_get_area(fields, index)], at.zoredid_map_get_offset(fields, index),
            at.zoredid_map_get_length(fields, index), self._get_pieces(index),
            at.zoredid_map_get_depth(fields, index), _to_index(at.zoredid_map_get_group(fields, index)),
            _to_index(at.zoredid_map_get_number_in_group(fields, index)))

    def _get_value(self, index: int) -> str:
        room = ffi.new("char[]", _CUT)
        length = lib.zoredid_map_get_value(self._map, index, room, _CUT)
        if length >= _CUT:
            room = ffi.new("char[]", length + 1)
            lib.zoredid_map_get_value(self._map, index, room, length + 1)
        return str(ffi.unpack(room, length).decode()) if length else ""

    def _get_number(self, index: int) -> int | float | None:
        number, decimals = ffi.new("int64_t *"), ffi.new("unsigned int *")
        if not lib.zoredid_map_get_number(self._map, index, number, decimals):
            return None
        return number[0] / 10 ** decimals[0] if decimals[0] else int(number[0])

    def _get_pieces(self, index: int) -> tuple[Piece, ...]:
        return tuple(
            Piece(lib.zoredid_map_get_piece_offset(self._map, index, piece),
                  lib.zoredid_map_get_piece_length(self._map, index, piece),
                  lib.zoredid_map_get_piece_mask(self._map, index, piece))
            for piece in range(lib.zoredid_map_get_piece_count(self._map, index)))


def _to_index(index: int) -> int | None:
    return None if index == lib.ZOREDID_NONE else index


def find_id(text: str) -> int:
    """The number of an id; 0 of an unknown one."""
    try:
        return int(lib.zoredid_id_find(encode(text)))
    except RefusedError:
        return 0


def _make_no_field(text: str, number: int = 0) -> NoFieldError:
    which = text if number == 0 else f"{text}[{number}]"
    return NoFieldError(f"the image has no field {which}" if find_id(text) else f"no field has the id {text}",
                        lib.ZOREDID_ERROR_NO_FIELD)


# ---- Findings, repairs ----


@dataclass(frozen=True)
class Finding:
    """Something that is wrong with an image.

    - rule: its id, as in docs/checks.md; severity: how much it weighs
    - field: the index in Image.fields; offset: of its first byte
    - what: the finding in words; reason, found, expected: more about it, the value, what is right; mostly empty
    - standard: where it asks for this, empty where none does; why: what sources do with it
    """

    rule: str
    severity: Severity
    field: int
    offset: int
    what: str
    reason: str
    found: str
    expected: str
    standard: str
    why: str

    def __str__(self) -> str:
        more = [self.reason and f": {self.reason}", self.found and f": found {self.found}",
                self.expected and f", expected {self.expected}"]
        return f"offset {self.offset:#04x}: {self.severity.name.lower()}: {self.what}{''.join(more)} [{self.rule}]"


class Place(NamedTuple):
    """A place that was repaired: the rule that it broke, and its bytes."""

    rule: str
    offset: int
    length: int


class Withheld(NamedTuple):
    """A fault that looks as if it had one right answer and was left: its rule, where it is, and why."""

    rule: str
    offset: int
    reason: str


class Repair(NamedTuple):
    """A repaired image, the places that changed in it, and what was left."""

    image: Image
    places: list[Place]
    withheld: list[Withheld]


def _rule_text(get: Any, rule: int) -> str:
    return to_text(get(rule)) or ""


def _list_findings(fields: Any, this_year: int) -> Iterator[Finding]:
    check = own(lib.zoredid_check_create(), lib.zoredid_check_free)
    require(lib.zoredid_check_read(check, fields, this_year))
    null = ffi.NULL
    for index in range(lib.zoredid_check_get_count(check)):
        rule = lib.zoredid_check_get_rule(check, index)
        reason, found, expected = (to_text(get(check, index, null)) or "" for get in (
            lib.zoredid_check_get_reason, lib.zoredid_check_get_found, lib.zoredid_check_get_expected))
        yield Finding(
            _rule_text(lib.zoredid_rule_get_id, rule), _SEVERITIES[lib.zoredid_check_get_severity(check, index)],
            lib.zoredid_check_get_field(check, index), lib.zoredid_check_get_offset(check, index),
            to_text(lib.zoredid_check_get_what(check, index)) or "", reason, found, expected,
            _rule_text(lib.zoredid_rule_get_standard, rule), _rule_text(lib.zoredid_rule_get_why, rule))


# ---- The image ----


@dataclass(frozen=True, repr=False)
class Image:
    """The bytes of one EDID in any state, and what they say. Nothing is read before it is asked for.

    - notes: of an image of make what was chosen and rounded, a text each; else empty
    """

    bytes: bytes
    notes: tuple[str, ...] = member(default=(), compare=False)

    @cached_property
    def facts(self) -> Facts:
        """What the display can do. Raises Error for fewer than 128 bytes."""
        return read_facts(self.bytes)

    @cached_property
    def _modes(self) -> tuple[tuple[Mode, ...], Mode | None]:
        return read_modes(self.bytes)

    @property
    def modes(self) -> tuple[Mode, ...]:
        """All modes that the image announces, in the order of its bytes. Raises Error for fewer than 128 bytes."""
        return self._modes[0]

    @property
    def preferred_mode(self) -> Mode | None:
        """The most preferred mode."""
        return self._modes[1]

    @cached_property
    def fields(self) -> Fields:
        """What each byte says."""
        return Fields(self.bytes)

    def check(self, this_year: int = 0) -> list[Finding]:
        """What is wrong, the worst first. No year of manufacture may exceed this_year; 0 asks the clock."""
        year = to_whole(this_year, "this_year")
        if not 0 <= year <= _MOST_YEAR:
            raise refuse(f"this_year cannot be {this_year}")
        return list(_list_findings(self.fields._map, year))

    def repair(self, leave_out: Iterable[str] = ()) -> Repair:
        """An image where all is right that has one right answer, such as checksums.

        leave_out: ids of rules whose faults stay as they are.
        """
        repair, size = own(lib.zoredid_repair_create(), lib.zoredid_repair_free), ffi.new("size_t *")
        for rule in leave_out:
            require(lib.zoredid_repair_leave_out(repair, lib.zoredid_rule_find(encode(rule))))
        require(lib.zoredid_repair_read(repair, self.bytes, len(self.bytes)))
        data = lib.zoredid_repair_get_data(repair, size)
        places = [Place(_rule_text(lib.zoredid_rule_get_id, lib.zoredid_repair_get_rule(repair, index)),
                        lib.zoredid_repair_get_offset(repair, index), lib.zoredid_repair_get_length(repair, index))
                  for index in range(lib.zoredid_repair_get_count(repair))]
        withheld = [Withheld(_rule_text(lib.zoredid_rule_get_id, lib.zoredid_repair_get_withheld_rule(repair, index)),
                             lib.zoredid_repair_get_withheld_offset(repair, index),
                             to_text(lib.zoredid_repair_get_withheld_reason(repair, index)) or "")
                    for index in range(lib.zoredid_repair_get_withheld_count(repair))]
        return Repair(Image(copy_bytes(data, size[0])), places, withheld)

    def edit(self) -> Editor:
        """An edit of a copy, for a with statement."""
        return Editor(self.bytes)

    @property
    def maker_name(self) -> str | None:
        """The maker's name, of the library's own list or the system's; None for unknown letters."""
        letters = self.facts.identity.manufacturer
        room = ffi.new("char[]", _CUT)
        length = lib.zoredid_get_maker_name(encode(letters), room, _CUT) if letters else 0
        return ffi.string(room).decode() if length else None

    def summary(self) -> list[tuple[str, str]]:
        """The most important facts in words, for people: pairs of a question and its answer.

        A choice of what the command says: "zoredid show" has all of it, and its words may become others.
        """
        return list(_summarise(self))

    def __len__(self) -> int:
        return len(self.bytes)

    def __reduce__(self) -> tuple[type[Image], tuple[Any, ...]]:
        return Image, (self.bytes, self.notes)

    def __repr__(self) -> str:
        try:
            identity, mode = self.facts.identity, self.preferred_mode
        except Error as error:
            return f"<zoredid.Image of {len(self)} bytes: {error}>"
        name = " ".join(text for text in (identity.manufacturer, identity.name) if text)
        return f"<zoredid.Image {name or 'without a name'}{f', {mode}' if mode else ''}, {len(self)} bytes>"

    def _repr_html_(self) -> str:
        try:
            rows = self.summary()
        except Error:
            return f"<p>{escape(repr(self))}</p>"
        return "<table>" + "".join(f"<tr><th>{escape(question)}</th><td>{escape(answer)}</td></tr>"
                                   for question, answer in rows) + "</table>"


_LINKS = {Link.ANALOG: "analogue", Link.DIGITAL: "digital", Link.DVI: "DVI", Link.HDMI: "HDMI",
          Link.DISPLAYPORT: "DisplayPort", Link.LVDS: "LVDS", Link.OTHER: "other digital"}


def _summarise(image: Image) -> Iterator[tuple[str, str]]:
    facts = image.facts
    identity, size, link = facts.identity, facts.size, facts.link
    code = f"product {identity.product_code:#06x}" if identity.product_code is not None else ""
    name = identity.name or identity.text or code
    yield "Monitor", " ".join(text for text in (image.maker_name or identity.manufacturer, name) if text)
    if size.diagonal_in:
        yield "Size", f"{size.diagonal_in:.1f} in, {int(size.width_mm or 0)} x {int(size.height_mm or 0)} mm"
    elif size.aspect:
        yield "Size", f"aspect ratio {size.aspect:.2f}"
    if identity.model_year:
        yield "Made", f"model year {identity.model_year}"
    elif identity.year:
        yield "Made", f"week {identity.week} of {identity.year}" if identity.week else str(identity.year)
    if link.kind is not None or link.hdmi_version is not None:
        yield "Link", _describe_link(facts)
    yield "Modes", f"{len(image.modes)}{f', prefers {image.preferred_mode}' if image.preferred_mode else ''}"
    yield "HDR", _describe_hdr(facts)
    yield "VRR", _describe_refresh(facts)
    findings = image.check()
    yield "Findings", f"{len(findings)}: {findings[0]}" if findings else "none"


def _describe_link(facts: Facts) -> str:
    kind, version = facts.link.kind, facts.link.hdmi_version
    hdmi = "" if version is None else "HDMI" if version == 1 else f"HDMI {version:.1f}"
    words = _LINKS.get(kind, "") if kind is not None else ""
    return hdmi if hdmi and kind == Link.HDMI else ", ".join(text for text in (words, hdmi) if text)


def _describe_hdr(facts: Facts) -> str:
    hdr, eotfs = facts.hdr, facts.colour.eotfs or Eotf(0)
    kinds = [name for name, has in (
        ("HDR10", hdr.hdr10), ("PQ without static metadata", Eotf.PQ in eotfs and not hdr.hdr10), ("HLG", hdr.hlg),
        ("HDR gamma", Eotf.HDR_GAMMA in eotfs), ("HDR10+", hdr.hdr10plus), ("Dolby Vision", hdr.dolby_vision)) if has]
    peak = f"; peak {hdr.max_luminance:.0f} cd/m2" if kinds and hdr.max_luminance else ""
    return ", ".join(kinds) + peak or _describe_absence(facts)


def _describe_refresh(facts: Facts) -> str:
    vrr, rates = facts.link.vrr, facts.link.vertical_rates
    if vrr.min_hz is not None:
        return f"from {vrr.min_hz} Hz to the mode's rate" if vrr.max_hz is None else f"{vrr.min_hz} to {vrr.max_hz} Hz"
    if facts.link.nvidia:
        return "a block of NVIDIA"
    if facts.link.kind == Link.DISPLAYPORT and facts.link.continuous and rates.min_hz is not None:
        return f"{rates.min_hz} to {rates.max_hz} Hz (range limits with continuous frequency)"
    return _describe_absence(facts)


def _describe_absence(facts: Facts) -> str:
    return f"not known: {facts.unread}" if facts.unread else "not announced"


# ---- Edits ----


class Change(NamedTuple):
    """What a set has done."""

    before: str
    after: str
    exact: bool  #: False where the nearest value that the field can say took the place of the one that was asked for
    followed: tuple[str, ...]  #: ids of checksums that were made right
    others: tuple[str, ...] = ()  #: ids of fields that read differently, after "raw:" and of a maximum luminance


class PartChange(NamedTuple):
    """What an edit of a part has done. Fields may have other indexes than before.

    - part: as it is now; None of one that was removed
    - followed: ids of lengths, counts and checksums that changed with it
    - new_block: the number of an extension block that was added for it; 0 for none
    """

    part: Field | None
    followed: tuple[str, ...]
    new_block: int = 0


def _read_text(fields: Fields, id: str) -> str | None:  # pylint: disable=redefined-builtin
    """The value; of a group the only text in it, empty where it has none."""
    field = fields[id]
    if field.kind != FieldKind.GROUP:
        return field.value
    texts = []
    for inner in (fields[index] for index in range(field.index + 1, len(fields))):
        if inner.depth <= field.depth:
            break
        if inner.kind == FieldKind.TEXT:
            texts.append(inner.value)
    return texts[0] if len(texts) == 1 else ""


def _read_real(fields: Fields, id: str) -> float | None:  # pylint: disable=redefined-builtin
    return fields[id].number


def _read_whole(fields: Fields, id: str) -> int | None:  # pylint: disable=redefined-builtin
    number = fields[id].number
    return None if number is None else int(number)


class _Named(Generic[ANSWER]):
    """A field that has a name of its own in an editor: reads as its value, sets it when assigned.

    adds: a display descriptor to an image without the field.
    """

    def __init__(self, id: str, read: Callable[[Fields, str], ANSWER],  # pylint: disable=redefined-builtin
                 doc: str, adds: bool = False) -> None:
        self._id, self._read, self._adds = id, read, adds
        self.__doc__ = doc

    def __get__(self, editor: Editor | None, owner: type[Editor]) -> ANSWER:
        if editor is None:
            return self  # type: ignore[return-value]  # of the class itself: for help()
        try:
            return self._read(editor.fields, self._id)
        except NoFieldError:
            return None  # type: ignore[return-value]

    def __set__(self, editor: Editor, value: Value) -> None:
        with editor._lock:  # pylint: disable=protected-access
            try:
                editor.set(self._id, value)
            except NoFieldError:
                if not self._adds:
                    raise
                editor._edit_part(lib.zoredid_writer_add_text, encode(self._id), _to_words(value, FieldKind.TEXT))


class Editor:
    """An edit of a copy of an image. A set counts only when the field then reads as asked and no other differs, an edit
    of a part only when the other parts read as before; else RefusedError is raised, and nothing has changed.

        with image.edit() as edit:
            edit.name = "Projector"
            edit.set("base.display.gamma", 2.4)
        changed = edit.image

    Parts are extension blocks; standard timings and descriptors of the base block; data blocks, detailed timings and
    items of lists in extension blocks. block is the number of the block that takes a part, 0 for the base block, else
    the first one with room, or a new one; place counts from 0 among its like in the block, else it is the last one.
    Parts are edited as asked: Image.check says what is wrong then, as without the preferred timing.

    Threads may share one: each edit, and each look at the bytes, is whole. A name that it does not have is no attribute.
    """

    __slots__ = ("_lock", "_writer")

    name = _Named("base.name", _read_text, "Product name, up to 13 characters; None without one.", True)
    serial_text = _Named("base.serial", _read_text, "Serial number as text, up to 13 characters; None without one.",
                         True)
    manufacturer = _Named("base.identity.manufacturer", _read_text, "Three letters.")
    product_code = _Named("base.identity.product-code", _read_whole, "16 bits.")
    serial_number = _Named("base.identity.serial-number", _read_whole, "32 bits; None where it is not given.")
    week = _Named("base.identity.week", _read_whole, "Of manufacture; None where it is not given.")
    year = _Named("base.identity.year", _read_whole, "Of manufacture.")
    gamma = _Named("base.display.gamma", _read_real, "1.00 to 3.54; None where it is elsewhere.")

    def __init__(self, data: bytes) -> None:
        self._lock = threading.RLock()
        self._writer = own(lib.zoredid_writer_create(), lib.zoredid_writer_free)
        require(lib.zoredid_writer_read(self._writer, data, len(data)))

    def __enter__(self) -> Editor:
        return self

    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None,
                 trace: TracebackType | None) -> None:
        """Nothing: the image that is edited is a copy."""

    def set(self, field: str | int | Field, value: Value, number: int = 0) -> Change:
        """Sets a field by its id (number: which of several, from 0), its index or as it is; checksums follow.

        The value is text as Field.value has it, a number in the field's unit (the nearest one that it can say is taken),
        True or False of a flag, bytes of a field of bytes, or "raw:" and the bits. Raises RefusedError with the reason
        and what is allowed, NoFieldError where the image has no such field; nothing has changed then.
        """
        with self._lock:
            index = self._find(field, number)
            kind = lib.zoredid_map_get_kind(lib.zoredid_writer_get_map(self._writer), index)
            words = _to_words(value, kind)
            if isinstance(field, str):
                status = lib.zoredid_writer_set_by_id(self._writer, encode(field), number, words)
            else:
                status = lib.zoredid_writer_set(self._writer, index, words)
            require(status, self._text(lib.zoredid_writer_get_reason))
            return Change(self._text(lib.zoredid_writer_get_before), self._text(lib.zoredid_writer_get_after),
                          bool(lib.zoredid_writer_is_exact(self._writer)),
                          self._list_ids(lib.zoredid_writer_get_followed_count, lib.zoredid_writer_get_followed),
                          self._list_ids(lib.zoredid_writer_get_other_count, lib.zoredid_writer_get_other))

    def add_block(self, tag: int, data: Bytes = b"", place: int | None = None) -> PartChange:
        """Adds an extension block with a tag, 1 to 255: 128 bytes, or without bytes an empty one.

        place counts from 1, the block after the base block. EDID 1.3 asks for a block map beside two extension blocks:
        where it lacks, it becomes block 1, and the others follow it.
        """
        if not 1 <= tag <= 255:
            raise refuse("a tag is 1 to 255")
        block = _take_bytes(data, 128, 0)
        return self._edit_part(lib.zoredid_writer_add_block, tag, block or ffi.NULL, _to_place(place))

    def add_standard(self, data: Bytes, place: int | None = None) -> PartChange:
        """Adds a standard timing of 2 bytes to the base block."""
        return self._edit_part(lib.zoredid_writer_add_standard, _take_bytes(data, 2), _to_place(place))

    def add_descriptor(self, data: Bytes, block: int | None = None, place: int | None = None) -> PartChange:
        """Adds a detailed timing or a display descriptor of 18 bytes. In the base block a dummy makes room for it."""
        return self._edit_part(lib.zoredid_writer_add_descriptor, _take_bytes(data, 18), _to_place(block),
                               _to_place(place))

    def add_data_block(self, id: str, payload: Bytes = b"",  # pylint: disable=redefined-builtin
                       block: int | None = None, place: int | None = None) -> PartChange:
        """Adds a data block of the kind with an id, such as "cta.hdr-static" or "displayid.tiled".

        The payload is what follows the header, the extended tag and the OUI of the kind; "cta.vendor" has its OUI in
        the payload.
        """
        data = _take_bytes(payload)
        return self._edit_part(lib.zoredid_writer_add_data_block, _encode_id(id), data, len(data), _to_place(block),
                               _to_place(place))

    def add_item(self, id: str, data: Bytes,  # pylint: disable=redefined-builtin
                 block: int | None = None, place: int | None = None) -> PartChange:
        """Adds an item to the list of a data block: the byte of a video code to "cta.video", the 3 bytes of an audio
        descriptor to "cta.audio", the 20 bytes of a timing to "displayid.type7"."""
        item = _take_bytes(data)
        return self._edit_part(lib.zoredid_writer_add_item, _encode_id(id), item, len(item), _to_place(block),
                               _to_place(place))

    def remove(self, field: str | int | Field, number: int = 0) -> PartChange:
        """Removes the part that a field is, or is in. A data block goes with its last item."""
        with self._lock:
            return self._edit_part(lib.zoredid_writer_remove, self._find(field, number, True))

    def move(self, field: str | int | Field, place: int, number: int = 0) -> PartChange:
        """Moves the part that a field is, or is in, to a place among its like, from 0; blocks count from 1."""
        with self._lock:
            return self._edit_part(lib.zoredid_writer_move, self._find(field, number, True), _to_place(place))

    def __repr__(self) -> str:
        return f"<zoredid.Editor of {self.image!r}>"

    @property
    def bytes(self) -> bytes:
        """The present bytes."""
        with self._lock:
            size = ffi.new("size_t *")
            data = lib.zoredid_writer_get_data(self._writer, size)
            return copy_bytes(data, size[0])

    @property
    def image(self) -> Image:
        """The present bytes as an image of their own."""
        return Image(self.bytes)

    @property
    def fields(self) -> Fields:
        """What the present bytes say."""
        return Fields(self.bytes)

    def _edit_part(self, call: Any, *arguments: Any) -> PartChange:
        with self._lock:
            status = call(self._writer, *arguments)
            try:
                require(status, self._text(lib.zoredid_writer_get_reason))
            except RefusedError as error:
                fields = self.fields
                error.lacking = int(lib.zoredid_writer_get_lacking(self._writer))
                error.removable = tuple(fields[int(lib.zoredid_writer_get_removable(self._writer, index))]
                                        for index in range(lib.zoredid_writer_get_removable_count(self._writer)))
                raise
            part = lib.zoredid_writer_get_part(self._writer)
            return PartChange(None if part == lib.ZOREDID_NONE else self.fields[int(part)],
                              self._list_ids(lib.zoredid_writer_get_followed_count, lib.zoredid_writer_get_followed),
                              int(lib.zoredid_writer_get_new_block(self._writer)))

    # Those that follow are called with the lock held.

    def _find(self, field: str | int | Field, number: int, whole: bool = False) -> int:
        """whole: a Field also says what it did; of a list another item may be at the place of one that is gone."""
        if isinstance(field, str):
            index = lib.ZOREDID_NONE
            if 0 <= number <= _MOST_SIZE:
                index = lib.zoredid_map_find(lib.zoredid_writer_get_map(self._writer), find_id(field), number)
            if index == lib.ZOREDID_NONE:
                raise _make_no_field(field, number)
            return int(index)
        if isinstance(field, Field):
            fields = self.fields
            now = fields[field.index] if field.index < len(fields) else None
            same = now is not None and (now.id, now.offset, now.pieces) == (field.id, field.offset, field.pieces)
            if not same or whole and now != field:
                raise refuse(f"{field.name} is not there: after an edit, fields are to be found again")
            return int(field.index)
        place = operator.index(field)
        return place if 0 <= place <= _MOST_SIZE else int(lib.ZOREDID_NONE)

    def _list_ids(self, get_count: Any, get: Any) -> tuple[str, ...]:
        fields = lib.zoredid_writer_get_map(self._writer)
        return tuple(IDS[lib.zoredid_map_get_id(fields, get(self._writer, index))]
                     for index in range(get_count(self._writer)))

    def _text(self, get: Any) -> str:
        return to_text(get(self._writer, ffi.NULL)) or ""


def _to_place(place: int | None) -> int:
    if place is None:
        return int(lib.ZOREDID_NONE)
    if not 0 <= place < lib.ZOREDID_NONE:
        raise refuse(f"{place} is not the number of a block or a place")
    return place


def _take_bytes(data: Bytes, *sizes: int) -> bytes:
    """sizes: that are allowed; without them all."""
    if sizes and len(data) not in sizes:
        raise refuse(f"it takes {sizes[0]} bytes, not {len(data)}")
    return bytes(data)


def _encode_id(id: str) -> bytes:  # pylint: disable=redefined-builtin
    if not find_id(id):
        raise _make_no_field(id)
    return encode(id)


def _to_words(value: Value, kind: int) -> bytes:
    """A value as C takes it, for a field of a kind; a group means the text in it."""
    if isinstance(value, str):
        return encode(value)
    if isinstance(value, bool):
        if kind in (FieldKind.TEXT, FieldKind.GROUP):
            raise refuse("it takes a text, not True or False")
        return b"yes" if value else b"no"
    if isinstance(value, (bytes, bytearray, memoryview)):
        if kind not in (FieldKind.BYTES, FieldKind.RESERVED, FieldKind.NO_MEANING):
            raise refuse("it is not a field of bytes: it takes a text, a number, True or False")
        return bytes(value).hex().encode()
    if isinstance(value, (int, float, Decimal)):
        return str(value).encode()
    if isinstance(value, Real):  # such as a Fraction
        return str(float(value)).encode()
    raise TypeError(f"a value is a text, a number, True, False or bytes, not {type(value).__name__}")
