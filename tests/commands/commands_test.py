"""./run and ./test, in a copy of the checkout with stand-ins for the tools that install, build and test; and what the
other commands say to a wrong call."""

import os
import pathlib
import pwd
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

# Each stand-in writes its name and arguments into the file LOG, and does what the test asks for in the environment.
STAND_INS = {
    "dpkg-query": 'for each in $INSTALLED; do echo "installed $each"; done\n'
                  'for each in $REMOVED; do echo "config-files $each"; done\n',
    "apt-get": 'if [ "$1" = "$APT_FAILS" ]; then exit 100; fi\necho "apt-get speaks"\n',
    "sudo": '[ -z "$SUDO_REFUSES" ] || exit 1\nexec "$@"\n',
    "ctest": """
if [ "$2" = "$CTEST_FAILS" ]; then exit 8; fi
[ -z "$LEFT_BEHIND" ] || touch "$TMPDIR/$LEFT_BEHIND"
if [ "$1" = --test-dir ]; then log=$2/Testing/Temporary; else log=build/$2/Testing/Temporary; fi
mkdir -p "$log"
printf '%s' "$CTEST_LOG" > "$log/LastTest.log"
""",
    "clang++": 'echo /dev/null\n',
    "cmake": """
case $* in
    "--preset "*)
        mkdir -p "build/$2"
        echo "CMAKE_HOME_DIRECTORY:INTERNAL=${HOME_DIRECTORY:-$PWD}" > "build/$2/CMakeCache.txt"
        touch "build/$2/build.ninja"
        echo "cmake configures"
        exit "${CONFIGURE_STATUS:-0}" ;;
    *" -n")
        if [ -e build/release/bin/visex-host ]; then echo "ninja: no work to do."; else echo "[1/1] work"; fi ;;
    *)
        mkdir -p build/release/bin
        printf '#!/bin/sh\\necho "host in $PWD:" "$@"\\nexit 7\\n' > build/release/bin/visex-host
        chmod +x build/release/bin/visex-host
        echo "cmake builds" ;;
esac
""",
}


# What CTest writes down of a program that has passed, though it skipped a test.
LOG_OF_A_SKIP = """1/1 Testing: some_test
1/1 Test: some_test
Command: "/build/some_test"
Output:
----------------------------------------------------------
SomeTest.cpp:7: Skipped
Xvfb is not here

<end of output>
Test time =   0.01 sec
----------------------------------------------------------
Test Passed.
"""


def packages(*purposes):
    """The packages of the list for these purposes, in alphabetical order."""
    rows = [line.split() for line in (ROOT / "scripts/packages").read_text().splitlines() if line[:1] not in ("", "#")]
    return sorted(row[0] for row in rows if row[1] in purposes)


class CommandTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="a folder "))
        self.addCleanup(shutil.rmtree, self.folder)
        os.chmod(self.folder, 0o777)
        self.checkout = self.folder / "the checkout"
        self.checkout.mkdir()
        os.chmod(self.checkout, 0o777)
        shutil.copytree(ROOT / "scripts", self.checkout / "scripts")
        shutil.copytree(ROOT / ".ci", self.checkout / ".ci")
        for command in ("run", "test"):
            shutil.copy(ROOT / command, self.checkout)
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        self.log = self.folder / "log"
        self.log.touch()
        os.chmod(self.log, 0o666)
        for name, script in STAND_INS.items():
            tool = self.tools / name
            tool.write_text(f"#!/bin/sh\nprintf '%s\\n' \"{name} $*\" >> \"$LOG\"\n{script}")
            tool.chmod(0o755)

    def call(self, *command, cwd="/", user=None, **variables):
        """Runs `command` with the stand-ins first in the search path; everything is installed if nothing is said."""
        variables.setdefault("INSTALLED", " ".join(packages("run", "test", "lane")))
        environment = {"PATH": f"{self.tools}:/usr/bin:/bin", "LOG": str(self.log), **variables}
        identity = {"user": user, "group": "nogroup", "extra_groups": []} if user else {}
        return subprocess.run(command, env=environment, cwd=cwd, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, **identity)

    def shell(self, script, **options):
        """Runs a piece of bash after scripts/setup.sh has been read, on Debian 12 if nothing else is said."""
        prologue = "set -euo pipefail; source scripts/setup.sh; is_debian_12() { true; }\n"
        return self.call("bash", "-c", prologue + script, cwd=self.checkout, **options)

    def logged(self):
        return self.log.read_text().splitlines()


class PackageList(unittest.TestCase):
    def test_each_is_listed_once_with_a_purpose_and_a_reason(self):
        listed = packages("run", "test", "lane")
        self.assertEqual(len(listed), len(set(listed)))
        for line in (ROOT / "scripts/packages").read_text().splitlines():
            self.assertRegex(line, r"^(#.*|[a-z0-9][a-z0-9+.-]+ +(run|test|lane) +\S.*|)$")


@unittest.skipUnless(os.geteuid() == 0, "only the superuser can be both the superuser and another user")
class Installing(CommandTest):
    def test_nothing_happens_when_nothing_is_missing(self):
        for purposes in (["run"], ["run", "test"]):
            self.log.write_text("")
            result = self.shell(f"install_packages {' '.join(purposes)}", INSTALLED=" ".join(packages(*purposes)))
            self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
            self.assertEqual(self.logged(), ["dpkg-query --show --showformat ${db:Status-Status} ${Package}\\n"])

    def test_what_is_missing_or_was_removed_is_said_and_installed(self):
        wanted = packages("run")
        result = self.shell("install_packages run", INSTALLED=" ".join(wanted[2:]), REMOVED=wanted[1])
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stdout, "", "all that is said goes to standard error")
        self.assertEqual(result.stderr.splitlines()[0], f"Installing what is missing: {wanted[0]} {wanted[1]}")
        self.assertEqual(self.logged()[1:], [
            "apt-get update", f"apt-get install --yes --no-install-recommends {wanted[0]} {wanted[1]}"])

    def test_testing_needs_the_packages_of_both_purposes(self):
        self.shell("install_packages run test", INSTALLED="")
        self.assertEqual(self.logged()[-1].split()[4:], packages("run", "test"))

    def test_another_user_takes_sudo(self):
        result = self.shell("install_packages run", INSTALLED="", user="nobody")
        self.assertEqual(result.returncode, 0)
        calls = [line.split()[:3] for line in self.logged()[1:]]
        self.assertEqual(calls, [["sudo", "env", "DEBIAN_FRONTEND=noninteractive"], ["apt-get", "update"],
                                 ["sudo", "env", "DEBIAN_FRONTEND=noninteractive"], ["apt-get", "install", "--yes"]])

    def test_without_sudo_or_its_permission_the_command_is_named(self):
        missing = packages("run")[0]
        for prologue, variables in (("type() { false; }; ", {}), ("", {"SUDO_REFUSES": "1"})):
            with self.subTest(variables):
                self.log.write_text("")
                result = self.shell(prologue + "install_packages run", INSTALLED=" ".join(packages("run")[1:]),
                                    user="nobody", **variables)
                self.assertEqual(result.returncode, 1)
                told = "" if prologue else f"Installing what is missing: {missing}\n"
                self.assertEqual(result.stderr, told + "Packages are missing, and neither root nor sudo could install "
                                 "them. Let an administrator run this, then try again:\n"
                                 f"apt-get update && apt-get install --no-install-recommends {missing}\n")
                self.assertNotIn("apt-get", " ".join(line.split()[0] for line in self.logged()))

    def test_on_another_system_what_is_needed_is_named(self):
        result = self.shell("is_debian_12() { false; }; install_packages run")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr, "This is not Debian 12, so nothing is installed. The packages needed are called "
                                        f"there: {' '.join(packages('run'))}\n")
        self.assertEqual(self.logged(), [])

    def test_a_failure_is_one(self):
        for step in ("update", "install"):
            with self.subTest(step):
                self.assertNotEqual(self.shell("install_packages run", INSTALLED="", APT_FAILS=step).returncode, 0)


class Configuring(CommandTest):
    @unittest.skipUnless(os.geteuid() == 0, "only the superuser can run it as another user")
    def test_in_somebody_elses_checkout_it_says_that_it_cannot_build(self):
        os.chmod(self.checkout, 0o755)
        result = self.shell("configure release", user="nobody")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stderr, f"Cannot build here: {self.checkout}/build/release cannot be written to. If root "
                                        f"has built here, remove {self.checkout}/build as root; else use a checkout of "
                                        "your own\n")

    def test_it_is_quiet_unless_it_does_not_work(self):
        for status, told in ((0, ""), (1, "cmake configures\n")):
            result = self.shell("configure release -DX=Y", CONFIGURE_STATUS=str(status))
            self.assertEqual((result.returncode, result.stdout, result.stderr), (status, "", told))
        self.assertEqual(self.logged(), ["cmake --preset release -DX=Y"] * 2)

    def test_what_is_built_stays_unless_the_checkout_was_moved(self):
        built = self.checkout / "build/release/built"
        self.shell("configure release")
        built.touch()
        self.shell("configure release", HOME_DIRECTORY="/elsewhere")
        self.assertTrue(built.exists())
        self.shell("configure release")
        self.assertFalse(built.exists())


class Run(CommandTest):
    def test_the_host_gets_the_options_the_folder_and_standard_output(self):
        link = self.folder / "link"
        link.symlink_to(self.checkout / "run")
        for command, told in ((self.checkout / "run", "cmake builds\n"), (link, "")):
            with self.subTest(command):
                result = self.call(command, "--message", "a b", cwd=self.folder)
                self.assertEqual(result.stdout, f"host in {self.folder}: --message a b\n")
                self.assertEqual(result.stderr, told)
                self.assertEqual(result.returncode, 7, "the status is the host's")

    def test_it_builds_without_the_tests_and_nothing_the_second_time(self):
        self.call(self.checkout / "run")
        self.assertIn("cmake --preset release -DBUILD_TESTING=OFF", self.logged())
        self.assertEqual(self.logged()[-1], "cmake --build --preset release --target visex-host")
        self.log.write_text("")
        self.call(self.checkout / "run")
        self.assertEqual(self.logged()[1:],
                         ["cmake --preset release", "cmake --build --preset release --target visex-host -- -n"])

    def test_it_stops_when_a_step_fails(self):
        result = self.call(self.checkout / "run", CONFIGURE_STATUS="1")
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, "")


class Test(CommandTest):
    NATIVE = ("release", "sanitizers")

    def lanes(self):
        return [line.split()[2] for line in self.logged() if line.startswith("ctest --preset")]

    def table(self, result):
        """The rows of the table at the end: lane, result, time, unit."""
        rows = result.stdout.split("\nLane ")[1].split("\n\n")[0]
        return [line.split() for line in rows.splitlines()[1:]]

    def add_lane_without_tools(self):
        command = self.checkout / "test"
        lane = "lane_absent() { have no-such-tool; }\nLANES+=(absent)\n\n"
        command.write_text(command.read_text().replace("skip_result=skipped", lane + "skip_result=skipped"))

    def test_each_lane_has_its_function(self):
        script = (self.checkout / "test").read_text()
        lanes = [lane for listed in ("LANES", "ONLY_BY_NAME")
                 for lane in script.split(f"\n{listed}=(")[1].split(")")[0].split()]
        self.assertLessEqual(set(self.NATIVE), set(lanes))
        for lane in lanes:
            self.assertIn(f"\nlane_{lane}() {{\n", script)

    def test_the_lanes_are_built_with_the_tests_and_in_the_table_with_their_times(self):
        link = self.folder / "link"
        link.symlink_to(self.checkout / "test")
        for command in (self.checkout / "test", self.checkout / ".ci/run", link):
            with self.subTest(command):
                self.log.write_text("")
                result = self.call(command, *self.NATIVE)
                self.assertEqual(result.returncode, 0, result.stderr)
                self.assertIn("cmake --preset release -DBUILD_TESTING=ON", self.logged())
                self.assertEqual(self.lanes(), list(self.NATIVE))
                self.assertEqual([(row[0], row[1], row[3]) for row in self.table(result)],
                                 [(lane, "passed", "s") for lane in self.NATIVE])

    def test_each_lane_has_its_own_result_and_a_skip_fails_in_ci_alone(self):
        self.add_lane_without_tools()
        lacks_tools = ("stderr", "Skipped: this lane needs no-such-tool")
        skips_a_test = ("stdout", "Skipped in some_test: Xvfb is not here\n")
        leaves_files = ("stderr", "The tests left in their temporary folder: rubbish\n")
        for command, lanes, variables, results, (stream, told) in (
            ("test", self.NATIVE, {"CTEST_FAILS": "release"}, ["FAILED", "passed"], ("stderr", "")),
            ("test", ["absent", "release"], {}, ["skipped", "passed"], lacks_tools),
            (".ci/run", ["absent", "release"], {}, ["FAILED", "passed"], lacks_tools),
            ("test", ["release"], {"CTEST_LOG": LOG_OF_A_SKIP}, ["passed"], skips_a_test),
            (".ci/run", ["release"], {"CTEST_LOG": LOG_OF_A_SKIP}, ["FAILED"], skips_a_test),
            ("test", ["sanitizers"], {"LEFT_BEHIND": "rubbish"}, ["FAILED"], leaves_files),
        ):
            with self.subTest(told, command=command):
                result = self.call(self.checkout / command, *lanes, **variables)
                self.assertEqual([row[1] for row in self.table(result)], results)
                self.assertEqual(result.returncode, int("FAILED" in results))
                passed, failed, skipped = (results.count(word) for word in ("passed", "FAILED", "skipped"))
                self.assertEqual(result.stdout.splitlines()[-1], f"{passed} passed, {failed} failed, {skipped} skipped")
                self.assertIn(told, getattr(result, stream))

    def test_an_unknown_lane_is_refused(self):
        result = self.call(self.checkout / "test", "relase")
        self.assertEqual(result.returncode, 2)
        self.assertIn("There is no lane 'relase'. The lanes are: release", result.stderr)
        self.assertEqual(self.logged(), [])


class CheckText(unittest.TestCase):
    """scripts/check-text in a folder with the checkout's .editorconfig and one file."""

    def check(self, name, contents):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(ROOT / ".editorconfig", folder)
            file = pathlib.Path(folder, name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_bytes(contents)
            return subprocess.run([ROOT / "scripts/check-text", folder], capture_output=True, text=True)

    def test_each_fault_is_named_with_its_line(self):
        cases = [
            (b"one\ntwo\r\n", "2: a carriage return"),
            (b"one \ntwo\n", "1: blanks at the end of the line"),
            (b"one\n\n two\t", "3: blanks at the end of the line"),
            (b"one\n\ttwo\n", "2: a tab"),
            (b"one\ntwo", "2: no newline at the end of the file"),
            (b"one\n\xe9\n", "2: bytes that are not UTF-8"),
        ]
        for contents, fault in cases:
            with self.subTest(contents):
                result = self.check("file.txt", contents)
                self.assertEqual(result.returncode, 1)
                self.assertEqual(result.stdout.splitlines()[0], f"file.txt:{fault}")

    def test_nothing_is_said_of_what_is_well(self):
        for name, contents in (("file.txt", "é\nn\n".encode()), ("empty.txt", b""), ("PkgInfo", b"APPL????"),
                               ("picture.png", b"\0\r\n\t"), ("fuzz/seeds/string/a", b"\xff\t \r"), ("build/file.txt", b"\t"), (".git/index", b"\t")):
            with self.subTest(name):
                result = self.check(name, contents)
                self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))


class Usage(unittest.TestCase):
    """Every command that a person may call, called as it is not meant."""

    COMMANDS = ("test", "scripts/analyze", "scripts/check-text", "scripts/make-pictures", "scripts/report-coverage",
                "scripts/try-packages", "bench/ratios", "fuzz/run", "mutation/mutate")

    def call(self, *command):
        return subprocess.run([ROOT / command[0], *command[1:]], cwd="/", stdin=subprocess.DEVNULL, capture_output=True,
                              text=True)

    def test_each_tells_its_usage(self):
        for command in self.COMMANDS:
            with self.subTest(command):
                result = self.call(command, "--help")
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertIn(os.path.basename(command), result.stdout)

    def test_wrong_usage_is_told_in_one_line(self):
        no_build = "scripts/analyze: this needs one folder with a configured build: " \
                   "cmake --preset release -DBUILD_TESTING=ON makes build/release\n"
        no_folder = "scripts/check-text: this takes one folder, in which there is an .editorconfig\n"
        no_host = "usage: scripts/make-pictures [BUILD], in which there is bin/visex-host; " \
                  "./run builds it in build/release\n"
        coverage = "usage: scripts/report-coverage PROFILE FOLDER=PERCENT... -- PROGRAM...\n"
        no_fuzzer = "There is no fuzzer 'none'. They are: bundle nib record resource_file string utf16\n"
        cases = [
            (("scripts/analyze",), no_build),
            (("scripts/analyze", "/", "/"), no_build),
            (("scripts/check-text", "none"), no_folder),
            (("scripts/make-pictures", "none"), no_host),
            (("scripts/report-coverage",), coverage),
            (("scripts/report-coverage", "profile", "--", "program"), coverage),
            (("scripts/report-coverage", "profile", "src", "--", "program"), coverage),
            (("bench/ratios", "a", "b"), "usage: bench/ratios [--picture FILE] [FILTER]\n"),
            (("fuzz/run", "none"), no_fuzzer),
            (("fuzz/run", "--test", "none"), no_fuzzer),
        ]
        for command, problem in cases:
            with self.subTest(command):
                result = self.call(*command)
                self.assertEqual((result.returncode, result.stdout, result.stderr), (2, "", problem))

    def test_packages_are_not_made_by_mistake(self):
        result = self.call("scripts/try-packages", "none")
        self.assertEqual((result.returncode, result.stdout, result.stderr),
                         (1, "", "Not as it should be: this takes no arguments\n"))
