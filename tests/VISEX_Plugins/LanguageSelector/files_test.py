"""What is drawn in the nib, read as the nib services would, and what the bundle's files say of it.

usage: files_test.py BUNDLE NIB VERSION [UNITTEST_OPTION...]
"""

import pathlib
import plistlib
import re
import sys
import unittest
import xml.etree.ElementTree as ElementTree

BUNDLE, NIB, VERSION = (*map(pathlib.Path, sys.argv[1:3]), sys.argv[3]) if len(sys.argv) > 3 else sys.exit(__doc__)
FACTORY_TYPE = "5CD9484B-4A86-4CA2-A79A-1525A3B5F6E8"
LANGUAGES = ["English", "日本語 (Japanese)", "Deutsch (German)", "Français (French)", "Italiano (Italian)",
             "Español (Spanish)"]


class Bundle(unittest.TestCase):
    def setUp(self):
        self.bytes = (BUNDLE / "Contents/Info.plist").read_bytes()
        self.list = plistlib.loads(self.bytes)

    def test_list_is_a_genuine_property_list(self):
        self.assertTrue(self.bytes.startswith(b"""<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple Computer//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
"""))
        keys = re.findall(rb"<key>(.*?)</key>", self.bytes)
        self.assertEqual(len(keys), len(set(keys)), "a key stands there twice")

    def test_says_what_it_is(self):
        self.assertEqual({key: value for key, value in self.list.items() if isinstance(value, str)}, {
            "CFBundleDevelopmentRegion": "English", "CFBundleExecutable": "LanguageSelector",
            "CFBundleIdentifier": "visex.plugins.LanguageSelector", "CFBundleInfoDictionaryVersion": "6.0",
            "CFBundleName": "LanguageSelector", "CFBundlePackageType": "BNDL", "CFBundleSignature": "????",
            "CFBundleVersion": VERSION, "CFPlugInDynamicRegistration": "NO"})
        self.assertEqual((BUNDLE / "Contents/PkgInfo").read_bytes(), b"BNDL????")

    def test_executable_stands_in_the_platforms_folder(self):
        self.assertEqual((BUNDLE / "Contents/Linux" / self.list["CFBundleExecutable"]).read_bytes()[:4], b"\x7fELF")

    def test_registers_one_factory_for_the_type(self):
        [(factory, function)] = self.list["CFPlugInFactories"].items()
        self.assertRegex(factory, "^[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}$")
        self.assertNotEqual(factory, FACTORY_TYPE)
        self.assertEqual(function, "MyFactory")
        self.assertEqual(self.list["CFPlugInTypes"], {FACTORY_TYPE: [factory]})


def named(element, name):
    """The child with this name; None if there is none."""
    return next((child for child in element if child.get("name") == name), None)


def text(element, name):
    """The text of that child; "" if there is none."""
    child = named(element, name)
    return "" if child is None else child.text


def reference(element):
    """The id of the object that an element of a list stands for."""
    return element.get("idRef" if element.tag == "reference" else "id")


class Nib(unittest.TestCase):
    def setUp(self):
        self.archive = ElementTree.parse(NIB / "objects.xib").getroot()
        self.objects, self.parents = {}, {}
        self.collect(self.archive, "1")  # what stands in nothing is the file's owner's

    def collect(self, element, parent):
        if element.tag == "object" and element.get("id"):
            self.assertNotIn(element.get("id"), self.objects)
            self.objects[element.get("id")] = element
            self.parents[element.get("id")] = parent
            parent = element.get("id")
        for child in element:
            self.collect(child, parent)

    def only(self, kind, command=None):
        [found] = [each for each in self.objects.values() if each.get("class") == "IBCarbon" + kind
                   and command in (None, text(each, "command"))]
        return found

    def bounds(self, element, name="bounds"):
        """Top, left, bottom, right."""
        self.assertRegex(text(element, name), r"^(-?\d+ ){4}$")
        return list(map(int, text(element, name).split()))

    # ---- The archive

    def test_is_a_carbon_nib(self):
        self.assertEqual((self.archive.tag, self.archive.get("class")), ("object", "NSIBObjectData"))
        self.assertEqual(text(self.archive, "targetFramework"), "IBCarbonFramework")
        root = named(self.archive, "rootObject")
        self.assertEqual((root.get("class"), root.get("id")), ("NSCustomObject", "1"))
        self.assertEqual((NIB / "classes.nib").read_text(), "{\nIBClasses = ();\nIBVersion = 1;\n}\n")
        self.assertEqual(plistlib.loads((NIB / "info.nib").read_bytes()), {"targetFramework": "IBCarbonFramework"})

    def test_counts_are_what_is_there(self):
        for element in self.archive.iter():
            if element.tag in ("array", "dictionary"):
                pairs = 2 if element.tag == "dictionary" else 1
                self.assertEqual(int(element.get("count")) * pairs, len(element), element.get("name"))

    def test_lists_every_object_once_with_its_parent_beside_it(self):
        listed = [reference(each) for each in named(self.archive, "allObjects")]
        parents = [reference(each) for each in named(self.archive, "allParents")]
        self.assertEqual(sorted(listed), sorted(self.objects.keys() - {"1"}))
        self.assertEqual(parents, [self.parents[each] for each in listed])
        self.assertEqual(int(text(self.archive, "nextObjectID")), max(map(int, self.objects)) + 1)

    def test_names_its_owner_and_the_window(self):
        names = list(named(self.archive, "nameTable"))
        self.assertEqual([names[0].text, reference(names[1])], ["Files Owner", "1"])
        self.assertEqual([names[2].text, reference(names[3])], ["Language_Selector", self.only("Window").get("id")])
        self.assertEqual(len(names), 4)

    def test_codes_have_four_characters_blanks_included(self):
        self.assertEqual([each.text for each in self.archive.iter("ostype") if len(each.text) != 4], [])

    # ---- What the external relies on

    def test_pop_up_has_its_id_and_the_languages_in_order(self):
        popup = self.only("PopupButton")
        self.assertEqual((text(popup, "controlSignature"), text(popup, "controlID")), ("lsel", "1"))
        items = list(named(named(popup, "menu"), "items"))
        self.assertEqual({each.get("class") for each in items}, {"IBCarbonMenuItem"})
        self.assertEqual([text(each, "title") for each in items], LANGUAGES)
        self.assertEqual([each for each in self.objects.values() if text(each, "controlSignature")], [popup])

    def test_ok_is_the_default_and_cancel_the_cancel_button(self):
        for command, title, kind in (("ok  ", "OK", "1"), ("not!", "Cancel", "2")):
            button = self.only("Button", command)
            self.assertEqual((text(button, "title"), text(button, "buttonType")), (title, kind))

    def test_window_is_movable_modal_without_boxes_at_the_alert_position(self):
        window = self.only("Window")
        self.assertEqual({name: text(window, name) for name in (
            "title", "carbonWindowClass", "windowPosition", "isResizable", "hasCloseBox", "hasCollapseBox",
            "hasHorizontalZoom", "hasVerticalZoom")}, {
                "title": "Language Selector", "carbonWindowClass": "4", "windowPosition": "7", "isResizable": "FALSE",
                "hasCloseBox": "FALSE", "hasCollapseBox": "FALSE", "hasHorizontalZoom": "FALSE",
                "hasVerticalZoom": "FALSE"})

    # ---- Where things stand, in pixels, by the habits of Aqua

    def test_content_is_as_large_as_the_window_with_a_margin_of_20(self):
        top, left, bottom, right = self.bounds(self.only("Window"), "windowRect")
        content = self.only("RootControl")
        self.assertEqual(self.bounds(content), [0, 0, bottom - top, right - left])
        tops, lefts, bottoms, rights = zip(*map(self.bounds, named(content, "subviews")))
        self.assertEqual([min(tops), min(lefts), max(bottoms), max(rights)],
                         [20, 20, bottom - top - 20, right - left - 20])

    def test_prompt_pop_up_and_buttons_stand_below_each_other(self):
        prompt, popup = self.bounds(self.only("StaticText")), self.bounds(self.only("PopupButton"))
        ok, cancel = self.bounds(self.only("Button", "ok  ")), self.bounds(self.only("Button", "not!"))
        self.assertNotEqual(text(self.only("StaticText"), "title"), "")
        self.assertEqual([each[2] - each[0] for each in (prompt, popup, ok, cancel)], [16, 20, 20, 20])
        self.assertEqual((popup[0] - prompt[2], ok[0] - popup[2], prompt[1] - popup[1]), (8, 20, 0))
        self.assertEqual((ok[1] - cancel[3], ok[0] - cancel[0]), (12, 0))
        self.assertEqual(ok[3], self.bounds(self.only("RootControl"))[3] - 20)
        self.assertGreaterEqual(min(ok[3] - ok[1], cancel[3] - cancel[1]), 69)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[4:]])
