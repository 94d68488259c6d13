"""What the external does not serve, and the administrator check."""

import os
import shutil
import unittest

from visex import *

ALERT_TEXT = ("The language selection was called with a message that it does not serve. "
              "The installation goes on in the current language.")


class OtherMessages(HostTest):
    def test_they_are_answered_with_the_alert_and_the_flag(self):
        for message in (999, 1001, 0, -1, 32767, -32768):
            with self.subTest(message):
                start = self.file("before", record(message=message, flags=0x80000006, chosen=FRENCH, filler=0x5A))
                outcome = unattended("--record", start, "--write-record", self.folder / "after", "--json")
                self.assert_answers(outcome, REFUSED)
                self.assertEqual(outcome.json(), {
                    "message": message,
                    "current": {"code": 0, "name": "English"},
                    "chosen": None,
                    "flags": {"before": 0x80000006, "after": 0x80000007},
                    "alerts": [{"kind": "stop", "id": 5000, "text": ALERT_TEXT, "explanation": "", "buttons": ["OK"],
                                "pressed": 1}],
                    "display": "unattended",
                    "asked": False,
                    "result": "refused",
                })
                expected = record(message=message, flags=0x80000007, chosen=FRENCH, filler=0x5A)
                self.assertEqual((self.folder / "after").read_bytes(), expected)

    def test_they_are_told_in_words(self):
        outcome = unattended("--message", "999")
        self.assertEqual(outcome.output, (
            "Before: message 999, current English (0), chosen English (0), flags 0x0\n"
            f"Alert:  stop 5000, \"{ALERT_TEXT}\" [OK], button 1 was pressed\n"
            "After:  message 999, current English (0), chosen English (0), flags 0x1\n"
            "No language was written to the record: the external does not serve this message.\n"))

    def test_the_button_can_be_pressed(self):
        for answer in ("button:1", "ok"):
            with self.subTest(answer):
                outcome = unattended("--message", "999", "--json", answers=[answer])
                self.assert_answers(outcome, REFUSED)
                self.assertEqual(outcome.json()["alerts"][0]["pressed"], 1)
        outcome = unattended("--message", "999", "--json", answers=["button:2"])
        self.assert_answers(outcome, NOT_DONE, "the answer 'button:2' fits nothing that was shown")
        self.assertEqual(outcome.json()["flags"]["after"], 1)

    def test_the_flag_that_was_set_before_is_not_newly_set(self):
        self.assert_chose(unattended("--record", self.file("before", record(flags=1))))

    def test_the_text_comes_from_the_resource_file(self):
        resources = (DEMO / "Contents/Resources/DemoInstaller.rsrc").read_bytes()
        other = self.file("other", resources.replace(b"The language selection", b"The <b>selection</b> &"))
        outcome = unattended("--message", "999", "--resources", other, "--json")
        self.assertEqual(outcome.json()["alerts"][0]["text"],
                         ALERT_TEXT.replace("The language selection", "The <b>selection</b> &"))

    def test_without_the_alert_the_flag_is_set_all_the_same(self):
        resources = (DEMO / "Contents/Resources/DemoInstaller.rsrc").read_bytes()
        for missing in (b"ALRT", b"DITL"):
            with self.subTest(missing):
                file = self.file("resources", resources.replace(missing, b"none"))
                outcome = unattended("--message", "999", "--resources", file, "--json")
                self.assert_answers(outcome, REFUSED, "the alert 5000 was not shown: the resources have no "
                                                      f"'{missing.decode()}' 5000, or a damaged one")
                self.assertEqual(outcome.json()["alerts"], [])
                self.assertEqual(outcome.json()["flags"]["after"], 1)


NOT_GRANTED = """the right "system.privilege.admin" was not granted: only the superuser's processes have it"""


@unittest.skipUnless(os.geteuid() == 0, "only the superuser can run it as another user")
class AdministratorCheck(HostTest):
    def test_the_superuser_passes(self):
        self.assert_chose(unattended("--require-admin", "--current", "japanese"), JAPANESE)

    def test_another_user_is_stopped_without_an_alert_where_it_is_required(self):
        host = self.installation()
        outcome = self.as_nobody(host, "--require-admin", "--json")
        self.assert_answers(outcome, NOTHING_CHOSEN, NOT_GRANTED)
        self.assertIsNone(outcome.json()["chosen"])
        self.assertEqual(outcome.json()["alerts"], [])
        self.assert_chose(self.as_nobody(host))


NO_EXECUTABLE = 'the bundle "Security.framework" has no executable that can be loaded: '
NO_FILE = NO_EXECUTABLE + 'there is no file "Security" inside it'


class BadFramework(HostTest):
    """The check without a framework to make it with: only the host says a word."""

    def host_with(self, change):
        """A host whose frameworks folder was made so by `change`."""
        shutil.rmtree(self.folder / "bin", ignore_errors=True)
        host = self.copied_host()
        change(shutil.copytree(SUPPORT / "Frameworks", self.folder / "bin/Frameworks"))
        return host

    def assert_stops(self, change, remark):
        host = self.host_with(change)
        outcome = unattended("--app", DEMO, "--require-admin", "--json", host=host)
        self.assert_answers(outcome, NOTHING_CHOSEN, remark)
        self.assertEqual(outcome.json()["alerts"], [])
        self.assert_chose(unattended("--app", DEMO, host=host))  # without the flag nobody looks

    def test_no_frameworks_folder(self):
        self.assert_stops(shutil.rmtree, f'there is no frameworks folder "{self.folder}/bin/Frameworks"')
        self.assertFalse((self.folder / "bin/Frameworks").exists(), "it is never made")

    def test_no_security_framework(self):
        self.assert_stops(lambda folder: shutil.rmtree(folder / "Security.framework"),
                          f'there is no bundle "{self.folder}/bin/Frameworks/Security.framework"')

    def test_no_executable(self):
        self.assert_stops(lambda folder: (folder / "Security.framework/Security").unlink(), NO_FILE)

    def test_an_executable_that_is_none(self):
        self.assert_stops(lambda folder: (folder / "Security.framework/Security").write_bytes(b"\x7fELF or not"),
                          NO_EXECUTABLE + "it is not an ELF file, or is cut short")

    def test_an_executable_without_one_of_the_functions(self):
        for lacking, function in (("create", "AuthorizationCreate"), ("copy_rights", "AuthorizationCopyRights")):
            with self.subTest(lacking):
                code = BUILD / f"tests/end_to_end/libsecurity_without_{lacking}.so"
                self.assert_stops(lambda folder: shutil.copy(code, folder / "Security.framework/Security"),
                                  f'the bundle "Security.framework" has no function "{function}"')

    def test_an_executable_with_both_passes(self):
        # What the two others lack is all that stops them: they grant whatever they are asked for.
        code = BUILD / "tests/end_to_end/libsecurity_with_both.so"
        host = self.host_with(lambda folder: shutil.copy(code, folder / "Security.framework/Security"))
        self.assert_chose(unattended("--app", DEMO, "--require-admin", host=host))

    def test_an_executable_that_a_link_leads_to(self):
        def lead_out(folder):
            executable = folder / "Security.framework/Security"
            executable.rename(self.folder / "Security")
            executable.symlink_to(self.folder / "Security")
        self.assert_stops(lead_out, NO_FILE)

    def test_a_property_list_that_is_none(self):
        # Nothing in it is needed to find the executable, so the answer is as with a good one.
        host = self.host_with(lambda folder: [each.write_bytes(b"<plist") for each in folder.rglob("Info.plist")])
        outcome = unattended("--app", DEMO, "--require-admin", host=host)
        refusal, *others = outcome.errors.splitlines(keepends=True)
        self.assertRegex(refusal, 'visex-host: the Info.plist of the bundle "Security.framework" was refused: .+')
        outcome = outcome._replace(errors="".join(others))
        if os.geteuid() == 0:
            self.assert_chose(outcome)
        else:
            self.assert_answers(outcome, NOTHING_CHOSEN, NOT_GRANTED)


if __name__ == "__main__":
    unittest.main()
