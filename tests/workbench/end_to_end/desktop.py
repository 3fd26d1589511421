"""A desktop of its own for one run of the workbench: an X server, a window manager, and a person's keyboard."""

import ctypes
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
PATIENCE = float(os.environ.get("MRL_PATIENCE", 60))  # seconds; far beyond what any step takes, also under a sanitizer on a busy machine


def end_with_parent():
    """Nothing that a test started outlives it, however it ends."""
    ctypes.CDLL(None).prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG


def need_tools():
    """Ends the test as skipped where the machine has no desktop to offer."""
    missing = [tool for tool in ("Xvfb", "openbox", "xdotool") if not shutil.which(tool)]
    if missing:
        print("skipped: not installed: " + ", ".join(missing))
        sys.exit(SKIPPED)


def eventually(what, condition):
    """Waits until the condition gives something true and returns that."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError("did not come about: " + what)


class Desktop:
    """Starts the X server and the window manager; ends all that it started."""

    def __init__(self):
        need_tools()
        self.folder = tempfile.mkdtemp(prefix="mrl-desktop-")
        self.started = []
        self.environment = dict(os.environ)
        for name in ("WAYLAND_DISPLAY", "XDG_SESSION_TYPE", "QT_SCALE_FACTOR", "MRL_EXPERIMENTAL"):
            self.environment.pop(name, None)
        self.environment.update(
            QT_QPA_PLATFORM="xcb", HOME=self.folder, XDG_CONFIG_HOME=self.path("config"), LC_ALL="C.UTF-8",
            XDG_RUNTIME_DIR=self.folder, NO_AT_BRIDGE="1")
        self.environment["DISPLAY"] = self.start_server()
        self.start(["openbox", "--sm-disable"])
        eventually("a window manager", self.has_window_manager)

    def __enter__(self):
        return self

    def __exit__(self, *failure):
        if failure[0]:
            print("windows: " + ", ".join(repr(title) for title in self.titles()))
        for process in reversed(self.started):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(10)
                except subprocess.TimeoutExpired:
                    process.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def path(self, *parts):
        return os.path.join(self.folder, *parts)

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment, preexec_fn=end_with_parent, **options)
        self.started.append(process)
        return process

    def start_server(self):
        """The X server chooses a free display itself and writes its number."""
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1400x1000x24", "-nolisten", "tcp"],
                   pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as answer:
            number = answer.readline().strip()
        assert number, "the X server did not start"
        return ":" + number

    def has_window_manager(self):
        return subprocess.run(["xdotool", "get_desktop"], env=self.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL).returncode == 0

    def xdotool(self, *arguments):
        done = subprocess.run(["xdotool", *arguments], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, text=True, timeout=PATIENCE)
        return done.stdout.strip() if done.returncode == 0 else ""

    def titles(self):
        windows = self.xdotool("search", "--onlyvisible", "--name", ".").split()
        return [title for title in (self.xdotool("getwindowname", window) for window in windows) if title]

    def active_title(self):
        return self.xdotool("getactivewindow", "getwindowname")

    def wait_active(self, pattern):
        """Waits until the active window's title matches."""
        eventually("an active window " + pattern, lambda: re.search(pattern, self.active_title()))

    def wait_gone(self, pattern):
        eventually("no window " + pattern, lambda: not [t for t in self.titles() if re.search(pattern, t)])

    def key(self, *keys):
        for key in keys:
            self.xdotool("key", "--clearmodifiers", key)

    def type(self, text):
        self.xdotool("type", "--delay", "5", text)


class Workbench:
    """The real program on that desktop."""

    def __init__(self, desktop, bin_folder, *arguments):
        self.desktop = desktop
        self.process = desktop.start([os.path.join(bin_folder, "mrl-workbench"), *arguments])

    def quit(self):
        self.desktop.key("ctrl+q")
        code = self.process.wait(PATIENCE)
        assert code == 0, f"the workbench ended with {code}"


class Cli:
    """The command-line tool, for making projects and for looking into them."""

    def __init__(self, bin_folder):
        self.program = os.path.join(bin_folder, "mrl-lc")

    def run(self, *arguments):
        done = subprocess.run([self.program, *arguments], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        assert done.returncode == 0, f"mrl-lc {' '.join(arguments)}: {done.returncode}\n{done.stdout}{done.stderr}"
        return done.stdout

    def read(self, *arguments):
        return json.loads(self.run(*arguments, "--json"))

    def action_names(self, project):
        return [action["name"] for action in self.read("action", "list", project)]
