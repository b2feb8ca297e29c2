"""The examples are built outside of our build, against an installed library, by their README.

Called with the folder of the examples, cmake and the build folder that is installed.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

from tests.examples import run

source, cmake, build = sys.argv[1:]
readme = pathlib.Path(source, "README.md").read_text("utf-8")
names = run.sources(pathlib.Path(source))


def command(beginning):
    """The line of the README that begins so."""
    line, = re.findall(rf"^    ({beginning} .*)$", readme, re.MULTILINE)
    return line


class Alone(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        prefix = pathlib.Path(temporary.name, "prefix")
        # Of one component, which leaves the list of the last full installation as it is.
        subprocess.run([cmake, "--install", build, "--prefix", prefix, "--component",
                        "Unspecified"], check=True, stdout=subprocess.DEVNULL)
        self.folder = pathlib.Path(temporary.name, "examples")
        shutil.copytree(source, self.folder)
        self.settings = command("export").replace("FOLDER", str(prefix))
        self.libraries = str(prefix / "lib")

    def shell(self, line):
        """Runs a line of the README in the copied folder."""
        done = subprocess.run(["sh", "-c", f"{self.settings} && {line}"], cwd=self.folder,
                              env={"PATH": os.environ["PATH"]}, capture_output=True, text=True,
                              check=False)
        self.assertEqual(done.returncode, 0, f"{line}\n{done.stdout}{done.stderr}")

    def assert_prints(self, program, name):
        """The program prints what stands beside its source."""
        self.assertEqual(run.printed(str(program), LD_LIBRARY_PATH=self.libraries),
                         run.expected(pathlib.Path(source), name))

    def test_each_by_pkg_config(self):
        line = command("cc")
        for name in names:
            with self.subTest(example=name):
                self.shell(re.sub(r"\blog\b", name, line))
                self.assert_prints(self.folder / name, name)

    def test_all_by_cmake(self):
        self.shell(command("cmake"))
        for name in names:
            with self.subTest(example=name):
                self.assert_prints(self.folder / "build" / name, name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
