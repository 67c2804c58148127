# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""A desktop for tests that nobody sees, and what a screen reader finds on it."""

import contextlib
import ctypes
import os
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  the version comes first

DEADLINE = 60.0  # seconds; nothing here should take one of them on an idle machine


def become_subreaper():
    """What the children leave behind becomes our child, where it can be seen and ended."""
    PR_SET_CHILD_SUBREAPER = 36
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def has_children():
    """Whether any process that we caused is left."""
    with contextlib.suppress(ChildProcessError):
        while True:
            pid, _ = os.waitpid(-1, os.WNOHANG)
            if pid == 0:
                return True
    return False


def wait_for(condition, what):
    """The first true answer of condition. Objects may come and go while it looks."""
    deadline = time.monotonic() + DEADLINE
    while time.monotonic() < deadline:
        with contextlib.suppress(GLib.Error):
            answer = condition()
            if answer:
                return answer
        time.sleep(0.05)
    raise AssertionError(f"not within {DEADLINE:.0f} s: {what}")


class Desktop:
    """A screen that nobody sees, and the buses of a session, until the stack is closed: then all
    processes must end. Sets this process's environment. There can be one in a process."""

    def __init__(self, stack):
        become_subreaper()
        stack.callback(wait_for, lambda: not has_children(), "the end of all processes")
        self.stack = stack
        home = stack.enter_context(tempfile.TemporaryDirectory())
        os.environ.pop("QT_QPA_PLATFORM", None)
        for name in ("HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                     "XDG_RUNTIME_DIR", "XDG_STATE_HOME"):
            os.environ[name] = home
        os.environ["GSETTINGS_BACKEND"] = "memory"

        read_end, write_end = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1400x1000x24",
                    "-nolisten", "tcp", "-noreset"],
                   pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with open(read_end, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb does not start: install xvfb")
        os.environ["DISPLAY"] = f":{number}"

        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        bus.stdout.close()

        Atspi.set_timeout(int(DEADLINE * 1000), int(DEADLINE * 1000))
        # Starts the accessibility bus. It is there before any program, as on every desktop: Qt may
        # miss a bus that comes up while the program does.
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)

    def start(self, command, **popen):
        process = subprocess.Popen(command, **popen)
        self.stack.callback(process.wait)
        self.stack.callback(process.terminate)
        return process

    def window(self, program, *options):
        """Starts the program and waits for its window."""
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        process = self.start([program, *options], env=environment)

        def find():
            assert process.poll() is None, f"the program ended with {process.returncode}"
            desktop = Atspi.get_desktop(0)
            for i in range(desktop.get_child_count()):
                application = desktop.get_child_at_index(i)
                if application.get_process_id() == process.pid and application.get_child_count() > 0:
                    return application.get_child_at_index(0)
            return None

        return wait_for(find, "the window among the desktop's")


def walk(accessible, path=""):
    """All objects below, with the way to them in words."""
    for i in range(accessible.get_child_count()):
        child = accessible.get_child_at_index(i)
        if child is None:
            continue
        child_path = f"{path} / {child.get_role_name()} '{child.get_name()}'"
        yield child, child_path
        yield from walk(child, child_path)


def find(window, role, name=None):
    """The first object of that role, and that name if one is given; else None."""
    for each, _ in walk(window):
        if each.get_role() == role and (name is None or each.get_name() == name):
            return each
    return None


def has_state(accessible, state):
    return accessible.get_state_set().contains(state)


def act(accessible, name):
    """Does what the object offers under that name."""
    for i in range(Atspi.Action.get_n_actions(accessible)):
        if Atspi.Action.get_action_name(accessible, i) == name:
            assert Atspi.Action.do_action(accessible, i), f"{name} was refused"
            return
    raise AssertionError(f"'{accessible.get_name()}' offers no action {name}")
