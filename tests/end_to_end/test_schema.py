"""What --json prints is what docs/answer.schema.json says, whatever the answer is."""

import copy
import json
import re
import subprocess

from visex import *

SCHEMA = ROOT / "docs/answer.schema.json"

# The validator of Debian's python3-jsonschema, whichever Python runs this.
VALIDATOR = "/usr/bin/jsonschema"

# What to call the host with for each kind of answer.
ANSWERS = {
    "chosen": ["--answer", "japanese"],
    "nothing chosen": ["--answer", "cancel"],
    "refused": ["--message", "5"],
    "unfit answer": ["--answer", "button:1"],
}


def answered(*options):
    return run("--display", "unattended", "--json", *options).json()


class Schema(HostTest):
    def unfit(self, answers, schema=SCHEMA):
        """The names of those answers that the validator refuses."""
        files = {name: self.file(f"{number}.json", json.dumps(answer).encode())
                 for number, (name, answer) in enumerate(answers.items())}
        instances = [argument for file in files.values() for argument in ("--instance", file)]
        result = subprocess.run([VALIDATOR, "--output", "pretty", *instances, schema], capture_output=True, text=True)
        fit = re.findall(r"===\[SUCCESS\]===\((.*?)\)===", result.stdout)
        refused = re.findall(r"===\[ValidationError\]===\((.*?)\)===", result.stderr)
        self.assertEqual({*fit, *refused}, {str(file) for file in files.values()}, result.stderr)
        return [name for name, file in files.items() if str(file) in refused]

    def test_it_is_a_schema_that_every_answer_fits(self):
        meta = self.file("meta", b'{"$ref": "https://json-schema.org/draft/2020-12/schema"}')
        self.assertEqual(self.unfit({"the schema": json.loads(SCHEMA.read_text())}, meta), [])
        without_nib = self.demo_copy()
        shutil.rmtree(without_nib / "Contents/Resources/LanguageSelector.nib")
        answers = {result: answered(*options) for result, options in ANSWERS.items()}
        for result, answer in answers.items():
            self.assertEqual(answer["result"], result)
        answers["code without a name"] = answered("--current", "4294967295", "--message", "-32768")
        answers["message box"] = answered("--app", without_nib)
        self.assertNotEqual(answers["message box"]["alerts"], [])
        self.assertEqual(self.unfit(answers), [])

    def test_nothing_may_be_missing_or_new(self):
        changed = {}
        whole = answered("--message", "5")
        for name, find in {"the answer": lambda answer: answer, "a language": lambda answer: answer["current"],
                           "the flags": lambda answer: answer["flags"],
                           "an alert": lambda answer: answer["alerts"][0]}.items():
            for key in find(whole).keys() - {"id"}:  # which only alerts of resource files have
                less = changed[f"{name} without {key}"] = copy.deepcopy(whole)
                del find(less)[key]
            more = changed[f"{name} with more"] = copy.deepcopy(whole)
            find(more)["new"] = 1
        self.assertEqual(self.unfit(changed), list(changed))
