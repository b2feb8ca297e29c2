"""How much of the terminal's flash the tool takes.

Called with the executable and the target's strip.
"""

import os
import subprocess
import sys
import tempfile
import unittest

LIMIT = 48 * 1024  # bytes

executable, strip = sys.argv[1:]


class Size(unittest.TestCase):
    def test_stripped_tool_stays_below_its_limit(self):
        with tempfile.TemporaryDirectory() as folder:
            stripped = os.path.join(folder, "orvatool")
            subprocess.run([strip, "-o", stripped, executable], check=True)
            size = os.path.getsize(stripped)
        self.assertLessEqual(size, LIMIT, "the file grows by pages: see in cmake/product.cmake"
                             " what is compiled for speed")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
