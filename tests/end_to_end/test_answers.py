"""The main job with answers from a list: what is chosen, written and printed."""

from visex import *


class Choosing(HostTest):
    def test_every_language_from_every_other(self):
        kept = {"flags": 0x80000002, "filler": 0x5A, "tail": bytes(range(256)) * 3}
        for current in NAMES:
            for chosen in NAMES:
                with self.subTest(current=current, chosen=chosen):
                    start = self.file("before", record(current=current, chosen=FRENCH, **kept))
                    outcome = unattended("--record", start, "--write-record", self.folder / "after", "--json",
                                         answers=[NAMES[chosen]])
                    self.assert_answers(outcome, CHOSE)
                    self.assertEqual(outcome.json(), {
                        "message": 1000,
                        "current": {"code": current, "name": NAMES[current]},
                        "chosen": {"code": chosen, "name": NAMES[chosen]},
                        "flags": {"before": 0x80000002, "after": 0x80000002},
                        "alerts": [],
                        "display": "unattended",
                        "asked": False,
                        "result": "chosen",
                    })
                    expected = record(current=current, chosen=chosen, **kept)
                    self.assertEqual((self.folder / "after").read_bytes(), expected)

    def test_confirming_keeps_the_current_language_or_gives_english(self):
        for current in (*NAMES, 4, 5, 7, 10, 12, 0x7FFF, 0x8000, 0x10002, 0xFFFFFFFF):
            strange = [f"the given current language, {current}, is not a Mac OS language code"] * (current > 0x7FFF)
            for answers in ([], ["ok"]):
                with self.subTest(current=current, answers=answers):
                    outcome = unattended("--current", str(current), "--json", answers=answers)
                    self.assert_answers(outcome, CHOSE, *strange)
                    self.assertEqual(outcome.json()["current"], {"code": current, "name": NAMES.get(current)})
                    chosen = current if current in NAMES else ENGLISH
                    self.assertEqual(outcome.json()["chosen"], {"code": chosen, "name": NAMES[chosen]})

    def test_cancelling_writes_nothing(self):
        start = self.file("before", record(current=JAPANESE, chosen=FRENCH, filler=0xA5))
        outcome = unattended("--record", start, "--write-record", self.folder / "after", "--json", answers=["cancel"])
        self.assert_answers(outcome, NOTHING_CHOSEN)
        self.assertIsNone(outcome.json()["chosen"])
        self.assertEqual(outcome.json()["result"], "nothing chosen")
        self.assertEqual((self.folder / "after").read_bytes(), start.read_bytes())

    def test_an_answer_that_is_not_needed_is_said(self):
        self.assert_chose(unattended(answers=["german", "cancel", "button:2"]), GERMAN,
                          "the answer 'cancel' was not needed", "the answer 'button:2' was not needed")

    def test_an_answer_that_fits_nothing_cancels(self):
        outcome = unattended("--json", answers=["button:1", "german"])
        self.assert_answers(outcome, NOT_DONE, "the answer 'button:1' fits nothing that was shown",
                            "the answer 'german' was not needed")
        self.assertIsNone(outcome.json()["chosen"])
        self.assertEqual(outcome.json()["result"], "unfit answer")


class Records(HostTest):
    def test_options_go_before_the_record_and_that_before_the_users_language(self):
        start = self.file("before", record(message=5, current=GERMAN))
        outcome = unattended("--record", start, "--message", "1000", "--current", "spanish", "--json")
        self.assertEqual(outcome.json()["message"], 1000)
        self.assertEqual(outcome.json()["current"], {"code": SPANISH, "name": "Spanish"})
        self.assertEqual(start.read_bytes(), record(message=5, current=GERMAN), "the file itself stays as it is")
        self.assert_chose(unattended("--record", self.file("before", record()), variables={"LC_ALL": "it_IT.UTF-8"}))

NOBODY_ASKED = ("no screen here and no terminal to ask on in the foreground: nobody was asked, and the default button was "
                "pressed")


class Defaults(HostTest):
    def test_the_users_language_is_the_current_one(self):
        cases = [({"LANG": "ja_JP.UTF-8"}, JAPANESE), ({"LANG": "C", "LC_ALL": "fr_FR"}, FRENCH),
                 ({"LANG": "nl_NL.UTF-8"}, ENGLISH), ({}, ENGLISH)]
        for variables, code in cases:
            with self.subTest(variables):
                outcome = unattended("--json", variables=variables)
                self.assertEqual(outcome.json()["current"]["code"], code)
                self.assertEqual(outcome.json()["message"], 1000)

    def test_without_screen_and_terminal_it_is_unattended_and_says_so_where_something_was_to_be_shown(self):
        self.assert_chose(run("--current", "italian"), ITALIAN, NOBODY_ASKED)
        self.assert_answers(run("--message", "999"), REFUSED, NOBODY_ASKED)
        resources = self.file("resources", (DEMO / "Contents/Resources/DemoInstaller.rsrc").read_bytes()
                              .replace(b"ALRT", b"none"))
        self.assert_answers(run("--message", "999", "--resources", resources), REFUSED, "the alert 5000 was not shown: "
                            "the resources have no 'ALRT' 5000, or a damaged one")

    def test_it_works_from_any_folder_under_any_name(self):
        link = self.folder / "another name"
        link.symlink_to(HOST)
        self.assert_chose(unattended(host=link, cwd=self.folder))

    def test_what_it_says_fits_a_narrow_terminal(self):
        outcome = unattended("--current", "japanese")
        self.assert_chose(outcome, JAPANESE)
        self.assertEqual([line for line in outcome.output.splitlines() if len(line) > 80], [])

    def test_the_calls_of_the_external_are_told_with_what_they_are_about(self):
        outcome = unattended("--trace")
        self.assertEqual(outcome.status, CHOSE)
        self.assertRegex(outcome.errors, r"\n(.*\n)*".join("visex-host: " + call for call in (
            r"GetResource\(.*",
            r'CreateNibReference\("LanguageSelector", 0x\w+\) = 0 -> (?P<nib>nib#\d+)',
            r'CreateWindowFromNib\((?P=nib), "Language_Selector", 0x\w+\) = 0 -> (?P<window>window#\d+)',
            r"DisposeNibReference\((?P=nib)\)",
            r"GetControlByID\((?P=window), {'\w+', \d+}, .* -> control#\d+",
            r"RunAppModalLoopForWindow\((?P=window)\) \.\.\.",
            r"GetEventParameter\(event#\d+ 'ok  ', '----', 'hcmd', .*",
            r"RunAppModalLoopForWindow\((?P=window)\) = 0",
            r"DisposeWindow\((?P=window)\)\n")))

    def test_the_trace_may_go_into_a_file(self):
        file = self.folder / "calls"
        outcome = unattended("--trace", "--trace-file", file)
        self.assert_chose(outcome)
        calls = [line.split("(")[0] for line in file.read_text().splitlines()]
        self.assertEqual((calls[0], calls[-1]), ("GetResource", "DisposeEventHandlerUPP"))

    def test_a_trace_that_cannot_be_written_is_told_and_the_answer_stands(self):
        outcome = unattended("--trace-file", "/dev/full", answers=["ok", "cancel"])
        self.assert_answers(outcome, NOT_DONE, "cannot save the trace in '/dev/full': No space left on device",
                            "the answer 'cancel' was not needed")
        self.assertIn("English (0) was written to the record.", outcome.output)

    def test_without_its_trace_file_no_call_is_made(self):
        outcome = unattended("--trace-file", self.folder, "--write-record", self.folder / "record")
        self.assert_fails(outcome, NOT_DONE, f"cannot save the trace in '{self.folder}': Is a directory")
        self.assertFalse((self.folder / "record").exists())


class Usage(HostTest):
    def test_wrong_options_are_one_line(self):
        self.assert_fails(run("--foo\nbar\x1b[2J"), NOT_DONE,
                          "there is no option '--foo\\nbar\\x1b[2J'; --help lists the options")

    def test_help_and_version_go_to_standard_output(self):
        for option, beginning in (("--help", "Calls an external"), ("--version", "visex-host 1.")):
            with self.subTest(option):
                outcome = run(option)
                self.assert_answers(outcome, CHOSE)
                self.assertTrue(outcome.output.startswith(beginning), outcome.output)
