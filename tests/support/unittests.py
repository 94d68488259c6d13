"""Runs the Python tests of a module in the working folder, in any order, and prints what fails and what is skipped.

usage: unittests.py MODULE
"""

import os
import random
import sys
import unittest


class Result(unittest.TextTestResult):
    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        print(f"{test.id()}: Skipped\n{reason}")  # as GoogleTest says it


def shuffled(suite):
    """The tests of each class in any order, and the classes too."""
    if not isinstance(suite, unittest.TestSuite):
        return suite
    tests = [shuffled(each) for each in suite]
    random.shuffle(tests)
    return unittest.TestSuite(tests)


if len(sys.argv) != 2:
    sys.exit(__doc__)
sys.path.insert(0, os.getcwd())
tests = shuffled(unittest.defaultTestLoader.loadTestsFromName(sys.argv[1]))
result = unittest.TextTestRunner(resultclass=Result, verbosity=0).run(tests)
sys.exit(not result.wasSuccessful() or not result.testsRun)
