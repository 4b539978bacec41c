"""The module that cffi makes of zoredid.h."""

from typing import Any

ffi: Any
lib: Any
