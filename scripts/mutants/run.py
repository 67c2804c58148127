#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Breaks the product on purpose, by one small fault at a time, and says which test notices.

    scripts/mutants/run.py --list
    scripts/mutants/run.py [--only PATTERN] [--jobs N] [--limit SECONDS]

The faults are in the text files beside this program. Each begins with its file and with what a user
would notice; then come the lines to replace ("-"), what takes their place ("+"), and lines that tell
the place from others (" "). A line "tests:" names the programs that test what follows.

    src/Quandrel.cpp: A new address goes to the end of the history.
    -        history.prepend(address);
    +        history.append(address);

Everything happens in a copy of the working tree, build/mutants, which is kept for the next time. A test
that fails must fail twice, so that one that fails now and then catches nothing.
Ends with 0 if all faults were caught, 1 if one survived, and 2 if the result tells nothing: a fault that
does not fit its file any more or does not compile, or tests that fail without a fault.
"""
import argparse
import dataclasses
import json
import os
import re
import shutil
import signal
import subprocess
import sys
from collections import Counter
from pathlib import Path

HERE = Path(__file__).resolve().parent
ROOT = HERE.parent.parent
COPY = ROOT / "build" / "mutants"
BUILD = COPY / "build" / "debug"

HEAD = re.compile(r"(\S+): (.+)")
FAILED = re.compile(r"^\s+\d+ - (\S+) \((.+)\)", re.MULTILINE)


class Problem(Exception):
    """Why the result tells nothing, in words."""


@dataclasses.dataclass
class Mutant:
    where: str  # in its list
    programs: tuple
    file: str
    effect: str
    old: list
    new: list

    def __str__(self):
        return f"{self.file}: {self.effect}"

    def applied(self, text):
        """The text with the fault."""
        old, new = ("".join(line + "\n" for line in lines) for lines in (self.old, self.new))
        found = ("\n" + text).count("\n" + old)
        if not self.old or found != 1:
            raise Problem(f"{self.where}: its lines occur {found} times in {self.file}; bring them up to date")
        return ("\n" + text).replace("\n" + old, "\n" + new)[1:]


def mutants_in(file):
    """Those of a list, in its order."""
    mutants, programs, mutant = [], (), None
    for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
        where = f"{file.name}:{number}"
        if line.startswith("#"):
            continue
        if not line:
            mutant = None
        elif line.startswith("tests:"):
            programs = tuple(line.split()[1:])
        elif mutant and line[0] in " +-":
            if line[0] != "+":
                mutant.old.append(line[1:])
            if line[0] != "-":
                mutant.new.append(line[1:])
        elif not mutant and programs and (head := HEAD.fullmatch(line)):
            mutant = Mutant(where, programs, head[1], head[2], [], [])
            mutants.append(mutant)
        else:
            raise Problem(f"{where}: not understood: {line}")
    return mutants


def mutants_like(pattern):
    """All whose file or effect the pattern is found in, each of which fits its file."""
    found = [mutant for file in sorted(HERE.glob("*.txt")) for mutant in mutants_in(file)
             if re.search(pattern, str(mutant), re.IGNORECASE)]
    problems = []
    for mutant in found:
        try:
            mutant.applied((ROOT / mutant.file).read_text(encoding="utf-8"))
        except (OSError, Problem) as problem:
            problems.append(str(problem))
    if problems or not found:
        raise Problem("\n".join(problems) or f"no fault is like {pattern}")
    return found


def files_in(tree):
    """Their paths in a working tree, without what was built there."""
    for folder, folders, files in os.walk(tree):
        folders[:] = [name for name in folders if name not in ("build", "__pycache__") and name[0] != "."]
        yield from (Path(folder, name).relative_to(tree) for name in files)


def mirror():
    """Brings the copy up to date. What is the same keeps its time, and so is not built again."""
    files = set(files_in(ROOT))
    for file in files:
        source, target = ROOT / file, COPY / file
        if not target.is_file() or source.read_bytes() != target.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    for file in set(files_in(COPY)) - files:
        (COPY / file).unlink()


def run(command, what):
    result = subprocess.run(command, cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        raise Problem(f"{what}:\n{result.stdout[-3000:]}")


def build(programs, jobs, what):
    run(["cmake", "--build", BUILD, "--parallel", str(jobs), "--target", *programs], what)


def tests_of(programs):
    """The names of the tests that use one of the programs."""
    listed = subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"],
                            check=True, stdout=subprocess.PIPE, text=True).stdout
    return [test["name"] for test in json.loads(listed)["tests"]
            if any(Path(word).name in programs for word in test.get("command", []))]


def failing_test(tests, options):
    """The first test that fails, and how; nothing if all pass."""
    if not tests:
        return None
    command = ["ctest", "--test-dir", BUILD, "-R", f"^({'|'.join(tests)})$", "--parallel", str(options.jobs),
               "--timeout", str(options.limit), "--stop-on-failure", "--repeat", "until-pass:2",
               "--output-on-failure"]
    # In a group of its own, of which nothing is left behind: what hangs may have started others.
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", process_group=0) as process:
        try:
            output = process.communicate()[0]
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
    if process.returncode == 0:
        return None
    failed = FAILED.search(output)
    if not failed:
        raise Problem(f"ctest did not run the tests:\n{output[-3000:]}")
    name, how = failed.groups()
    function = re.search(rf"^FAIL!  : (?:\w+::)*{name}::(\w+)", output, re.MULTILINE)
    if function:
        return f"{name}::{function[1]}"
    return name if how == "Failed" else f"{name} ({how})"


def catching_test(mutant, tests, options):
    """The test that notices a fault, or nothing. Those that are named after its file go first."""
    file = COPY / mutant.file
    text = file.read_text(encoding="utf-8")
    file.write_text(mutant.applied(text), encoding="utf-8")
    try:
        build(mutant.programs, options.jobs, f"{mutant.where}: does not compile")
        near = [test for test in tests if test.startswith(file.stem)]
        return failing_test(near, options) or failing_test(sorted(set(tests) - set(near)), options)
    finally:
        file.write_text(text, encoding="utf-8")


def judge(mutants, options):
    """Runs them all. Returns those that survived, and those that do not compile."""
    mirror()
    run(["cmake", "--preset", "debug", "-D", "CMAKE_CXX_FLAGS_DEBUG=", "-D", "CMAKE_COMPILE_WARNING_AS_ERROR=OFF"],
        "the copy cannot be configured")
    survivors, broken, tests = [], [], {}
    for number, mutant in enumerate(mutants, 1):
        if mutant.programs not in tests:
            build(mutant.programs, options.jobs, "the copy does not build")
            tests[mutant.programs] = tests_of(mutant.programs)
            if not tests[mutant.programs]:
                raise Problem(f"{mutant.where}: no test uses {' or '.join(mutant.programs)}")
            if failed := failing_test(tests[mutant.programs], options):
                raise Problem(f"{failed} fails without a fault")
        try:
            test = catching_test(mutant, tests[mutant.programs], options)
            verdict = f"caught by {test}" if test else "SURVIVED"
            survivors += [] if test else [mutant]
        except Problem as problem:
            verdict = str(problem)
            broken.append(mutant)
        print(f"{number}/{len(mutants)} {mutant}\n    {verdict}", flush=True)
    return survivors, broken


def summary(mutants, survivors):
    """How many of each folder were caught."""
    def folder(mutant):
        return str(Path(mutant.file).parent) + "/"

    total = Counter(map(folder, mutants))
    left = Counter(map(folder, survivors))
    rows = [(name, total[name], left[name]) for name in sorted(total)]
    for name, count, missed in [*rows, ("all", len(mutants), len(survivors))]:
        if count:
            yield f"{name:32} {count - missed:3} of {count:3} caught {100 * (count - missed) / count:4.0f} %"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--only", metavar="PATTERN", default="", help="faults whose file or effect it is found in")
    parser.add_argument("--list", action="store_true", help="print the faults; each must fit its file")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="processes that build and test")
    parser.add_argument("--limit", type=int, default=120, metavar="SECONDS",
                        help="for a test: one that takes longer is ended, and caught the fault")
    options = parser.parse_args()
    try:
        mutants = mutants_like(options.only)
        if options.list:
            print(*mutants, sep="\n")
            return 0
        survivors, broken = judge(mutants, options)
    except Problem as problem:
        print(problem, file=sys.stderr)
        return 2
    print(*summary([mutant for mutant in mutants if mutant not in broken], survivors), sep="\n")
    for mutant in survivors:
        print(f"survived: {mutant.where}: {mutant}")
    for mutant in broken:
        print(f"not tried: {mutant.where}: {mutant}")
    return 2 if broken else 1 if survivors else 0


if __name__ == "__main__":
    sys.exit(main())
