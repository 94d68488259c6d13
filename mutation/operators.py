"""The mutations: small changes of a source, each of which a test should notice."""

import re
from dataclasses import dataclass

from cpp_tokens import Code

# What an operator between two operands becomes.
BINARY = {
    "boundary": {"<": "<=", "<=": "<", ">": ">=", ">=": ">"},
    "comparison": {"==": "!=", "!=": "==", "<": ">=", "<=": ">", ">": "<=", ">=": "<"},
    "logic": {"&&": "||", "||": "&&"},
    "arithmetic": {"+": "-", "-": "+", "*": "/", "/": "*", "%": "*"},
    "bits": {"&": "|", "|": "&", "^": "&", "<<": ">>", ">>": "<<"},
    "assignment": {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=", "&=": "|=", "<<=": ">>=", ">>=": "<<="},
}

# What an operator before an operand becomes, and the words for a truth.
UNARY = {"!": "", "~": "", "-": ""}
STEP = {"++": "--", "--": "++"}
TRUTH = {"true": "false", "false": "true"}
ESCAPES = {r"\0": r"\1", r"\n": r"\r", r"\t": r"\n", r"\r": r"\n", r"\\": "/", r"\'": '"'}

# How numbers are written: digits, and what follows them. Of a fraction its whole part is changed.
NUMBERS = (
    (re.compile(r"0[xX]([0-9A-Fa-f']+)([uUlL]*)"), 16, "0x{:X}{}"),
    (re.compile(r"([0-9']+)((?:\.[0-9]+)?[uUlLfF]*)"), 10, "{}{}"),
)

# What stands before an operator that has one operand.
BEFORE_AN_OPERAND = re.compile(r"[-+*/%&|^=!<>?:;,(\[{}]+|return|case")

# Checked by the compiler, or left out of the build that is tested.
NOT_MUTATED = {"static_assert", "assert", "alignof", "offsetof", "template", "using", "typedef", "friend"}

# A statement that declares something: without it the rest rarely compiles.
DECLARATION = re.compile(
    r"(const|constexpr|static|auto|using|typedef|struct|class|enum|template|friend|public|private|unsigned|else)\b"
    r"|(?!(return|throw|delete|new|case|goto)\b)[A-Za-z_][\w:]*(<.*>)?[\s*&]+[A-Za-z_]\w*\s*[=;({\[]", re.DOTALL)
CONDITIONAL = {"if", "while", "for", "switch"}

# Tables would make up most of a sample: of a list of more numbers than LONG_LIST, one in so many is mutated.
LONG_LIST = 32
ONE_IN = 8


@dataclass(frozen=True)
class Mutation:
    """The source from `start` to `end` becomes `replacement`. `operator` says what kind of change that is."""

    operator: str
    start: int
    end: int
    replacement: str

    def apply(self, source):
        return source[:self.start] + self.replacement + source[self.end:]

    def lines(self, source):
        """The number of its first line, the line above that, and what it touches before and after, each as one line."""
        first = source.rfind("\n", 0, self.start) + 1
        above = source[:first].rstrip().rpartition("\n")[2]
        last = source.find("\n", self.end)
        last = len(source) if last < 0 else last
        old = source[first:last]
        new = source[first:self.start] + self.replacement + source[self.end:last]
        return source.count("\n", 0, self.start) + 1, *(" ".join(text.split()) for text in (above, old, new))


def mutations(source):
    """Every mutation of `source`, in the order of their places."""
    code = Code(source)
    found = []
    for operator in OPERATORS:
        found += operator(code)
    left_out = not_mutated(code)
    found = [each for each in found if not any(first <= each.start < last for first, last in left_out)]
    return sorted(found, key=lambda each: (each.start, each.end, each.operator, each.replacement))


def not_mutated(code):
    """The stretches of the source that are left as they are: from a word of NOT_MUTATED to the end of what it rules."""
    stretches = []
    for index, token in enumerate(code.tokens):
        if token.text in NOT_MUTATED:
            end = template_end(code, index) if token.text == "template" else code.following(index, {";", ")", ","})
            stretches.append((token.start, code.tokens[end].end if end is not None else len(code.source)))
    return stretches


def template_end(code, index):
    """The `>` that closes the parameters of a template."""
    return code.following(index, {">", ">>"})


def change(operator, token, replacement):
    return Mutation(operator, token.start, token.end, replacement)


def binary_operators(code):
    for index, token in enumerate(code.tokens):
        if token.kind == "sign" and token.is_spaced and code.text(index - 1) not in ("operator", "template"):
            for name, becomes in BINARY.items():
                if token.text in becomes:
                    yield change(name, token, becomes[token.text])


def unary_operators(code):
    for index, token in enumerate(code.tokens):
        if token.text in STEP and token.kind == "sign" and code.text(index - 1) != "operator":
            yield change("step", token, STEP[token.text])
        elif token.text in UNARY and not token.is_spaced and BEFORE_AN_OPERAND.fullmatch(code.text(index - 1)):
            yield change("sign", token, UNARY[token.text])


def truths(code):
    for token in code.tokens:
        if token.kind == "name" and token.text in TRUTH:
            yield change("constant", token, TRUTH[token.text])


def numbers(code):
    left_out = set()
    for opening, closing in code.partners.items():
        inside = [i for i in range(opening, closing) if code.tokens[i].kind == "number"]
        if code.text(opening) == "{" and opening not in code.blocks and len(inside) > LONG_LIST \
                and all(code.text(i) != ";" for i in range(opening, closing)):
            left_out.update(each for place, each in enumerate(inside) if place % ONE_IN != 0)
    for index, token in enumerate(code.tokens):
        if token.kind == "number" and index not in left_out:
            for replacement in neighbours(token.text):
                yield change("constant", token, replacement)


def neighbours(number):
    """The number's neighbours, one more and one less, written as it is."""
    for pattern, base, form in NUMBERS:
        match = pattern.fullmatch(number)
        if match:
            value = int(match[1].replace("'", ""), base)
            return [form.format(each, match[2]) for each in (value + 1, value - 1) if each >= 0]
    return []


def characters(code):
    for token in code.tokens:
        if token.kind == "char":
            body = token.text[1:-1]
            escape = re.search(r"\\.$", body)
            if escape:
                after = ESCAPES.get(escape[0])
            else:
                after = chr(ord(body[-1]) + 1) if re.search(r"[\x20-\x25\x28-\x5A\x5D-\x7D]$", body) else None
            if after is not None:
                yield change("constant", token, f"'{body[:-len(escape[0]) if escape else -1]}{after}'")


def conditions(code):
    """Negates what `if`, `while` and `for` ask, unless it is a comparison or a `!`, which are mutated already."""
    for index, token in enumerate(code.tokens):
        if token.text not in ("if", "while", "for") or code.text(index + 1) != "(":
            continue
        first, closing = index + 2, code.partners[index + 1]
        last = closing - 1
        semicolon = code.following(first, {";"})
        if semicolon is not None and semicolon < closing:
            first = semicolon + 1
            if token.text == "for":
                last = code.following(first, {";"}) - 1
        elif token.text == "for":
            continue
        texts = [code.text(i) for i in range(first, last + 1)]
        if not texts or "=" in texts:
            continue
        if not {"&&", "||"} & set(texts) and ({*BINARY["comparison"]} & set(texts) or texts[0] == "!"):
            continue
        yield Mutation("condition", code.tokens[first].start, code.tokens[last].end, f"!({code.between(first, last)})")


def choices(code):
    """Swaps the two values of `?:`."""
    for index, token in enumerate(code.tokens):
        if token.text != "?":
            continue
        colon, questions = index + 1, 1
        while True:
            colon = code.following(colon, {"?", ":"})
            questions += 1 if code.text(colon) == "?" else -1
            if questions == 0:
                break
            colon += 1
        end = code.following(colon + 1, {";", ",", ")", "}", "]"})
        first, second = code.between(index + 1, colon - 1), code.between(colon + 1, end - 1)
        yield Mutation("choice", code.tokens[index + 1].start, code.tokens[end - 1].end, f"{second} : {first}")


def statements(code):
    """Takes out a statement, unless it declares something or is the return at a function's end."""
    for brace in code.blocks:
        index = brace + 1
        while index < code.partners[brace]:
            index = yield from statement(code, index)


def statement(code, index):
    """Mutates the statement that begins at `index`, but not the blocks in it; returns the index behind it."""
    text = code.text(index)
    if text == "{":
        return code.partners[index] + 1
    if text in CONDITIONAL and code.text(index + 1) in ("(", "constexpr"):
        return (yield from controlled(code, code.partners[code.following(index, {"("})] + 1))
    if text in ("else", "do"):
        return (yield from controlled(code, index + 1))
    if text in ("case", "default", "public", "private"):
        return code.following(index, {":"}) + 1
    end = code.following(index, {";", "{", "}"})
    if end is not None and code.text(end) == "{" and end not in code.blocks:
        end = code.following(end, {";", "}"})
    if end is None or code.text(end) != ";":
        return index + 1 if end is None else code.partners.get(end, end) + 1
    whole = code.between(index, end)
    if end > index and not DECLARATION.match(whole) and not (text == "return" and end > index + 1):
        yield Mutation("statement", code.tokens[index].start, code.tokens[end].end, ";")
    return end + 1


def controlled(code, index):
    """The statement behind a condition: taken out whole, an early return included."""
    if code.text(index) == "return" and code.text(index + 1) != ";":
        end = code.following(index, {";"})
        yield Mutation("statement", code.tokens[index].start, code.tokens[end].end, ";")
        return end + 1
    return (yield from statement(code, index))


OPERATORS = (binary_operators, unary_operators, truths, numbers, characters, conditions, choices, statements)
