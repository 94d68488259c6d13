#!/usr/bin/env python3
"""symbols_test.py NM LIBRARY: nothing private is in the text library under a name that a user could have. NM lists the
names as the linker sees them."""

import re
import subprocess
import sys

# What may be there, from the beginning of the name. A user who has one of these means the library's.
MAY_BE_THERE = re.compile("|".join((
    r"CHAR_CATEGORIES$",
    r"_ZNK?6String",                            # its members, private ones and private classes too
    r"_Z(eq|lt|le)RK6String(S1_|PKc)$",         # == < <=
    r"_ZNK?(4Char|7CharRef|13checked_valueI|10shared_ptrI|12shared_arrayI)",
    r"_Z(14checked_delete|20checked_array_delete)I",
    r"_Z(13unsigned_byte|11signed_byte|11signed_word)",
    r"_ZNK?15velbase_private",
    r"_ZZ?(NK?)?(St|Sa|9__gnu_cxx)",            # what the compiler makes of the standard library's templates
    r"__|DW\.ref\.__|_ZT[IS]F",                 # the compiler's own, and the types that a sanitizer compares
)))

_, nm, library = sys.argv
listed = subprocess.run([nm, "-g", "--defined-only", "-P", library], stdout=subprocess.PIPE, encoding="utf-8", check=True)
names = {line.split()[0] for line in listed.stdout.splitlines() if len(line.split()) > 1}
others = sorted(name for name in names if not MAY_BE_THERE.match(name))
print("\n".join([*(f"This name may be a user's too: {name}" for name in others), f"{len(names)} names"]))
sys.exit(1 if others or "_ZNK6String4FindEcjb" not in names else 0)
