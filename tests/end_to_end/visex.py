"""Runs the real host with the real external, nib and toolbox, and looks at what comes out.

VISEX_BUILD in the environment names the build tree, as CTest sets it; the release build's if it does not.
"""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import typing
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ.get("VISEX_BUILD", ROOT / "build/release"))
HOST = BUILD / "bin/visex-host"
SUPPORT = HOST.parent
DEMO = SUPPORT / "DemoInstaller.app"

ENGLISH, FRENCH, GERMAN, ITALIAN, SPANISH, JAPANESE = 0, 1, 2, 3, 6, 11
NAMES = {0: "English", 1: "French", 2: "German", 3: "Italian", 6: "Spanish", 11: "Japanese"}

RECORD_SIZE = 614
MESSAGE, FLAGS, CHOSEN, CURRENT = slice(0, 2), slice(8, 12), slice(582, 584), slice(610, 614)

CHOSE, NOTHING_CHOSEN, NOT_DONE, REFUSED, NOT_LOADED, NOT_RETURNED = 0, 1, 2, 3, 4, 5

# Long enough for a slow machine under the sanitizers; what takes this long hangs.
TIMEOUT = 180

# What is taken out of the environment: the screens, the languages and what belongs to Qt.
SCREENS = ("DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET")
UNWANTED = SCREENS + ("LANG", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "XDG_SESSION_TYPE")


def environment(**variables):
    """This environment without a screen, a language and Qt's variables, and with `variables`."""
    kept = {name: value for name, value in os.environ.items() if name not in UNWANTED and not name.startswith("QT_")}
    return {**kept, **variables}


# For runs that may not write files: a build that measures coverage would try to, and complain.
WITHOUT_PROFILE = {"LLVM_PROFILE_FILE": "/dev/null"}


class Outcome(typing.NamedTuple):
    """How a run of the host ended."""

    status: int
    output: str
    errors: str

    def json(self):
        return json.loads(self.output)


def caller_in(process):
    """The number of the process in which the host's `process` makes the call: the one that it watches."""
    return int(pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text())


def outcome_of(process):
    """The Outcome of a host that ends by itself."""
    output, errors = process.communicate(timeout=TIMEOUT)
    return Outcome(process.returncode, (output or b"").decode(), (errors or b"").decode())


def run(*arguments, host=HOST, through=(), variables=None, **options):
    """Runs the host to its end, by the command `through` if there is one, with neither a screen nor a terminal."""
    # A host that was copied does not know where the libraries are.
    libraries = {} if host == HOST else {"LD_LIBRARY_PATH": str(BUILD / "toolbox")}
    streams = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE}
    process = subprocess.run([*through, host, *arguments], env=environment(**{**libraries, **(variables or {})}),
                             timeout=TIMEOUT, start_new_session=True, **{**streams, **options})
    return Outcome(process.returncode, *((each or b"").decode() for each in (process.stdout, process.stderr)))


def unattended(*arguments, answers=(), **options):
    """Runs the host with answers from a list."""
    given = [text for answer in answers for text in ("--answer", answer)]
    return run("--display", "unattended", *given, *arguments, **options)


def record(message=1000, flags=0, chosen=0, current=ENGLISH, filler=0, tail=b""):
    """The bytes of a record; `filler` fills what belongs to the installer alone."""
    made = bytearray([filler] * RECORD_SIZE)
    made[MESSAGE] = message.to_bytes(2, "big", signed=True)
    made[FLAGS] = flags.to_bytes(4, "big")
    made[CHOSEN] = chosen.to_bytes(2, "big")
    made[CURRENT] = current.to_bytes(4, "big")
    return bytes(made) + tail


def comes_true(condition):
    """Whether `condition` holds within the time that a test may take."""
    end = time.monotonic() + TIMEOUT
    while not condition() and time.monotonic() < end:
        time.sleep(0.02)
    return condition()


class HostTest(unittest.TestCase):
    """A test with a folder of its own, which goes with it."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="visex host "))
        self.addCleanup(shutil.rmtree, self.folder)

    def file(self, name, contents):
        """Makes a file in the test's folder and returns its path."""
        path = self.folder / name
        path.write_bytes(contents)
        return path

    def demo_copy(self):
        """A copy of the demo application, to be spoiled."""
        copy = self.folder / "DemoInstaller.app"
        shutil.copytree(DEMO, copy)
        return copy

    def installation(self):
        """A host with a copy of everything that it needs, where every user can read it."""
        os.chmod(self.folder, 0o755)
        shutil.copytree(BUILD / "bin", self.folder / "bin")
        libraries = self.folder / "toolbox"
        libraries.mkdir()
        for library in BUILD.glob("toolbox/*.so"):
            shutil.copy(library, libraries)
        return self.folder / "bin/visex-host"

    def as_nobody(self, host, *arguments):
        """Runs the `host` of an installation as a user without rights."""
        return unattended(*arguments, host=host, user="nobody", group="nogroup", extra_groups=[], cwd="/",
                          variables={"LD_LIBRARY_PATH": str(self.folder / "toolbox"), **WITHOUT_PROFILE})

    def copied_host(self):
        """A host with nothing beside it."""
        program = self.folder / "bin/visex-host"
        program.parent.mkdir()
        return shutil.copy(HOST, program)

    def assert_answers(self, outcome, status, *lines):
        """The host printed an answer, and nothing but these `lines` on standard error."""
        self.assertEqual(outcome.errors, "".join(f"visex-host: {line}\n" for line in lines))
        self.assertNotEqual(outcome.output, "")
        self.assertEqual(outcome.status, status)

    def assert_chose(self, outcome, code=ENGLISH, *lines):
        """It answered that this language was written."""
        self.assert_answers(outcome, CHOSE, *lines)
        self.assertTrue(outcome.output.startswith(f"{NAMES[code]} ({code}) was written to the record.\n"), outcome.output)

    def assert_fails(self, outcome, status, *lines):
        """The host printed no answer, and these `lines` on standard error."""
        self.assertEqual(outcome, (status, "", "".join(f"visex-host: {line}\n" for line in lines)))
