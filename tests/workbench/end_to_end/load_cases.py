"""New project, actions, ten load cases, three copied with a factor, one deleted, OK, save; opened again it is the same."""

import sys

from desktop import Cli, Desktop, Workbench

bin_folder = sys.argv[1]
cli = Cli(bin_folder)
MANAGER = r"^Marlavon: Action and Loadcase Manager$"

with Desktop() as desktop:
    project = desktop.path("tower.cdb")
    workbench = Workbench(desktop, bin_folder)
    desktop.wait_active(r"^Marlavon Workbench$")
    desktop.key("ctrl+n")
    desktop.wait_active(r"^New project$")
    desktop.key("ctrl+a")
    desktop.type(project)
    desktop.key("Return")
    desktop.wait_active(r"^tower\.cdb - ")

    desktop.key("ctrl+1")
    desktop.wait_active(r"^Marlavon: Action and Loadcase Manager$")
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\* - ")

    desktop.key("ctrl+2")
    desktop.wait_active(MANAGER)
    # Backwards from the tab: Cancel, OK, Help, five parts of the bar, the two boxes, Delete, Copy, New.
    desktop.key(*["shift+Tab"] * 13, *["space"] * 10)
    # The first three rows of the table, which stands before the button; F6 leaves it again.
    desktop.key("shift+Tab", "ctrl+Home", "shift+Down", "shift+Down", "F6", "Tab", "space")
    for factor in ("1.5", None, None):  # the second and third copy offer the factor of the first
        desktop.wait_active(r"^Target loadcase number$")
        if factor:
            desktop.key("Tab")
            desktop.key("Tab")
            desktop.key("ctrl+a")
            desktop.type(factor)
        desktop.key("Return")
    desktop.wait_active(MANAGER)

    desktop.key("shift+Tab", "shift+Tab", "ctrl+Home", *["Down"] * 9, "Delete")
    desktop.wait_active(r"^Delete loadcase\(s\)$")
    desktop.key("alt+y")
    desktop.wait_active(MANAGER)
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+s")
    desktop.wait_active(r"^tower\.cdb - ")
    workbench.quit()

    saved = cli.read("case", "list", project)
    numbers = [case["number"] for case in saved]
    print("load cases:", numbers)
    assert numbers == [1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13], numbers
    assert all(case["action"] in ("G", "Q") for case in saved), saved

    workbench = Workbench(desktop, bin_folder, project, "--manager", "loadcases")
    desktop.wait_active(MANAGER)
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb - ")  # an acceptance without an edit leaves nothing to save
    workbench.quit()
    assert cli.read("case", "list", project) == saved
