"""The dialog where people see it: on a terminal, and in a window of a real X server, worked with the keyboard alone."""

import contextlib
import select
import shutil
import socket
import struct
import subprocess
import unittest

from screens import *
from visex import *

PROMPT = "or Return for OK: "
WINDOW_TITLE = "^Language Selector$"


class OnATerminal(HostTest):
    def test_it_is_where_the_dialog_goes_without_a_screen(self):
        terminal = Terminal("--current", "german")
        terminal.type("\n")  # ahead of the question
        shown = terminal.read_rest()
        self.assertIn(PROMPT, shown)
        self.assertNotIn("standard input", shown)
        self.assert_chose(terminal.finish(), GERMAN)

    def test_alerts_are_asked_there_too(self):
        terminal = Terminal("--display", "terminal", "--message", "999")
        self.assertIn("message that it does not serve", terminal.read_until(PROMPT))
        terminal.type("\n")
        self.assertEqual(terminal.finish().status, REFUSED)

    def test_a_terminal_that_goes_away_cancels(self):
        terminal = Terminal("--display", "terminal", "--json")
        terminal.read_until(PROMPT)
        terminal.hang_up()
        outcome = terminal.finish()
        self.assertEqual((outcome.status, outcome.errors), (NOTHING_CHOSEN, ""))
        self.assertEqual((outcome.json()["chosen"], outcome.json()["alerts"]), (None, []))

    def test_what_an_external_starts_does_not_get_it(self):
        terminal = Terminal("--display", "terminal", "--trace-file", self.folder / "calls")
        terminal.read_until(PROMPT)
        process = pathlib.Path(f"/proc/{caller_in(terminal.process)}")
        opened = [each.name for each in (process / "fd").iterdir()
                  if int(each.name) > 2 and os.readlink(each).startswith(("/dev/", str(self.folder)))]
        flags = [int((process / "fdinfo" / name).read_text().split("flags:")[1].split()[0], 8) for name in opened]
        terminal.type("\n")
        self.assert_chose(terminal.finish())
        self.assertEqual([flag & os.O_CLOEXEC for flag in flags], [os.O_CLOEXEC] * 2, "of the terminal and the trace alone")

    def test_without_one_it_cannot_be_asked_for(self):
        self.assert_fails(run("--display", "terminal"), NOT_DONE,
                          "cannot ask on the terminal: the process has none, or is in the background")

    def test_the_transcript_in_the_docs_is_what_it_shows(self):
        command, transcript = (ROOT / "docs/terminal.txt").read_text().split("\n", 1)
        terminal = Terminal(*command.removeprefix("$ ./run ").split())
        shown = ""
        for typed in ("Dutch", "e", "japa", ""):
            shown += terminal.read_until(PROMPT)
            terminal.type(typed + "\n")
        shown += terminal.read_rest()
        self.assertEqual(shown.replace("\r\n", "\n") + terminal.finish().output, transcript)

    def test_it_stays_within_80_columns_and_moves_no_cursor(self):
        for locale in ("C.UTF-8", "C"):
            with self.subTest(locale):
                terminal = Terminal("--display", "terminal", LC_ALL=locale)
                shown = terminal.read_until(PROMPT)
                terminal.type("x\x04japanese\n\n")
                shown += terminal.read_rest()
                self.assertEqual(terminal.finish().status, CHOSE)
                self.assertLessEqual(max(map(len, shown.splitlines())), 80)
                plain = shown.replace("\r\n", "\n").replace("\n", "")
                self.assertTrue(plain.isprintable(), plain)
                self.assertEqual(plain.isascii(), locale == "C")


class Unattended(HostTest):
    """With a screen and a terminal at hand, neither of which it is to touch."""

    def setUp(self):
        super().setUp()
        self.screen = ScreenThatNoticesOnly()
        self.addCleanup(self.screen.close)

    def test_it_neither_shows_nor_asks_anything(self):
        for arguments in (["--display", "unattended"], ["--answer", "german"], ["--answer", "cancel"],
                          ["--display", "unattended", "--message", "999"],
                          ["--display", "unattended", "--picture", self.folder / "a.png"]):
            with self.subTest(arguments):
                terminal = Terminal(*arguments, DISPLAY=self.screen.display)
                terminal.type("japanese\n")  # read by nobody; echoed, unless the host has ended already
                self.assertIn(terminal.read_rest(), ("", "japanese\r\n"))
                output = terminal.finish().output
                self.assertIn("\n  chosen   English (0)", output)
                self.assertNotIn("Japanese", output)
                self.assertFalse(select.select([self.screen.listener], [], [], 0)[0], "nobody asks")

    def test_a_window_would_have_asked_for_that_screen_and_not_waited_long_for_its_silence(self):
        start = time.monotonic()
        terminal = Terminal("--display", "window", DISPLAY=self.screen.display)
        with self.screen.listener.accept()[0] as asker:
            asked = time.monotonic()
            while asker.recv(4096):
                pass
        self.assertLess(time.monotonic() - asked, 10)
        self.assertGreater(time.monotonic() - start, 1.9)
        self.assertEqual(terminal.finish().status, NOT_DONE)


@contextlib.contextmanager
def started(*arguments, **variables):
    """The host with this environment; it is ended at the latest when the block ends."""
    with subprocess.Popen([HOST, *arguments], env=environment(**variables), stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        try:
            yield process
        finally:
            process.kill()


class InAWindow(HostTest):
    @classmethod
    def setUpClass(cls):
        cls.server = XServer()
        cls.addClassCleanup(cls.server.close)

    def press(self, *keys, title=WINDOW_TITLE, arguments=(), **variables):
        """Runs the host, presses `keys` in the window of this title, and returns the Outcome."""
        with started(*arguments, DISPLAY=self.server.display, **variables) as process:
            self.server.tool("windowfocus", "--sync", self.server.window(title), "key", *keys)
            return outcome_of(process)

    def assert_chosen(self, outcome, code):
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.json()["chosen"], {"code": code, "name": NAMES[code]})
        self.assertEqual((outcome.json()["display"], outcome.json()["asked"]), ("window", True))
        self.assertEqual(outcome.status, CHOSE)

    def test_arrows_and_the_letters_of_a_name_choose_it(self):
        for current, keys, code in (("english", ["Down"], JAPANESE), ("german", ["Up"], JAPANESE),
                                    ("english", ["g", "e", "r"], GERMAN), ("english", ["D", "e", "u"], GERMAN),
                                    ("english", ["e", "s", "p"], SPANISH)):
            with self.subTest(keys):
                self.assert_chosen(self.press(*keys, "Return", arguments=["--current", current, "--json"]), code)

    def test_it_is_shown_beside_a_wayland_display_that_is_dead(self):
        picture = self.folder / "picture.png"
        self.assert_chosen(self.press("Return", arguments=["--json", "--picture", picture],
                                      WAYLAND_DISPLAY="wayland-4711"), ENGLISH)
        self.assertEqual(picture.read_bytes()[:4], b"\x89PNG")

    def test_a_screen_that_refuses_is_none(self):
        parts = (b"host", b"0", b"MIT-MAGIC-COOKIE-1", b"sixteen bytes...")
        cookie = b"".join(bytes([0, len(part)]) + part for part in parts)
        refusing = XServer("-auth", self.file("cookies", b"\1\0" + cookie))  # whom it does not know from this file
        self.addCleanup(refusing.close)
        outcome = run("--display", "window", variables={"DISPLAY": refusing.display, "XAUTHORITY": "/dev/null"})
        self.assert_fails(outcome, NOT_DONE, f"cannot open a window: no screen answers at DISPLAY={refusing.display}")

    def test_it_is_tried_once(self):
        log = self.folder / "log"
        with log.open("w") as file:
            server = XServer("-audit", "4", stderr=file)
        self.addCleanup(server.close)
        with started(DISPLAY=server.display) as process:
            self.assertTrue(comes_true(lambda: "pid=" in log.read_text() and f"pid={caller_in(process)} " in log.read_text()))
        self.assertEqual(log.read_text().count(" connected"), 2, "to try it, and for the window")

    def test_nothing_is_remembered(self):
        folders = {name: str(self.folder) for name in
                   ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")}
        for run_number in (1, 2):
            with self.subTest(run_number):
                outcome = self.press("Down", "Return", arguments=["--current", "english", "--json"], **folders)
                self.assert_chosen(outcome, JAPANESE)
        self.assertEqual([path for path in self.folder.rglob("*") if path.is_file()], [])

    def test_escape_writes_nothing(self):
        after = self.folder / "after"
        outcome = self.press("Down", "Escape", arguments=["--current", "german", "--write-record", after])
        self.assertEqual(outcome.errors, "")
        self.assertEqual(outcome.status, NOTHING_CHOSEN)
        self.assertEqual(after.read_bytes(), record(current=GERMAN))

    def test_return_ends_an_alert(self):
        outcome = self.press("Return", title="^Stop - Demo Installer$", arguments=["--message", "999", "--json"])
        self.assertEqual(outcome.status, REFUSED)
        self.assertEqual(outcome.json()["alerts"][0]["id"], 5000)

    def test_a_window_that_somebody_else_destroys_counts_as_cancelled_and_so_does_an_alert(self):
        for title, message, status in ((WINDOW_TITLE, "1000", NOTHING_CHOSEN),
                                       ("^Stop - Demo Installer$", "999", REFUSED)):
            with started("--message", message, "--json", DISPLAY=self.server.display) as process:
                self.server.tool("windowclose", self.server.window(title))
                outcome = outcome_of(process)
            self.assertEqual((outcome.status, outcome.errors), (status, ""))
        self.assertEqual(outcome.json()["alerts"][0]["pressed"], 1)

    def test_the_window_belongs_to_the_host_and_its_application(self):
        with started(DISPLAY=self.server.display) as process:
            window = self.server.window(WINDOW_TITLE)
            for kind, name in (("--class", "^Demo Installer$"), ("--classname", "^visex-host$")):
                self.assertEqual(self.server.tool("search", "--onlyvisible", kind, name), f"{window}\n")
            self.server.tool("windowfocus", "--sync", window, "key", "Escape")
            self.assertEqual(outcome_of(process).status, NOTHING_CHOSEN)


class OnAScreenThatGoesAway(HostTest):
    def test_the_call_does_not_return_and_the_record_stays(self):
        for title, message in ((WINDOW_TITLE, 1000), ("^Stop - Demo Installer$", 999)):
            with self.subTest(title):
                before = record(message=message, current=GERMAN, chosen=FRENCH, filler=0x5A)
                file = self.file("record", before)
                server = XServer()
                self.addCleanup(server.close)
                with started("--record", file, "--write-record", file, DISPLAY=server.display) as process:
                    server.window(title)
                    server.break_down()
                    outcome = outcome_of(process)
                self.assert_fails(outcome, NOT_RETURNED, "the call did not return: the screen went away, or the external ended the process")
                self.assertEqual(file.read_bytes(), before)
                self.assertEqual(list(self.folder.iterdir()), [file])


@unittest.skipUnless(shutil.which("weston"), "this needs weston and qt6-wayland")
class OnWayland(HostTest):
    def test_the_dialog_is_shown_there(self):
        self.folder.chmod(0o700)
        variables = {"XDG_RUNTIME_DIR": str(self.folder), "WAYLAND_DISPLAY": "wayland-test"}
        compositor = subprocess.Popen(
            ["weston", "--backend=headless-backend.so", "--socket=wayland-test", "--idle-time=0"],
            env=environment(**variables), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(compositor.wait)
        self.addCleanup(compositor.terminate)
        def serves():  # which is later than that it listens; the answer is that to wl_display.sync
            with socket.socket(socket.AF_UNIX) as asking:
                return (asking.connect_ex(str(self.folder / "wayland-test")) == 0
                        and asking.send(struct.pack("=III", 1, 12 << 16, 2)) and asking.recv(1))
        self.assertTrue(comes_true(serves))
        with started("--display", "window", WAYLAND_DEBUG="client", **variables) as process:
            self.assertTrue(any(b".attach(wl_buffer" in line for line in process.stderr), "the window was drawn")
            self.assertIsNone(process.poll(), "it waits for somebody")


class WithoutAScreen(HostTest):
    def test_a_window_cannot_be_asked_for_nor_one_that_nobody_sees(self):
        for variables, reason in (({}, "neither WAYLAND_DISPLAY nor DISPLAY names a screen"),
                                  ({"DISPLAY": ":54321"}, "no screen answers at DISPLAY=:54321"),
                                  *(({"QT_QPA_PLATFORM": name}, f"no screen answers at QT_QPA_PLATFORM={name}")
                                    for name in ("offscreen", "minimal"))):
            self.assert_fails(run("--display", "window", variables=variables), NOT_DONE,
                              f"cannot open a window: {reason}")

    def test_a_display_that_does_not_answer_is_none(self):
        outcome = run(variables={"DISPLAY": ":54321"})
        self.assertEqual(outcome.status, CHOSE)
        self.assertIn("no screen answers at DISPLAY=:54321\n", outcome.errors)
        self.assertIn("no screen here and no terminal", outcome.errors)
        terminal = Terminal(DISPLAY=":54321")
        terminal.read_until(PROMPT)
        self.assertTrue(select.select([terminal.process.stderr], [], [], 0)[0], "it was said before the question")
        terminal.type("\n")
        self.assertEqual(terminal.finish().errors, "visex-host: no screen answers at DISPLAY=:54321\n")

    def test_nothing_is_shown_or_drawn_without_the_library_for_that(self):
        host = self.installation()
        library = self.folder / "toolbox/libtoolbox_screen.so"
        library.unlink()
        picture = self.folder / "picture.png"
        for options, tried in (([], "open a window"), (["--picture", picture], f"save the picture in '{picture}'")):
            outcome = run("--display", "unattended" if options else "window", *options, host=host,
                          variables={"LD_LIBRARY_PATH": str(library.parent)})
            self.assertEqual((outcome.status, outcome.errors), (
                NOT_DONE, f"visex-host: cannot {tried}: the library for screens, {library}, cannot be loaded\n"))

    @unittest.skipUnless(subprocess.run(["unshare", "--mount", "true"], stderr=subprocess.DEVNULL).returncode == 0,
                         "only the superuser can hide Qt's plug-ins")
    def test_a_missing_plug_in_for_wayland_is_said_with_its_package(self):
        hidden = next(pathlib.Path("/usr/lib").glob("*/qt6/plugins/platforms"))
        outcome = run("--display", "window", variables={"WAYLAND_DISPLAY": "wayland-4711"},
                      through=["unshare", "--mount", "sh", "-c", 'mount -t tmpfs none "$1" && shift && exec "$@"',
                               "sh", hidden])
        self.assert_fails(outcome, NOT_DONE, "cannot open a window: no screen answers at WAYLAND_DISPLAY=wayland-4711; "
                                             "for Wayland, Qt needs the package qt6-wayland")

    def test_a_picture_has_the_pixels_of_the_screen(self):
        for message in ("1000", "999"):  # the dialog, and an alert, which is larger
            with self.subTest(message):
                sizes = []
                for scale in ("1", "2"):
                    picture = self.folder / f"{scale}.png"
                    unattended("--message", message, "--picture", picture, variables={"QT_SCALE_FACTOR": scale})
                    sizes.append([int.from_bytes(picture.read_bytes()[at:at + 4], "big") for at in (16, 20)])
                self.assertEqual(sizes[1], [2 * length for length in sizes[0]])
