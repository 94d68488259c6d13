"""Shows the text library's values in gdb as what they mean: String, Char and checked_value.

Load it with gdb's command "source", or let gdb load it with the program. A value that cannot be read, because it is not
made yet or no longer there, is shown with the reason in angle brackets. Nothing is called in the program.
"""

import gdb
import gdb.printing

# What String can hold, and so what a length beyond it tells: this is no String.
LONGEST_TEXT = 0xFFFFFFFF

ESCAPES = {ord('"'): '\\"', ord("\\"): "\\\\", ord("\n"): "\\n", ord("\r"): "\\r", ord("\t"): "\\t"}


def escaped(byte):
    """The byte as it stands in a C string; in octal, as gdb writes it, if it is not printable ASCII."""
    return ESCAPES.get(byte) or (chr(byte) if 0x20 <= byte < 0x7F else f"\\{byte:03o}")


def or_reason(describe):
    """What `describe` returns, or why it could not read what it needs."""

    def described(self):
        try:
            return describe(self)
        except gdb.error as error:
            return f"<{error}>"

    return described


class StringPrinter:
    """A text and its length, or null; and how many strings share it."""

    def __init__(self, value):
        self.value = value

    @or_reason
    def to_string(self):
        owner = self.value["m_text"]
        text, count = owner["m_owned"], owner["m_count"]
        if int(count) == 0:
            return "<no String: not made yet, or destroyed>"
        owners = int(count.dereference())
        if owners < 1:
            return f"<not a String: it has {owners} owners>"
        shared = f"{owners} owner" if owners == 1 else f"{owners} owners"
        if int(text) == 0:
            return f"null ({shared})"
        start, length = self.characters(text)
        if length > LONGEST_TEXT:
            return f"<not a String: it has {length} bytes>"
        return f"{self.quoted(start, length)} (length {length}, {shared})"

    @staticmethod
    def characters(text):
        """Address and number of the characters of the std::string at `text`: its first two words in libstdc++. They are
        read as such, since the type has no members in a program that clang compiled."""
        library = text.type.target().strip_typedefs().name
        if "__cxx11::basic_string" not in library:
            raise gdb.error(f"characters of a {library}: this layout is not known")
        words = text.cast(gdb.lookup_type("unsigned long").pointer())
        return int(words[0]), int(words[1])

    @staticmethod
    def quoted(start, length):
        """The characters in quotes, as many as gdb's `print elements` allows."""
        shown = min(length, gdb.parameter("print elements") or length)
        read = gdb.selected_inferior().read_memory(start, shown).tobytes() if shown else b""
        return '"' + "".join(map(escaped, read)) + '"' + ("..." if shown < length else "")


class CharPrinter:
    """A byte's value and the character in ASCII, as gdb shows a char."""

    def __init__(self, value):
        self.value = value

    @or_reason
    def to_string(self):
        byte = int(self.value["m_char"]) & 0xFF
        character = {ord("'"): "\\'", ord('"'): '"'}.get(byte) or escaped(byte)
        return f"{byte} '{character}'"


class CheckedValuePrinter:
    """The value, or that there is none."""

    def __init__(self, value):
        self.value = value

    @or_reason
    def to_string(self):
        if int(self.value["m_given"]) == 0:
            return "no value"
        return self.value["m_value"].format_string()


def velbase_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("velbase")
    printers.add_printer("String", "^String$", StringPrinter)
    printers.add_printer("Char", "^Char$", CharPrinter)
    printers.add_printer("checked_value", "^checked_value<.*>$", CheckedValuePrinter)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), velbase_printers(), replace=True)
