"""Missing, unreadable, truncated and corrupt files: the right line or alert and the right status, and never a crash."""

import contextlib
import os
import plistlib
import shutil
import unittest

from visex import *

CANT_FIND_NIB = "Can't find Nib Reference"
CANT_CREATE_WINDOW = "Can't create windows from Nib"
CANT_RUN = "Can't run modal loop for window"


@contextlib.contextmanager
def pipe_without_reader():
    reader, writer = os.pipe()
    os.close(reader)
    with open(writer, "wb", buffering=0):
        yield writer


class StandardStreams(HostTest):
    def setUp(self):
        super().setUp()
        self.after = self.folder / "after"

    def choose_german(self, *arguments, **options):
        """Runs the host, which must store German whatever its streams do."""
        outcome = unattended(*arguments, "--current", "german", "--write-record", self.after, **options)
        self.assertEqual(self.after.read_bytes(), record(current=GERMAN, chosen=GERMAN))
        self.after.unlink()
        return outcome

    def test_an_answer_that_cannot_be_printed_is_said_and_the_record_not_lost(self):
        broken = "cannot write to standard output: Broken pipe"
        with open("/dev/full", "w") as full:
            self.assert_fails(self.choose_german(stdout=full), NOT_DONE,
                              "cannot write to standard output: No space left on device")
        with pipe_without_reader() as gone:
            for options in ([], ["--json"]):
                self.assert_fails(self.choose_german(*options, stdout=gone), NOT_DONE, broken)
                for errors in (gone, subprocess.DEVNULL):  # there is nobody to tell
                    self.assert_fails(self.choose_german(*options, stdout=gone, stderr=errors), NOT_DONE)
            self.assert_fails(run("--help", stdout=gone), NOT_DONE, broken)

    def test_files_that_the_streams_go_to_are_not_replaced(self):
        for option in ("--write-record", "--picture", "--trace-file"):
            for stream, name in (("stdout", "output"), ("stderr", "error")):
                with self.subTest(option, stream=stream), open(self.after, "w") as file:
                    outcome = unattended(option, self.after, **{stream: file})
                    said = (NOT_DONE, f"visex-host: {option} names the file that standard {name} goes to, "
                                      f"'{self.after}'; give each its own\n")
                    self.assertEqual((outcome.status, outcome.errors or self.after.read_text()), said)

    def test_errors_that_nobody_takes_change_nothing(self):
        with pipe_without_reader() as gone, open("/dev/full", "w") as full:
            for options in ([], ["--trace"], ["--answer", "german", "--answer", "ok"]):
                for errors in (gone, full):
                    with self.subTest(options, errors=errors):
                        self.assert_chose(self.choose_german(*options, stderr=errors), GERMAN)

    def test_closed_streams_are_not_taken_for_files(self):
        # The shell closes the streams; the record, which is opened first, must not take their place.
        for closed, lines in (("<&- >&-", ["cannot write to standard output: Bad file descriptor"]), ("<&- >&- 2>&-", [])):
            with self.subTest(closed):
                self.assert_fails(self.choose_german(through=["sh", "-c", f'exec "$@" {closed}', "sh"]), NOT_DONE, *lines)


class RecordFiles(HostTest):
    def test_what_may_be_no_record_is_taken_with_a_word_on_it(self):
        text = self.file("text", b"All that is written here is a text. " * 20)
        taken = (f"the file '{text}' was taken for a record, but the current language in it, 773865836, is not a Mac OS "
                 "language code")
        for arguments in ([], ["--current", "4"]):
            self.assert_chose(unattended("--record", text, "--message", "1000", *arguments), ENGLISH, taken)
        self.assert_chose(unattended("--record", self.file("largest", record(current=0x7FFF))))

    @unittest.skipUnless(os.geteuid() == 0, "only the superuser can run it as another user")
    def test_what_may_not_be_written_to_is_left_alone(self):
        host = self.installation()
        file = self.file("record", record())
        for mode, where, reason in ((0o777, 0o444, "Permission denied"),
                                    (0o755, 0o666, "its folder takes no new file: Permission denied")):
            os.chmod(self.folder, mode)
            os.chmod(file, where)
            for option, name in (("--write-record", "record"), ("--picture", "picture")):
                target = file if name == "record" else file.rename(self.folder / "record.png")
                with self.subTest(option, folder=mode, file=where):
                    self.assert_fails(self.as_nobody(host, option, target), NOT_DONE,
                                      f"cannot save the {name} in '{target}': {reason}")
                    self.assertEqual(target.read_bytes(), record())
                target.rename(file)
        os.chmod(self.folder, 0o777)
        os.chmod(file, 0o222)
        self.assert_fails(self.as_nobody(host, "--write-record", file), NOT_DONE,
                          f"cannot read the record '{file}': Permission denied")


class Applications(HostTest):
    def test_there_must_be_one(self):
        for path in (self.folder / "missing", self.file("file", b"")):
            self.assert_fails(unattended("--app", path), NOT_DONE, f"there is no application bundle in '{path}'")

    def test_the_demo_application_must_be_there(self):
        self.assert_fails(unattended(host=self.copied_host()), NOT_DONE,
                          f"there is no application bundle in '{self.folder}/bin/DemoInstaller.app'")

    def test_it_must_have_one_external(self):
        app = self.demo_copy()
        plug_ins = app / "Contents/PlugIns"
        shutil.copytree(plug_ins / "LanguageSelector.bundle", plug_ins / "Other.bundle")
        self.assert_fails(unattended("--app", app), NOT_DONE,
                          f"there is more than one external in '{plug_ins}'; name one as BUNDLE")
        self.assert_chose(unattended("--app", app, plug_ins / "Other.bundle"))
        shutil.rmtree(plug_ins)
        self.assert_fails(unattended("--app", app), NOT_LOADED,
                          f"there is no external in '{plug_ins}'; name one as BUNDLE")

    def test_its_property_list_may_be_anything(self):
        # Nothing in it is needed, so a damaged one is no worse than none.
        app = self.demo_copy()
        plist = app / "Contents/Info.plist"
        for contents in (b"", b"<plist", b"\0" * 100, b"bplist00"):
            plist.write_bytes(contents)
            outcome = unattended("--app", app)
            self.assertRegex(outcome.errors, r'\Avisex-host: the Info.plist of the bundle "DemoInstaller.app" was refused: .+\n\Z')
            self.assert_chose(outcome._replace(errors=""))
        # What is remarked on is told before what then fails, and as itself.
        remark = outcome.errors.removeprefix("visex-host: ").removesuffix("\n")
        missing = self.folder / "missing"
        for status, arguments, line in (
            (NOT_DONE, ["--resources", missing], f"cannot open the resource file '{missing}': there is no such file"),
            (NOT_LOADED, [missing], f"cannot load the external '{missing}': there is no such folder (a bundle is a folder)"),
            (NOT_DONE, ["--display", "terminal"],
             "cannot ask on the terminal: the process has none, or is in the background"),
        ):
            self.assert_fails(unattended("--app", app, *arguments), status, remark, line)
        external = next(app.glob("Contents/PlugIns/*"))
        shutil.copy(BUILD / "tests/end_to_end/libending_external.so", next(external.glob("Contents/*/LanguageSelector")))
        self.assert_fails(unattended("--app", app, variables={"GIVES": "nothing"}), NOT_LOADED, remark,
                          f"cannot load the external '{external}': its factory gives no instance")
        plist.unlink()
        self.assert_chose(unattended("--app", app), GERMAN)


class PathsThatAreNotUtf8(HostTest):
    """Names are bytes: they work, or are refused before anything is done."""

    def setUp(self):
        super().setUp()
        self.folder = pathlib.Path(os.fsdecode(os.fsencode(self.folder) + b"/n\xe4me"))
        self.folder.mkdir()
        self.name = os.fsdecode(b"\xe9")

    def test_they_work(self):
        app = self.demo_copy()
        bundle = self.folder / f"{self.name}.bundle"
        shutil.copytree(DEMO / "Contents/PlugIns/LanguageSelector.bundle", bundle)
        resources = self.folder / f"{self.name}.rsrc"
        shutil.copy(DEMO / "Contents/Resources/DemoInstaller.rsrc", resources)
        before, after, trace, picture = (self.folder / f"{self.name}{number}" for number in ("0", "1", "2", ".png"))
        before.write_bytes(record(current=GERMAN))
        outcome = unattended("--app", app, "--resources", resources, "--record", before, "--write-record", after,
                             "--trace-file", trace, "--picture", picture, bundle)
        self.assert_chose(outcome, GERMAN)
        self.assertEqual(picture.read_bytes()[:4], b"\x89PNG")
        self.assertEqual(after.read_bytes(), record(current=GERMAN, chosen=GERMAN))
        self.assertIn(b"CreateNibReference", trace.read_bytes())
        self.assertEqual(unattended("--app", app, "--message", "999", "--json").json()["alerts"][0]["id"], 5000)
        picture.unlink()
        self.assert_chose(unattended("--picture", picture, host=self.installation()))
        self.assertTrue(picture.is_file())

    def test_what_cannot_be_done_is_refused(self):
        app = self.demo_copy().rename(self.folder / f"{self.name}.app")
        self.assert_fails(unattended("--app", app), NOT_DONE, "the name of the application "
                          f"'{self.folder.parent}/n\\xe4me/\\xe9.app' is not UTF-8, so that its resource file cannot be "
                          "looked for; name one with --resources")
        resources = DEMO / "Contents/Resources/DemoInstaller.rsrc"
        self.assert_chose(unattended("--app", app, "--resources", resources))


class Nibs(HostTest):
    def setUp(self):
        super().setUp()
        self.app = self.demo_copy()
        self.nib = self.app / "Contents/Resources/LanguageSelector.nib"
        self.objects = self.nib / "objects.xib"
        self.contents = self.objects.read_bytes()

    def assert_error_box(self, text, errors):
        """The external showed one error box with `text`, the host said what matches `errors`, and nothing was changed."""
        outcome = unattended("--app", self.app, "--json")
        self.assertRegex(outcome.errors, rf"\Avisex-host: {errors}\n\Z")
        self.assertEqual(outcome.status, REFUSED)
        answer = outcome.json()
        self.assertIsNone(answer["chosen"])
        self.assertEqual(answer["flags"], {"before": 0, "after": 0})
        self.assertEqual(answer["alerts"], [{"kind": "note", "text": text, "explanation": "", "buttons": ["OK"],
                                             "pressed": 1}])

    def test_ones_that_are_no_use(self):
        refused = 'the nib "LanguageSelector" was refused: '
        for contents, errors in (
            (self.contents[:1000], f"{refused}line 21 is not correct XML: Premature end of document."),
            (self.contents.replace(b"<string>Language_Selector</string>", b""),
             f"{refused}a dictionary of something else than pairs"),
            (self.contents.replace(b"Language_Selector", b"Another_Window"),
             'the window "Language_Selector" was refused: the nib names nothing so'),
        ):
            with self.subTest(errors):
                self.objects.write_bytes(contents)
                self.assert_error_box(CANT_CREATE_WINDOW, errors)
        self.objects.unlink()
        self.assert_error_box(CANT_FIND_NIB, f"{refused}the main bundle has no objects.xib of it that can be read")

    def test_a_window_that_nothing_can_end(self):
        for command in (b"ok  ", b"not!"):
            self.contents = self.contents.replace(b'<ostype name="command">' + command, b'<ostype name="command">none')
        self.objects.write_bytes(self.contents)
        self.assert_error_box(CANT_RUN, "the dialog could not go on: "
                                        "no answer is left, and confirming the window does not end it")

    def test_a_pop_up_without_items(self):
        beginning, rest = self.contents.split(b'<array count="6" name="items">')
        end = rest[rest.index(b"</array>"):]
        self.objects.write_bytes(beginning + b'<array count="0" name="items">' + end)
        # Its value is 0, so OK keeps the language that was current.
        self.assert_chose(unattended("--app", self.app, "--current", "japanese"), JAPANESE)
        self.assert_answers(unattended("--app", self.app, answers=["german"]), NOT_DONE,
                            "the answer 'german' fits nothing that was shown")


NO_ALERT = "the alert 5000 was not shown: the resources have no 'ALRT' 5000, or a damaged one"


class ResourceFiles(HostTest):
    def setUp(self):
        super().setUp()
        self.resources = (DEMO / "Contents/Resources/DemoInstaller.rsrc").read_bytes()

    def test_an_application_without_one_of_its_name(self):
        app = self.demo_copy()
        other = app / "Contents/Resources/Other.rsrc"
        other.with_name("DemoInstaller.rsrc").rename(other)
        self.assert_chose(unattended("--app", app), ENGLISH, f"the resource file '{other}' was not opened: the "
                          "application's own is called 'DemoInstaller.rsrc' and lies inside it")
        self.assert_chose(unattended("--app", app, "--resources", other))
        other.unlink()
        self.assert_chose(unattended("--app", app))
        self.assert_answers(unattended("--app", app, "--message", "999"), REFUSED, NO_ALERT)

    def test_ones_that_cannot_be_opened(self):
        pipe = self.folder / "pipe"
        os.mkfifo(pipe)
        damaged = "it is no resource file, or a damaged one"
        for file, reason in ((self.folder / "missing", "there is no such file"), (pipe, "it is not a regular file"),
                             ("/proc/self/mem", "it cannot be read"), (self.folder, "it is a folder"),
                             (self.file("empty", b""), damaged),
                             (self.file("cut", self.resources[:-1]), damaged)):
            self.assert_fails(unattended("--resources", file), NOT_DONE,
                              f"cannot open the resource file '{file}': {reason}")

    @unittest.skipUnless(os.geteuid() == 0, "only the superuser can run it as another user")
    def test_one_that_may_not_be_read(self):
        host = self.installation()
        file = self.file("resources", self.resources)
        os.chmod(file, 0)
        self.assert_fails(self.as_nobody(host, "--resources", file), NOT_DONE,
                          f"cannot open the resource file '{file}': there is no permission to read it")

    def test_one_without_the_flag(self):
        size = (512).to_bytes(4, "big") + bytes(402)
        short = self.resources.replace(size, (401).to_bytes(4, "big") + bytes(402), 1)
        for contents, reason in ((self.resources.replace(b"CALL", b"none"),
                                  "the resource file has no 'CALL' 1000, which would hold it"),
                                 (short, "'CALL' 1000 of the resource file is too short to hold it")):
            options = ["--resources", self.file("resources", contents)]
            self.assert_chose(unattended(*options))
            self.assert_fails(unattended(*options, "--require-admin"), NOT_DONE,
                              f"the administrator flag cannot be set: {reason}")


class Bundles(HostTest):
    def setUp(self):
        super().setUp()
        self.bundle = self.folder / "a bundle"
        shutil.copytree(DEMO / "Contents/PlugIns/LanguageSelector.bundle", self.bundle)
        self.plist = self.bundle / "Contents/Info.plist"
        self.executable = next(self.bundle.glob("Contents/*/LanguageSelector"))

    def assert_not_loaded(self, reason, *remarks, **variables):
        self.assert_fails(unattended(self.bundle, variables=variables), NOT_LOADED, *remarks,
                          f"cannot load the external '{self.bundle}': {reason}")

    def test_a_missing_one_and_a_file_in_its_place(self):
        shutil.rmtree(self.bundle)
        self.assert_not_loaded("there is no such folder (a bundle is a folder)")
        self.bundle.write_bytes(b"")
        self.assert_not_loaded("there is no such folder (a bundle is a folder)")

    def test_property_lists_without_a_factory(self):
        no_factory = "it has no usable Info.plist that registers a factory for externals of this installer"
        self.plist.write_bytes(self.plist.read_bytes().replace(b"5CD9484B", b"6CD9484B"))
        self.assert_not_loaded(no_factory)
        self.plist.write_bytes(b"<plist")
        self.assert_not_loaded(no_factory, 'the Info.plist of the bundle "a bundle" was refused: line 1 is not correct XML: '
                                           "Premature end of document.")
        self.plist.unlink()
        self.assert_not_loaded(no_factory)

    def assert_no_executable(self, reason='there is no file "LanguageSelector" inside it'):
        self.assert_not_loaded(f'the bundle "a bundle" has no executable that can be loaded: {reason}')

    def test_factories_that_are_none(self):
        contents = self.plist.read_bytes()
        for name in ("NoFactory", "___procinfo", "gXcodFunctionBlock"):
            with self.subTest(name):
                self.plist.write_bytes(contents.replace(b"MyFactory", name.encode()))
                self.assert_not_loaded(f'the bundle "a bundle" has no function "{name}"')
        # This one returns nothing, so whatever was in the register is taken for an instance.
        self.plist.write_bytes(contents.replace(b"MyFactory", b"XCodMain"))
        outcome = unattended(self.bundle)
        self.assertEqual((outcome.status, outcome.output), (NOT_LOADED, ""))
        self.assertRegex(outcome.errors, r"gives (no instance|is not an instance of an external)\n\Z")

    def use_executable(self, name):
        self.executable.unlink()
        shutil.copy(BUILD / f"tests/end_to_end/lib{name}.so", self.executable)

    def test_instances_that_are_none(self):
        self.use_executable("ending_external")
        for given in ("nothing", "a number", "a null table", "a table that is nowhere", "a table that is cut off",
                      "a misaligned table", "a misaligned instance", "no call", "data to release"):
            with self.subTest(given):
                self.assert_not_loaded("its factory gives no instance" if given == "nothing" else
                                       "what its factory gives is not an instance of an external", GIVES=given)

    def test_one_that_ends_the_process(self):
        # What is given beforehand is stored and printed, whatever comes then.
        self.use_executable("ending_external")
        ends, aborts = "ended the process", "called abort, or threw where nothing may be thrown"
        crash = 'was ended by a signal, "Segmentation fault"'
        ways = {"exit": ends, "another program": ends, "a crash": crash, "throw": 'threw an exception, "why"',
                "abort": aborts}
        moments = {"factory": "the external {} while it was loaded", "call": "the call did not return: the external {}",
                   "release": "the external {} while it was released", "destructor": "the external {} after its call",
                   "exit function": "the external {} after its call"}
        for moment, line in moments.items():
            for way in ways if moment == "call" else ("a crash", "abort"):
                with self.subTest(moment, way=way):
                    stored = self.folder / f"{moment} {way}"
                    outcome = unattended(self.bundle, "--write-record", stored,
                                         variables={"ENDS_AT": moment, "ENDS_BY": way})
                    self.assertEqual(outcome.status, NOT_RETURNED)
                    self.assertEqual([each for each in outcome.errors.splitlines() if each.startswith("visex-host")],
                                     [f"visex-host: {line.format(ways[way])}"])
                    answered = moment not in ("factory", "call")
                    self.assertEqual("German (2) was written to the record.\n" in outcome.output, answered)
                    self.assertEqual(stored.exists() and stored.read_bytes() == record(chosen=GERMAN), answered)
        # And a status of its own, where that of the call would have been another:
        outcome = unattended(self.bundle, "--message", "7", "--picture", self.folder / "never.png",
                             variables={"ENDS_AT": "exit function", "ENDS_BY": "exit"})
        self.assertEqual(outcome.status, NOT_RETURNED)
        self.assertTrue(outcome.errors.endswith("visex-host: the external ended the process after its call\n"))

    def test_one_that_changes_the_working_directory(self):
        original = self.executable.rename(self.folder / "original")
        shutil.copy(BUILD / "tests/end_to_end/libwandering_external.so", self.executable)
        self.file("start", record(current=GERMAN))
        outcome = unattended(self.bundle, "--record", "start", "--write-record", "after", "--picture", "picture.png",
                             "--trace-file", "calls", cwd=self.folder, variables={"EXTERNAL": str(original)})
        self.assert_chose(outcome, GERMAN)
        self.assertEqual((self.folder / "after").read_bytes(), record(current=GERMAN, chosen=GERMAN))
        for name in ("picture.png", "calls"):
            self.assertTrue((self.folder / name).is_file(), name)

    def test_executables_that_are_none_or_outside_the_bundle(self):
        self.use_executable("lacking_external")
        self.assert_no_executable("undefined symbol: functionThatNobodyHas")
        self.executable.write_bytes(b"#!/bin/sh\n")
        self.assert_no_executable("it is not an ELF file, or is cut short")
        outside = self.executable.rename(self.folder / "Outside")
        self.assert_no_executable()
        self.executable.symlink_to(outside)
        self.assert_no_executable()
        properties = plistlib.loads(self.plist.read_bytes())
        for name in ("../../../Outside", str(outside)):
            properties["CFBundleExecutable"] = name
            self.plist.write_bytes(plistlib.dumps(properties))
            self.assert_no_executable(f'there is no file "{name}" inside it')
