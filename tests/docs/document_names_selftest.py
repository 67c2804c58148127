#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""The check of the names reports classes, functions and files that are not there, and nothing else."""

import tempfile
import unittest
from pathlib import Path

import document_names


class DocumentNamesTest(unittest.TestCase):
    def faults(self, text):
        with tempfile.TemporaryDirectory() as folder:
            root = Path(folder)
            (root / "src").mkdir()
            (root / "src" / "Tab.h").write_text("class DeviceTab : public Widget\n{\n    void update();\n};\n")
            page = root / "page.md"
            page.write_text(text)
            return [fault.removeprefix(f"{page}: ")
                    for fault in document_names.faults(root, [page])]

    def test_what_is_there_is_no_fault(self):
        self.assertEqual(self.faults(
            "`DeviceTab`, `DeviceTab::update()`, `src/Tab.h`, `src/`, `src/*.cpp`, `src/<name>.h`,\n"
            "`update()`, `RETURN`, `a/path`\n```\n`NoClass`\n```\n"), [])

    def test_a_missing_class_is_reported(self):
        self.assertEqual(self.faults("a `DeviceDialog` here"), ["there is no class DeviceDialog"])

    def test_the_class_of_a_function_counts(self):
        self.assertEqual(self.faults("`DeviceDialog::update()`"),
                         ["there is no class DeviceDialog::update()"])

    def test_a_missing_function_is_reported(self):
        self.assertEqual(self.faults("`DeviceTab::show()`, `hide()`"),
                         ["there is no function DeviceTab::show()", "there is no function hide()"])

    def test_a_missing_file_is_reported(self):
        self.assertEqual(self.faults("`src/Dialog.cpp`"), ["there is no src/Dialog.cpp"])


if __name__ == "__main__":
    unittest.main()
