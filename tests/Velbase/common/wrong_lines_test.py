#!/usr/bin/env python3
"""wrong_lines_test.py SOURCES: natural lines that would do something else than they say do not compile, in C++17 and
C++20, with g++ and, where it is to be had, clang++; the right ones beside them do. SOURCES is the folder src."""

import re
import shutil
import subprocess
import sys

# What stands before the lines, each of which is the inside of a function. A String that is thrown away is a warning,
# which is an error here.
BEFORE = """
#include "Velbase/common/common_string.h"
namespace theirs {
struct Thing { };
template <typename T> void checked_delete(T*) { }
template <typename T> void checked_array_delete(T*) { }
}
String f();
extern String s;
extern const String c;
extern std::vector<String> list;
extern const char* p;
extern const unsigned short* utf16;
extern const unsigned char* pascal;
extern const wchar_t* wide;
extern const char16_t* unit;
extern void* raw;
extern int* number;
"""

WRONG = """
(void)(p == s);
(void)("x" == s);
(void)("x" < s);
(void)("x" <= s);
(void)(nullptr == s);
(void)("x" != s);
(void)(s != "x");
(void)(s != c);
(void)(s > c);
(void)(s >= "x");
(void)("x" > s);
(void)s.Arg(utf16);
(void)s.Arg(pascal);
(void)s.Arg(wide);
(void)s.Arg(L"x");
(void)s.Arg(unit);
(void)s.Arg(u"x");
(void)s.Arg(U"x");
(void)s.Arg(raw);
(void)s.Arg(number);
(void)s.Arg(&s);
(void)s.Arg(f);
s.Replace("a", "b");
s.ReplaceChar('a', 'b');
s.ToUpper();
s.ToLower();
s.StripWhiteSpace();
s.SimplifyWhiteSpace();
s.Left(1);
s.Right(1);
s.Mid(1);
s.Arg("x");
s.Arg(1);
String::Number(1);
String::Number(1.5);
String::Join(",", list);
f()[0] = 'x';
s.Left(2)[0] = 'x';
s.At(0) = 'x';
c[0] = 'x';
c[0] = 1;
CharRef r = f()[0];
CharRef r = c[0];
(void)s.Find("B", false);
(void)s.Find('B', false);
(void)s.Find(Char('B'), false);
(void)s.Find(s, true);
(void)s.Find("B", false, false);
(void)s.FindRev('B', false);
(void)s.FindRev(Char('B'), false);
(void)s.Mid(0, true);
s.Remove(0, false);
(void)String::Number(1.5, 'e');
(void)String::Number(1.5f, 'e');
(void)String::Number(1.5, 'e', 2);
(void)s.Arg(1.5, 'e');
(void)s.Arg(1.5f, 'e');
"""

# The last two go through the library's own function, not through that of the other namespace, which would be ambiguous.
RIGHT = """
(void)(s == "x" && s < "x" && s <= p && s == c && s < c && s <= c && s == nullptr);
(void)!(s == c);
const String t = s.Arg(p).Arg("x").Arg(const_cast<char*>(p)).Arg(String(utf16)).Arg(nullptr).Arg(s);
const String t = s.Arg('x').Arg(Char('x')).Arg(true).Arg(1).Arg(2u).Arg(3l).Arg(1.5).Arg(1.5f).Arg(short(1));
const String t = s.Arg(1.5, 2, 'e').Arg(-1, 16); list[0] = String::Number(1.5, 2, 'e');
const String t = s.Arg(std::vector<bool>(1)[0]);
f(), s.Insert(0, "x"), s += "x", s.Remove(0), s.Truncate(1);
s[0] = 'x'; s[0] = Char('x'); s[0] = c[1]; s[0] = s[1]; list[0][1] = 'x';
const Char a = f()[0]; const Char b = c[0]; const char d = s[0].ToChar(); (void)a, (void)b, (void)d;
Char a; a = 'x'; a = s[0]; a = f()[0]; a = c.At(0);
(void)s.Find("B", 0, false); (void)s.Find('B', 1u, true); (void)s.FindRev('B', checked_uint(), false);
(void)s.FindRev('B', 3); (void)s.Mid(0, 1); (void)s.Contains("x", false); (void)s.BeginsWith("x", false);
checked_value<bool> given = true; (void)given;
shared_ptr<theirs::Thing> owner(new theirs::Thing);
shared_array<theirs::Thing> owner(new theirs::Thing[2]);
"""
RIGHT = RIGHT.replace("f(), s.Insert", "(void)f(), s.Insert")


def refused(compiler, standard, sources, lines):
    """Which of the lines do not compile."""
    functions = [f"void line{number}() {{ {line} }}" for number, line in enumerate(lines)]
    limit = "-fmax-errors=0" if compiler == "g++" else "-ferror-limit=0"
    said = subprocess.run([compiler, f"-std={standard}", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", limit,
                           f"-I{sources}", "-x", "c++", "-"],
                          input=BEFORE + "\n".join(functions), capture_output=True, encoding="utf-8").stderr
    # Errors elsewhere, in a header say, count against line 0 and before: they are in no line.
    first = BEFORE.count("\n") + 1
    places = {(file, int(number)) for file, number in re.findall(r"^(\S+?):(\d+):\d+: (?:fatal )?error: ", said, re.MULTILINE)}
    return {lines[number - first] if file == "<stdin>" and number >= first else f"{file}:{number}"
            for file, number in places}


failures = []
compilers = [compiler for compiler in ("g++", "clang++") if shutil.which(compiler)]
wrong, right = WRONG.strip().splitlines(), RIGHT.strip().splitlines()
for compiler in compilers:
    for standard in ("c++17", "c++20"):
        answered = refused(compiler, standard, sys.argv[1], wrong)
        failures += [f"{compiler} {standard} takes: {line}" for line in wrong if line not in answered]
        failures += [f"{compiler} {standard} refuses: {line}"
                     for line in sorted(refused(compiler, standard, sys.argv[1], right) | (answered - set(wrong)))]
print("\n".join([*failures, f"{len(wrong)} wrong lines, {len(right)} right ones, {', '.join(compilers)}"]))
sys.exit(1 if failures or "g++" not in compilers else 0)
