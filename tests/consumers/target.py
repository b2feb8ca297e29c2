"""The target whose library is tried, and commands for it as another project's people type them."""

import functools
import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PROGRAMS = Path(__file__).parent / "programs"

BUILD = Path(os.environ["BUILD"])  # the build folder of the target
CMAKE = os.environ["CMAKE"]
COMPILERS = {"c": os.environ["CC"], "cpp": os.environ["CXX"]}
STANDARDS = {"c": "c11", "cpp": "c++20"}
EMULATOR = os.environ["EMULATOR"].split()
TOOLCHAIN = os.environ["TOOLCHAIN"]  # empty on the host
ARM = bool(TOOLCHAIN)
CLANG = shutil.which("clang") and ("clang --target=arm-linux-gnueabi" if ARM else "clang")
NO_CLANG = "there is no clang: `script/setup fuzz` gets it"


def run(command, folder=None, **variables):
    """The ended run of a shell command or of a list of words."""
    return subprocess.run(command, shell=isinstance(command, str), cwd=folder, text=True,
                          capture_output=True, check=False,
                          env={**os.environ, "LC_ALL": "C", **variables})


def output_of(command, folder=None, **variables):
    """What it prints; its complaints are shown when it fails."""
    ended = run(command, folder, **variables)
    assert ended.returncode == 0, f"{command}\n{ended.stdout}{ended.stderr}"
    return ended.stdout


@functools.cache
def installation():
    """The root folder of a machine that the library is installed on, below /usr, once for all."""
    root = Path(tempfile.mkdtemp(prefix="consumer-root-"))
    unittest.addModuleCleanup(shutil.rmtree, root)
    # Of one component, which leaves the list of the last full installation as it is.
    output_of([CMAKE, "--install", BUILD, "--prefix", "/usr", "--component", "Unspecified"],
              DESTDIR=str(root))
    return root


def compiler(language):
    """The target's compiler as a variable of the shell has it."""
    return f"{COMPILERS[language]} -std={STANDARDS[language]}"


def configure(source, build, *options):
    """The ended configuration of a project for the target."""
    toolchain = [f"--toolchain={TOOLCHAIN}"] if ARM else []
    options += tuple(f"-DCMAKE_{name}_COMPILER={COMPILERS[language]}"
                     for name, language in (("C", "c"), ("CXX", "cpp")) if not ARM)
    return run([CMAKE, "-S", source, "-B", build, *toolchain, *options])


class Test(unittest.TestCase):
    """A test in an empty folder of its own, where nothing of the tree is in reach."""

    longMessage = False

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="consumer-"))
        self.addCleanup(shutil.rmtree, self.folder)

    def write(self, name, text):
        """Writes a file of the folder; missing folders are made."""
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def assert_ends(self, ended, status, *texts):
        """The run ended so, and said the texts; blanks and line ends count as one blank."""
        said = ended.stdout + ended.stderr
        self.assertEqual(ended.returncode, status, said)
        for text in texts:
            self.assertIn(text, " ".join(said.split()), said)


class ConfigureTest(Test):
    """A test that configures our build, all in one build folder."""

    @classmethod
    def setUpClass(cls):
        cls.build = Path(tempfile.mkdtemp(prefix="consumer-build-"))
        cls.addClassCleanup(shutil.rmtree, cls.build)

    def configured(self, *options):
        return configure(ROOT, self.build, *options)

    def assert_refused(self, name, *values_and_texts):
        """Each value with what is said of it; taken back, it leaves nothing behind."""
        for value, *texts in values_and_texts:
            with self.subTest(name=name, value=value):
                self.assert_ends(self.configured(f"-D{name}={value}"), 1, *texts)
        self.assert_ends(self.configured(f"-U{name}"), 0)
