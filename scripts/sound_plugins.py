#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Holds plugins with nothing wrong against device-plugin-check, seed after seed: it must not find anything.

    scripts/sound_plugins.py BUILD [--seeds N] [--jobs N] [-- OPTION...]

BUILD is a folder such as build/release, with the tests' plugins built (target check-tests). Options after "--"
go to device-plugin-check; without any it is asked for level 10. 20 seeds of 100,000 actions of a person:

    scripts/sound_plugins.py build/release -- --level 6 --only monkey

Ends with 0 if all runs passed, and 1 if one did not, with what it said.
"""
import argparse
import os
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PLUGINS = ["broken/sound.so", "sound/Gauge.so", "sound/Lamp.so", "sound/Turntable.so", "sound/Valve.so"]


def check(build, plugin, seed, options):
    """How many seconds it took, and what it said if it found something."""
    begin = time.monotonic()
    file = build / "tests" / "plugins" / plugin
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    run = subprocess.run([build / "bin" / "device-plugin-check", "--seed", str(seed), *options, file],
                         env=environment, capture_output=True, text=True, check=False)
    return time.monotonic() - begin, "" if run.returncode == 0 else run.stdout + run.stderr


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=Path)
    parser.add_argument("--seeds", type=int, default=20)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    words = sys.argv[1:]
    end = words.index("--") if "--" in words else len(words)
    arguments = parser.parse_args(words[:end])
    options = words[end + 1:] or ["--level", "10"]
    build = arguments.build.resolve()
    failures = 0
    with ThreadPoolExecutor(arguments.jobs) as pool:
        runs = [(plugin, seed, pool.submit(check, build, plugin, seed, options))
                for seed in range(1, arguments.seeds + 1) for plugin in PLUGINS]
        for plugin, seed, run in runs:
            seconds, words = run.result()
            failures += bool(words)
            print(f"{plugin}, seed {seed}: {seconds:.0f} s" + (f", not passed\n{words}" if words else ""), flush=True)
    print(f"{len(runs) - failures} of {len(runs)} runs passed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
