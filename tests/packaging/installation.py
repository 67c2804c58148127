# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""What the tests of installed files share: the command line that CTest gives them, and installing.

Usage: PROGRAM --build FOLDER ... [unittest arguments]; all options are needed, as CTest passes them.
"""

import argparse
import os
import subprocess
import sys
import unittest
from pathlib import Path

DEADLINE = 100.0  # seconds; nothing here should take ten of them on an idle machine

options = argparse.Namespace()  # of the command line, once main() has begun


def run(*command, **environment):
    """The output of a command that must succeed."""
    result = subprocess.run([str(part) for part in command], env={**os.environ, **environment},
                            capture_output=True, text=True, timeout=DEADLINE, check=False)
    if result.returncode != 0:
        words = " ".join(str(part) for part in command)
        raise AssertionError(f"{words} ended with {result.returncode}:\n{result.stdout}{result.stderr}")
    return result.stdout


def install(prefix, *arguments, **environment):
    run(options.cmake, "--install", options.build, "--prefix", prefix, *arguments, **environment)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for path in ("build", "source"):
        parser.add_argument(f"--{path}", type=Path, required=True)
    for text in ("cmake", "compiler", "make", "generator", "libdir", "version", "configuration"):
        parser.add_argument(f"--{text}", required=True)
    rest = parser.parse_known_args(namespace=options)[1]
    unittest.main(argv=[sys.argv[0], *rest], verbosity=2)
