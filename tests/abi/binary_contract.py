#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Compares what libraries offer to others in binary form with what is recorded of them.

Usage: binary_contract.py check|update LIBRARY=RECORD...

The libraries are built with debugging information. A record has the library's exported symbols and all
types that these use, as abidw writes them. Of types that are not ours it has only the names and the sizes:
the rest is many times as large, and changes with every version of Qt and the compiler.
"""

import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

OURS = ("olm", "plugin")  # namespaces
REFERENCES = ("type-id", "def-of-decl-id", "naming-typedef-id")
BODIES = ("class-decl", "union-decl")
FRAMES = ("abi-corpus", "abi-instr", "namespace-decl")


class Reduction:
    """Cuts a record down, in place."""

    def __init__(self, corpus):
        self.foreign = set()  # types that are not ours, and the places of those nested in them
        self.empty(corpus, False)
        self.parent = {child: each for each in corpus.iter() for child in each}
        kept = self.used(corpus)
        self.prune(corpus, kept)

    def empty(self, element, is_ours):
        """Leaves of types that are not ours the nested types alone."""
        if element.tag in BODIES and not is_ours:
            self.foreign.add(element)
            for child in list(element):
                if child.tag == "member-type":
                    self.foreign.add(child)
                else:
                    element.remove(child)
        for child in element:
            if child.tag == "namespace-decl" and element.tag == "abi-instr":
                is_ours = child.get("name") in OURS
            self.empty(child, is_ours)

    def used(self, corpus):
        """What the exported symbols need, and what that is in."""
        types = {}
        for each in corpus.iter():
            if each.get("id"):
                types.setdefault(each.get("id"), []).append(each)
        waiting = [each for each in corpus.iter() if each.get("elf-symbol-id")]
        kept = set()
        while waiting:
            each = waiting.pop()
            if each in kept:
                continue
            kept.add(each)
            if each in self.parent:
                waiting.append(self.parent[each])
            is_whole = each not in self.foreign and each.tag not in FRAMES
            for part in each.iter() if is_whole else [each]:
                for name in REFERENCES:
                    waiting += types.get(part.get(name), [])
        return kept

    def prune(self, element, kept):
        if element not in self.foreign and element.tag not in FRAMES:
            return
        for child in list(element):
            if child in kept:
                self.prune(child, kept)
            elif not child.tag.startswith("elf-"):
                element.remove(child)


def write_record(library, record):
    subprocess.run(["abidw", "--no-corpus-path", "--no-show-locs", "--no-comp-dir-path", "--no-elf-needed",
                    "--type-id-style", "hash", "--out-file", record, library], check=True)
    tree = ElementTree.parse(record)
    Reduction(tree.getroot())
    ElementTree.indent(tree)
    tree.write(record)


def main():
    if len(sys.argv) < 3 or sys.argv[1] not in ("check", "update"):
        sys.exit(__doc__)
    pairs = [argument.split("=") for argument in sys.argv[2:]]
    if sys.argv[1] == "update":
        for library, record in pairs:
            write_record(library, record)
        return
    is_same = True
    with tempfile.TemporaryDirectory() as folder:
        for library, record in pairs:
            now = Path(folder, Path(record).name)
            write_record(library, now)
            is_same = subprocess.run(["abidiff", record, now], check=False).returncode == 0 and is_same
    if not is_same:
        sys.exit("The libraries differ from what is recorded: docs/binary-contract.md says what to do.")


if __name__ == "__main__":
    main()
