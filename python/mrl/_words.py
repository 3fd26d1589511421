"""The words of the records, as enumerations that are texts too."""

import enum


class Superposition(str, enum.Enum):
    """How the load cases of an action act together.

    >>> Superposition("EXCL") is Superposition.EXCL
    True
    >>> Superposition.EXCL == "EXCL"
    True
    """

    PERM = "PERM"
    COND = "COND"
    EXCL = "EXCL"
    UNSI = "UNSI"
    USEX = "USEX"
    ALEX = "ALEX"
    EXEX = "EXEX"
    PERC = "PERC"

    def __str__(self) -> str:
        return self.value


class Partition(str, enum.Enum):
    """The category of an action; Q_1 to Q_5 are load groups of variable actions."""

    G = "G"
    P = "P"
    Q = "Q"
    A = "A"
    E = "E"
    Q_1 = "Q_1"
    Q_2 = "Q_2"
    Q_3 = "Q_3"
    Q_4 = "Q_4"
    Q_5 = "Q_5"

    def __str__(self) -> str:
        return self.value
