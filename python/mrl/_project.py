"""Projects, and what they hold."""

from __future__ import annotations

import os
from collections.abc import Iterator, Mapping, Sequence
from dataclasses import dataclass
from pathlib import Path
from types import TracebackType
from typing import TYPE_CHECKING, Any

from mrl import _core
from mrl._edit import Edit, Preview, RowPreview
from mrl._envelope import Envelope, Situation
from mrl._words import Partition, Superposition

if TYPE_CHECKING:  # numpy is loaded when an array is wanted: to import mrl is quick
    import numpy as np
    import numpy.typing as npt
    import pandas  # type: ignore[import]

FACTORS = ("gamu", "gamf", "gama", "psi0", "psi1", "psi2", "psi1s")


@dataclass(frozen=True)
class Action:
    """An action with its factors, each the shortest decimal of what is stored."""

    name: str
    code: int
    title: str
    partition: Partition
    superposition: Superposition
    gamu: float
    gamf: float
    gama: float
    psi0: float
    psi1: float
    psi2: float
    psi1s: float


@dataclass(frozen=True)
class Effective:
    """The factors of a load case that count. `source` names the action that they come from; None: its own."""

    gamu: float
    gamf: float
    gama: float
    psi0: float
    psi1: float
    psi2: float
    psi1s: float
    source: str | None


@dataclass(frozen=True)
class Case:
    """A load case. A factor that follows the action is None; `effective` has the one that counts."""

    number: int
    title: str
    action: str | None
    dlx: float
    dly: float
    dlz: float
    factor: float
    gamu: float | None
    gamf: float | None
    gama: float | None
    psi0: float | None
    psi1: float | None
    psi2: float | None
    psi1s: float | None
    effective: Effective


@dataclass(frozen=True)
class Finding:
    """Something that a rule found; docs/findings.md tells the rules with their cures."""

    subject: str
    name: str | None
    field: str | None
    rule: str
    message: str


@dataclass(frozen=True)
class Difference:
    """What differs between two projects: `values` are (name, before, after)."""

    kind: str
    subject: str
    name: str
    values: list[tuple[str, str, str]]


@dataclass(frozen=True)
class CodeInfo:
    """A design code on the search path."""

    name: str
    label: str
    file: str
    situations: list[str]


def _action(entry: dict[str, Any]) -> Action:
    entry["partition"] = Partition(entry["partition"])
    entry["superposition"] = Superposition(entry["superposition"])
    return Action(**entry)


class Actions(Mapping[str, Action]):
    """The actions of a project by name."""

    def __init__(self, session: _core.Session) -> None:
        self._session = session

    def _read(self) -> dict[str, Action]:
        return {entry["name"]: _action(entry) for entry in self._session.actions()}

    def __getitem__(self, name: str) -> Action:
        return self._read()[name]

    def __iter__(self) -> Iterator[str]:
        return iter(self._read())

    def __len__(self) -> int:
        return len(self._session.actions())


class Cases(Mapping[int, Case]):
    """The load cases of a project by number; those of other modules are left out."""

    def __init__(self, session: _core.Session) -> None:
        self._session = session

    def __getitem__(self, number: int) -> Case:
        entry = self._session.case(number)
        if entry is None:
            raise KeyError(number)
        source = entry.pop("source")
        entry["effective"] = Effective(**entry["effective"], source=source)
        return Case(**entry)

    def __iter__(self) -> Iterator[int]:
        return iter(self._session.case_numbers())

    def __len__(self) -> int:
        return len(self._session.case_numbers())

    def to_numpy(self) -> npt.NDArray[np.void]:
        """All load cases as a structured array, read in one walk into a buffer that is handed over as it is.

        A factor that follows the action is not-a-number, and `follows` tells it, a column for each of FACTORS.
        """
        return self._session.cases_array()

    def to_pandas(self) -> pandas.DataFrame:
        """The same as a table by number, with nullable columns: a factor that follows the action is NA."""
        import pandas

        rows = self.to_numpy()
        columns: dict[str, Any] = {"action": rows["action"], "title": rows["title"]}
        for name in ("dlx", "dly", "dlz", "factor"):
            columns[name] = rows[name]
        for place, name in enumerate(FACTORS):
            columns[name] = pandas.arrays.FloatingArray(rows[name].copy(), rows["follows"][:, place].copy())
        return pandas.DataFrame(columns, index=pandas.Index(rows["number"], name="number"))


class Project:
    """An open project. Use it with `with`, so that its file is closed. It belongs to the thread that opened it."""

    def __init__(self, session: _core.Session) -> None:
        self._session = session
        self.actions = Actions(session)
        self.cases = Cases(session)

    def __enter__(self) -> Project:
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        self.close()

    def close(self) -> None:
        """Closes the file; changes of an edit that was left stay, all others are gone."""
        self._session.close()

    @property
    def facts(self) -> dict[str, str]:
        """Facts of the project, such as "designcode"."""
        return self._session.facts()

    def edit(self, name: str = "") -> Edit:
        """Begins changes, all of them in one transaction, which an exception rolls back. `name` says what they are for."""
        return Edit(self._session, name)

    def check(self) -> list[Finding]:
        """Judges every action and load case by the rules of the dialog."""
        return [Finding(**entry) for entry in self._session.findings()]

    @property
    def situations(self) -> dict[str, Situation]:
        """The situations of the design code by name."""
        return {entry["name"]: Situation(self._session, **entry) for entry in self._session.situations()}

    def envelope(
        self,
        matrix: npt.ArrayLike,
        situation: str = "persistent",
        numbers: Sequence[int] | None = None,
        threads: int = 0,
    ) -> Envelope:
        """The greatest and the least value of each response over all combinations of a situation.

        `matrix` has a row for each response and a column for each of `numbers`, all load cases unless given. The
        interpreter's lock is let go while it is valued, by as many threads as the machine has unless told.
        """
        columns = list(self.cases) if numbers is None else [int(number) for number in numbers]
        return self.situations[situation].envelope(matrix, columns, threads)

    def export(self, file: str | os.PathLike[str], format: str = "", sheets: str = "") -> None:
        """Writes actions and load cases as `mrl-lc export` does; the format is told by the file's name unless given.

        `sheets` is "actions" or "loadcases"; everything that the format holds unless given.
        """
        path = Path(file)
        path.write_bytes(self._session.exported(format or path.suffix.lstrip("."), sheets))

    def import_(
        self,
        file: str | os.PathLike[str],
        format: str = "",
        dry_run: bool = False,
        create_actions: bool = False,
        match: str = "number",
    ) -> Preview:
        """Takes a table as `mrl-lc import` does. Where a row is refused nothing is written, and Refused is raised.

        With `match="title"` a row finds its load case by its title; a new title gets its number, or the next free one.
        """
        rows, _ = self._session.import_table(os.fspath(file), format, dry_run, create_actions, match)
        preview = Preview([RowPreview.of(row) for row in rows])
        if preview.refused and not dry_run:
            raise preview.refused[0].error()
        return preview


def open(file: str | os.PathLike[str], mode: str = "r") -> Project:
    """Opens a project, read-only unless `mode` is "rw"."""
    if mode not in ("r", "rw"):
        raise ValueError(f'mode is "r" or "rw", not {mode!r}')
    return Project(_core.Session(os.fspath(file), mode == "rw"))


def diff(before: Project, after: Project) -> list[Difference]:
    """What differs between two projects: facts, actions and load cases by their values, other records by key."""
    return [Difference(**entry) for entry in _core.differences(before._session, after._session)]


def codes() -> list[CodeInfo]:
    """The design codes on the search path."""
    return [CodeInfo(**entry) for entry in _core.codes()]
