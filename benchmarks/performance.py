#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Runs the benchmarks and makes docs/performance.md of what they print.

    performance.py BUILD_FOLDER WITH [PART_OF_A_PROGRAM'S_NAME...]

WITH says what the programs are built with. Where only some programs run, the rows are printed and the
document stays as it is. Rows come as they are measured; what else a program says goes to standard error."""

import datetime
import os
import pathlib
import platform
import subprocess
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
DOCUMENT = FOLDER.parent / "docs" / "performance.md"
PROGRAMS = (
    ["quandrel-benchmark", "--benchmark_repetitions=15", "--benchmark_enable_random_interleaving=true",
     "--benchmark_min_time=0.1"],
    ["log-benchmark"],
    ["open-benchmark"],
    ["delivery-benchmark", "--seconds", "4"],
    ["fleet-benchmark"],
    ["flood-benchmark"],
    ["recording-benchmark"],
    ["replay-benchmark"],
    ["stop-benchmark"],
)
HEAD = ("what", "figure", "beside", "its figure", "ratio", "aim", "load")
TEXT = """\
# Performance

Made by `cmake --build build/release --target benchmark` on {date}: {machine}; {software}.

A figure is a median unless it says otherwise. It stands beside that of something known, measured in the same
run; a ratio below 1 is less than that. An aim without a unit is one of the ratio. The load is how many programs
wanted a processor in the last minute, those measured among them: where there are fewer processors, a figure
holds for a busy machine. What each row measures, and what its aim misses by: [benchmarks](../benchmarks/README.md).

{table}
"""


def rows_of(command):
    """The rows that a program prints, shown as they come."""
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
    with subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, text=True) as program:
        for line in program.stdout:
            if not line.startswith("| "):
                print(line, end="", file=sys.stderr)
                continue
            print(line, end="", flush=True)
            yield [cell.strip() for cell in line.strip().strip("|").split("|")]
    if program.returncode != 0:
        sys.exit(f"{command[0]} ended with status {program.returncode}; {DOCUMENT} stays as it was")


def machine():
    models = [line.partition(":")[2].strip()
              for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines()
              if line.startswith("model name")]
    return f"{os.cpu_count()} processors {(models or [platform.machine()])[0]}"


def table(rows):
    return "\n".join("| " + " | ".join(row) + " |"
                     for row in [HEAD, ["---"] * len(HEAD), *rows])


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    programs = pathlib.Path(sys.argv[1]).resolve() / "bin"
    software, parts = sys.argv[2], sys.argv[3:]
    print("| " + " | ".join(HEAD) + " |")
    rows = [row for name, *arguments in PROGRAMS if not parts or any(part in name for part in parts)
            for row in rows_of([programs / name, *arguments])]
    if parts:
        return
    text = TEXT.format(date=datetime.date.today().isoformat(), machine=machine(), software=software,
                       table=table(rows))
    whole = DOCUMENT.with_suffix(".tmp")
    whole.write_text(text, encoding="utf-8")
    whole.replace(DOCUMENT)
    print(f"{DOCUMENT}: {len(rows)} rows")


if __name__ == "__main__":
    main()
