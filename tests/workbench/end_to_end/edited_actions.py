"""Adds a sub-action of the design code and an action of one's own, changes factors, OK, save; mrl-lc finds all of it."""

import sys

from desktop import Cli, Desktop, Workbench

bin_folder = sys.argv[1]
cli = Cli(bin_folder)
MANAGER = r"^Marlavon: Action and Loadcase Manager$"

with Desktop() as desktop:
    project = desktop.path("tower.cdb")
    cli.run("new", project, "--code", "en1990")
    workbench = Workbench(desktop, bin_folder, project)
    desktop.wait_active(r"^tower\.cdb - ")
    desktop.key("ctrl+1")
    desktop.wait_active(MANAGER)

    # Backwards from the tab: Cancel, OK, Help, the five parts of the bar that are not disabled, Delete, New.
    desktop.key(*["shift+Tab"] * 10, "space")
    desktop.wait_active(r"^New action$")
    desktop.key("q", "Tab", "Return")  # the category Q, and its first member that is free
    desktop.wait_active(MANAGER)

    desktop.key("space")
    desktop.wait_active(r"^New action$")
    desktop.key("shift+Tab", "Down", "Tab")
    desktop.type("ZZ")
    desktop.key("Tab")
    desktop.type("C")
    desktop.key("Tab")
    desktop.type("Crane")
    desktop.key("Return")
    desktop.wait_active(MANAGER)

    # The table stands before the button; its rows are sorted by name, so G comes first and ZZ_C last.
    desktop.key("shift+Tab", "ctrl+Home", *["Right"] * 4)
    desktop.type("1.4")
    desktop.key("Return", "ctrl+End", "Home", *["Right"] * 4)
    desktop.type("1.25")
    desktop.key("Return", "ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+s")
    desktop.wait_active(r"^tower\.cdb - ")
    workbench.quit()

    actions = {action["name"]: action for action in cli.read("action", "list", project)}
    print({name: action["Gamu"] for name, action in actions.items()})
    assert set(actions) == {"G", "Q", "Q_A", "ZZ_C"}, set(actions)
    assert abs(actions["G"]["Gamu"] - 1.4) < 1e-6, actions["G"]
    assert abs(actions["ZZ_C"]["Gamu"] - 1.25) < 1e-6, actions["ZZ_C"]
    assert actions["ZZ_C"]["title"] == "Crane", actions["ZZ_C"]
    assert abs(actions["Q"]["Gamu"] - 1.5) < 1e-6, actions["Q"]
