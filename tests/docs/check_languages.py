"""Whether every place that names the languages names those of HostContract.h, and no others. Each that was forgotten is
named; CONTRIBUTING.md lists them."""

import json
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]


def read(name):
    return (ROOT / name).read_text()


def contract():
    """The name of each language and its code, in the menu's order."""
    header = read("VISEX_Plugins/LanguageSelector/HostContract.h")
    table = re.search(r"MENU_LANGUAGES\[\] = \{(.*?)\};", header, re.DOTALL)
    return {name: int(code) for code, name in re.findall(r'\{(\d+), "(\w+)"\}', table[1])}


def nib():
    archive = ElementTree.fromstring(read("VISEX_Plugins/LanguageSelector/LanguageSelector.nib/objects.xib"))
    titles = [item.findtext("string[@name='title']") for item in archive.iter("object")
              if item.get("class") == "IBCarbonMenuItem"]
    return [re.sub(r".*\((\w+)\)$", r"\1", title) for title in titles]


def listed(text, after, pattern):
    """What `pattern` finds, as name and code, in the sentence that begins with `after`."""
    sentence = re.search(re.escape(after) + r"(.*?)(?:\.\s|\.$|;|\(`)", text, re.DOTALL)
    return {} if sentence is None else {found["name"].capitalize(): int(found["code"])
                                        for found in re.finditer(pattern, sentence[1])}


def main():
    wanted = contract()
    assert len(wanted) > 1, wanted
    names = sorted(wanted)
    pages = {name: read(name) for name in ("README.md", "docs/host-contract.md", "host/visex-host.1")}
    name_code, code_name = r"(?P<name>\w+)\s(?P<code>\d+)", r"(?P<code>\d+)\s(?P<name>\w+)"
    items = re.search(r"whose items are ([^;]*);", pages["docs/host-contract.md"])
    language = json.loads(read("docs/answer.schema.json"))["$defs"]["language"]["properties"]
    namings = re.search(r"MENU_NAMINGS\[\] = \{(.*?)\};", read("host/Languages.h"), re.DOTALL)
    places = {  # what each says, and what it should
        "the nib's pop-up": (nib(), list(wanted)),
        "the tags in host/Languages.h, by number": (namings[1].count("{"), len(wanted)),
        "docs/answer.schema.json": (sorted(filter(None, language["name"]["enum"])), names),
        "host/visex-host.1": (listed(pages["host/visex-host.1"], "The current language in the record:", name_code), wanted),
        "README.md": (listed(pages["README.md"], "The Mac OS language codes:", name_code), wanted),
        "docs/host-contract.md": (listed(pages["docs/host-contract.md"], "Mac OS language codes:", code_name), wanted),
        "docs/host-contract.md, the pop-up's items": (re.split(r",\s+", items[1]) if items else [], list(wanted)),
    }
    wrong = {place: pair for place, pair in places.items() if pair[0] != pair[1]}
    for place, (said, should) in wrong.items():
        print(f"{place}: has {said}\n  and should have {should}")
    print(f"{len(places)} places name the {len(wanted)} languages, {len(wrong)} of them wrongly")
    sys.exit(bool(wrong))


main()
