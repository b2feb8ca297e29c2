"""The examples, as this build made them, print what stands beside them; lists and files agree.

Called with the folder of the examples, that of the built programs, and an emulator that runs them.
"""

import os
import pathlib
import re
import sys
import unittest

from tests.examples import run

examples, built = (pathlib.Path(each).resolve() for each in sys.argv[1:3])
emulator = sys.argv[3:]
names = run.sources(examples)


class Examples(unittest.TestCase):
    maxDiff = None

    def test_print_what_stands_beside_them(self):
        self.assertTrue(names)
        for name in names:
            with self.subTest(example=name):
                self.assertEqual(run.printed(*emulator, str(built / name)),
                                 run.expected(examples, name))

    def test_all_have_an_output_a_row_and_a_program(self):
        self.assertEqual(sorted(path.stem for path in examples.glob("*.expected")), names)
        rows = re.findall(r"^\| `(\w+)\.c` \|", (examples / "README.md").read_text("utf-8"), re.M)
        self.assertEqual(sorted(rows), names)
        programs = [path.name for path in built.iterdir()
                    if path.is_file() and os.access(path, os.X_OK)]
        self.assertEqual(sorted(programs), names)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)  # names what is skipped
