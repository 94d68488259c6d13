"""What assistive technology reads of the dialog and of alerts, on the accessibility bus, and what it can do there.

Ends with status 77, which CTest takes for skipped, where the tools for that are not at hand.
"""

import importlib.util
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from screens import *
from visex import *

SKIPPED = 77
ON_A_BUS = "--on-a-bus"

LABEL = "Install in this language:"
ITEMS = ["English", "日本語 (Japanese)", "Deutsch (German)", "Français (French)", "Italiano (Italian)",
         "Español (Spanish)"]


def tools_are_here():
    if shutil.which("dbus-run-session") is None or importlib.util.find_spec("gi") is None:
        return False
    try:
        import gi
        gi.require_version("Atspi", "2.0")
    except ValueError:
        return False
    return os.path.exists("/usr/libexec/at-spi-bus-launcher")


def below(accessible):
    """Everything in `accessible`, in its order."""
    for index in range(accessible.get_child_count()):
        child = accessible.get_child_at_index(index)
        yield child
        yield from below(child)


def has(accessible, state):
    return accessible.get_state_set().contains(state)


def label_of(accessible):
    """The names of what is said to be its label."""
    return [relation.get_target(index).get_name() for relation in accessible.get_relation_set()
            if relation.get_relation_type() == Atspi.RelationType.LABELLED_BY
            for index in range(relation.get_n_targets())]


class Host:
    """The host with its window on the X server, as the accessibility bus knows it."""

    def __init__(self, server, *arguments, **variables):
        self.process = subprocess.Popen(
            [HOST, "--display", "window", "--json", *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env=environment(DISPLAY=server.display, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **variables))
        self.application = wait_for(self.find_application)
        self.dialog = wait_for(lambda: next(below(self.application), None))

    def find_application(self):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            found = desktop.get_child_at_index(index)
            if found is not None and found.get_process_id() == caller_in(self.process):
                return found
        return None

    def of_role(self, role):
        """What has this role in the dialog."""
        return [each for each in below(self.dialog) if each.get_role() == role]

    def press(self, name):
        """Presses the button of this name as assistive technology does."""
        button, = (each for each in self.of_role(Atspi.Role.PUSH_BUTTON) if each.get_name() == name)
        Atspi.Action.do_action(button, 0)


def wait_for(look):
    """What `look` finds, as soon as it finds something."""
    end = time.monotonic() + TIMEOUT
    while time.monotonic() < end:
        found = look()
        if found:
            return found
        while GLib.MainContext.default().iteration(False):  # the client's cache hears of changes
            pass
        time.sleep(0.05)
    raise TimeoutError(look)


class Accessibility(HostTest):
    @classmethod
    def setUpClass(cls):
        cls.server = XServer()
        cls.addClassCleanup(cls.server.close)

    def run_host(self, *arguments, **variables):
        host = Host(self.server, *arguments, **variables)
        self.addCleanup(host.process.communicate)
        self.addCleanup(host.process.kill)
        return host

    def test_the_dialog_says_what_is_in_it(self):
        host = self.run_host("--current", "german")
        self.assertEqual(host.application.get_name(), "Demo Installer")
        self.assertEqual(host.dialog.get_role(), Atspi.Role.DIALOG)
        self.assertEqual(host.dialog.get_name(), "Language Selector")
        label, = host.of_role(Atspi.Role.LABEL)
        self.assertEqual(label.get_name(), LABEL)
        pop_up, = host.of_role(Atspi.Role.COMBO_BOX)
        self.assertEqual(pop_up.get_name(), "Deutsch (German)", "the current item")
        self.assertEqual(label_of(pop_up), [LABEL])
        self.assertEqual(pop_up.get_description(), "Deutsch (German) is chosen", "which Orca says, and no name")
        self.assertEqual([each.get_name() for each in host.of_role(Atspi.Role.LIST)], [LABEL.rstrip(":")])
        self.assertEqual([each.get_name() for each in host.of_role(Atspi.Role.LIST_ITEM)], ITEMS)
        cancel, ok = host.of_role(Atspi.Role.PUSH_BUTTON)
        self.assertEqual([cancel.get_name(), ok.get_name()], ["Cancel", "OK"], "as they stand")
        self.assertTrue(has(ok, Atspi.StateType.IS_DEFAULT))
        self.assertFalse(has(cancel, Atspi.StateType.IS_DEFAULT))
        host.press("OK")
        self.assertEqual(outcome_of(host.process).json()["chosen"], {"code": GERMAN, "name": "German"})

    def test_the_focus_is_on_the_pop_up_alone_and_its_item_follows_the_keys(self):
        host = self.run_host()
        pop_up, = host.of_role(Atspi.Role.COMBO_BOX)
        menu, *items = [each for role in (Atspi.Role.LIST, Atspi.Role.LIST_ITEM) for each in host.of_role(role)]
        self.server.tool("windowfocus", "--sync", self.server.window("^Language Selector$"))
        wait_for(lambda: has(pop_up, Atspi.StateType.FOCUSED))
        def focused():
            return [each for each in below(host.dialog) if has(each, Atspi.StateType.FOCUSED)]

        told = []  # where the focus has gone, which is what screen readers follow
        listener = Atspi.EventListener.new(lambda event: told.append(event.source) if event.detail1 else None)
        listener.register("object:state-changed:focused")
        self.addCleanup(listener.deregister, "object:state-changed:focused")
        self.assertEqual(focused(), [pop_up])
        self.server.tool("key", "space")
        wait_for(lambda: told[-1:] == [menu] and items[0] in focused())
        self.server.tool("key", "Down", "Escape")
        wait_for(lambda: focused() == [pop_up])
        for act, item in ((lambda: Atspi.Action.do_action(items[3], 0), 3), (lambda: self.server.tool("key", "Up"), 2),
                          (lambda: self.server.tool("key", "End"), 5), (lambda: self.server.tool("key", "g"), 2)):
            before = told[-1]
            act()
            wait_for(lambda: told[-1] != before and pop_up.get_name() == told[-1].get_name() == ITEMS[item])
            self.assertNotIn(told[-1], [pop_up, *items], "Orca says what is new, and not that a list is open")
            self.assertEqual(told[-1].get_index_in_parent(), item, "which Orca says, and -1 is gone to it")
            self.assertEqual(told[-1].get_role(), Atspi.Role.MENU_ITEM, "of which Orca says where it is, when asked")
            values = told[-1].get_parent()
            self.assertEqual([values.get_parent(), values.get_child_count()], [pop_up, len(ITEMS)])
        told.clear()
        cancel = host.of_role(Atspi.Role.PUSH_BUTTON)[0]
        for key, there in (("space", menu), ("Escape", pop_up), ("space", menu), ("Return", pop_up),
                           ("alt+Down", menu), ("alt+Down", pop_up), ("Tab", cancel)):
            self.server.tool("key", key)
            wait_for(lambda: told[-1:] == [there])
        self.assertEqual(told, [items[2], menu, pop_up] * 3 + [cancel], "no item of a closed menu")
        self.assertEqual(menu.get_description(), "Deutsch (German) is chosen", "which Orca says, and no item of it")
        host.press("Cancel")
        self.assertEqual(outcome_of(host.process).status, NOTHING_CHOSEN)

    def test_the_action_of_an_item_chooses_it_whether_the_menu_is_open_or_not(self):
        for is_open in (False, True):
            host = self.run_host()
            pop_up, = host.of_role(Atspi.Role.COMBO_BOX)
            items = host.of_role(Atspi.Role.LIST_ITEM)
            def selected():
                return [each.get_name() for each in items if has(each, Atspi.StateType.SELECTED)]

            self.assertEqual((pop_up.get_name(), selected()), (ITEMS[0], ITEMS[:1]))
            if is_open:
                Atspi.Action.do_action(pop_up, 0)
                wait_for(lambda: has(items[0], Atspi.StateType.SHOWING))
            self.assertTrue(Atspi.Action.do_action(items[2], 0))
            wait_for(lambda: pop_up.get_name() == ITEMS[2])
            self.assertEqual(selected(), [ITEMS[2]])
            host.press("OK")
            self.assertEqual(outcome_of(host.process).json()["chosen"]["code"], GERMAN)

    def test_what_no_font_has_is_shown_by_the_part_that_can_be_read(self):
        fonts = self.file("fonts.conf", b"<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir></fontconfig>")
        host = self.run_host("--current", "japanese", FONTCONFIG_FILE=str(fonts))
        pop_up, = host.of_role(Atspi.Role.COMBO_BOX)
        self.assertEqual(pop_up.get_name(), "Japanese")
        host.press("OK")
        self.assertEqual(outcome_of(host.process).json()["chosen"]["code"], JAPANESE)

    def test_an_alert_says_its_text(self):
        demo = self.demo_copy()
        shutil.rmtree(next(demo.rglob("LanguageSelector.nib")))
        not_served = ("The language selection was called with a message that it does not serve. "
                      "The installation goes on in the current language.")
        for options, kind, text in ((["--message", "999"], "Stop", not_served),
                                    (["--app", demo], "Note", "Can't find Nib Reference")):
            host = self.run_host(*options)
            self.assertEqual(host.dialog.get_role(), Atspi.Role.ALERT)
            self.assertEqual(host.dialog.get_name(), f"{kind} - Demo Installer")
            self.assertEqual(host.dialog.get_description(), "", "or the text would be said twice")
            self.assertEqual([each.get_name() for each in host.of_role(Atspi.Role.LABEL)], [text])
            self.assertEqual([each.get_name() for each in host.of_role(Atspi.Role.IMAGE)], [kind])
            ok, = host.of_role(Atspi.Role.PUSH_BUTTON)
            self.assertTrue(has(ok, Atspi.StateType.IS_DEFAULT))
            host.press("OK")
            alert, = outcome_of(host.process).json()["alerts"]
            self.assertEqual((alert["text"], alert["pressed"]), (text, 1))


if __name__ == "__main__":
    if not tools_are_here():
        print("Skipped: this needs at-spi2-core, dbus, gir1.2-atspi-2.0 and python3-gi")
        sys.exit(SKIPPED)
    if ON_A_BUS not in sys.argv:  # again, in a session with a bus of its own, and a folder: the launcher puts it there
        with tempfile.TemporaryDirectory() as folder:
            sys.exit(subprocess.call(["dbus-run-session", "--", sys.executable, "-B", __file__, ON_A_BUS],
                                     env={**os.environ, "XDG_RUNTIME_DIR": folder}))
    sys.argv.remove(ON_A_BUS)
    from gi.repository import Atspi, GLib
    Atspi.set_timeout(TIMEOUT * 1000, TIMEOUT * 1000)  # it gives up after less than a second else
    unittest.main()
