"""An image: its facts, modes, fields and findings, and edits of it."""

from __future__ import annotations

import os
from dataclasses import dataclass
from functools import cached_property
from html import escape
from types import TracebackType
from typing import Any, Iterable, Iterator, NamedTuple, Union, overload

from ._codes import IDS, Codes, Error, NoFieldError, own, require, to_text
from ._facts import Facts, Mode, read_facts, read_modes
from ._names import Area, FieldKind, Severity
from ._zoredid import ffi, lib

PathOrBytes = Union[str, "os.PathLike[str]", bytes, bytearray, memoryview]
Value = Union[str, bool, int, float, bytes]
_KINDS, _AREAS, _SEVERITIES = Codes(FieldKind), Codes(Area), Codes(Severity)
_CUT = 256  # bytes of a value that are asked for first


def read_bytes(source: PathOrBytes) -> bytes:
    """The bytes themselves, or those of a file."""
    if isinstance(source, (bytes, bytearray, memoryview)):
        return bytes(source)
    with open(source, "rb") as file:
        return file.read()


def load(source: PathOrBytes) -> Image:
    """The image in a file or in bytes; the first one where several EDIDs follow each other (see load_all).

    A path is that of a raw image, such as "/sys/class/drm/card0-HDMI-A-1/edid". Bytes are taken in any state. Raises
    OSError for a file that cannot be read, Error without bytes.
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
                raise NoFieldError(f"the image has no field {key}" if find_id(key) else f"no field has the id {key}",
                                   lib.ZOREDID_ERROR_NO_FIELD)
            return self._get(index)
        if isinstance(key, slice):
            return [self._get(index) for index in range(len(self))[key]]
        return self._get(range(len(self))[key])

    def all(self, id: str) -> list[Field]:  # pylint: disable=redefined-builtin
        """All fields with an id, in the order of their places."""
        number = find_id(id)
        return [self._get(lib.zoredid_map_find(self._map, number, rank))
                for rank in range(lib.zoredid_map_count(self._map, number))]

    def at(self, offset: int, bit: int = 7) -> Field | None:
        """The leaf that a bit (7 to 0) of a byte belongs to; None past the image."""
        index = lib.zoredid_map_find_at(self._map, offset, bit) if offset >= 0 and 0 <= bit <= 7 else lib.ZOREDID_NONE
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
    return int(lib.zoredid_id_find(text.encode()))


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
    """The bytes of one EDID in any state, and what they say. Nothing is read before it is asked for."""

    bytes: bytes

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
        return list(_list_findings(self.fields._map, this_year))

    def repair(self, leave_out: Iterable[str] = ()) -> Repair:
        """An image where all is right that has one right answer, such as checksums.

        leave_out: ids of rules whose faults stay as they are.
        """
        repair, size = own(lib.zoredid_repair_create(), lib.zoredid_repair_free), ffi.new("size_t *")
        for rule in leave_out:
            require(lib.zoredid_repair_leave_out(repair, lib.zoredid_rule_find(rule.encode())))
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
        """The maker's name, of the system's list or the library's own; None for unknown letters."""
        letters = self.facts.identity.manufacturer
        room = ffi.new("char[]", _CUT)
        length = lib.zoredid_get_maker_name(letters.encode(), room, _CUT) if letters else 0
        return ffi.string(room).decode() if length else None

    def summary(self) -> list[tuple[str, str]]:
        """The most important facts in words: pairs of a question and its answer, for people."""
        return list(_summarise(self))

    def __len__(self) -> int:
        return len(self.bytes)

    def __reduce__(self) -> tuple[type[Image], tuple[Any]]:
        return Image, (self.bytes,)

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


def _summarise(image: Image) -> Iterator[tuple[str, str]]:
    facts = image.facts
    identity, size, hdr, vrr = facts.identity, facts.size, facts.hdr, facts.link.vrr
    yield "Monitor", " ".join(text for text in (image.maker_name or identity.manufacturer, identity.name) if text)
    if size.diagonal_in:
        yield "Size", f"{size.diagonal_in:.1f} in, {size.width_mm:g} x {size.height_mm:g} mm"
    year = identity.year or identity.model_year
    if year:
        yield "Made" if identity.year else "Model", str(year)
    if facts.link.kind is not None:
        yield "Link", getattr(facts.link.kind, "name", str(facts.link.kind))
    yield "Modes", f"{len(image.modes)}{f', prefers {image.preferred_mode}' if image.preferred_mode else ''}"
    kinds = [name for name, has in (("HDR10", hdr.hdr10), ("HLG", hdr.hlg), ("HDR10+", hdr.hdr10plus),
                                    ("Dolby Vision", hdr.dolby_vision)) if has]
    peak = f", to {hdr.max_luminance:.0f} cd/m2" if kinds and hdr.max_luminance else ""
    yield "HDR", ", ".join(kinds) + peak or "not announced"
    most = "the rate of the mode" if vrr.max_hz is None else f"{vrr.max_hz} Hz"
    yield "VRR", "not announced" if vrr.min_hz is None else f"{vrr.min_hz} Hz to {most}"
    findings = image.check()
    yield "Findings", f"{len(findings)}: {findings[0]}" if findings else "none"


# ---- Edits ----


class Change(NamedTuple):
    """What a set has done."""

    before: str
    after: str
    exact: bool  #: False where the nearest value that the field can say took the place of the one that was asked for
    followed: tuple[str, ...]  #: ids of checksums that were made right


class _Named:
    """A field that has a name of its own in an editor: reads as its value, sets it when assigned.

    A group stands for the text in it.
    """

    def __init__(self, id: str) -> None:  # pylint: disable=redefined-builtin
        self._id = id

    def __get__(self, editor: Editor | None, owner: type[Editor]) -> str:
        if editor is None:
            return self  # type: ignore[return-value]  # of the class itself: for help()
        fields = editor.fields
        field = fields[self._id]
        while field.kind == FieldKind.GROUP or field.kind != FieldKind.TEXT and field.id != self._id:
            field = fields[field.index + 1]
        return field.value

    def __set__(self, editor: Editor, value: Value) -> None:
        editor.set(self._id, value)


class Editor:
    """An edit of a copy of an image: each set counts only when the field then reads as asked and no other differs.

        with image.edit() as edit:
            edit.name = "Projector"
            edit.set("base.display.gamma", 2.4)
        changed = edit.image
    """

    name = _Named("base.name")  #: product name, up to 13 characters
    serial_text = _Named("base.serial")  #: serial number as text, up to 13 characters
    manufacturer = _Named("base.identity.manufacturer")  #: three letters
    product_code = _Named("base.identity.product-code")  #: 16 bits
    serial_number = _Named("base.identity.serial-number")  #: 32 bits
    week = _Named("base.identity.week")  #: of manufacture
    year = _Named("base.identity.year")  #: of manufacture
    gamma = _Named("base.display.gamma")  #: 1.00 to 3.54

    def __init__(self, data: bytes) -> None:
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
        True or False, bytes, or "raw:" and the bits. Raises RefusedError with the reason and what is allowed,
        NoFieldError where the image has no such field; nothing has changed then.
        """
        text = _to_words(value).encode()
        if isinstance(field, str):
            status = lib.zoredid_writer_set_by_id(self._writer, field.encode(), number, text)
        else:
            index = field.index if isinstance(field, Field) else field
            status = lib.zoredid_writer_set(self._writer, index if index >= 0 else lib.ZOREDID_NONE, text)
        require(status, self._text(lib.zoredid_writer_get_reason))
        fields, writer = lib.zoredid_writer_get_map(self._writer), self._writer
        followed = (lib.zoredid_writer_get_followed(writer, index)
                    for index in range(lib.zoredid_writer_get_followed_count(writer)))
        return Change(self._text(lib.zoredid_writer_get_before), self._text(lib.zoredid_writer_get_after),
                      bool(lib.zoredid_writer_is_exact(writer)),
                      tuple(IDS[lib.zoredid_map_get_id(fields, index)] for index in followed))

    @property
    def bytes(self) -> bytes:
        """The present bytes."""
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

    def _text(self, get: Any) -> str:
        return to_text(get(self._writer, ffi.NULL)) or ""


def _to_words(value: Value) -> str:
    if isinstance(value, bool):
        return "yes" if value else "no"
    return value.hex() if isinstance(value, bytes) else str(value)
