"""The exceptions of positions and texts."""

from __future__ import annotations

from . import _tessara


class PositionError(ValueError):
    """Raised for a position without a result.

    `status` is the library's number of the error, `reason` its description, and `index` the index of the position in the
    arrays (None for a single position).
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
    """Raised for a text that isn't a position.

    `code` is a word that is stable between versions, `reason` a clause for people, `piece` the piece of the text in error,
    which begins at the character `begin`, and `index` the index of the text in the arrays.
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
    """Returns the description of a status.

    >>> status_text(-3708)
    'the latitude is outside 80 south to 84 north'
    """
    return _tessara.status_text(status)
