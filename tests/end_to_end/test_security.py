"""What docs/security.md states: what is trusted, what is not, and that nothing is written that was not asked for."""

import itertools
import os
import re
import resource
import signal
import subprocess
import unittest

from visex import *


def tree(folder):
    """Every file under `folder` with its bytes, every link with its goal, every other thing with its kind."""
    contents = {}
    for path in sorted(folder.rglob("*")):
        if path.is_symlink():
            contents[path] = os.readlink(path)
        else:
            contents[path] = path.read_bytes() if path.is_file() else os.stat(path).st_mode
    return contents


class Links(HostTest):
    """A link out of a bundle, in the place of each thing that is read or loaded from one, is as if nothing were there."""

    def lead_out(self, path):
        outside = self.folder / "outside"
        shutil.rmtree(outside, ignore_errors=True)
        outside.mkdir()
        path.rename(outside / path.name)
        path.symlink_to(outside / path.name)

    def outcome_without(self, place, *arguments, **options):
        shutil.rmtree(self.folder / DEMO.name, ignore_errors=True)
        app = self.demo_copy()
        self.lead_out(app / "Contents" / place)
        return unattended("--app", app, *arguments, **options)

    def test_the_nib(self):
        for place in ("Resources/LanguageSelector.nib", "Resources/LanguageSelector.nib/objects.xib"):
            with self.subTest(place):
                outcome = self.outcome_without(place, "--json")
                self.assertEqual(outcome.status, REFUSED)
                self.assertIn("Can't find Nib Reference", outcome.json()["alerts"][0]["text"])

    def test_the_resource_file(self):
        outcome = self.outcome_without("Resources/DemoInstaller.rsrc", "--require-admin")
        file = self.folder / "DemoInstaller.app/Contents/Resources/DemoInstaller.rsrc"
        self.assert_fails(outcome, NOT_DONE,
                          f"the resource file '{file}' was not opened: the application's own is called "
                          "'DemoInstaller.rsrc' and lies inside it",
                          "the administrator flag cannot be set: the application has no resource file, "
                          "which would hold it; name one with --resources")

    def test_the_externals_and_their_folder(self):
        for place in ("PlugIns", "PlugIns/LanguageSelector.bundle"):
            with self.subTest(place):
                self.assert_fails(self.outcome_without(place), NOT_LOADED, "there is no external in "
                                  f"'{self.folder}/DemoInstaller.app/Contents/PlugIns'; name one as BUNDLE")

    def test_an_external_that_a_link_within_leads_to(self):
        app = self.demo_copy()
        external = app / "Contents/PlugIns/LanguageSelector.bundle"
        external.rename(app / "Contents/External")
        external.symlink_to("../External")
        external.with_name("Dangling.bundle").symlink_to("none")  # is as if it were not there
        external.with_name("notes").mkdir()  # and so is what is not called as one
        self.assert_chose(unattended("--app", app))

    def test_what_an_external_is_made_of(self):
        bundle = self.folder / "Test.bundle"
        for place in ("Contents/Info.plist", "Contents/Linux", "Contents/Linux/LanguageSelector", "Contents"):
            with self.subTest(place):
                shutil.copytree(DEMO / "Contents/PlugIns/LanguageSelector.bundle", bundle)
                self.assert_chose(unattended(bundle))
                self.lead_out(bundle / place)
                outcome = unattended(bundle)
                self.assertEqual(outcome.status, NOT_LOADED)
                self.assertTrue(outcome.errors.startswith(f"visex-host: cannot load the external '{bundle}': "))
                shutil.rmtree(bundle)


class Code(HostTest):
    """What the process loads is the system's or the host's own, whatever the environment and the folder say."""

    def loaded_files(self, *arguments, **options):
        """The files that the loader maps, and the outcome."""
        variables = {**options.pop("variables", {}), "LD_DEBUG": "files", "LD_DEBUG_OUTPUT": str(self.folder / "loaded")}
        outcome = unattended(*arguments, variables=variables, **options)
        told = "".join(file.read_text(errors="replace") for file in self.folder.glob("loaded.*"))
        return set(re.findall(r"calling init: (.+)", told)), outcome

    def test_none_is_from_the_environment_or_the_working_directory(self):
        decoys = self.folder / "decoys"
        offscreen = next(pathlib.Path("/usr/lib").glob("*/qt6/plugins/platforms/libqoffscreen.so"))
        for place in ("platforms/libqoffscreen.so", "libqoffscreen.so", "Security", "libSecurity.so",
                      "LanguageSelector", "libtoolbox_screen.so", "libqttestability.so", "libttestability.so",
                      "libQt6Core.so.6", "libQt6Widgets.so.6", "libstdc++.so.6", "libicuuc.so.72"):
            (decoys / place).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(offscreen, decoys / place)
        shutil.copytree(SUPPORT / "Frameworks", decoys / "Frameworks")
        shutil.copytree(DEMO, decoys / "DemoInstaller.app")
        (decoys / "qt.conf").write_text(f"[Paths]\nPlugins={decoys}\n")
        names = ("QT_PLUGIN_PATH", "QT_QPA_PLATFORM_PLUGIN_PATH", "DYLD_FRAMEWORK_PATH", "DYLD_LIBRARY_PATH",
                 "CFProcessPath", "GCONV_PATH", "GIO_MODULE_DIR", "GIO_EXTRA_MODULES", "GTK_PATH", "HOME", "PWD",
                 "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "TMPDIR", "PATH")
        variables = {**{name: str(decoys) for name in names}, "QT_LOAD_TESTABILITY": "1"}

        admin = ["--require-admin"] if os.geteuid() == 0 else []  # nobody else is shown the dialog with it
        loaded, outcome = self.loaded_files(*admin, "--picture", self.folder / "picture.png",
                                            cwd=decoys, variables=variables)
        self.assert_chose(outcome)
        names = {pathlib.Path(path).name for path in loaded}
        self.assertLessEqual({"LanguageSelector", "libqoffscreen.so"}, names, "what must be loaded is listed")
        homes = (str(BUILD) + "/", "/lib/", "/lib64/", "/usr/lib/", "/usr/local/lib/")
        self.assertEqual([path for path in loaded if not path.startswith((*homes, str(HOST)))], [])


class Traces(HostTest):
    """Nothing is left anywhere but the files that options name."""

    def test_nothing_is_written_but_what_an_option_names(self):
        for name in ("home", "work", "temporary", "configuration", "cache", "data", "runtime"):
            (self.folder / name).mkdir(mode=0o700)
        record_file = self.file("work/record", record(current=GERMAN))
        places = {"HOME": "home", "TMPDIR": "temporary", "XDG_CONFIG_HOME": "configuration", "XDG_CACHE_HOME": "cache",
                  "XDG_DATA_HOME": "data", "XDG_RUNTIME_DIR": "runtime"}
        variables = {name: str(self.folder / place) for name, place in places.items()}
        cases = [
            ([], CHOSE, []),
            (["--json", "--trace", "--require-admin"], CHOSE if os.geteuid() == 0 else NOTHING_CHOSEN, []),
            (["--record", record_file.name], CHOSE, []),
            (["--message", "5"], REFUSED, []),
            (["--answer", "cancel"], NOTHING_CHOSEN, []),
            (["--app", "missing"], NOT_DONE, []),
            (["--help"], CHOSE, []),
            (["--write-record", "after"], CHOSE, ["after"]),
            (["--picture", "picture.png"], CHOSE, ["picture.png"]),
            (["--trace-file", "calls"], CHOSE, ["calls"]),
            (["--picture", "missing/picture.png", "--write-record", "missing/after"], NOT_DONE, []),
        ]
        for arguments, status, written in cases:
            with self.subTest(arguments):
                before, own = tree(self.folder), tree(SUPPORT)
                outcome = unattended(*arguments, cwd=self.folder / "work", variables=variables)
                self.assertEqual((outcome.status, outcome.output == ""), (status, status == NOT_DONE))
                after = tree(self.folder)
                named = {self.folder / "work" / name for name in written}
                self.assertEqual({path for path in after if path not in before}, named)
                self.assertEqual({path: after.get(path) for path in before}, before)
                self.assertEqual(tree(SUPPORT), own)
                for path in named:
                    path.unlink()


def limit_files(size):
    """For preexec_fn: no file of the process grows past `size` bytes, as if the disk were full."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


class Files(HostTest):
    """A file is written whole or stays what it was."""

    OPTIONS = ("--write-record", "--picture")
    SIGNALS = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP, signal.SIGUSR1)  # the last is not passed on to the child
    BEFORE = record(filler=0x5A)

    def setUp(self):
        super().setUp()
        self.target = self.file("target", self.BEFORE)

    def saved(self, *arguments, **signals):
        """The outcome under the eyes of what is loaded before."""
        variables = {"LD_PRELOAD": str(BUILD / "tests/end_to_end/libwatched_saving.so"),
                     "ASAN_OPTIONS": "verify_asan_link_order=0",
                     **{moment: str(int(number)) for moment, number in signals.items()}}

        def heed_signals():  # those that a shell or CI has its jobs ignore, too
            for number in self.SIGNALS:
                signal.signal(number, signal.SIG_DFL)
        return unattended(*arguments, variables=variables, preexec_fn=heed_signals)

    def test_a_disk_that_is_full_by_then_is_said_in_place_of_the_answer(self):
        start = self.file("start", record(tail=bytes(9000)))
        before = tree(self.folder)
        outcome = unattended("--record", start, "--write-record", self.target, variables=WITHOUT_PROFILE,
                             preexec_fn=limit_files(5000))
        self.assert_fails(outcome, NOT_DONE, f"cannot save the record in '{self.target}': File too large")
        self.assertEqual(tree(self.folder), before)

    def test_the_record_is_stored_although_the_picture_cannot_be(self):
        # A picture of the dialog is larger than that, a record is not.
        picture, stored = self.folder / "picture.png", self.folder / "stored"
        outcome = unattended("--picture", picture, "--write-record", stored, "--answer", "german",
                             variables=WITHOUT_PROFILE, preexec_fn=limit_files(4096))
        self.assertEqual(outcome.status, NOT_DONE)
        self.assertRegex(outcome.errors, rf"\Avisex-host: cannot save the picture in '{picture}': .+\n\Z")
        self.assertIn("German (2) was written to the record.", outcome.output)
        self.assertEqual(tree(self.folder), {self.target: self.BEFORE, stored: record(chosen=GERMAN)})

    def test_what_is_printed_was_stored_before(self):
        reader, writer = os.pipe()
        os.set_blocking(writer, False)
        try:
            while os.write(writer, bytes(4096)):
                pass
        except BlockingIOError:
            os.set_blocking(writer, True)
        with subprocess.Popen([HOST, "--answer", "french", "--write-record", self.target], env=environment(),
                              stdout=writer, stderr=subprocess.PIPE) as blocked:  # it cannot print as long as nobody reads
            os.close(writer)
            comes_true(lambda: self.target.read_bytes() == record(chosen=FRENCH))
            seen = (blocked.poll(), self.target.read_bytes())
            os.close(reader)
        self.assertEqual(seen, (None, record(chosen=FRENCH)))
        self.assertEqual(blocked.returncode, NOT_DONE)

    def test_it_is_on_the_disk_with_its_mode_before_it_takes_the_place_of_another(self):
        self.target.chmod(0o640)
        for option in self.OPTIONS:
            with self.subTest(option):
                self.assert_chose(self.saved(option, self.target))
                self.assertNotEqual(self.target.read_bytes(), self.BEFORE)

    def test_being_killed_on_the_way_leaves_what_was_there(self):
        for option in self.OPTIONS:
            with self.subTest(option):
                outcome = self.saved(option, self.target, SIGNAL_IN_RENAME=signal.SIGKILL)
                self.assertEqual(outcome.status, -signal.SIGKILL)
                self.assertEqual(self.target.read_bytes(), self.BEFORE)

    def test_a_signal_on_the_way_leaves_nothing_beside_it(self):
        moments = ("SIGNAL_IN_SYNC", "SIGNAL_IN_RENAME")
        for option, moment, number in itertools.product(self.OPTIONS, moments, self.SIGNALS):
            with self.subTest(option, moment=moment, number=number):
                self.target.write_bytes(self.BEFORE)
                outcome = self.saved(option, self.target, **{moment: number})
                self.assertEqual(outcome.status, -number)
                self.assertEqual(self.target.read_bytes() == self.BEFORE, moment == "SIGNAL_IN_SYNC")
                self.assertEqual(list(tree(self.folder)), [self.target])

    def test_a_pipe_that_is_put_in_place_of_a_record_is_not_waited_for(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        self.assert_fails(self.saved("--record", pipe), NOT_DONE,
                          f"cannot read the record '{pipe}': it is not a regular file")

    @unittest.skipUnless(os.geteuid() == 0, "only the superuser can mount")
    def test_a_mount_point_is_left_alone(self):
        lent = self.file("lent", b"")
        outcome = run("--write-record", self.target, through=[
            "unshare", "--mount", "sh", "-c", 'mount --bind "$1" "$2" && shift 2 && exec "$@"', "sh", lent, self.target])
        if "unshare" in outcome.errors or "mount:" in outcome.errors:
            self.skipTest("nothing can be mounted here")
        self.assert_fails(outcome, NOT_DONE,
                          f"cannot save the record in '{self.target}': it is a mount point, which cannot be replaced")
