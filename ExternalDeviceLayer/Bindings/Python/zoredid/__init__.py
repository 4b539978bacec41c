"""EDID, the data in which a monitor says what it is and what it can show: read, checked, edited.

    >>> import zoredid
    >>> image = zoredid.load("monitor.bin")
    >>> image.facts.link.kind, image.facts.hdr.max_luminance, image.preferred_mode
    >>> image.fields["base.display.gamma"].number
    >>> [str(finding) for finding in image.check()]

docs/python.md has it all.
"""

from __future__ import annotations

from . import _names
from ._codes import Error, FactInfo, NoFieldError, RefusedError, to_text
from ._facts import Facts, Hdr, Mode, Source
from ._image import (Change, Editor, Field, Fields, Finding, Image, PartChange, Piece, Place, Repair, Withheld, load,
                     load_all)
from ._make import WishedMode, make
from ._many import Column, Table, read_many
from ._names import *  # noqa: F403  # pylint: disable=wildcard-import
from ._zoredid import lib as _lib

__version__: str = to_text(_lib.zoredid_get_version()) or ""

__all__ = [
    "Change", "Column", "Editor", "Error", "FactInfo", "Facts", "Field", "Fields", "Finding", "Hdr", "Image", "Mode",
    "NoFieldError", "PartChange", "Piece", "Place", "RefusedError", "Repair", "Source", "Table", "WishedMode", "Withheld",
    "load", "load_all", "make", "read_many",
]
__all__ += _names.__all__
