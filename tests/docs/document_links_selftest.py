#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""The check of the links reports those that lead nowhere, and no others."""

import tempfile
import unittest
from pathlib import Path

import document_links


class DocumentLinksTest(unittest.TestCase):
    def faults(self, text):
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "other.md").write_text("# A title\n\n## `Part` two, again\n")
            page = Path(folder) / "page.md"
            page.write_text(text)
            return [fault.removeprefix(f"{page}: ") for fault in document_links.faults(page)]

    def test_links_that_lead_somewhere_are_no_faults(self):
        self.assertEqual(self.faults(
            "# Here\n[a](other.md), [b](other.md#part-two-again), [c](#here),\n"
            "[d](https://example.com/none.md)\n`[e](none.md)`\n```\n[f](none.md)\n```\n"), [])

    def test_a_missing_file_is_reported(self):
        self.assertEqual(self.faults("[a](none.md)"), ["none.md leads to no file"])

    def test_a_missing_picture_is_reported(self):
        self.assertEqual(self.faults("![a b](none.png)"), ["none.png leads to no file"])

    def test_a_missing_heading_is_reported(self):
        self.assertEqual(self.faults("[a](other.md#none) [b](#none)"), [
            "other.md#none leads to no heading", "#none leads to no heading"])


if __name__ == "__main__":
    unittest.main()
