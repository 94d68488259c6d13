"""Whether tests notice a mutant: it is built in a copy of the checkout, and the test programs are run on it."""

import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[1]
WORK = ROOT / "build/mutation"

KILLED, TIMED_OUT, SURVIVED, NOT_COMPILING = "killed", "timed out", "survived", "does not compile"
SANITIZED = "killed by a sanitizer"

# Without assertions, as a release: what is wrong has to be noticed by a test.
PLAIN = "-O0 -DNDEBUG -w"
# As the lane of that name has it, assertions included: then reading past the end of something is noticed too.
SANITIZERS = "-O1 -fsanitize=address,undefined -fno-sanitize-recover=all -w"

# A mutant may ask for any amount of memory; the tests themselves stay far below this.
MOST_MEBIBYTES = 2048

# How long a program may take that ran for so many seconds before the change. Others have the machine too.
PATIENCE = 10
SLOWER = 5

# A module of tests in Python runs the real host.
MODULE = "test_"
HOST = ("visex-host", "tests/end_to_end/all")


class Equivalents:
    """The mutants that the file `equivalents` says no test can notice."""

    def __init__(self, text=pathlib.Path(__file__).with_name("equivalents").read_text()):
        listed = re.findall(r"^(?:  (.+)\n)?- (.+)\n((?:\+ .+\n)+)", text, re.MULTILINE)
        # The line before and after, and the one above it, of which "" is any.
        self._known = {(old, new[2:], above) for above, old, changed in listed for new in changed.splitlines()}

    def __contains__(self, mutant):
        return not self._known.isdisjoint(entries_for(mutant))

    def without(self, mutants):
        """What is listed and not among these, as the lines before, after and above."""
        return sorted(self._known.difference(*map(entries_for, mutants)))


def entries_for(mutant):
    """The entries that would list it."""
    return {(mutant.old, mutant.new, above) for above in ("", mutant.above)}


class Tree:
    """A copy of the checkout with a build of its own, in which one file at a time is changed."""

    def __init__(self, name, flags):
        self.sources = WORK / name
        self.flags = flags
        self.build = self.sources / "build"
        self.temporary = WORK / f"{name}.temporary"
        self.changed = None
        self.seconds = {}
        self.commands = {}

    def prepare(self, programs):
        """Copies what is new in the checkout, builds the programs and runs them: they have to pass."""
        listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                                check=True, capture_output=True).stdout.decode()
        for name in filter(None, listed.split("\0")):
            self._copy(name)

        options = ["-DCMAKE_BUILD_TYPE=", f"-DCMAKE_CXX_FLAGS={self.flags}", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"]
        if shutil.which("ld.gold"):  # which lacks an option that a module of the tests is linked with
            options += [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=gold" for kind in ("EXE", "SHARED")]
        subprocess.run(["cmake", "-S", self.sources, "-B", self.build, "-G", "Ninja", *options], check=True,
                       stdout=subprocess.DEVNULL)
        if not self._make(programs, output=sys.stderr):
            sys.exit(f"{self.build}: the unchanged sources do not build")
        for program in programs:
            self.commands[program] = self._command(program)
            start = time.monotonic()
            if self._run(program, 300) != SURVIVED:
                sys.exit(f"{self.sources}: {program} fails with the unchanged sources")
            self.seconds[program] = time.monotonic() - start

    def judge(self, mutant, programs):
        """The outcome, and which program it was that noticed."""
        if self.changed != mutant.file:
            self.restore()
        self.changed = mutant.file
        (self.sources / mutant.file).write_text(mutant.text)
        for program in programs:
            if not self._make([program], CCACHE_DISABLE="1"):  # a mutant is seldom built twice
                return NOT_COMPILING, None
            outcome = self._run(program, PATIENCE + SLOWER * self.seconds[program])
            if outcome == KILLED and self.flags == SANITIZERS:
                outcome = SANITIZED
            if outcome != SURVIVED:
                return outcome, program
        return SURVIVED, None

    def restore(self):
        """Takes the change back."""
        if self.changed is not None:
            self._copy(self.changed)

    def _copy(self, name):
        source, copy = ROOT / name, self.sources / name
        if not source.is_file():
            return
        content = source.read_bytes()
        if not copy.exists() or copy.read_bytes() != content:
            copy.parent.mkdir(parents=True, exist_ok=True)
            copy.write_bytes(content)
            shutil.copymode(source, copy)

    def _make(self, programs, output=subprocess.DEVNULL, **variables):
        targets = {each for program in programs for each in (HOST if program.startswith(MODULE) else (program,))}
        made = subprocess.run(["ninja", "-C", self.build, "-j", "1", *targets], env={**os.environ, **variables},
                              stdout=output, stderr=output)
        return made.returncode == 0

    def _command(self, program):
        if program.startswith(MODULE):
            return ["/usr/bin/python3", "-B", "-m", "unittest", "--failfast", program]
        path = next(path for path in self.build.rglob(program) if path.is_file())
        return [path, "--gtest_fail_fast", "--gtest_brief=1"]

    def _run(self, program, seconds):
        shutil.rmtree(self.temporary, ignore_errors=True)
        self.temporary.mkdir(parents=True)
        variables = {
            "TMPDIR": str(self.temporary),
            "ASAN_OPTIONS": f"allocator_may_return_null=1:hard_rss_limit_mb={MOST_MEBIBYTES}",
            "LSAN_OPTIONS": f"suppressions={self.sources}/tests/leak_suppressions:print_suppressions=0",
            "PYTHONPATH": str(self.sources / "tests/end_to_end"),
            "VISEX_BUILD": str(self.build),
        }
        # A sanitizer takes more addresses than there is memory.
        return run(self.commands[program], seconds, variables, limit if self.flags == PLAIN else without_core)


def run(command, seconds, variables, prepare=None):
    """What a mutant is, by how a test program ends that is given so many seconds.

    The program's processes are a group of their own, of which nothing is left."""
    process = subprocess.Popen(
        command, env={**os.environ, **variables}, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL, start_new_session=True, preexec_fn=prepare)
    try:
        return SURVIVED if process.wait(seconds) == 0 else KILLED
    except subprocess.TimeoutExpired:
        return TIMED_OUT
    finally:
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass
        process.wait()


def limit():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEBIBYTES << 20, MOST_MEBIBYTES << 20))
    without_core()


def without_core():
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
