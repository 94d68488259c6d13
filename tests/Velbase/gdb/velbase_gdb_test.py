#!/usr/bin/env python3
"""velbase_gdb_test.py PROGRAM: whether gdb shows the values of values.cpp, which is PROGRAM, as it should with
velbase_gdb.py, and some of them as docs/guide.md says. Status 77 where gdb is not to be had."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[3]
PRINTERS = ROOT / "src/Velbase/gdb/velbase_gdb.py"
GUIDE = ROOT / "docs/guide.md"
SKIPPED = 77

# Where PROGRAM is found when it is missing.
BUILT = "build/release/tests/Velbase/gdb/velbase_gdb_values"
BUILDING = "cmake --preset release -DBUILD_TESTING=ON && cmake --build build/release --target velbase_gdb_values"

# What gdb says where it is no use: a container may forbid it to watch a program, and Debian has one without Python.
NOT_HERE = re.compile(r"ptrace: Operation not permitted|Could not trace the inferior|Python scripting is not supported")

# What is shown of a variable stands beside it in values.cpp, where there is room.
VALUES = ROOT / "tests/Velbase/gdb/values.cpp"
EXPECTED = re.findall(r"(\w+)(?:[({\[].*[)}\]]| = .*)?; +// gdb: (.*)", VALUES.read_text(encoding="utf-8")) + [
    # expression                shown
    ("of_200",                  '"' + 200 * "x" + '" (length 200, 1 owner)'),
    ("of_201",                  '"' + 200 * "x" + '"... (length 201, 1 owner)'),
    ("many_units",              "u'x' <repeats 200 times>... (1 owner)"),
    ("*pointer",                '"abc" (length 3, 1 owner)'),
    ("words",                   'std::vector of length 3, capacity 3 = '
                                '{"one" (length 3, 1 owner), "" (length 0, 1 owner), null (1 owner)}'),
    ("*nowhere",                "Cannot access memory at address 0x0"),
    ("*(String*)&unmade",       "<Cannot access memory at address 0xaaaaaaaaaaaaaaaa>"),
    ("*(String*)&destroyed",    "<no String: not made yet, or gone>"),
    ("*(String*)&dead_text",    "<Cannot access memory at address 0x10>"),
    ("*(String*)&without_owners", "<not a String: it has 0 owners>"),
    ("*(shared_ptr<int>*)&dead_text", "<Cannot access memory at address 0x10>"),
    ("*(shared_ptr<int>*)&without_owners", "<not a shared_ptr: it has 0 owners>"),
    ("*(shared_array<unsigned short>*)&dead_text", "<error: Cannot access memory at address 0x10> (1 owner)"),
    ("*(shared_array<int>*)&dead_text", "0x10 (1 owner)"),
    ("*(shared_array<int>*)&without_owners", "<not a shared_array: it has 0 owners>"),
    ("dead_string",             "<Cannot access memory at address 0x18>"),
    ("dead_char",               "<Cannot access memory at address 0x10>"),
    ("dead_number",             "<Cannot access memory at address 0x14>"),
]


def gdb(program, commands):
    """All that gdb says, and what it answers to each command, given while `program` stands in stop_here."""
    arguments = ["gdb", "-nx", "-batch", "-iex", "set debuginfod enabled off", "-iex", "set width 0",
                 "-iex", "set disable-randomization off", "-iex", "set startup-with-shell off",
                 "-ex", f"source {PRINTERS}", "-ex", "break stop_here", "-ex", "run", "-ex", "up"]
    for command in [*commands, "kill"]:
        arguments += ["-ex", "echo \\n@@", "-ex", command]
    said = subprocess.run([*arguments, program], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          stdin=subprocess.DEVNULL, encoding="utf-8", env={**os.environ, "LC_ALL": "C.UTF-8"}).stdout
    return said, [answer.strip() for answer in said.split("\n@@")[1:-1]]


def skip(reason):
    print(f"Skipped: {reason}")
    sys.exit(SKIPPED)


if len(sys.argv) != 2:
    sys.exit(f"usage: velbase_gdb_test.py PROGRAM; {BUILDING} builds {BUILT}")
if not os.access(sys.argv[1], os.X_OK) or os.path.isdir(sys.argv[1]):
    sys.exit(f"{sys.argv[1]} is no program; {BUILDING} builds {BUILT}")
if not shutil.which("gdb"):
    skip("there is no gdb here (see scripts/packages)")
sessions = re.findall(r"^```gdb\n(.*?)^```$", GUIDE.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)
guide = re.findall(r"\(gdb\) (.*)\n(.*)\n", "".join(sessions))
expected = [(f"output {expression}", shown) for expression, shown in EXPECTED] + guide
expected.append(("with print elements unlimited -- output of_201", '"' + 201 * "x" + '" (length 201, 1 owner)'))
said, answers = gdb(sys.argv[1], [command for command, _ in expected])
if NOT_HERE.search(said):
    skip(f"gdb cannot be used here: {NOT_HERE.search(said)[0]}")

failures = [f"{command}\n    answer:   {answer}\n    expected: {wanted}"
            for (command, wanted), answer in zip(expected, answers) if answer != wanted]
if not guide or len(answers) != len(expected):
    failures.append(f"{len(answers)} answers to {len(expected)} commands, {len(guide)} of them from the guide:\n{said}")
print("\n".join([*failures, f"{len(answers)} answers, {len(failures)} failures"]))
sys.exit(1 if failures else 0)
