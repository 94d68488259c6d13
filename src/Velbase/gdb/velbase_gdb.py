"""Shows the text library's values in gdb as what they mean: String, Char, checked_value, shared_ptr and shared_array.

Load it with gdb's command "source", or let gdb load it with the program. A value that cannot be read, because it is not
made yet or no longer there, is shown with the reason in angle brackets. Nothing is called in the program.
"""

import gdb
import gdb.printing

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


def owners_in_words(owner, kind):
    """How many share what a shared_ptr or shared_array owns. An error if this is no `kind` that is alive."""
    count = owner["m_count"]
    if int(count) == 0:
        raise gdb.error(f"no {kind}: not made yet, or gone")
    owners = int(count.dereference())
    if owners < 1:
        raise gdb.error(f"not a {kind}: it has {owners} owners")
    return f"{owners} owner" if owners == 1 else f"{owners} owners"


class StringPrinter:
    """A text and its length, or null; and how many strings share it."""

    def __init__(self, value):
        self.value = value

    @or_reason
    def to_string(self):
        owner = self.value["m_text"]
        text, shared = owner["m_owned"], owners_in_words(owner, "String")
        if int(text) == 0:
            return f"null ({shared})"
        buffer = text.dereference()
        length = int(buffer["m_length"])
        return f"{self.quoted(int(text) + buffer.type.sizeof, length)} (length {length}, {shared})"

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


class OwnerPrinter:
    """What is owned, or null; and how many owners share it."""

    def __init__(self, value):
        self.value = value

    @or_reason
    def to_string(self):
        owned, shared = self.value["m_owned"], owners_in_words(self.value, self.kind)
        return f"{'null' if int(owned) == 0 else self.shown(owned)} ({shared})"


class SharedPtrPrinter(OwnerPrinter):
    """The object."""

    kind = "shared_ptr"

    @staticmethod
    def shown(owned):
        return owned.dereference().format_string()


class SharedArrayPrinter(OwnerPrinter):
    """The text, if it is UTF-16 as String::Unicode makes it: up to the first zero. The address of another array, of which
    nobody knows how long it is."""

    kind = "shared_array"

    @staticmethod
    def shown(owned):
        if owned.type.target().strip_typedefs().name != "unsigned short":
            return f"{int(owned):#x}"
        return owned.cast(gdb.lookup_type("char16_t").pointer()).format_string(address=False)


def velbase_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("velbase")
    printers.add_printer("String", "^String$", StringPrinter)
    printers.add_printer("Char", "^Char$", CharPrinter)
    printers.add_printer("checked_value", "^checked_value<.*>$", CheckedValuePrinter)
    printers.add_printer("shared_ptr", "^shared_ptr<.*>$", SharedPtrPrinter)
    printers.add_printer("shared_array", "^shared_array<.*>$", SharedArrayPrinter)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), velbase_printers(), replace=True)
