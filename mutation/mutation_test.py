"""What the mutation script makes of a source, and what it takes for a kill."""

import pathlib
import sys
import types
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent))
from cpp_tokens import scan  # noqa: E402
from judging import KILLED, SURVIVED, TIMED_OUT, Equivalents, run  # noqa: E402
from operators import mutations  # noqa: E402

# A statement of a function and what becomes of it, in the order of their places.
STATEMENTS = {
    "use(a < b);": ["use(a <= b);", "use(a >= b);", ";"],
    "use(a >= b);": ["use(a > b);", "use(a < b);", ";"],
    "use(a == b && c);": ["use(a != b && c);", "use(a == b || c);", ";"],
    "use(a + b * -c);": ["use(a - b * -c);", "use(a + b / -c);", "use(a + b * c);", ";"],
    "use(a & ~b);": ["use(a | ~b);", "use(a & b);", ";"],
    "a <<= b;": ["a >>= b;", ";"],
    "++a;": ["--a;", ";"],
    "use(!a, true);": ["use(a, true);", "use(!a, false);", ";"],
    "use(0, 9);": ["use(1, 9);", "use(0, 10);", "use(0, 8);", ";"],
    "use(0xFFu, 1'000);": ["use(0x100u, 1'000);", "use(0xFEu, 1'000);", "use(0xFFu, 1001);", "use(0xFFu, 999);", ";"],
    "use('a', 'lsel');": ["use('b', 'lsel');", "use('a', 'lsem');", ";"],
    "use('\\0', '\\n');": ["use('\\1', '\\n');", "use('\\0', '\\r');", ";"],
    "use(a ? b(c, d) : e);": ["use(a ? e : b(c, d));", ";"],
    "return a ? b : c ? d : e;": ["return a ? c ? d : e : b;", "return a ? b : c ? e : d;"],
    "if (a) b();": ["if (!(a)) b();", "if (a) ;"],
    "if (!a) return b;": ["if (a) return b;", "if (!a) ;"],
    "if (auto a = b()) { c(); }": ["if (auto a = b()) { ; }"],
    "while (a && b) { c(); }": ["while (!(a && b)) { c(); }", "while (a || b) { c(); }", "while (a && b) { ; }"],
    "for (auto a = b; a; next(a)) ;": ["for (auto a = b; !(a); next(a)) ;"],
    "for (auto& a : b) c(a);": ["for (auto& a : b) ;"],
    "switch (a) { case b: c(); break; }": ["switch (a) { case b: ; break; }", "switch (a) { case b: c(); ; }"],

    # Nothing that is only spelled like an operator, nothing that is not code, and no declaration.
    "const T* const a = b<c>(&d);": [],
    "std::vector<std::pair<A, B>> a(b);": [],
    "T&& a = static_cast<T&&>(b);": [],
    "return a;": [],
    "use(\"a < 1\"); // a < 1": ["; // a < 1"],
    "/* a < 1 */ use(R\"(1)\");": ["/* a < 1 */ ;"],
    "static_assert(sizeof(A) == 4, \"\");": [],
    "assert(a != nullptr);": [],
}


def mutants(source):
    return [mutation.apply(source) for mutation in mutations(source)]


class Mutations(unittest.TestCase):
    def test_change_one_thing_of_a_statement(self):
        for statement, expected in STATEMENTS.items():
            with self.subTest(statement):
                source = f"void f()\n{{\n    {statement}\n}}\n"
                self.assertCountEqual(mutants(source), [source.replace(statement, each) for each in expected])

    def test_take_out_statements_of_functions_only(self):
        for source in ("void f();", "class C { void f(); };", "namespace N { f(a); }", "enum E { a, b };"):
            self.assertEqual(mutants(source), [], source)
        for before in ("void f() ", "struct S { void f() const ", "auto f = [] ", "C::C() : m_a() "):
            self.assertEqual(len(mutants(before + "{ use(a); }")), 1, before)

    def test_leave_preprocessor_lines_alone(self):
        self.assertEqual(mutants("#define A (1 < 2) \\\n    + 3\n#if A > 1\n#endif\n"), [])

    def test_mutate_one_in_eight_of_a_long_list(self):
        self.assertEqual(len(mutants(f"const int A[] = {{{', '.join(['0'] * 32)}}};")), 32)
        self.assertEqual(len(mutants(f"const int A[] = {{{', '.join(['0'] * 64)}}};")), 8)

    def test_name_the_line_and_what_becomes_of_it(self):
        source = "int a;\nbool f()\n{\n\n    return a <\n        2;\n}\n"
        lines = [mutation.lines(source) for mutation in mutations(source)]
        self.assertIn((5, "{", "return a <", "return a <="), lines)
        self.assertIn((6, "return a <", "2;", "3;"), lines)


class ListOfEquivalents(unittest.TestCase):
    @staticmethod
    def mutant(above, old, new):
        return types.SimpleNamespace(above=above, old=old, new=new)

    def test_knows_a_mutant_by_its_line_and_by_the_one_above_if_that_is_given(self):
        known = Equivalents("# The list\n\na reason\n- a\n+ b\n+ c\n  if (x)\n- return;\n+ ;\n")
        wrong = self.mutant("any", "return;", ";")
        for mutant, is_known in ((self.mutant("any", "a", "b"), True), (self.mutant("any", "a", "c"), True),
                                 (self.mutant("if (x)", "return;", ";"), True), (wrong, False),
                                 (self.mutant("any", "a", "d"), False), (self.mutant("if (x)", "c", "b"), False)):
            self.assertEqual(mutant in known, is_known, mutant)
        self.assertEqual(known.without([self.mutant("", "a", "b"), wrong]),
                         [("a", "c", ""), ("return;", ";", "if (x)")])


class Tokens(unittest.TestCase):
    def test_are_found_as_the_language_has_them(self):
        texts = [token.text for token in scan("a<<=0x1Fu;// b\n'\\''+\"\\\"\"->x::y 1'000.5e-3f")]
        self.assertEqual(
            texts, ["a", "<<=", "0x1Fu", ";", "'\\''", "+", '"\\""', "->", "x", "::", "y", "1'000.5e-3f"])


class Programs(unittest.TestCase):
    def outcome(self, *command, seconds=60):
        return run(command, seconds, {})

    def test_that_find_nothing_wrong_let_a_mutant_survive(self):
        self.assertEqual(self.outcome("true"), SURVIVED)

    def test_that_fail_or_crash_kill_it(self):
        self.assertEqual(self.outcome("false"), KILLED)
        self.assertEqual(self.outcome("sh", "-c", "kill -SEGV $$"), KILLED)

    def test_that_do_not_end_kill_it_by_a_timeout(self):
        self.assertEqual(self.outcome("sleep", "60", seconds=0.1), TIMED_OUT)


if __name__ == "__main__":
    unittest.main()
