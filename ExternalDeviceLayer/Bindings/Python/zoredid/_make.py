"""Images of wishes: for machines without a monitor, virtual displays and test benches."""

from __future__ import annotations

import re
from fractions import Fraction
from typing import NamedTuple, Union

from ._codes import encode, own, refuse, require, to_text, to_whole
from ._image import Image, PathOrBytes, copy_bytes, load
from ._names import Connector, TimingSource, Wish
from ._zoredid import ffi, lib

_MOST = 0xFFFFFFFF  # of a number of C
_MOST_WISH = 0x7FFFFFFF
_FINEST = 1000000  # of the fraction of a rate
_SOURCES = frozenset(TimingSource)


class WishedMode(NamedTuple):
    """A mode that an image is to announce.

    - width: pixels; height: lines of the frame
    - rate: Hz, exact or to 0.005 Hz; of interlaced modes of fields
    - source: where its timing comes from; UNKNOWN for CTA-861, then VESA DMT, else what is nearest, CVT as well
    """

    width: int
    height: int
    rate: int | float | Fraction
    interlaced: bool = False
    source: TimingSource = TimingSource.UNKNOWN


def make(*modes: Union[str, WishedMode], connector: Connector = Connector.HDMI, name: str = "", serial_text: str = "",
         maker: str = "", product_code: int = 0, width: int = 0, height: int = 0, pq: bool = False, hlg: bool = False,
         max_luminance: int = 0, max_average_luminance: int = 0, min_luminance: float = 0, depth: int = 0,
         ycbcr420: bool = False, audio_channels: int = 0, vrr: tuple[int, int] = (0, 0), max_tmds_clock: int = 0,
         frl: int = 0, year: int = 0, week: int = 0, like: PathOrBytes | Image | None = None) -> Image:
    """Makes an image that announces modes, such as "2560x1440@144" or "1920x1080i@60"; the first one is preferred.

    What is 0, empty or not given is chosen. Raises RefusedError with the reason for wishes that cannot be. The same
    wishes give the same bytes. Image.notes of the result says what was chosen, and what was rounded for EDID.

    - name, serial_text: up to 13 printable characters; maker: three capital letters; product_code: up to 65535
    - width, height: mm, 10 to 2550
    - pq, hlg: HDR; max_luminance, max_average_luminance (of a frame): cd/m2, 50 to 12500; min_luminance: cd/m2
    - depth: bits per colour, 8, 10 or 12; ycbcr420: 4:2:0 from 3840 pixels at 50 Hz on; audio_channels: 0, 2, 6 or 8
    - vrr: Hz, the least and the most of variable refresh
    - max_tmds_clock: MHz, 25 to 600; frl: fixed rate link of HDMI 2.1, 1 for 3 lanes of 3 Gbit/s, to 6 for 4 of 12
    - year: of manufacture, 2006 to 2245; week: of that year, 1 to 53. Without them the donor's, else 2025
    - like: an image whose identity, size, colours and audio are taken where nothing else is wished
    """
    wishes = own(lib.zoredid_maker_create(), lib.zoredid_maker_free)
    for mode in modes:
        _add_mode(wishes, mode)
    for wish, text in ((Wish.NAME, name), (Wish.SERIAL_TEXT, serial_text), (Wish.MAKER, maker)):
        require(lib.zoredid_maker_set_text(wishes, wish, encode(text)))
    for wish, number in (
            (Wish.CONNECTOR, connector), (Wish.PRODUCT_CODE, product_code), (Wish.WIDTH, width), (Wish.HEIGHT, height),
            (Wish.PQ, pq), (Wish.HLG, hlg), (Wish.MAX_LUMINANCE, max_luminance),
            (Wish.MAX_AVERAGE_LUMINANCE, max_average_luminance), (Wish.MIN_LUMINANCE, _to_ten_thousandths(min_luminance)),
            (Wish.DEPTH, depth), (Wish.YCBCR420, ycbcr420), (Wish.AUDIO_CHANNELS, audio_channels),
            (Wish.VRR_MIN, vrr[0]), (Wish.VRR_MAX, vrr[1]), (Wish.MAX_TMDS_CLOCK, max_tmds_clock), (Wish.FRL, frl),
            (Wish.YEAR, year), (Wish.WEEK, week)):
        whole = to_whole(number, wish.name.lower())
        if abs(whole) > _MOST_WISH or lib.zoredid_maker_set_number(wishes, wish, whole) != lib.ZOREDID_OK:
            raise refuse(f"{wish.name.lower()} cannot be {number}")
    if like is not None:
        donor = like if isinstance(like, Image) else load(like)
        require(lib.zoredid_maker_set_donor(wishes, donor.bytes, len(donor.bytes)))
    if not modes:
        raise refuse("no mode is wished")
    require(lib.zoredid_maker_make(wishes), to_text(lib.zoredid_maker_get_reason(wishes, ffi.NULL)) or "")
    size = ffi.new("size_t *")
    data = lib.zoredid_maker_get_data(wishes, size)
    notes = (to_text(lib.zoredid_maker_get_note(wishes, index, ffi.NULL)) or ""
             for index in range(lib.zoredid_maker_get_note_count(wishes)))
    return Image(copy_bytes(data, size[0]), tuple(notes))


def _to_ten_thousandths(number: float) -> int:
    if not 0 <= number < _MOST_WISH:
        raise refuse(f"min_luminance cannot be {number}")
    return round(10000 * number)


def _add_mode(wishes: object, mode: str | WishedMode) -> None:
    wished = _parse(mode) if isinstance(mode, str) else mode
    width, height = to_whole(wished.width, "the width of a mode"), to_whole(wished.height, "the height of a mode")
    try:
        rate = Fraction(wished.rate).limit_denominator(_FINEST)
    except (OverflowError, ValueError):
        raise refuse(f"no display has a mode {mode}") from None
    good = all(0 < number <= _MOST for number in (width, height, rate.numerator)) and wished.source in _SOURCES
    if not good or lib.zoredid_maker_add_mode(wishes, width, height, wished.interlaced, rate.numerator,
                                              rate.denominator, wished.source) != lib.ZOREDID_OK:
        raise refuse(f"no display has a mode {mode}")


def _parse(text: str) -> WishedMode:
    match = re.fullmatch(r"(\d+)x(\d+)(i?)@(\d+(?:\.\d+)?)", text)
    if match is None:
        raise refuse(f"a mode is written as 1920x1080@60 or 1920x1080i@59.94, not as {text}")
    return WishedMode(int(match[1]), int(match[2]), Fraction(match[4]), match[3] == "i")
