"""A scanner for C++, as far as mutating it takes: tokens with their places, partners of brackets, kinds of braces.

Comments, white space and preprocessor lines are no tokens. Nothing is expanded and no types are known: what a `<` or a
`*` means is told by the white space around it, which clang-format puts there.
"""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""
    (?P<skipped> \s+ | //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:[^\n\\]|\\.)* )
  | (?P<string>  (?:u8|[uUL])? (?: R"(?P<mark>[^()\s]*)\(.*?\)(?P=mark)" | "(?:[^"\\\n]|\\.)*" ) )
  | (?P<char>    (?:u8|[uUL])? '(?:[^'\\\n]|\\.)+' )
  | (?P<number>  \.?[0-9](?:[eEpP][+-]|'[0-9A-Za-z]|[0-9A-Za-z_.])* )
  | (?P<name>    [A-Za-z_]\w* )
  | (?P<sign>    <<=|>>=|\.\.\.|->|::|\+\+|--|&&|\|\||<<|>>|[-+*/%&|^=!<>]=|. )
    """,
    re.VERBOSE | re.DOTALL | re.MULTILINE,
)

OPENING = {"(": ")", "[": "]", "{": "}"}

# What stands before the `{` of a block of statements, as against that of a type, a namespace or a list of values.
BEFORE_A_BLOCK = {")", "]", "else", "do", "try", "const", "noexcept", "override"}
BETWEEN_STATEMENTS = {";", "{", "}", ":"}


@dataclass(frozen=True)
class Token:
    kind: str  # string, char, number, name or sign
    text: str
    start: int
    end: int
    is_spaced: bool  # white space on both sides: what binary operators have and other uses of their signs have not


def scan(source):
    """The tokens of `source`."""
    tokens = []
    for match in TOKEN.finditer(source):
        if match.lastgroup != "skipped":
            start, end = match.span()
            is_spaced = source[start - 1:start].isspace() and source[end:end + 1].isspace()
            tokens.append(Token(match.lastgroup, match.group(), start, end, is_spaced))
    return tokens


class Code:
    """The tokens of a source file, and what belongs together."""

    def __init__(self, source):
        self.source = source
        self.tokens = scan(source)
        self.partners = self._find_partners()
        self.blocks = self._find_blocks()

    def __len__(self):
        return len(self.tokens)

    def text(self, index):
        """The text of a token; empty before the first and behind the last."""
        return self.tokens[index].text if 0 <= index < len(self.tokens) else ""

    def between(self, first, last):
        """The source from the token `first` to the token `last`, both included."""
        return self.source[self.tokens[first].start:self.tokens[last].end]

    def following(self, index, wanted):
        """The first token from `index` on, in the same brackets, whose text is in `wanted`; None if they end before."""
        while index < len(self.tokens) and self.text(index) not in OPENING.values():
            if self.text(index) in wanted:
                return index
            index = self.partners.get(index, index) + 1
        return index if self.text(index) in wanted else None

    def _find_partners(self):
        partners, open_brackets = {}, []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text in OPENING:
                open_brackets.append(index)
            elif token.kind == "sign" and token.text in OPENING.values() and open_brackets:
                partners[open_brackets.pop()] = index
        return partners

    def _find_blocks(self):
        """The indexes of the `{` that begin a block of statements."""
        blocks, open_braces = set(), []
        for index, token in enumerate(self.tokens):
            if token.kind == "sign" and token.text == "{":
                before = self.text(index - 1)
                inside_block = bool(open_braces) and open_braces[-1] in blocks
                if before in BEFORE_A_BLOCK or (inside_block and before in BETWEEN_STATEMENTS) \
                        or self.text(index - 2) == "->":
                    blocks.add(index)
                open_braces.append(index)
            elif token.kind == "sign" and token.text == "}" and open_braces:
                open_braces.pop()
        return blocks
