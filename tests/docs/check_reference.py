#!/usr/bin/env python3
"""check_reference.py DOXYGEN DOXYFILE FOLDER: makes the text library's reference anew, which must go without a warning,
and looks whether it says what only the comments' conventions tell Doxygen. Status 77 if there is no Doxygen."""

import html
import pathlib
import re
import shutil
import subprocess
import sys

SKIPPED = 77

# What a page says, and how often.
EXPECTED = [
    # page                     times  text
    ("index.html",                 1, "is a text of 8-bit characters that copies share"),       # the guide comes first
    ("index.html",                 1, 'null:  1 1 0 ""'),                                       # with its examples
    ("common__string_8h.html",     1, "No operation changes a text that another string shares"),  # the file's head
    ("classString.html",           1, "Nothing is found in a null string, or with from at or past the end"),
    ("classString.html",           2, "The first or last count bytes"),                         # Left and Right
    ("classString.html",           2, 'String("%1 of %2").Arg(3).Arg("5") is "3 of 5"'),        # of both overloads
    ("classChar.html",             4, "The classes of the same names"),
    ("classCharRef.html",         13, "What Char answers for the character"),
    ("classchecked__value.html",   1, "ask valid() first"),
]

# Private to String, and so no page of the reference.
UNWANTED = ["common__string__buffer_8h.html"]


def text_of(page):
    if not page.exists():
        return ""
    text = re.sub(r"<[^>]*>", "", page.read_text(encoding="utf-8"))
    return re.sub(r"\s+", " ", html.unescape(text)) if page.name != "index.html" else html.unescape(text)


if len(sys.argv) != 4:
    sys.exit(__doc__)
doxygen, doxyfile, folder = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
if not shutil.which(doxygen):
    print("Skipped: there is no Doxygen here (see scripts/packages)")
    sys.exit(SKIPPED)

shutil.rmtree(folder, ignore_errors=True)
if subprocess.run([doxygen, doxyfile]).returncode != 0:
    sys.exit("Doxygen gave warnings")
failures = [f"{name} is a page, but private" for name in UNWANTED if (folder / name).exists()]
for name, times, sentence in EXPECTED:
    found = text_of(folder / name).count(sentence)
    if found != times:
        failures.append(f"{name} says {found} times, not {times}: {sentence}")
print("\n".join([*failures, f"{len(EXPECTED)} sentences looked for, {len(failures)} failures"]))
sys.exit(1 if failures else 0)
