#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Looks for the classes, functions and files that Markdown files name in backticks.

Usage: document_names.py ROOT FILE...

A name such as `DeviceView` must be a class of the sources below ROOT, `DeviceView::add()` and `add()` must
be called or declared there, and a path that begins with one of its folders, such as `src/Dialog.cpp`, must
exist.
"""

import re
import sys
from pathlib import Path

TREES = ("src", "rosbridge", "robot", "host", "tests", "benchmarks")
FENCE = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
QUOTED = re.compile(r"`([^`\n]+)`")
CLASS = re.compile(r"[A-Z][a-z]\w*(?:::|\(|$)")
FUNCTION = re.compile(r"(?:\w+::)*(\w+)\(")
DECLARED = re.compile(
    r"^ *(?:class|struct|enum|enum class|namespace) (?:[A-Z_]+ )?(?:\w+::)*(\w+)", re.MULTILINE)


def sources(root):
    """All of them, as one text."""
    return "\n".join(path.read_text(encoding="utf-8") for tree in TREES
                     for path in (root / tree).rglob("*")
                     if path.suffix in (".h", ".cpp", ".py"))


def faults(root, files):
    """What is named and not there, one line each."""
    code = sources(root)
    declared = set(DECLARED.findall(code))
    called = set(re.findall(r"(\w+)\(", code))
    folders = {path.name for path in root.iterdir() if path.is_dir()}
    for file in files:
        for name in QUOTED.findall(FENCE.sub("", file.read_text(encoding="utf-8"))):
            function = FUNCTION.match(name)
            if CLASS.match(name):
                if re.split(r"\W", name)[0] not in declared:
                    yield f"{file}: there is no class {name}"
            if function:
                if function[1] not in called:
                    yield f"{file}: there is no function {name}"
            elif "/" in name and name.split("/")[0] in folders - {"build"} and \
                    not re.search(r"[<*…\s]", name) and not (root / name).exists():
                yield f"{file}: there is no {name}"


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    found = list(faults(Path(sys.argv[1]), [Path(name) for name in sys.argv[2:]]))
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main()
