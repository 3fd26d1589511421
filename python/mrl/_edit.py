"""Changes to a project."""

from __future__ import annotations

import numbers
from dataclasses import dataclass
from types import TracebackType
from typing import TYPE_CHECKING, Any

from mrl import _core

if TYPE_CHECKING:
    import pandas  # type: ignore[import]


class Refused(_core.Error):
    """A change that a rule forbids. `row` is its load case or action, `field` what breaks it, `rule` the rule's id."""

    def __init__(self, row: str, field: str | None, rule: str, message: str) -> None:
        super().__init__(f"{row}: {message} [{rule}]")
        self.row = row
        self.field = field
        self.rule = rule


@dataclass(frozen=True)
class RowPreview:
    """What becomes of a row: `changes` are (column, before, after), `reasons` (rule, text, field)."""

    sheet: str
    line: int
    name: str
    outcome: str
    changes: list[tuple[str, str, str]]
    reasons: list[tuple[str, str, str | None]]
    notes: list[str]

    @staticmethod
    def of(entry: dict[str, Any]) -> RowPreview:
        return RowPreview(**entry)

    def error(self) -> Refused:
        rule, text, field = self.reasons[0]
        return Refused(self.name, field, rule, text)


@dataclass(frozen=True)
class Preview:
    """The rows of an edit or an import, in their order."""

    rows: list[RowPreview]

    def _with(self, outcome: str) -> list[RowPreview]:
        return [row for row in self.rows if row.outcome == outcome]

    @property
    def added(self) -> list[RowPreview]:
        return self._with("added")

    @property
    def changed(self) -> list[RowPreview]:
        return self._with("changed")

    @property
    def refused(self) -> list[RowPreview]:
        return self._with("refused")


def _cell(value: object) -> str:
    """A value as the cell of a table: None is empty, a number its shortest decimal as a float of 32 bits."""
    if value is None:
        return ""
    if isinstance(value, bool):
        raise TypeError("a truth value is neither text nor number")
    if isinstance(value, str):
        return str(value)
    if isinstance(value, numbers.Integral):
        return str(int(value))
    if isinstance(value, numbers.Real):
        return _core.number_text(float(value))
    raise TypeError(f"{type(value).__name__} is neither text nor number")


class Edit:
    """Changes in one transaction. Leaving `with` by an exception rolls all of them back."""

    def __init__(self, session: _core.Session, name: str) -> None:
        self.name = name
        self._session = session
        self._edit: _core.Edit | None = None
        self._rows: list[RowPreview] = []
        self._removed: list[int | str] = []

    def __enter__(self) -> Edit:
        self._edit = _core.Edit(self._session)
        return self

    def __exit__(
        self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None
    ) -> None:
        edit, self._edit = self._begun, None
        if kind is None:
            edit.commit()
        # Without a commit the transaction ends with the object.

    @property
    def _begun(self) -> _core.Edit:
        if self._edit is None:
            raise _core.Error("an edit is used within `with`")
        return self._edit

    def _entered(self, entry: dict[str, Any]) -> RowPreview:
        row = RowPreview.of(entry)
        self._rows.append(row)
        if row.outcome == "refused":
            raise row.error()
        return row

    def _take(self, sheet: str, fields: dict[str, object]) -> RowPreview:
        cells = {name: _cell(value) for name, value in fields.items()}
        return self._entered(self._begun.take(sheet, cells))

    def create_case(self, number: int | None = None, **fields: object) -> int:
        """Makes a load case, under the number behind the highest unless given. @return the number"""
        chosen = self._begun.next_number() if number is None else number
        if self._begun.has_case(chosen):
            raise _core.Error(f"load case {chosen} exists already")
        fields.setdefault("title", f"Loadcase {chosen}")
        self._take("loadcases", {"number": chosen, **fields})
        return chosen

    def set_case(self, number: int, **fields: object) -> RowPreview:
        """Changes fields of a load case: title, action, dlx, dly, dlz, factor and the factors. None follows the action."""
        if not self._begun.has_case(number):
            raise KeyError(number)
        return self._take("loadcases", {"number": number, **fields})

    def remove_case(self, number: int) -> None:
        """Removes a load case."""
        if not self._begun.remove_case(number):
            raise KeyError(number)
        self._removed.append(number)

    def remove_action(self, name: str) -> None:
        """Removes an action. While load cases use it that is an Error, which names them."""
        if not self._begun.remove_action(name):
            raise KeyError(name)
        self._removed.append(name)

    def create_action(self, name: str, **fields: object) -> RowPreview:
        """Takes an action over from the design code; with `partition` makes one of one's own."""
        if self._begun.has_action(name):
            raise _core.Error(f"action {name} is stored already")
        if "partition" in fields:
            return self._take("actions", {"name": name, **fields})
        row = self._entered(self._begun.create_action(name))
        return self.set_action(name, **fields) if fields else row

    def set_action(self, name: str, **fields: object) -> RowPreview:
        """Changes fields of an action: title, partition, superposition and the factors."""
        if not self._begun.has_action(name):
            raise KeyError(name)
        return self._take("actions", {"name": name, **fields})

    def update_from(self, frame: pandas.DataFrame) -> None:
        """Takes the columns of a table by number, as `to_pandas` gives it. NA follows the action."""
        import pandas

        for number, row in zip(frame.index, frame.itertuples(index=False)):
            fields = {
                column: None if pandas.isna(value) else value for column, value in zip(frame.columns, row)
            }
            self._take("loadcases", {"number": int(number), **fields})

    def preview(self) -> Preview:
        """What the edit has done so far, and what was refused."""
        return Preview(list(self._rows))

    @property
    def removed(self) -> list[int | str]:
        """What was removed: load cases by number, actions by name."""
        return list(self._removed)
