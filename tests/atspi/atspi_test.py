# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause

"""Uses device-workbench as a screen reader does: through AT-SPI, on a display and a bus of its own.

Usage: atspi_test.py PROGRAM [unittest arguments]
"""

import contextlib
import sys
import unittest

from screen import Atspi, Desktop, act, find, has_state, wait_for, walk

PROGRAM = ""

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


class AtSpiTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        stack = contextlib.ExitStack()
        cls.addClassCleanup(stack.close)
        cls.window = Desktop(stack).window(PROGRAM, "--language", "en")

    def find(self, role, name=None):
        return find(self.window, role, name)

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
