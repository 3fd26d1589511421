"""A project without actions: open the manager, OK, save, quit. The default actions are in the file then."""

import sys

from desktop import Cli, Desktop, Workbench

bin_folder = sys.argv[1]
cli = Cli(bin_folder)

with Desktop() as desktop:
    project = desktop.path("tower.cdb")
    cli.run("new", project, "--code", "en1990")
    assert cli.action_names(project) == []

    workbench = Workbench(desktop, bin_folder, project)
    desktop.wait_active(r"^tower\.cdb - ")
    desktop.key("ctrl+1")
    desktop.wait_active(r"^Marlavon: Action and Loadcase Manager$")
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\*? - ")
    assert cli.action_names(project) == [], "nothing is in the file before it is saved"
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+s")
    desktop.wait_active(r"^tower\.cdb - ")
    workbench.quit()

    names = cli.action_names(project)
    print("stored:", names)
    assert "G" in names and "Q" in names, names

    workbench = Workbench(desktop, bin_folder, project, "--manager", "actions")
    desktop.wait_active(r"^Marlavon: Action and Loadcase Manager$")
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb - ")  # they are stored as they are shown
    workbench.quit()
    assert cli.action_names(project) == names
