# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Uses device-workbench as a screen reader does: through AT-SPI, on a display and a bus of its own.

Usage: atspi_test.py PROGRAM [unittest arguments]
"""

import contextlib
import ctypes
import os
import subprocess
import sys
import tempfile
import time
import unittest

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402  the version comes first

PROGRAM = ""
DEADLINE = 60.0  # seconds; nothing here should take one of them on an idle machine

INTERACTIVE = {
    Atspi.Role.CHECK_BOX,
    Atspi.Role.CHECK_MENU_ITEM,
    Atspi.Role.COMBO_BOX,
    Atspi.Role.ENTRY,
    Atspi.Role.MENU_ITEM,
    Atspi.Role.PAGE_TAB,
    Atspi.Role.PUSH_BUTTON,
    Atspi.Role.RADIO_BUTTON,
    Atspi.Role.RADIO_MENU_ITEM,
    Atspi.Role.SLIDER,
    Atspi.Role.SPIN_BUTTON,
    Atspi.Role.TABLE,
    Atspi.Role.TEXT,
    Atspi.Role.TOGGLE_BUTTON,
    Atspi.Role.TREE,
    Atspi.Role.TREE_TABLE,
}


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
    """A screen that nobody sees, and the buses of a session. Sets this process's environment."""

    def __init__(self, stack):
        home = stack.enter_context(tempfile.TemporaryDirectory())
        os.environ.pop("QT_QPA_PLATFORM", None)
        for name in ("HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME",
                     "XDG_RUNTIME_DIR", "XDG_STATE_HOME"):
            os.environ[name] = home
        os.environ["GSETTINGS_BACKEND"] = "memory"

        read_end, write_end = os.pipe()
        self.start(stack, ["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1400x1000x24",
                           "-nolisten", "tcp", "-noreset"],
                   pass_fds=[write_end], stderr=subprocess.DEVNULL)
        os.close(write_end)
        with open(read_end, encoding="ascii") as answer:
            number = answer.readline().strip()
        if not number:
            raise RuntimeError("Xvfb does not start: install xvfb")
        os.environ["DISPLAY"] = f":{number}"

        bus = self.start(stack, ["dbus-daemon", "--session", "--nofork", "--print-address=1"],
                         stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        bus.stdout.close()

    @staticmethod
    def start(stack, command, **popen):
        process = subprocess.Popen(command, **popen)
        stack.callback(process.wait)
        stack.callback(process.terminate)
        return process


def walk(accessible, path=""):
    """All objects below, with the way to them in words."""
    for i in range(accessible.get_child_count()):
        child = accessible.get_child_at_index(i)
        if child is None:
            continue
        child_path = f"{path} / {child.get_role_name()} '{child.get_name()}'"
        yield child, child_path
        yield from walk(child, child_path)


def has_state(accessible, state):
    return accessible.get_state_set().contains(state)


def act(accessible, name):
    """Does what the object offers under that name."""
    for i in range(Atspi.Action.get_n_actions(accessible)):
        if Atspi.Action.get_action_name(accessible, i) == name:
            assert Atspi.Action.do_action(accessible, i), f"{name} was refused"
            return
    raise AssertionError(f"'{accessible.get_name()}' offers no action {name}")


class AtSpiTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        become_subreaper()
        stack = contextlib.ExitStack()
        cls.addClassCleanup(wait_for, lambda: not has_children(), "the end of all processes")
        cls.addClassCleanup(stack.close)
        Desktop(stack)
        Atspi.set_timeout(int(DEADLINE * 1000), int(DEADLINE * 1000))
        # Starts the accessibility bus. It is there before any program, as on every desktop: Qt may
        # miss a bus that comes up while the program does.
        Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        cls.program = Desktop.start(stack, [PROGRAM, "--language", "en"], env=environment)
        cls.window = wait_for(cls.find_window, "the window among the desktop's")

    @classmethod
    def find_window(cls):
        assert cls.program.poll() is None, f"the program ended with {cls.program.returncode}"
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(i)
            if application.get_name() == "device-workbench" and application.get_child_count() > 0:
                return application.get_child_at_index(0)
        return None

    def find(self, role, name=None):
        """The first object of that role, and that name if one is given; else None."""
        for each, _ in walk(self.window):
            if each.get_role() == role and (name is None or each.get_name() == name):
                return each
        return None

    def status(self):
        bar = self.find(Atspi.Role.STATUS_BAR)
        return [each.get_name() for each, _ in walk(bar) if each.get_role() == Atspi.Role.LABEL]

    def test_every_control_has_a_name(self):
        roles = set()
        nameless = []
        for each, path in walk(self.window):
            role = each.get_role()
            if role not in INTERACTIVE or self.is_qts_own(each):
                continue
            roles.add(role)
            if not each.get_name().strip():
                nameless.append(path)
        self.assertEqual(nameless, [])
        self.assertGreaterEqual(
            roles,
            {Atspi.Role.CHECK_BOX, Atspi.Role.COMBO_BOX, Atspi.Role.MENU_ITEM, Atspi.Role.PAGE_TAB,
             Atspi.Role.PUSH_BUTTON, Atspi.Role.TABLE, Atspi.Role.TEXT, Atspi.Role.TREE})

    @staticmethod
    def is_qts_own(control):
        """The button that empties a field, and the one for what a tool bar has no room for."""
        parent = control.get_parent().get_role()
        return parent == Atspi.Role.TEXT or (
            parent == Atspi.Role.TOOL_BAR and not has_state(control, Atspi.StateType.SHOWING))

    def test_the_connect_button_connects_and_says_so(self):
        self.assertIn("Not connected.", self.status())
        button = self.find(Atspi.Role.PUSH_BUTTON, "Not connected.")
        act(button, "Press")
        wait_for(lambda: any(words.startswith("Connected to ") for words in self.status()),
                 "the status \"Connected to\"")
        wait_for(lambda: button.get_name().startswith("Connected to "), "the button's name")
        act(button, "Press")
        wait_for(lambda: "Not connected." in self.status(), "the status \"Not connected.\"")

    def test_a_tab_is_opened_and_its_check_box_switched(self):
        def check_box():
            return self.find(Atspi.Role.CHECK_BOX, "Disable drive system")

        act(self.find(Atspi.Role.PAGE_TAB, "Manipulator"), "Press")
        wait_for(lambda: not has_state(check_box(), Atspi.StateType.SHOWING), "the other tab")
        act(self.find(Atspi.Role.PAGE_TAB, "Base"), "Press")
        wait_for(lambda: has_state(check_box(), Atspi.StateType.SHOWING), "the tab \"Base\"")
        for is_checked in (True, False):
            act(check_box(), "Toggle")
            wait_for(
                lambda expected=is_checked: has_state(check_box(), Atspi.StateType.CHECKED)
                == expected, f"the check box, checked: {is_checked}")

    def test_a_dock_is_opened_by_its_menu(self):
        def field():
            return self.find(Atspi.Role.TEXT, "Filter of the variables")

        self.assertFalse(has_state(field(), Atspi.StateType.SHOWING))
        act(self.find(Atspi.Role.MENU_ITEM, "Variables"), "Press")
        wait_for(lambda: has_state(field(), Atspi.StateType.SHOWING), "the dock")

    def test_help_has_a_name_when_it_is_open(self):
        act(self.find(Atspi.Role.MENU_ITEM, "Contents"), "Press")
        wait_for(lambda: self.find(Atspi.Role.LABEL, "The workbench"), "the help's text")


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    PROGRAM = sys.argv.pop(1)
    unittest.main(warnings="ignore")  # of the bindings, about all that they offer
