#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Keeps the files in translations/ in step with the texts in the sources.

    scripts/translations.py update    brings the files up to date; new texts are "unfinished"
    scripts/translations.py check     is quiet if nothing is missing, left over or misspelt
"""
import collections
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = ["-I", ".", "-I", "src/platform", "-I", "host/framework"]
# A plugin's widgets ask their host with trans(), and Qt with tr().
COMPONENTS = {
    "device_quandrel_gui": ["-tr-function-alias", "tr+=trans", "src"],
    "workbench": ["host", "robot", "rosbridge"],
}
# Said of every trans() of another object; the text is found all the same.
HARMLESS = "Cannot invoke tr() like this"
# What a translation must have as often as its source has it.
KEPT = re.compile(r"%L?(?:\d{1,2}|n)|</?(?:p|ol|li|b)>|\\|\n")


def lupdate():
    for name in ("/usr/lib/qt6/bin/lupdate", "lupdate"):
        if found := shutil.which(name):
            return found
    sys.exit("lupdate is missing: install qt6-l10n-tools")


def update(file, options):
    """Has lupdate bring a file up to date; returns what it complained of."""
    result = subprocess.run(
        [lupdate(), "-silent", "-locations", "none", *INCLUDE, *options, "-ts", file],
        cwd=ROOT, stderr=subprocess.PIPE, text=True)
    complaints = [line for line in result.stderr.splitlines() if HARMLESS not in line]
    if result.returncode != 0 and not complaints:
        complaints.append(f"lupdate ended with status {result.returncode}")
    return complaints


def mnemonics(text):
    return len(re.findall(r"&(?=\w)", text))


def faults(file):
    """What is wrong with the texts of a file that is up to date."""
    for context in ElementTree.parse(file).iter("context"):
        for message in context.iter("message"):
            source = message.findtext("source")
            translation = message.find("translation")
            state = translation.get("type")
            text = translation.text or ""
            where = f"{context.findtext('name')}: \"{source}\""
            if state == "unfinished":
                yield f"{where} has no translation"
            elif state:
                yield f"{where} is translated and no longer in the sources"
            elif collections.Counter(KEPT.findall(source)) != collections.Counter(KEPT.findall(text)):
                yield f"{where} has other placeholders, tags or line ends than \"{text}\""
            elif mnemonics(source) != mnemonics(text):
                yield f"{where} and \"{text}\" must both have a mnemonic or none"


def main():
    if sys.argv[1:] not in (["update"], ["check"]):
        sys.exit(__doc__)
    isCheck = sys.argv[1] == "check"
    found = []
    with tempfile.TemporaryDirectory() as folder:
        for component, options in COMPONENTS.items():
            for file in sorted((ROOT / "translations").glob(f"{component}_*.ts")):
                target = file
                if isCheck:
                    target = Path(folder) / file.name
                    shutil.copy(file, target)
                name = file.relative_to(ROOT)
                found += [f"{name}: {words}" for words in update(target, options)]
                found += [f"{name}: {words}" for words in faults(target)]
                if isCheck and not found and target.read_bytes() != file.read_bytes():
                    found.append(f"{name}: lupdate would write it in another way")
    if found:
        sys.exit("\n".join([*found, "To repair: scripts/translations.py update, then translate."]))


if __name__ == "__main__":
    main()
