#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""The check of the slot orders reports every wrong order, and what it cannot read."""

import subprocess
import sys
import unittest

CHECK, QT_WIDGETS, MISORDERED = sys.argv[1:4]


def run(library):
    return subprocess.run(
        [sys.executable, CHECK, "--qt-widgets", QT_WIDGETS, "--framework", library,
         "--plugin", library, "--delegate", MISORDERED, "Delegate", "--widget", "Toolbar",
         "--widget", "Quandrel"], text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)


class SlotOrdersTest(unittest.TestCase):
    def test_every_wrong_order_is_reported(self):
        result = run(MISORDERED)
        self.assertEqual(result.returncode, 1, result)
        for report in (
                r"plugin::gui::PluginWidget: slot \d+ is .*trans\(.*expected translate\(\)",
                r"plugin::gui::DeviceWidget: 3 bases with operations, expected 4",
                r"plugin::gui::DeviceInterface: 8 operations, expected 25",
                r"plugin::gui::DeviceInterface: slot 2 is .*writeInput\(.*expected readInput",
                r"Delegate, as a delegate: slot 4 is .*registerConfigVariable\(.*expected "
                r"registerStateVariable",
                r"PluginGuiInterface: 4 operations, expected 6",
                r"PluginGuiInterface: slot 2 is .*deinit\(\) const, expected init\(\) const",
                r"Toolbar: slot \d+ is .*connected\(\), expected update\(plugin::gui::Device",
                r"no device widget Quandrel"):
            self.assertRegex(result.stderr, report)

    def test_a_library_without_the_tables_is_reported(self):
        result = run(QT_WIDGETS)
        self.assertEqual(result.returncode, 1, result)
        self.assertRegex(result.stderr, "no virtual table of plugin::gui::PluginWidget")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
