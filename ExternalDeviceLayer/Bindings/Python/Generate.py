"""What the build of the Python package generates from zoredid.h, so that no list is kept twice.

    Generate.py module HEADER GLUE OUTPUT.c     the source of the module _zoredid, by cffi; GLUE.c and GLUE.h belong to it
    Generate.py names HEADER FOLDER OUTPUT.py   enumerations and records with types and docstrings; FOLDER has the module
"""

from __future__ import annotations

import re
import sys
import textwrap
from pathlib import Path
from typing import Any, Iterator, NamedTuple

WIDTH = 100


def read(path: str) -> str:
    return Path(path).read_text(encoding="utf-8")


def clean(comment: str) -> str:
    """The words of a comment of C."""
    return " ".join(re.sub(r"^\s*\*+<?|\*+$", "", line).strip() for line in comment.splitlines()).strip(" *<")


# ---- The header ----


class Row(NamedTuple):
    """A function that answers a question about an element of a list."""

    name: str  # of the attribute
    function: str
    result: str
    doc: str


class Family(NamedTuple):
    """A list of C, of which Python has records."""

    record: str  # the class
    doc: str
    owner: str  # the type whose list it is
    prefix: str  # of the names of its functions, after zoredid_OWNER_get_


FAMILIES = (
    Family("VrrRange", "A range of variable refresh.", "facts", "vrr_"),
    Family("ColourSpace", "A colour space with a transfer function, of DisplayID 2.0.", "facts", "space"),
    Family("AudioFormat", "An audio format, of CTA-861 or HDMI 2.0.", "facts", "audio_"),
    Family("Conflict", "Where two sources of the image contradict each other.", "facts", "conflict_"),
    Family("ModeRecord", "A mode as C tells it.", "modes", ""),
)


def list_rows(header: str, family: Family) -> Iterator[Row]:
    doc = documented = ""
    pattern = r"/\*\*(.*?)\*/|ZOREDID_API ([\w ]+?) zoredid_(\w+)\(const zoredid_(\w+)\* \w+, size_t index\);|\n\n"
    for match in re.finditer(pattern, header, re.DOTALL):
        comment, result, function, owner = match.groups()
        if function is None:
            doc, documented = clean(comment) if comment is not None else "", ""
            continue
        name = re.sub(rf"^{owner}_(get_|is_)?", "", function)
        documented = documented or name  # what a comment precedes; functions of the same kind share it
        if owner == family.owner and name.startswith(family.prefix):
            shared = doc if name.split("_")[0] == documented.split("_")[0] or family.prefix else ""
            short = name[len(family.prefix):].lstrip("_") or "space"
            yield Row("ycbcr420" if short == "420" else short, "zoredid_" + function, result, shared)


def declarations(header: str) -> str:
    """The header as cffi reads C: no comments, no preprocessor."""
    text = re.sub(r"/\*.*?\*/", "", header, flags=re.DOTALL)
    text = re.sub(r"^#ifdef __cplusplus\n.*?^#e(?:lse|ndif)$", "", text, flags=re.DOTALL | re.MULTILINE)
    text = re.sub(r"^\s*#.*(?:\\\n.*)*$", "", text, flags=re.MULTILINE)
    return re.sub(r"\bZOREDID_(?:API|INT)\b", "", text)


# ---- The module ----


def fill_function(header: str, family: Family) -> str:
    name = f"zorpy_fill_{family.record}"
    lines = [f"static void {name}(const zoredid_{family.owner}* list, size_t index, int64_t* row)", "{"]
    lines += [f"    *row++ = (int64_t){row.function}(list, index);" for row in list_rows(header, family)]
    return "\n".join([*lines, "}", ""])


def make_module(header_path: str, glue: str, output: str) -> None:
    from cffi import FFI

    header = read(header_path)
    builder = FFI()
    builder.cdef(declarations(header) + "#define ZOREDID_NONE ...\n" + declarations(read(glue + ".h")))
    fill = "".join(fill_function(header, family) for family in FAMILIES)
    builder.set_source("_zoredid", '#include "zoredid.h"\n' + fill + read(glue + ".h") + read(glue + ".c"),
                       py_limited_api=True)
    builder.emit_c_code(output)  # writes only what is new
    Path(output).touch()


# ---- Names: enumerations ----


class Enumeration(NamedTuple):
    name: str  # in C, without zoredid_
    python: str
    doc: str
    members: list[tuple[str, str, str]]  # name in Python, value, documentation

    @property
    def flags(self) -> bool:
        return self.doc.startswith("Bits of")


def camel(name: str) -> str:
    return "".join(word.capitalize() for word in re.split(r"[_.]", name))


def list_enumerations(header: str) -> Iterator[Enumeration]:
    for doc, name, body in re.findall(r"/\*\*((?:(?!\*/).)*?)\*/\s*typedef enum zoredid_(\w+) ZOREDID_INT\s*\{(.*?)\}",
                                      header, re.DOTALL):
        prefix = f"ZOREDID_{name.upper()}_"
        members = []
        for member, value, comment in re.findall(r"(ZOREDID_\w+) = (\w+),?(?:\s*/\*\*<(.*?)\*/)?", body, re.DOTALL):
            short = member.removeprefix(prefix).removeprefix("ZOREDID_")
            if short[0].isdigit():
                short = name.upper().split("_")[-1] + "_" + short
            members.append((short, value, clean(comment)))
        if name != "fact":
            yield Enumeration(name, camel(name), re.sub(r"ZOREDID_FACT_\w+|zoredid_\w+", "", clean(doc)), members)


def write_enumeration(enumeration: Enumeration) -> Iterator[str]:
    yield f"class {enumeration.python}({'IntFlag' if enumeration.flags else 'IntEnum'}):"
    yield f'    """{"Bits" if enumeration.flags else "Values"} of C\'s zoredid_{enumeration.name}."""'
    yield ""
    for name, value, doc in enumeration.members:
        yield f"    {name} = {value}"
        if doc:
            yield from documentation(doc)
    yield ""
    yield ""


def documentation(text: str, indent: str = "    ") -> list[str]:
    text = text[:1].upper() + text[1:]
    text = text if text.endswith(".") else text + "."
    return textwrap.wrap(f'"""{text}"""', WIDTH, initial_indent=indent, subsequent_indent=indent)


def translate(doc: str, enumerations: dict[str, Enumeration]) -> str:
    """A comment of C with the names that Python has."""
    doc = doc.replace("zoredid_map_find", "Image.fields").replace("zoredid_get_maker_name", "Image.maker_name")
    doc = re.sub(r"ZOREDID_\w+_UNKNOWN", "UNKNOWN", doc)
    return re.sub(r"zoredid_(\w+)", lambda match: camel(match[1]) if match[1] in enumerations else match[0], doc)


# ---- Names: facts ----


class Fact(NamedTuple):
    index: int
    path: str  # such as link.vrr.max_hz
    unit: str
    doc: str
    python: str  # its type
    convert: str  # what turns the number of C into it; empty for nothing

    @property
    def annotation(self) -> str:
        """Its type, with int where a code without a name can come."""
        return f"{self.python} | int" if self.convert.startswith("Codes") and "as stored" in self.doc else self.python

    @property
    def group(self) -> str:
        return self.path.rpartition(".")[0]

    @property
    def name(self) -> str:
        return self.path.rpartition(".")[2]


def list_facts(header: str, module: Any, enumerations: dict[str, Enumeration]) -> Iterator[Fact]:
    lib, text = module.lib, lambda pointer: module.ffi.string(pointer).decode() if pointer else ""
    docs = {name: clean(doc) for name, doc in re.findall(r"ZOREDID_FACT_(\w+) = \d+,?(?:[ \t]*/\*\*<(.*?)\*/)?", header)}
    constants = {getattr(lib, "ZOREDID_FACT_" + name): name for name in docs}
    types = {lib.ZOREDID_FACT_TYPE_FLAG: "bool", lib.ZOREDID_FACT_TYPE_NUMBER: "int",
             lib.ZOREDID_FACT_TYPE_REAL: "float", lib.ZOREDID_FACT_TYPE_TEXT: "str",
             lib.ZOREDID_FACT_TYPE_BYTES: "bytes"}
    for index in range(lib.zoredid_fact_get_count()):
        fact = lib.zoredid_fact_get(index)
        doc = docs[constants[fact]]
        python = types[lib.zoredid_fact_get_type(fact)]
        convert = {"bool": "BOOLEAN", "bytes": "bytes"}.get(python, "")
        named = re.match(r"(?:bits )?zoredid_(\w+)", doc)
        if named:
            enumeration = enumerations[named[1]]
            python, convert = enumeration.python, f"Codes({enumeration.python})"
            doc = doc.replace("zoredid_" + named[1], python)
        doc = translate(re.sub(r"^(?:flag|text|real|bytes)\b[:,]? ?", "", doc), enumerations)
        yield Fact(index, text(lib.zoredid_fact_get_name(fact)), text(lib.zoredid_fact_get_unit(fact)), doc, python,
                   convert)


def class_of(group: str) -> str:
    return camel(group) + "Facts"


def describe(fact: Fact) -> str:
    if not fact.unit or fact.doc.startswith(fact.unit):
        return fact.doc or ("yes or no" if fact.python == "bool" else fact.python)
    return f"{fact.unit}: {fact.doc}" if fact.doc else fact.unit


def write_record(name: str, about: str, fields: list[tuple[str, str, str, str]]) -> Iterator[str]:
    """A dataclass of fields: name, type, default, documentation."""
    yield "@dataclass(frozen=True)"
    yield f"class {name}:"
    yield f'    """{about}'
    yield ""
    for field, python, _, doc in fields:
        if python == "bool":
            doc = re.sub(r"\b1 (for|where)", r"true \1", doc).replace("; 0 for", "; false for")
        yield from textwrap.wrap(f"{field}: {doc or python}", WIDTH, initial_indent="    - ", subsequent_indent="      ")
    yield '    """'
    yield ""
    for field, python, default, _ in fields:
        yield f"    {field}: {python}{default}"
    yield ""
    yield ""


def write_facts(facts: list[Fact]) -> Iterator[str]:
    groups = sorted({fact.group for fact in facts}, key=lambda group: (-group.count("."), group))
    for group in groups:
        fields = [(fact.name, f"{fact.annotation} | None", " = None", describe(fact)) for fact in facts
                  if fact.group == group]
        fields += [(child.rpartition(".")[2], class_of(child), f" = {class_of(child)}()", f"see {class_of(child)}")
                   for child in groups if child.rpartition(".")[0] == group]
        yield from write_record(class_of(group), f"Facts {group}.*; None where the image does not say it.", fields)
    top = [group for group in groups if "." not in group]
    yield from write_record("FactGroups", "What a display can do.",
                            [(group, class_of(group), f" = {class_of(group)}()", f"see {class_of(group)}") for group in top])
    yield "# Inner groups first: the class, its place among the groups of the group that it lies in, its own name."
    yield "GROUPS: tuple[tuple[Any, int, str], ...] = ("
    for group in groups:
        parent = group.rpartition(".")[0]
        yield f"    ({class_of(group)}, {groups.index(parent) if parent else len(groups)}, {group.rpartition('.')[2]!r}),"
    yield ")"
    yield ""
    yield "# Each fact by its index in C: the place of its group, its name there, what converts the number."
    yield "PLACES: tuple[tuple[int, str, Any], ...] = ("
    for fact in facts:
        yield f"    ({groups.index(fact.group)}, {fact.name!r}, {fact.convert or None}),"
    yield ")"
    yield ""
    yield "FACTS: dict[str, FactInfo] = {"
    for fact in facts:
        info = ", ".join(repr(part) for part in (fact.path, fact.unit, describe(fact)))
        yield f"    {fact.path!r}: FactInfo({info}, {fact.python}, {fact.index}),"
    yield "}"
    yield '"""All facts by their names."""'
    yield ""
    yield ""


# ---- Names: lists ----


def type_of(row: Row, enumerations: dict[str, Enumeration]) -> tuple[str, str]:
    """The type in Python of a row, and what converts the number."""
    bits = re.search(r"\bbits zoredid_(\w+)", row.doc)
    named = bits[1] if bits else row.result.removeprefix("zoredid_")
    if named in enumerations:
        return enumerations[named].python, f"Codes({enumerations[named].python})"
    if row.name == "id" or row.name.endswith("_id"):
        return "str", "IDS"
    if row.result == "int" and row.name != "bit":
        return "bool", "BOOLEAN"
    return "int", ""


def write_lists(header: str, enumerations: dict[str, Enumeration]) -> Iterator[str]:
    for family in FAMILIES:
        rows = list(list_rows(header, family))
        types = [type_of(row, enumerations) for row in rows]
        yield from write_record(family.record, family.doc,
                                [(row.name, python, "", translate(row.doc, enumerations))
                                 for row, (python, _) in zip(rows, types)])
        yield f"{family.record.upper()}_COLUMNS: tuple[tuple[str, Any], ...] = ("
        for row, (_, convert) in zip(rows, types):
            yield f"    ({row.name!r}, {convert or None}),"
        yield ")"
        yield ""
        yield ""


def make_names(header_path: str, folder: str, output: str) -> None:
    sys.path.insert(0, folder)
    import _zoredid as module

    header = read(header_path)
    enumerations = {enumeration.name: enumeration for enumeration in list_enumerations(header)}
    parts = ['"""Generated from zoredid.h: its enumerations, facts and lists."""', "", "from __future__ import annotations",
             "", "from dataclasses import dataclass", "from enum import IntEnum, IntFlag", "from typing import Any", "",
             "from ._codes import BOOLEAN, IDS, Codes, FactInfo", "", ""]
    for enumeration in enumerations.values():
        parts += write_enumeration(enumeration)
    parts += write_facts(list(list_facts(header, module, enumerations)))
    parts += write_lists(header, enumerations)
    public = re.findall(r"^class (\w+)", "\n".join(parts), re.MULTILINE)
    parts += ["__all__ = [", *textwrap.wrap(", ".join(f'"{name}"' for name in ["FACTS", *public]), WIDTH,
                                           initial_indent="    ", subsequent_indent="    "), "]"]
    Path(output).write_text("\n".join(parts).rstrip() + "\n", encoding="utf-8")


if __name__ == "__main__":
    {"module": make_module, "names": make_names}[sys.argv[1]](*sys.argv[2:])
