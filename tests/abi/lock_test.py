"""The build offers exactly what was accepted.

Called with the executable, the library of the public headers and the folder of the sources.
"""

import sys
import unittest

from tests.abi import lock

executable, library, root = sys.argv[1:]

HOW = ("\nPrograms that were built before rely on this. Where the change is meant, accept it with"
       " `script/abi accept`, and commit the file together with the change.")


class Lock(unittest.TestCase):
    longMessage = False

    def test_exports_are_the_accepted_ones(self):
        found = lock.EXPORTS.differences(executable, root)
        self.assertEqual(found, "", found + HOW)

    def test_constants_and_records_of_the_headers_are_the_accepted_ones(self):
        found = lock.CONSTANTS.differences(library, root)
        self.assertEqual(found, "", found + HOW)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
