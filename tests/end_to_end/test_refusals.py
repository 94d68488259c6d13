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

    def test_the_button_can_be_pressed(self):
        for answer in ("button:1", "ok"):
            with self.subTest(answer):
                outcome = unattended("--message", "999", "--json", answers=[answer])
                self.assert_answers(outcome, REFUSED)
                self.assertEqual(outcome.json()["alerts"][0]["pressed"], 1)
        outcome = unattended("--message", "999", "--json", answers=["button:2"])
        self.assert_answers(outcome, NOT_DONE, "the answer 'button:2' fits nothing that was shown")
        self.assertEqual(outcome.json()["flags"]["after"], 1)

NOT_GRANTED = """the right "system.privilege.admin" was not granted: only the superuser's processes have it"""


@unittest.skipUnless(os.geteuid() == 0, "only the superuser can run it as another user")
class AdministratorCheck(HostTest):
    def test_another_user_is_stopped_without_an_alert_where_it_is_required(self):
        host = self.installation()
        outcome = self.as_nobody(host, "--require-admin", "--json")
        self.assert_answers(outcome, NOTHING_CHOSEN, NOT_GRANTED)
        self.assertIsNone(outcome.json()["chosen"])
        self.assertEqual(outcome.json()["alerts"], [])
        self.assert_chose(self.as_nobody(host))


class BadFramework(HostTest):
    """The check without a framework to make it with: only the host says a word."""

    def setUp(self):
        super().setUp()
        self.frameworks = self.folder / "bin/Frameworks"
        self.code = self.frameworks / "Security.framework/Security"

    def host_with(self, change):
        """A host whose frameworks were changed so."""
        shutil.rmtree(self.folder / "bin", ignore_errors=True)
        host = self.copied_host()
        shutil.copytree(SUPPORT / "Frameworks", self.frameworks)
        change()
        return host

    def use(self, name):
        """To be changed so: the framework's code is this library of the tests."""
        return lambda: shutil.copy(BUILD / f"tests/end_to_end/libsecurity_{name}.so", self.code)

    def lead_out(self):
        self.code.rename(self.folder / "Security")
        self.code.symlink_to(self.folder / "Security")

    def test_one_that_is_of_no_use(self):
        bundle = 'the bundle "Security.framework" has no '
        no_file = bundle + 'executable that can be loaded: there is no file "Security" inside it'
        for change, remark in (
            (self.use("without_create"), bundle + 'function "AuthorizationCreate"'),
            (self.use("without_copy_rights"), bundle + 'function "AuthorizationCopyRights"'),
            (lambda: self.code.write_bytes(b"\x7fELF or not"),
             bundle + "executable that can be loaded: it is not an ELF file, or is cut short"),
            (self.lead_out, no_file),
            (lambda: self.code.unlink(), no_file),
            (lambda: shutil.rmtree(self.code.parent), f'there is no bundle "{self.code.parent}"'),
            (lambda: shutil.rmtree(self.frameworks), f'there is no frameworks folder "{self.frameworks}"'),
        ):
            with self.subTest(remark):
                host = self.host_with(change)
                outcome = unattended("--app", DEMO, "--require-admin", "--json", host=host)
                self.assert_answers(outcome, NOTHING_CHOSEN, remark)
                self.assertEqual(outcome.json()["alerts"], [])
                self.assert_chose(unattended("--app", DEMO, host=host))  # without the flag nobody looks
        self.assertFalse(self.frameworks.exists(), "it is never made")

    def test_one_that_grants_everything_passes(self):
        # What those without a function lack is all that stops them.
        self.assert_chose(unattended("--app", DEMO, "--require-admin", host=self.host_with(self.use("with_both"))))

    def test_a_property_list_that_is_none(self):
        # Nothing in it is needed to find the executable, so the answer is as with a good one.
        host = self.host_with(lambda: next(self.frameworks.rglob("Info.plist")).write_bytes(b"<plist"))
        outcome = unattended("--app", DEMO, "--require-admin", host=host)
        refusal, *others = outcome.errors.splitlines(keepends=True)
        self.assertRegex(refusal, 'visex-host: the Info.plist of the bundle "Security.framework" was refused: .+')
        outcome = outcome._replace(errors="".join(others))
        if os.geteuid() == 0:
            self.assert_chose(outcome)
        else:
            self.assert_answers(outcome, NOTHING_CHOSEN, NOT_GRANTED)
