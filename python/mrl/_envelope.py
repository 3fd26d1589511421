"""Situations of a design code, and which of their combinations governs."""

from __future__ import annotations

import os
from collections.abc import Iterator, Sequence
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path
from typing import TYPE_CHECKING

from mrl import _core

if TYPE_CHECKING:  # numpy is loaded when an array is wanted: to import mrl is quick
    import numpy.typing as npt


@dataclass(frozen=True)
class Governing:
    """A combination: the key such as "1.35*1+1.5*11", the action that leads and the expression, None where there is none."""

    key: str
    leading: str | None
    expression: str | None


class Envelope:
    """The extremes of responses; `max` and `min` are arrays with a value for each row, not-a-number without a combination."""

    def __init__(self, extremes: _core.Extremes, situation: str) -> None:
        self._extremes = extremes
        self.situation = situation
        self.max = extremes.values(True)
        self.min = extremes.values(False)

    def __len__(self) -> int:
        return len(self.max)

    def _governing(self, row: int, is_max: bool) -> Governing | None:
        if not 0 <= row < len(self):
            raise IndexError(row)
        key, leading, expression = self._extremes.governing(row, is_max)
        return None if key is None else Governing(key, leading, expression)

    def governing_max(self, row: int) -> Governing | None:
        """The combination that gives the greatest value of a row; its text is made on demand."""
        return self._governing(row, True)

    def governing_min(self, row: int) -> Governing | None:
        return self._governing(row, False)


class Situation:
    """A situation of the design code, with the project's combinations as they were when it was first looked at."""

    def __init__(self, session: _core.Session, name: str, kind: str, title: str, clause: str) -> None:
        self._session = session
        self.name = name
        self.kind = kind
        self.title = title
        self.clause = clause

    @cached_property
    def _planned(self) -> _core.Situation:
        return _core.Situation(self._session, self.name)

    @property
    def count(self) -> int:
        """The number of choices; docs/combinations.md tells what is counted."""
        return int(self._planned.count())

    @property
    def distinct(self) -> int:
        """The number of different vectors of factors."""
        return int(self._planned.distinct())

    @property
    def left_out(self) -> list[str]:
        """What takes no part, in words."""
        return self._planned.left_out()

    def combinations(self, limit: int = 10000) -> Iterator[Governing]:
        """All combinations; more than the limit are an Error."""
        return (Governing(*entry) for entry in self._planned.combinations(limit))

    def export(
        self,
        file: str | os.PathLike[str],
        format: str = "",
        limit: int = 10000,
        matrix: npt.ArrayLike | None = None,
        numbers: Sequence[int] | None = None,
    ) -> None:
        """Writes the combinations as `mrl-lc export --what combinations` does, each vector of factors once.

        More choices than the limit are an Error. With a matrix of responses and the load cases of its columns it writes
        those that govern a response, however many there are. The format is told by the file's name unless given.
        """
        path = Path(file)
        kind = format or path.suffix.lstrip(".")
        if matrix is None:
            written = _core.exported_all(self._session, self._planned, kind, limit)
        else:
            columns = self._session.case_numbers() if numbers is None else list(numbers)
            extremes = _core.Extremes(self._planned, matrix, columns, 0)
            written = _core.exported_governing(self._session, extremes, kind)
        path.write_bytes(written)

    def envelope(self, matrix: npt.ArrayLike, numbers: Sequence[int], threads: int = 0) -> Envelope:
        """The extremes of a matrix with a row for each response and a column for each of these load cases."""
        return Envelope(_core.Extremes(self._planned, matrix, list(numbers), threads), self.name)
