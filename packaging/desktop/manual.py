#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Writes the manual page of a program: what its --help says, then sections of a Markdown file.

Usage: manual.py PROGRAM PAGE SEE_ALSO FILE HEADING...

SEE_ALSO are the names of other pages, with commas between them.
"""

import os
import re
import subprocess
import sys
from pathlib import Path

SPAN = re.compile(r"(`[^`]+`)|(\*\*[^*]+\*\*)|\[([^]]+)\]\([^)]+\)")


def say(program, option):
    """What the program says, in English and without a display."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": "", "QT_QPA_PLATFORM": "offscreen"}
    done = subprocess.run([program, option], env=environment, capture_output=True, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{program} {option} ended with status {done.returncode}:\n{done.stderr}")
    return done.stdout.strip()


def plain(text):
    """The text as it is, for troff."""
    text = text.replace("\\", "\\e").replace("-", "\\-")
    return re.sub(r"^(?=[.'])", r"\\&", text, flags=re.MULTILINE)


def bold(text):
    return f"\\fB{plain(text)}\\fP"


def italic(text):
    return f"\\fI{plain(text)}\\fP"


def spans(text):
    """Text of a paragraph, with code, emphasis and links."""
    found, end = "", 0
    for span in SPAN.finditer(text):
        code, strong, link = span.groups()
        found += plain(text[end:span.start()]) + (spans(link) if link else bold((code or strong).strip("`*")))
        end = span.end()
    return found + plain(text[end:])


def blocks(markdown):
    """Paragraphs, code and the items of lists."""
    for block in re.split(r"\n{2,}|\n(?=(?:-|\d+\.) )", markdown.strip("\n")):
        item = re.match(r"(-|\d+\.) +", block)
        if block.startswith("    "):
            code = plain(re.sub("^    ", "", block, flags=re.MULTILINE))
            yield f".PP\n.RS 4\n.EX\n{code}\n.EE\n.RE"
        elif item:
            mark = item[1].replace("-", "\\(bu")
            text = re.sub("\n +", "\n", block[item.end():])
            yield f".IP {mark} 4\n{spans(text)}"
        elif re.fullmatch(r"\[[^]]+\]\([^)]+\)", block):
            continue  # a way to other pages of the help
        elif re.match(r"[|>]|```", block):
            sys.exit(f"A manual page has no place for this:\n{block}")
        else:
            yield f".PP\n{spans(block)}"


def section(file, heading):
    """What is below a heading, up to the next one."""
    markdown = file.read_text(encoding="utf-8")
    found = re.search(rf"^#+ {re.escape(heading)}\n(.*?)(?=^#|\Z)", markdown, re.MULTILINE | re.DOTALL)
    if not found:
        sys.exit(f"{file} has no heading \"{heading}\"")
    return f".SH {plain(heading.upper())}\n" + "\n".join(blocks(found[1]))


def described(names):
    """The names of an option, or of an argument, and its value."""
    return " ".join(bold(word) if word.startswith("-") else italic(word)
                    for word in names.replace(",", " ,").split()).replace(" \\fI,\\fP", ",")


def entries(listed):
    """A list of --help, below its title."""
    title, *found = re.split(r"\n(?=  \S)", listed)
    texts = [re.split(r" {2,}|\n", entry.strip(), maxsplit=1) for entry in found]
    return f".SH {title.upper().rstrip(':')}\n" + "\n".join(
        f".TP\n{described(names)}\n{plain(' '.join(text.split()))}" for names, text in texts)


def page(program, see_also, file, headings):
    """The whole page."""
    head, *lists = say(program, "--help").split("\n\n")
    usage, about = head.split("\n", 1)
    arguments = " ".join(italic(word) for word in usage.split()[2:])
    summary = re.match(r"(.+?)\.(?=\s|$)", about)[1]
    return "\n".join([
        f'.TH {program.name.upper()} 1 "" "{say(program, "--version")}" "User Commands"',
        ".nh",  # names of files and options stay in one piece
        f".SH NAME\n{plain(program.name)} \\- {plain(summary[0].lower() + summary[1:])}",
        f".SH SYNOPSIS\n{bold(program.name)} {arguments}",
        f".SH DESCRIPTION\n{plain(about)}",
        *map(entries, lists),
        *(section(file, heading) for heading in headings),
        ".SH SEE ALSO\n" + ",\n".join(f"{bold(name)}(1)" for name in see_also)]) + "\n"


def main():
    if len(sys.argv) < 6:
        sys.exit(__doc__)
    program, written, see_also, file, *headings = sys.argv[1:]
    Path(written).write_text(page(Path(program), see_also.split(","), Path(file), headings), encoding="utf-8")


if __name__ == "__main__":
    main()
