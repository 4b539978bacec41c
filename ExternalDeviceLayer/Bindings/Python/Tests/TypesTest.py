"""What mypy --strict reads as a user's program: types of the package that an editor would show."""

from fractions import Fraction

import zoredid


def widths(path: str) -> list[int]:
    return [mode.width for mode in zoredid.load(path).modes]


def answers(image: zoredid.Image) -> tuple[float | None, zoredid.Link | None, Fraction | None, str | None]:
    mode = image.preferred_mode
    with image.edit() as edit:
        edit.name = "Projector"
        edit.gamma = 2.4
        year: int | None = edit.year
        del year
    return image.facts.hdr.max_luminance, image.facts.link.kind, mode.rate if mode else None, edit.name
