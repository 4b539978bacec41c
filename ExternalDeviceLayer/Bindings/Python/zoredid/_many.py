"""Facts of many images as columns."""

from __future__ import annotations

import os
from array import array
from collections import deque
from concurrent.futures import Future, ThreadPoolExecutor
from itertools import islice
from typing import Any, Iterable, Iterator, Mapping, Sequence, Union, overload

from ._codes import make_error, to_text
from ._facts import get_fact
from ._image import PathOrBytes
from ._names import FACTS
from ._zoredid import ffi, lib

_BATCH = 2048  # images of one call of C
_PATH = 1 << 63  # bit of a size: a path


class Column(Sequence[Any]):
    """A fact of many images: each an int or a float, or None where it is not said.

    Two buffers hold it, which numpy and pyarrow read without a copy: values, an array of 'q' (64 bits: numbers, flags and
    codes) or 'd' (real numbers), and said, a byte for each: 1 or 0. Where it is 0 the value is 0.
    """

    def __init__(self, code: str) -> None:
        self.values: array[Any] = array(code)
        self.said = bytearray()

    def __len__(self) -> int:
        return len(self.values)

    @overload
    def __getitem__(self, key: int) -> int | float | None: ...

    @overload
    def __getitem__(self, key: slice) -> list[int | float | None]: ...

    def __getitem__(self, key: int | slice) -> Any:
        if isinstance(key, slice):
            return [value if said else None for value, said in zip(self.values[key], self.said[key])]
        return self.values[key] if self.said[key] else None

    def __iter__(self) -> Iterator[int | float | None]:
        return (value if said else None for value, said in zip(self.values, self.said))

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Column) and self.values == other.values and self.said == other.said

    def _require_free(self) -> None:
        """Raises BufferError while something reads one of the buffers, which then cannot grow."""
        self.values.append(0)
        self.values.pop()
        self.said.append(0)
        self.said.pop()

    def __repr__(self) -> str:
        return f"<zoredid.Column of {len(self)}, {sum(self.said)} said>"


AnyColumn = Union[Column, list[Any]]


class Table(Mapping[str, AnyColumn]):
    """Columns by the names of facts: a Column for numbers, a list for texts and bytes (None where they are not said).

    All have rows elements, in the order of the images. errors has what went wrong by the number of the row, whose facts
    are None.
    """

    def __init__(self, facts: Iterable[str]) -> None:
        self._columns: dict[str, AnyColumn] = {name: [] if _is_text(name) else Column(_code(name)) for name in facts}
        self.errors: dict[int, Exception] = {}
        self.rows = 0

    def __getitem__(self, name: str) -> AnyColumn:
        return self._columns[name]

    def __iter__(self) -> Iterator[str]:
        return iter(self._columns)

    def __len__(self) -> int:
        return len(self._columns)

    def __repr__(self) -> str:
        return f"<zoredid.Table of {self.rows} rows, {len(self)} columns, {len(self.errors)} errors>"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Table):
            return super().__eq__(other)
        return self.rows == other.rows and self._columns == other._columns and _compare(self) == _compare(other)

    def extend(self, other: Table) -> None:
        """Adds the rows of a table with the same columns, which may be this one.

        Raises ValueError for other columns, and BufferError while a buffer of this table is in use. Nothing has changed
        then.
        """
        if set(self) != set(other):
            raise ValueError(f"the tables have other columns: {', '.join(sorted(set(self) ^ set(other)))}")
        for column in self._columns.values():
            if isinstance(column, Column):
                column._require_free()
        for name, column in self._columns.items():
            added = other[name]
            if isinstance(column, Column) and isinstance(added, Column):
                column.values.extend(added.values[:])
                column.said.extend(bytes(added.said))
            else:
                column.extend(added[:])  # type: ignore[union-attr]
        self.errors.update([(row + self.rows, error) for row, error in other.errors.items()])
        self.rows += other.rows


def _compare(table: Table) -> dict[int, tuple[type, str]]:
    """Errors that can be compared, as exceptions cannot."""
    return {row: (type(error), str(error)) for row, error in table.errors.items()}


def _is_text(name: str) -> bool:
    get_fact(name)  # a name that is not known
    return FACTS[name].type in (str, bytes)


def _code(name: str) -> str:
    return "d" if FACTS[name].type is float else "q"


def read_many(sources: Iterable[PathOrBytes], facts: Sequence[str], *, threads: int | None = None) -> Table:
    """Facts, by names such as "link.vrr.max_hz" (FACTS has all), of many files or images, in their order.

    Of a file or bytes with several EDIDs the first one counts. Names of the command's JSON are names of facts, too,
    where its value is no list (but for "unread"). sources may be a generator: only a few thousand are held
    at a time. Threads, as many as the process may use when threads is None, read at the same time: the interpreter is
    free meanwhile.
    """
    if isinstance(sources, (str, bytes, bytearray, memoryview, os.PathLike)):
        raise TypeError("sources are several paths or bytes, such as a list of one")
    if isinstance(facts, str):
        raise TypeError("facts are several names, such as a list of one")
    table = Table(facts)
    names = list(table)
    count = threads or len(os.sched_getaffinity(0))
    rest = iter(sources)
    batches = iter(lambda: list(islice(rest, _BATCH)), [])
    if count == 1:
        for batch in batches:
            table.extend(_read_batch(batch, names))
        return table
    waiting: deque[Future[Table]] = deque()
    with ThreadPoolExecutor(count) as pool:
        for batch in batches:
            waiting.append(pool.submit(_read_batch, batch, names))
            if len(waiting) > 2 * count:
                table.extend(waiting.popleft().result())
        for future in waiting:
            table.extend(future.result())
    return table


def _read_batch(sources: list[PathOrBytes], names: list[str]) -> Table:
    inputs, sizes = _join(sources)
    count = len(sources)
    table = Table(names)
    columns = ffi.new("zorpy_column[]", len(names))
    buffers = [_prepare(column, name, table, count) for column, name in zip(columns, names)]
    statuses, errors = bytearray(count), array("i", bytes(4 * count))
    lib.zorpy_read_many(inputs, ffi.from_buffer("uint64_t[]", sizes), count, columns, len(names),
                        ffi.from_buffer(statuses), ffi.from_buffer("int[]", errors))
    for name, kept in zip(names, buffers):
        if _is_text(name):
            table._columns[name] = _list_texts(kept, count, FACTS[name].type)
    if any(statuses):
        table.errors = {row: _make_error(sources[row], status, errors[row])
                        for row, status in enumerate(statuses) if status}
    table.rows = count
    return table


def _join(sources: list[PathOrBytes]) -> tuple[bytes, array[int]]:
    """All bytes and paths, one after the other, and the length of each."""
    if set(map(type, sources)) == {bytes}:
        return b"".join(sources), array("Q", map(len, sources))  # type: ignore[arg-type]
    parts, sizes = [], array("Q")
    for source in sources:
        if isinstance(source, bytes):
            parts.append(source)
            sizes.append(len(source))
        elif isinstance(source, (bytearray, memoryview)):
            parts.append(bytes(source))
            sizes.append(len(parts[-1]))
        else:
            path = os.fsencode(source)
            if b"\0" in path:
                raise ValueError("embedded null byte in a path")
            parts.append(path + b"\0")
            sizes.append(len(path) + 1 | _PATH)
    return b"".join(parts), sizes


def _prepare(column: Any, name: str, table: Table, count: int) -> list[Any]:
    """Room for a column: what has to stay until it is filled."""
    column.fact = get_fact(name)
    target = table[name]
    if isinstance(target, Column):
        target.values.frombytes(bytes(8 * count))
        target.said.extend(bytes(count))
        column.said = ffi.from_buffer(target.said)
        if target.values.typecode == "q":
            column.numbers = ffi.from_buffer("int64_t[]", target.values)
        else:
            column.reals = ffi.from_buffer("double[]", target.values)
        return [target]
    said, cells, lengths = ffi.new("unsigned char[]", count), _cells(count), ffi.new("uint16_t[]", count)
    column.said, column.cells, column.lengths = said, cells, lengths
    return [said, cells, lengths]


def _cells(count: int) -> Any:
    return ffi.new_allocator(should_clear_after_alloc=False)("char[]", count * lib.ZORPY_CELL)


def _list_texts(buffers: list[Any], count: int, kind: Any) -> list[Any]:
    said, cells, lengths = buffers
    size = lib.ZORPY_CELL
    room = bytes(ffi.buffer(cells, count * size))  # its slices are three times as fast as those of the buffer
    raws = [room[start:start + length] for start, length in zip(range(0, count * size, size), ffi.unpack(lengths, count))]
    # Most monitors of a fleet share their texts.
    known: dict[bytes, Any] = {raw: raw if kind is bytes else raw.decode() for raw in set(raws)}
    texts = [known[raw] for raw in raws]
    flags = bytes(ffi.buffer(said, count))
    row = flags.find(0)
    while row >= 0:
        texts[row] = None
        row = flags.find(0, row + 1)
    return texts


def _make_error(source: PathOrBytes, status: int, number: int) -> Exception:
    if status == lib.ZOREDID_ERROR_FILE:
        return OSError(number, os.strerror(number) if number else to_text(lib.zoredid_status_get_text(status)),
                       os.fsdecode(source))
    return make_error(status)
