#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Installs the build as a system's and looks at it as a desktop, a shell and systemd do."""

import configparser
import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

from installation import DEADLINE, install, main, options, run

# Calls what bash would to complete the last word, after the others.
COMPLETE = """
source "$1"
shift
compopt() { echo "<$*>"; }
COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
_quandrel "$1" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
echo "${COMPREPLY[*]}"
"""
FILES = "<-o default>"  # the shell completes names of files by itself


class Installed(unittest.TestCase):
    """With an installation below a root of its own."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.root = Path(folder.name)
        cls.usr = cls.root / "usr"
        install("/usr", DESTDIR=folder.name)
        cls.programs = [path.name for path in (cls.usr / "bin").iterdir()]

    def finds_nothing(self, *command, **environment):
        """Fails if a check says anything, whatever its status."""
        result = subprocess.run([str(part) for part in command], env={**os.environ, **environment},
                                capture_output=True, text=True, timeout=DEADLINE, check=False)
        said = result.stdout + result.stderr
        self.assertEqual((result.returncode, said), (0, ""), command)


class DesktopTest(Installed):
    def help_of(self, program):
        return run(self.usr / "bin" / program, "--help", LANGUAGE="en")

    def test_the_menu_entry_starts_an_installed_program_and_has_an_installed_icon(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(self.usr / "share/applications/device-workbench.desktop", encoding="utf-8")
        self.assertIn(entry["Desktop Entry"]["Exec"], self.programs)
        icon = entry["Desktop Entry"]["Icon"]
        self.assertTrue((self.usr / f"share/icons/hicolor/scalable/apps/{icon}.svg").is_file(), icon)

    def test_each_icon_has_the_size_of_its_folder(self):
        icons = list((self.usr / "share/icons/hicolor").glob("*x*/apps/*.png"))
        self.assertTrue(icons)
        for icon in icons:
            header = icon.read_bytes()[16:24]
            width, height = (int.from_bytes(part, "big") for part in (header[:4], header[4:]))
            self.assertEqual(f"{width}x{height}", icon.parents[1].name, icon)

    def test_each_manual_has_all_options_and_the_chapters_of_its_document(self):
        chapters = {"device-plugin-check": ["ARGUMENTS", "OUTPUT AND EXIT STATUS", "IN CI"],
                    "device-workbench": ["GETTING STARTED", "SEVERAL DEVICES", "SCRIPTS", "BUG REPORTS",
                                         "FILES"],
                    "quandrel-robot": ["OUTPUT AND EXIT STATUS", "PLAYING A BAG", "AS A SERVICE"]}
        for program in self.programs:
            page = (self.usr / f"share/man/man1/{program}.1").read_text(encoding="utf-8")
            listed = re.findall(r"^  (-.*?)(?:  |$)", self.help_of(program), re.MULTILINE)
            written = re.findall(r"^\.TP\n(.*-.*)$", page, re.MULTILINE)
            self.assertEqual([re.sub(r"\\f.|\\(?=-)", "", names) for names in written], listed)
            ours = re.findall("^.SH (.*)$", page, re.MULTILINE)
            self.assertEqual(ours[:3], ["NAME", "SYNOPSIS", "DESCRIPTION"])
            self.assertEqual(ours[3:], ["OPTIONS", *chapters[program], "SEE ALSO"])

    def test_bash_completes_options_and_values(self):
        def completed(program, *words):
            script = self.usr / "share/bash-completion/completions" / program
            return run("bash", "-c", COMPLETE, "bash", script, self.usr / "bin" / program, *words).split("\n")[:-1]

        for words, wanted in (
                (("device-workbench", "--la"), ["--laser-log --language"]),
                (("device-workbench", "--language", ""), ["en de pseudo"]),
                (("device-workbench", "--language", "=", "p"), ["pseudo"]),
                (("device-workbench", "--language", "="), ["en de pseudo"]),
                (("device-workbench", "--appearance", "l"), ["light"]),
                (("device-workbench", "--no-robot", "--s"), ["--scale --script"]),
                (("device-workbench", "--plugin", "/"), [FILES, ""]),
                (("device-workbench", "--address", ""), [""]),
                (("device-workbench", "--tour", ""), [FILES, ""]),
                (("device-plugin-check", "--js"), ["--json"]),
                (("device-plugin-check", "--json", "/"), [FILES, ""]),
                (("device-plugin-check", "/"), [FILES, ""]),
                (("quandrel-robot", "--address", ""), [""]),
                (("quandrel-robot", "--p"), ["--port --play"])):
            self.assertEqual(completed(*words), wanted, words)


class DesktopCheck(Installed):
    """Needs the programs that check such files."""

    def test_the_menu_entry_is_valid(self):
        self.finds_nothing("desktop-file-validate", self.usr / "share/applications/device-workbench.desktop")

    def test_the_metadata_is_valid(self):
        run("appstreamcli", "validate-tree", "--strict", "--no-net", self.root)

    def test_the_manuals_are_shown_without_a_warning(self):
        for program in self.programs:
            self.finds_nothing("sh", "-c", 'man --warnings --local-file "$1" >/dev/null', "sh",
                               self.usr / f"share/man/man1/{program}.1", LC_ALL="C.UTF-8")

    def test_systemd_takes_the_service_of_a_robot_and_rates_it_as_locked_up(self):
        for name in ("basic", "shutdown", "sysinit"):  # units that every service refers to
            shutil.copy(f"/lib/systemd/system/{name}.target", self.usr / "lib/systemd/system")
        service = "quandrel-robot@north.service"
        self.finds_nothing("systemd-analyze", "verify", f"--root={self.root}", "--man=no", service)
        # Of 100; what is left is that it uses the network, and the system's own folders.
        run("systemd-analyze", "security", "--offline=yes", "--threshold=11", f"--root={self.root}", service)


if __name__ == "__main__":
    main()
