"""What a position without a result raises."""

from __future__ import annotations

from . import _tessara


class PositionError(ValueError):
    """A position that has no result.

    `status` is the library's number for it, `index` the position's place in the arrays (None for a single one), and
    `reason` says what is wrong.
    """

    def __init__(self, status: int, reason: str, index: int | tuple[int, ...] | None = None) -> None:
        super().__init__(status, reason, index)
        self.status = status
        self.reason = reason
        self.index = index

    def __str__(self) -> str:
        where = "" if self.index is None else f"position {self.index}: "
        return f"{where}{self.reason} (status {self.status})"


class TextError(ValueError):
    """A text that is no position.

    `code` is a word that stays the same from version to version, `reason` a clause for people, `piece` the piece of the
    text that is wrong, which begins at the character `begin`, and `index` the text's place in the arrays.
    """

    def __init__(
        self, code: str, reason: str, piece: str, begin: int, index: int | tuple[int, ...] | None = None
    ) -> None:
        super().__init__(code, reason, piece, begin, index)
        self.code = code
        self.reason = reason
        self.piece = piece
        self.begin = begin
        self.index = index

    def __str__(self) -> str:
        where = "" if self.index is None else f"text {self.index}: "
        shown = f"{self.piece!r}: " if self.piece else ""
        return f"{where}{shown}{self.reason}"


_tessara.set_position_error(PositionError)


def status_text(status: int) -> str:
    """What a status means.

    >>> status_text(-3708)
    'the latitude is outside 80 south to 84 north'
    """
    return _tessara.status_text(status)
