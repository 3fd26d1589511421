"""An entry into 200 rows, undo and redo, a search, a filter, the question before leaving; mrl-lc finds what stayed."""

import sys

from desktop import Cli, Desktop, Workbench

bin_folder = sys.argv[1]
cli = Cli(bin_folder)
MANAGER = r"^Marlavon: Action and Loadcase Manager$"
COUNT = 200

with Desktop() as desktop:
    project = desktop.path("tower.cdb")
    cli.run("new", project, "--code", "en1990", "--default-actions")
    for number in range(1, COUNT + 1):
        cli.run("case", "create", project, "--action", "G", "--title", f"LC {number}")
    workbench = Workbench(desktop, bin_folder, project, "--manager", "loadcases")
    desktop.wait_active(MANAGER)

    # From the tab into the table, to the factor of the dead weight; all rows, and one entry for them.
    desktop.key("Tab", "ctrl+Home", *["Right"] * 3, "ctrl+a")
    desktop.type("1")
    desktop.key("Return", "ctrl+z", "ctrl+y")

    # What is found is the current cell when Esc leaves the field.
    desktop.key("ctrl+f")
    desktop.type("LC 150")
    desktop.key("Escape")
    desktop.type("Found")
    desktop.key("Return")
    desktop.type("Too much")
    desktop.key("Return", "ctrl+z")

    # Of rows that are filtered out an entry into all rows reaches none. The down key goes from the field to them.
    desktop.key("ctrl+f", "Tab")
    desktop.type("LC 19")
    desktop.key("Down", "ctrl+Home", *["Right"] * 3, "ctrl+a")
    desktop.type("2")
    desktop.key("Return", "ctrl+f", "Tab", "Escape")

    # Enter keeps editing.
    desktop.key("F6", "Escape")
    desktop.wait_active(r"^Leave without saving\?$")
    desktop.key("Return")
    desktop.wait_active(MANAGER)
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+s")
    desktop.wait_active(r"^tower\.cdb - ")

    # Discarded steps are in no file.
    desktop.key("ctrl+2")
    desktop.wait_active(MANAGER)
    desktop.key("Tab", "ctrl+Home", "Right")
    desktop.type("Lost")
    desktop.key("Return", "F6", "Escape")
    desktop.wait_active(r"^Leave without saving\?$")
    desktop.key("Tab", "space")
    desktop.wait_active(r"^tower\.cdb - ")
    workbench.quit()

    cases = {case["number"]: case for case in cli.read("case", "list", project)}
    print(cases[1], cases[150], cases[151])
    assert len(cases) == COUNT
    for number, case in cases.items():
        wanted = 2.0 if number == 19 or number >= 190 and number < 200 else 1.0
        assert abs(abs(case["DLZ"]) - wanted) < 1e-6, case
    assert cases[150]["title"] == "Found", cases[150]
    assert cases[151]["title"] == "LC 151", cases[151]
    assert cases[1]["title"] == "LC 1", cases[1]
