"""What turns numbers and texts of C into those of Python, and C's errors into exceptions."""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any

from ._zoredid import ffi, lib

BOOLEAN = (False, True)


class Codes(dict[int, Any]):
    """Members of an enumeration by their numbers. A number without a name stays what it is."""

    def __init__(self, enumeration: Any) -> None:
        super().__init__()
        self._enumeration = enumeration

    def __missing__(self, code: int) -> Any:
        try:
            self[code] = self._enumeration(code)
        except ValueError:
            return code
        return self[code]


class Ids(dict[int, str]):
    """Texts of the fields' ids by their numbers."""

    def __missing__(self, number: int) -> str:
        self[number] = to_text(lib.zoredid_id_get_text(number)) or ""
        return self[number]


IDS = Ids()


@dataclass(frozen=True)
class FactInfo:
    """What is known of a fact before any image is read.

    - unit: empty for none
    - type: bool, int, float, str, bytes or an enumeration
    - index: among all facts
    """

    name: str
    unit: str
    doc: str
    type: Any
    index: int


def to_text(pointer: Any) -> str | None:
    """A text of C, which may be null."""
    return ffi.string(pointer).decode() if pointer else None


class Error(Exception):
    """What the library has not done, in its own words. Its number is in status."""

    def __init__(self, text: str, status: int) -> None:
        super().__init__(text, status)
        self.status = status

    def __str__(self) -> str:
        return str(self.args[0])


class RefusedError(Error, ValueError):
    """An edit that is refused. The image is as it was."""

    lacking: int = 0  #: bytes that lack, where there is no room for a part
    removable: tuple[Any, ...] = ()  #: then the fields of parts each of which leaves room enough when it goes


class NoFieldError(Error, LookupError):
    """The image has no such field."""


def make_error(status: int, reason: str = "") -> Exception:
    text = reason or to_text(lib.zoredid_status_get_text(status)) or ""
    if status == lib.ZOREDID_ERROR_MEMORY:
        return MemoryError(text)
    kinds = {lib.ZOREDID_ERROR_REFUSED: RefusedError, lib.ZOREDID_ERROR_NO_FIELD: NoFieldError}
    return kinds.get(status, Error)(text, status)


def require(status: int, reason: str = "") -> None:
    """Raises what a status means."""
    if status != lib.ZOREDID_OK:
        raise make_error(status, reason)


def refuse(reason: str) -> RefusedError:
    """What is refused before C sees it."""
    return RefusedError(reason, lib.ZOREDID_ERROR_REFUSED)


def encode(text: str) -> bytes:
    """A text for C, which ends at the first NUL."""
    if "\0" in text:
        raise refuse("a text has no NUL")
    try:
        return text.encode()
    except UnicodeEncodeError:
        raise refuse(f"not a text: {text!a}") from None


def to_whole(number: Any, name: str) -> int:
    """A number without a fraction."""
    try:
        whole = int(number)
    except (OverflowError, ValueError):
        raise refuse(f"{name} cannot be {number}") from None
    if whole != number:
        raise refuse(f"{name} cannot be {number}: it is a whole number")
    return whole


def own(pointer: Any, free: Any) -> Any:
    """An object of C, which goes with the object of Python."""
    if not pointer:
        raise MemoryError
    return ffi.gc(pointer, free)
