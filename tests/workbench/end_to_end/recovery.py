"""A program that is killed: the next start offers what was not saved, puts it back as one step, and never unasked."""

import glob
import os
import signal
import sys
import time

from desktop import Cli, Desktop, Workbench, eventually

bin_folder = sys.argv[1]
cli = Cli(bin_folder)
MANAGER = r"^Marlavon: Action and Loadcase Manager$"
OFFER = r"^Recovery$"

with Desktop() as desktop:
    desktop.environment["XDG_STATE_HOME"] = desktop.path("state")
    project = desktop.path("tower.cdb")
    cli.run("new", project, "--code", "en1990", "--default-actions")
    for number in range(1, 4):
        cli.run("case", "create", project, "--action", "G", "--title", f"LC {number}")

    def snapshots():
        return glob.glob(desktop.path("state", "mrl-workbench", "recovery", "*.snapshot"))

    def wait_for_snapshot(after):
        """A snapshot of what stands now: one that is written after this moment."""
        eventually("a snapshot", lambda: any(os.path.getmtime(file) > after for file in snapshots()))

    def type_title(text):
        """Into the first row of the load cases, from the tabs."""
        desktop.key("Tab", "ctrl+Home", "Right")
        desktop.type(text)
        desktop.key("Return")

    def kill(workbench):
        workbench.process.send_signal(signal.SIGKILL)
        workbench.process.wait()

    # Accepted and not saved, and then a manager with an edit that is not accepted.
    workbench = Workbench(desktop, bin_folder, project, "--manager", "loadcases")
    desktop.wait_active(MANAGER)
    type_title("Accepted")
    start = time.time()
    desktop.key("ctrl+Return")
    desktop.wait_active(r"^tower\.cdb\* - ")
    wait_for_snapshot(start)
    desktop.key("ctrl+2")
    desktop.wait_active(MANAGER)
    start = time.time()
    type_title("Unfinished")
    wait_for_snapshot(start)
    kill(workbench)
    assert len(snapshots()) == 1, snapshots()

    # Esc recovers nothing and keeps the snapshot.
    workbench = Workbench(desktop, bin_folder)
    desktop.wait_active(OFFER)
    desktop.key("Escape")
    desktop.wait_active(r"^Marlavon Workbench$")
    workbench.quit()
    assert len(snapshots()) == 1, snapshots()

    # Recovered, it is one step: undone, the project is as its file has it, and nothing is there to be saved.
    workbench = Workbench(desktop, bin_folder)
    desktop.wait_active(OFFER)
    desktop.key("Return")
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+z")
    desktop.wait_active(r"^tower\.cdb - ")
    desktop.key("ctrl+y")
    desktop.wait_active(r"^tower\.cdb\* - ")
    desktop.key("ctrl+s")
    desktop.wait_active(r"^tower\.cdb - ")
    eventually("no snapshot once all is saved", lambda: not snapshots())
    workbench.quit()
    titles = [case["title"] for case in cli.read("case", "list", project)]
    assert titles == ["Unfinished", "LC 2", "LC 3"], titles

    # A snapshot that is older than the file is told and left alone.
    workbench = Workbench(desktop, bin_folder, project, "--manager", "loadcases")
    desktop.wait_active(MANAGER)
    start = time.time()
    type_title("Too old")
    wait_for_snapshot(start)
    kill(workbench)
    cli.run("case", "create", project, "--action", "G", "--title", "Later")
    workbench = Workbench(desktop, bin_folder)
    desktop.wait_active(OFFER)
    desktop.key("Return")
    desktop.wait_active(r"^Marlavon Workbench$")
    workbench.quit()
    assert not snapshots() and glob.glob(desktop.path("state", "mrl-workbench", "recovery", "*.left"))
    titles = [case["title"] for case in cli.read("case", "list", project)]
    assert titles == ["Unfinished", "LC 2", "LC 3", "Later"], titles
