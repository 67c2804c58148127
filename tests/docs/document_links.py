#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Follows the links and the pictures of Markdown files to files and headings of the repository.

Usage: document_links.py FILE...
"""

import re
import sys
from pathlib import Path

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"^```.*?^```|`[^`\n]*`", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^#+ (.*)$", re.MULTILINE)


def anchor(heading):
    """As the sites that show Markdown make it."""
    return re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-")


def faults(file):
    """The links of a file that lead nowhere, one line each."""
    text = file.read_text(encoding="utf-8")
    for link in LINK.findall(CODE.sub("", text)):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, heading = link.partition("#")
        target = file.parent / path if path else file
        if not target.exists():
            yield f"{file}: {link} leads to no file"
        elif heading and heading not in map(
                anchor, HEADING.findall(target.read_text(encoding="utf-8"))):
            yield f"{file}: {link} leads to no heading"


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    found = [fault for name in sys.argv[1:] for fault in faults(Path(name))]
    if found:
        sys.exit("\n".join(found))


if __name__ == "__main__":
    main()
