#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Compares the #include edges between the folders of the sources with the table in the map.

Usage: include_edges.py MAP ROOT

The table's rows are "| `folder/` | what it holds | `included/`, `folders/` |"; a row "`folder/…`"
stands for all folders below as well. An edge that no row allows is a fault, and so are a row that no
include needs, a folder without a row, an include that leads to no file, and edges that form a cycle.
"""

import collections
import re
import sys
from pathlib import Path

TREES = ("src", "rosbridge", "robot", "host")
INCLUDE_FOLDERS = ("", "src/platform", "host/framework")
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
ROW = re.compile(r"^\| `([^`]+)/(…?)` \|[^|]*\|([^|]*)\|$", re.MULTILINE)


class Map:
    """The folders and the edges that the document allows."""

    def __init__(self, text):
        rows = [(name, bool(wide), re.findall(r"`([^`]+?)/…?`", cell))
                for name, wide, cell in ROW.findall(text)]
        self.folders = {name: wide for name, wide, _ in rows}
        self.edges = {(name, target) for name, _, targets in rows for target in targets}

    def folder(self, file):
        """The row that a file belongs to, or its own folder where there is none."""
        own = str(Path(file).parent)
        for name, wide in self.folders.items():
            if own == name or (wide and own.startswith(name + "/")):
                return name
        return own


def target(root, file, bracket, name):
    """The file of this repository that an include means, or nothing."""
    own = [Path(file).parent] if bracket == '"' else []
    for folder in (*own, *INCLUDE_FOLDERS):
        if (root / folder / name).is_file():
            return (root / folder / name).resolve().relative_to(root).as_posix()
    return None


def cycle(edges):
    """Folders that include each other in a ring, or nothing."""
    targets = collections.defaultdict(set)
    for source, included in sorted(edges):
        targets[source].add(included)
    done = set()

    def walk(folder, way):
        if folder in way:
            return way[way.index(folder):] + [folder]
        if folder in done:
            return None
        for included in sorted(targets[folder]):
            if ring := walk(included, way + [folder]):
                return ring
        done.add(folder)
        return None

    return next(filter(None, (walk(folder, []) for folder in sorted(targets))), None)


def faults(text, root):
    """What is wrong, one line each."""
    root = root.resolve()
    table = Map(text)
    if not table.edges:
        yield "the map has no table of folders"
        return
    found = collections.defaultdict(list)
    folders = set()
    for path in sorted(path for tree in TREES for path in (root / tree).rglob("*.[hc]*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        file = path.relative_to(root).as_posix()
        folders.add(table.folder(file))
        for bracket, name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            included = target(root, file, bracket, name)
            if included:
                if table.folder(included) != table.folder(file):
                    found[table.folder(file), table.folder(included)].append(f"{file}: {name}")
            elif bracket == '"':
                yield f"{file} includes {name}, which is no file"
    for folder in sorted(folders - set(table.folders)):
        yield f"{folder}/ has no row"
    for folder in sorted(set(table.folders) - folders):
        yield f"the row of {folder}/ is about a folder without sources"
    for edge in sorted(set(found) - table.edges):
        yield f"{edge[0]}/ must not include {edge[1]}/: {'; '.join(found[edge])}"
    for edge in sorted(table.edges - set(found)):
        yield f"{edge[0]}/ includes nothing of {edge[1]}/: take it out of the row"
    if ring := cycle(found):
        yield "these folders include each other: " + " -> ".join(ring)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    found = list(faults(Path(sys.argv[1]).read_text(encoding="utf-8"), Path(sys.argv[2])))
    if found:
        sys.exit("\n".join([*found, f"Correct the includes, or the table in {sys.argv[1]}."]))


if __name__ == "__main__":
    main()
