"""The dialog where people see it: on a terminal, and in a window of a real X server, worked with the keyboard alone."""

import fcntl
import os
import pty
import select
import subprocess
import termios
import unittest

from visex import *

PROMPT = "or Return for OK: "
WINDOW_TITLE = "^Language Selector$"


class Terminal:
    """The host with a controlling terminal of its own, and with standard output and error elsewhere."""

    def __init__(self, *arguments):
        self.screen, side = pty.openpty()
        self.process = subprocess.Popen(
            [HOST, *arguments], env=environment(LC_ALL="C.UTF-8"), stdin=side, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE, start_new_session=True, preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY))
        os.close(side)

    def read_until(self, end):
        """What is shown until `end` is; an error when that does not come."""
        shown = b""
        while not shown.endswith(end.encode()):
            if not select.select([self.screen], [], [], TIMEOUT)[0]:
                raise TimeoutError(shown)
            shown += os.read(self.screen, 4096)
        return shown.decode()

    def type(self, text):
        os.write(self.screen, text.encode())

    def hang_up(self):
        os.close(self.screen)
        self.screen = None

    def finish(self):
        output, errors = self.process.communicate(timeout=TIMEOUT)
        if self.screen is not None:
            os.close(self.screen)
        return Outcome(self.process.returncode, output.decode(), errors.decode())


class OnATerminal(HostTest):
    def test_it_is_where_the_dialog_goes_without_a_screen(self):
        terminal = Terminal("--current", "german")
        shown = terminal.read_until(PROMPT)
        for item in ("English", "日本語 (Japanese)", "Deutsch (German)", "Français (French)", "Italiano (Italian)",
                     "Español (Spanish)"):
            self.assertIn(item, shown)
        terminal.type("japanese\n")
        terminal.read_until(PROMPT)
        terminal.type("\n")
        outcome = terminal.finish()
        self.assertEqual(outcome.status, CHOSE)
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.output, (
            "Before: message 1000, current language German (2), chosen language English (0), flags 0x00000000\n"
            "After:  message 1000, current language German (2), chosen language Japanese (11), flags 0x00000000\n"
            "Japanese (11) was written to the record.\n"), "the questions are not part of the answer")

    def test_return_confirms_each_current_language(self):
        for code in NAMES:
            with self.subTest(code):
                terminal = Terminal("--display", "terminal", "--current", str(code), "--json")
                terminal.read_until(PROMPT)
                terminal.type("\n")
                self.assertEqual(terminal.finish().json()["chosen"], {"code": code, "name": NAMES[code]})

    def test_cancel_writes_nothing(self):
        terminal = Terminal("--display", "terminal", "--json")
        terminal.read_until(PROMPT)
        terminal.type("german\n")
        terminal.read_until(PROMPT)
        terminal.type("cancel\n")
        outcome = terminal.finish()
        self.assertEqual(outcome.status, NOTHING_CHOSEN)
        self.assertIsNone(outcome.json()["chosen"])

    def test_alerts_are_asked_there_too(self):
        terminal = Terminal("--display", "terminal", "--message", "999")
        self.assertIn("message that it does not serve", terminal.read_until("or Return for the default: "))
        terminal.type("\n")
        self.assertEqual(terminal.finish().status, REFUSED)

    def assert_cancelled(self, outcome):
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.status, NOTHING_CHOSEN)
        self.assertIsNone(outcome.json()["chosen"])
        self.assertEqual(outcome.json()["alerts"], [])

    def test_the_end_of_input_cancels(self):
        terminal = Terminal("--display", "terminal", "--json")
        terminal.read_until(PROMPT)
        terminal.type("\x04")
        self.assert_cancelled(terminal.finish())

    def test_a_terminal_that_goes_away_cancels(self):
        terminal = Terminal("--display", "terminal", "--json")
        terminal.read_until(PROMPT)
        terminal.hang_up()
        self.assert_cancelled(terminal.finish())

    def test_without_one_it_cannot_be_asked_for(self):
        self.assert_fails(run("--display", "terminal"), NOT_DONE, "cannot ask on the terminal: the process has none")


class XServer:
    """An X server without a screen to look at."""

    def __init__(self):
        reader, writer = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writer)
        with os.fdopen(reader) as number:  # which the server writes when it is ready
            self.display = ":" + number.readline().strip()

    def tool(self, *arguments):
        """The output of xdotool on this display, or None when it failed."""
        result = subprocess.run(["xdotool", *arguments], env=environment(DISPLAY=self.display), text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=TIMEOUT)
        return result.stdout if result.returncode == 0 else None

    def window(self, title):
        """The number of the window with this title, as soon as it is there."""
        found = None
        while not found:  # the search fails when some other window goes while it looks
            found = self.tool("search", "--sync", "--onlyvisible", "--name", title)
        return found.split()[0]

    def close(self):
        self.process.terminate()
        self.process.wait(TIMEOUT)

    def break_down(self):
        self.process.kill()
        self.process.wait(TIMEOUT)


class InAWindow(HostTest):
    @classmethod
    def setUpClass(cls):
        cls.server = XServer()
        cls.addClassCleanup(cls.server.close)

    def press(self, *keys, title=WINDOW_TITLE, arguments=()):
        """Runs the host, presses `keys` in the window of this title, and returns the Outcome."""
        command = [HOST, *arguments]
        with subprocess.Popen(command, env=environment(DISPLAY=self.server.display), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            try:
                self.server.tool("windowfocus", "--sync", self.server.window(title), "key", *keys)
                output, errors = process.communicate(timeout=TIMEOUT)
            finally:
                process.kill()
        return Outcome(process.returncode, output.decode(), errors.decode())

    def assert_chosen(self, outcome, code):
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.json()["chosen"], {"code": code, "name": NAMES[code]})
        self.assertEqual(outcome.status, CHOSE)

    def test_an_arrow_and_return_choose_another_language(self):
        for current, key in (("english", "Down"), ("german", "Up")):
            with self.subTest(current):
                outcome = self.press(key, "Return", arguments=["--current", current, "--json"])
                self.assert_chosen(outcome, JAPANESE)

    def test_return_confirms_each_current_language_of_a_record(self):
        for code in NAMES:
            with self.subTest(code):
                start = self.file("before", record(current=code))
                self.assert_chosen(self.press("Return", arguments=["--record", start, "--json"]), code)

    def test_escape_writes_nothing(self):
        after = self.folder / "after"
        outcome = self.press("Down", "Escape", arguments=["--current", "german", "--write-record", after])
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.status, NOTHING_CHOSEN)
        self.assertEqual(after.read_bytes(), record(current=GERMAN))

    def test_return_ends_an_alert(self):
        outcome = self.press("Return", title="^Stop$", arguments=["--message", "999", "--json"])
        self.assertEqual(outcome.status, REFUSED)
        self.assertEqual(outcome.json()["alerts"][0]["id"], 5000)

    def test_a_picture_of_it_is_saved(self):
        picture = self.folder / "a picture.png"
        outcome = self.press("Return", arguments=["--picture", picture])
        self.assertEqual(outcome.status, CHOSE)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))


class OnAScreenThatGoesAway(HostTest):
    def break_down(self, title, *arguments):
        """Runs the host until the window of this title is there, ends the X server, and returns the Outcome."""
        server = XServer()
        self.addCleanup(server.close)
        with subprocess.Popen([HOST, *arguments], env=environment(DISPLAY=server.display), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
            try:
                server.window(title)
                server.break_down()
                output, errors = process.communicate(timeout=TIMEOUT)
            finally:
                process.kill()
        return Outcome(process.returncode, output.decode(), errors.decode())

    def test_the_call_does_not_return_and_the_record_stays(self):
        for title, message in ((WINDOW_TITLE, 1000), ("^Stop$", 999)):
            with self.subTest(title):
                before = record(message=message, current=GERMAN, chosen=FRENCH, filler=0x5A)
                file = self.file("record", before)
                outcome = self.break_down(title, "--record", file, "--write-record", file)
                self.assert_fails(outcome, NOT_RETURNED, "the call did not return: the screen went away")
                self.assertEqual(file.read_bytes(), before)
                self.assertEqual(list(self.folder.iterdir()), [file])


class WithoutAScreen(HostTest):
    def test_a_window_cannot_be_asked_for(self):
        outcome = run("--display", "window")
        self.assertEqual(outcome.status, NOT_DONE)
        self.assertRegex(outcome.errors, r"\Avisex-host: cannot open a window: .+\n\Z")
        self.assertEqual(outcome.output, "")

    def test_a_display_that_does_not_answer_is_none(self):
        variables = {"DISPLAY": ":54321"}
        self.assertEqual(run("--display", "window", variables=variables).status, NOT_DONE)
        outcome = run(variables=variables)
        self.assertEqual(outcome.status, CHOSE)
        self.assertIn("no screen and no terminal here", outcome.errors)

    def test_a_picture_needs_none(self):
        pictures = {}
        for code in NAMES:
            picture = self.folder / f"{code}.png"
            outcome = unattended("--current", str(code), "--picture", picture)
            self.assertEqual((outcome.status, outcome.errors), (CHOSE, ""))
            pictures[picture.read_bytes()] = code
        self.assertEqual(len(pictures), len(NAMES), "each shows its own language")

    def test_a_picture_that_cannot_be_saved_is_said_after_the_answer(self):
        picture = self.folder / "missing/picture.png"
        outcome = unattended("--picture", picture)
        self.assertEqual(outcome.status, NOT_DONE)
        self.assertIn("was written to the record.", outcome.output)
        self.assertRegex(outcome.errors, rf"\Avisex-host: cannot save the picture '{picture}': .+\n\Z")

    def test_without_a_dialog_there_is_no_picture(self):
        picture = self.folder / "picture.png"
        outcome = unattended("--message", "999", "--picture", picture)
        self.assertEqual(outcome.status, NOT_DONE)
        self.assertEqual(outcome.errors, f"visex-host: cannot save the picture '{picture}': no window was shown\n")

    def test_foreign_plug_ins_are_not_loaded(self):
        # Qt would look in these folders first, and find what pretends to be the platform.
        platforms = self.folder / "platforms"
        platforms.mkdir()
        self.file("platforms/libqoffscreen.so", b"not a library")
        variables = {"QT_PLUGIN_PATH": str(self.folder), "QT_QPA_PLATFORM_PLUGIN_PATH": str(platforms),
                     "QT_DEBUG_PLUGINS": "1"}
        outcome = unattended("--picture", self.folder / "picture.png", variables=variables)
        self.assertEqual(outcome.status, CHOSE)
        self.assertNotIn(str(self.folder), outcome.errors)


if __name__ == "__main__":
    unittest.main()
