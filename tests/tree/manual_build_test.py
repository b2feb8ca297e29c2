"""The build writes the library's manual pages and installs them; without python3 it does without.

Called with the folder of the sources, cmake and the headers that have pages.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

root, cmake, *headers = sys.argv[1:]
PAGES = ["man3/orvautil.3"] + ["man3/orvautil_" + re.sub(r"^(log|util)/|\.h$", "", each).replace(
    "/", "_") + ".3" for each in headers]


def output_of(*command):
    """What the command prints; its complaints are shown when it fails."""
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    assert run.returncode == 0, f"{' '.join(command)}\n{run.stdout}{run.stderr}"
    return run.stdout


class ManualBuild(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def installed(self, *options):
        """What configuring prints, and the files of the manual that are installed below man/."""
        build = self.folder / "build"
        said = output_of(cmake, "-S", root, "-B", build, "-G", "Unix Makefiles",
                         "-DCMAKE_INSTALL_MANDIR=man", *options)
        if "manual pages" not in said:
            output_of(cmake, "--build", build, "--target", "orvautil_manual")
        output_of(cmake, "--install", build, "--prefix", self.folder / "prefix", "--component",
                  "manual")
        man = self.folder / "prefix/man"
        return said, sorted(str(file.relative_to(man)) for file in man.rglob("*.?"))

    def test_all_pages_are_installed(self):
        said, files = self.installed()
        self.assertNotIn("manual pages", said)
        self.assertEqual(files, sorted([*PAGES, "man8/orvatool.8"]))

    def test_without_python3_the_librarys_pages_are_left_out_and_said_so(self):
        said, files = self.installed("-DCMAKE_DISABLE_FIND_PACKAGE_Python3=ON")
        self.assertIn("No python3 (3.9 or later): the library's manual pages are left out", said)
        self.assertEqual(files, ["man8/orvatool.8"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
