#!/usr/bin/env python3
"""The examples of the pages: compares what they print with what the pages say.

    guide_examples.py extract GUIDE SOURCE     writes the program, in which `program N` runs example N, from 0
    guide_examples.py check GUIDE PROGRAM      runs each example
    guide_examples.py commands PAGE EXCEPT     runs the indented blocks of commands as pasted, in order, in the checkout,
                                               but those that the regular expression EXCEPT finds something in

Each block marked "cpp" is the inside of a function, but the one with the includes, and the block marked "text" right
behind it is what it prints. In a block of commands they stand behind "$ " where their output stands beneath.
"""

import difflib
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]


class Block:
    def __init__(self, kind, first_line, text):
        self.kind, self.first_line, self.text = kind, first_line, text
        self.is_example = kind == "cpp" and not text.startswith("#include")


def blocks_of(guide):
    text = guide.read_text(encoding="utf-8")
    return [Block(found[1], text.count("\n", 0, found.start(2)) + 1, found[2])
            for found in re.finditer(r"^```(\w*)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)]


def extract(guide, source):
    blocks = blocks_of(guide)
    examples = [block for block in blocks if block.is_example]
    lines = [block.text for block in blocks if block.kind == "cpp" and not block.is_example]
    for number, block in enumerate(examples):
        lines.append(f'static void example{number}()\n{{\n#line {block.first_line} "{guide}"\n{block.text}}}\n')
    names = ", ".join(f"example{number}" for number in range(len(examples)))
    lines.append("#include <cstdlib>\n\nint main(int, char** arguments)\n{\n"
                 f"    void (*const EXAMPLES[])() = {{{names}}};\n    EXAMPLES[std::atoi(arguments[1])]();\n}}\n")
    pathlib.Path(source).write_text("\n".join(lines), encoding="utf-8")


def check(guide, program):
    blocks = blocks_of(guide)
    failures = [f"{guide}:{block.first_line}: there is no example in front of this output"
                for before, block in zip([None, *blocks], blocks)
                if block.kind == "text" and not (before and before.is_example)]
    examples = [(block, behind) for block, behind in zip(blocks, [*blocks[1:], None]) if block.is_example]
    for number, (example, output) in enumerate(examples):
        place = f"{guide}:{example.first_line}"
        if not output or output.kind != "text":
            failures.append(f"{place}: no output is shown behind this example")
            continue
        run = subprocess.run([program, str(number)], capture_output=True)
        printed = run.stdout.decode(errors="backslashreplace")
        if run.returncode or run.stderr:
            failures.append(f"{place}: status {run.returncode}: {run.stderr.decode(errors='replace')}")
        if printed != output.text:
            failures.append(f"{place}: the page and the program differ\n" + "".join(difflib.unified_diff(
                output.text.splitlines(True), printed.splitlines(True), "page", "program")))
    print("\n".join([*failures, f"{len(examples)} examples, {len(failures)} failures"]))
    return 1 if failures or not examples else 0


def commands(page, left_out):
    text = page.read_text(encoding="utf-8")
    blocks = [found[0].replace("\n    ", "\n")[4:] for found in re.finditer(r"^(?: {4}\S.*\n(?: {4}.*\n)*)", text, re.MULTILINE)]
    failures, run = [], [block for block in blocks if not re.search(left_out, block)]
    for block in run:
        told = "".join(re.findall(r"^\$ (.*\n)", block, re.MULTILINE)) or block
        shown = "" if told == block else re.sub(r"^\$ .*\n", "", block, flags=re.MULTILINE)
        result = subprocess.run(["bash", "-ec", told], cwd=ROOT, stdin=subprocess.DEVNULL, capture_output=True, text=True)
        if result.returncode or (shown and result.stdout != shown):
            failures.append(f"{page}: {told}status {result.returncode}\n{result.stdout}{result.stderr}")
    print("\n".join([*failures, f"{len(run)} of {len(blocks)} blocks run, {len(failures)} failures"]))
    return bool(failures or not run)


if len(sys.argv) != 4 or sys.argv[1] not in ("extract", "check", "commands"):
    sys.exit(__doc__)
command, guide_path, other = sys.argv[1:]
if command == "check" and not pathlib.Path(other).is_file():
    sys.exit(f"{other} is not built: cmake --build build/release --target guide_examples")
sys.exit({"extract": extract, "check": check, "commands": commands}[command](pathlib.Path(guide_path), other))
