"""Actions, load cases and combinations of structural projects.

>>> import mrl
>>> with mrl.open("frame.cdb") as project:
...     project.actions["Q_B"].psi0
0.7
"""

from mrl._core import Error

TYPE_CHECKING = False
if TYPE_CHECKING:
    from mrl._edit import Edit, Preview, Refused, RowPreview
    from mrl._envelope import Envelope, Governing, Situation
    from mrl._project import Action, Case, CodeInfo, Difference, Effective, Finding, Project, codes, diff, open
    from mrl._words import Partition, Superposition

__all__ = [
    "Action",
    "Case",
    "CodeInfo",
    "Difference",
    "Edit",
    "Effective",
    "Envelope",
    "Error",
    "Finding",
    "Governing",
    "Partition",
    "Preview",
    "Project",
    "Refused",
    "RowPreview",
    "Situation",
    "Superposition",
    "codes",
    "diff",
    "open",
]

_HOMES = {
    **dict.fromkeys(("Edit", "Preview", "Refused", "RowPreview"), "mrl._edit"),
    **dict.fromkeys(("Envelope", "Governing", "Situation"), "mrl._envelope"),
    **dict.fromkeys(("Partition", "Superposition"), "mrl._words"),
}


def __getattr__(name: str) -> object:
    """Loads a part of the package when it is first named: most of its cost is Python's own modules."""
    if name not in __all__:
        raise AttributeError(f"module 'mrl' has no attribute {name!r}")
    value: object = getattr(__import__(_HOMES.get(name, "mrl._project"), fromlist=[name]), name)
    globals()[name] = value
    return value


def __dir__() -> list[str]:
    return sorted({*globals(), *__all__})
