#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Writes the compilation database that clang-tidy reads, from the build's own.

    lint_database.py BUILD_FOLDER OUTPUT_FOLDER

Each source by itself, where the build compiles several together, and without precompiled headers:
clang cannot read g++'s, and both hide what a source forgets to include.
"""
import json
import re
import sys
from pathlib import Path

build, output = map(Path, sys.argv[1:])
entries = []
for entry in json.loads((build / "compile_commands.json").read_text()):
    entry["command"] = re.sub(r" (-Winvalid-pch )?-include \S*/cmake_pch\.hxx", "", entry["command"])
    file = entry["file"]
    sources = [file]
    if re.search(r"/Unity/unity_\d+_cxx\.cxx$", file):
        sources = re.findall(r'^#include "(.*)"$', Path(file).read_text(), re.MULTILINE)
    entries += [{**entry, "file": source, "command": entry["command"].replace(file, source)}
                for source in sources]
output.mkdir(exist_ok=True)
(output / "compile_commands.json").write_text(json.dumps(entries, indent=1))
