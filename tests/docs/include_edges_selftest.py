#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""The check of the include edges reports every kind of fault, and nothing else."""

import tempfile
import unittest
from pathlib import Path

import include_edges

TABLE = """
| folder | what it holds | includes |
|---|---|---|
| `src/` | the plugin | `src/platform/…` |
| `src/platform/…` | declarations | – |
| `host/` | the host | `src/platform/…`, `host/room/` |
| `host/room/` | a room | – |
"""
TREE = {
    "src/Tab.cpp": '#include "Tab.h"\n#include "plugin/Widget.h"\n#include <vector>\n',
    "src/Tab.h": "",
    "src/platform/plugin/Widget.h": '#include "core/Value.h"\n',
    "src/platform/core/Value.h": "",
    "host/main.cpp": '#include "host/room/Chair.h"\n  #  include <plugin/Widget.h>\n',
    "host/room/Chair.h": "#include <QObject>\n",
}


class IncludeEdgesTest(unittest.TestCase):
    def faults(self, files=None, table=TABLE):
        with tempfile.TemporaryDirectory() as folder:
            for name, text in {**TREE, **(files or {})}.items():
                file = Path(folder) / name
                file.parent.mkdir(parents=True, exist_ok=True)
                file.write_text(text, encoding="utf-8")
            return list(include_edges.faults(table, Path(folder)))

    def test_a_tree_like_its_map_has_no_faults(self):
        self.assertEqual(self.faults(), [])

    def test_an_edge_that_no_row_allows_is_reported_with_the_file(self):
        files = {"src/Dialog.cpp": '#include "host/room/Chair.h"\n'}
        self.assertEqual(self.faults(files), [
            "src/ must not include host/room/: src/Dialog.cpp: host/room/Chair.h"])

    def test_an_edge_in_angle_brackets_counts_as_well(self):
        files = {"src/Dialog.cpp": "#include <host/room/Chair.h>\n"}
        self.assertEqual(len(self.faults(files)), 1)

    def test_a_row_that_no_include_needs_is_reported(self):
        table = TABLE.replace("| a room | – |", "| a room | `src/platform/…` |")
        self.assertEqual(self.faults(table=table), [
            "host/room/ includes nothing of src/platform/: take it out of the row"])

    def test_a_folder_without_a_row_is_reported(self):
        self.assertEqual(self.faults({"host/hall/Door.h": ""}), ["host/hall/ has no row"])

    def test_a_row_without_a_folder_is_reported(self):
        table = TABLE + "| `robot/` | the robot | – |\n"
        self.assertEqual(self.faults(table=table), [
            "the row of robot/ is about a folder without sources"])

    def test_an_include_that_leads_nowhere_is_reported(self):
        files = {"host/room/Chair.h": '#include "host/room/Table.h"\n'}
        self.assertEqual(self.faults(files), [
            "host/room/Chair.h includes host/room/Table.h, which is no file"])

    def test_folders_that_include_each_other_are_reported_though_the_table_allows_them(self):
        files = {"host/Door.h": "", "host/room/Chair.h": '#include "host/Door.h"\n'}
        table = TABLE.replace("| a room | – |", "| a room | `host/` |")
        self.assertEqual(self.faults(files, table), [
            "these folders include each other: host -> host/room -> host"])

    def test_a_map_without_a_table_is_reported(self):
        self.assertEqual(self.faults(table="# The house\n"), ["the map has no table of folders"])


if __name__ == "__main__":
    unittest.main()
