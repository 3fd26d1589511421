"""Actions, load cases and combinations of structural projects.

>>> import mrl
>>> with mrl.open("frame.cdb") as project:
...     project.actions["Q_B"].psi0
0.7
"""

from mrl._core import Error
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
