#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Runs clang-tidy over the sources that a build compiles.

    lint.py CLANG_TIDY ROOT BUILD_FOLDER [PART_OF_A_PATH...]

The sources of a target that is compiled in batches are linted together, as one text: Qt's headers take
their time in each. They are not just included, because some checks only look at the text itself. What
clang-tidy reports is printed as it comes, under the names of the sources.
"""
import json
import os
import re
import shlex
import subprocess
import sys
from bisect import bisect_right
from collections import Counter, defaultdict
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

FOLDERS = ("src", "host", "robot", "rosbridge", "tests", "benchmarks")


def twice(source):
    """What a source includes more than once, in words."""
    includes = Counter(re.findall(r"^#include .*$", Path(source).read_text(encoding="utf-8"),
                                  re.MULTILINE))
    return "\n".join(f"{source}: duplicate {line}" for line, count in includes.items() if count > 1)


def is_batch(entry):
    return Path(entry["file"]).parent.name == "Unity"


def texts(entries, root, build):
    """All texts. What two targets compile counts as the first one's: the product's come before the tests'."""
    targets = defaultdict(list)
    for entry in entries:
        file = Path(entry["file"])
        targets[file.parent if is_batch(entry) else file].append(entry)
    found = {}
    for batches in targets.values():
        text = Text(batches, root, build)
        found.setdefault(tuple(text.sources or [text.file]), text)
    return found.values()


class Text:
    """One text for clang-tidy: a source, or all those of a target that is compiled in batches."""

    def __init__(self, entries, root, build):
        entry = entries[0]
        self.directory = entry["directory"]
        self.file = Path(entry["file"])
        # Without precompiled headers: clang cannot read g++'s.
        self.command = shlex.split(
            re.sub(r" (-Winvalid-pch )?-include \S*/cmake_pch\.hxx", "", entry["command"]))
        self.starts = []  # the line before each source's first one
        self.sources = []
        if is_batch(entry):
            self.join([Path(entry["file"]) for entry in entries], build)
        self.is_ours = any((root / folder) in self.file.parents
                           or (build / "lint" / folder) in self.file.parents for folder in FOLDERS)

    def join(self, batches, build):
        target = self.file.parents[1]  # TARGET.dir, in CMakeFiles of the target's folder
        folder = build / "lint" / target.parents[1].relative_to(build)
        text = folder / f"{target.stem}.cpp"
        folder.mkdir(parents=True, exist_ok=True)
        lines = []
        for batch in batches:
            for source in re.findall(r'^#include "(.*)"$', batch.read_text(), re.MULTILINE):
                self.starts.append(len(lines))
                self.sources.append(source)
                lines += Path(source).read_text(encoding="utf-8").splitlines()
        text.write_text("\n".join(lines) + "\n", encoding="utf-8")
        places = dict.fromkeys(str(Path(source).parent) for source in self.sources)
        self.command = [str(text) if word == str(self.file) else word for word in self.command]
        self.command[1:1] = [word for place in places for word in ("-iquote", place)]
        self.file = text

    def has(self, parts):
        return any(part in source for part in parts for source in self.sources or [str(self.file)])

    def in_sources(self, report):
        """The report with each place in the joined text as one in a source."""
        def place(match):
            line = int(match[1]) - 1
            index = bisect_right(self.starts, line) - 1
            return f"{self.sources[index]}:{line - self.starts[index] + 1}:"
        if not self.sources:
            return report
        return re.sub(re.escape(str(self.file)) + r":(\d+):", place, report)

    def lint(self, clang_tidy):
        """What clang-tidy has to say, in words; nothing where all is well."""
        # In a joined text every include seems to be there twice; twice() looks at each source.
        checks = ["-checks=-readability-duplicate-include"] if self.sources else []
        done = subprocess.run(
            [clang_tidy, "-quiet", *checks, self.file, "--", *self.command[1:]], check=False,
            cwd=self.directory, text=True, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        report = self.in_sources(done.stdout or done.stderr) if done.returncode != 0 else ""
        return "\n".join([report, *map(twice, self.sources)]).strip()


def main():
    if len(sys.argv) < 4:
        sys.exit(__doc__)
    clang_tidy, root, build = sys.argv[1], Path(sys.argv[2]).resolve(), Path(sys.argv[3]).resolve()
    parts = sys.argv[4:] or [""]
    (build / "lint" / "tests").mkdir(parents=True, exist_ok=True)
    (build / "lint" / "tests" / ".clang-tidy").write_text(
        (root / "tests" / ".clang-tidy").read_text())  # it goes by the folder
    entries = json.loads((build / "compile_commands.json").read_text())
    linted = [text for text in texts(entries, root, build) if text.is_ours and text.has(parts)]
    if not linted:
        sys.exit(f"{build} compiles no such sources of {root}")
    # The largest first: the last one should not keep the others waiting.
    linted.sort(key=lambda text: text.file.stat().st_size, reverse=True)
    failures = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for report in pool.map(lambda text: text.lint(clang_tidy), linted):
            if report:
                failures += 1
                print(report, flush=True)
    print(f"{len(linted)} texts linted, {failures} with findings")
    sys.exit(failures != 0)


if __name__ == "__main__":
    main()
