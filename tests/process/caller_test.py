"""Callers that start the tool in another way than a terminal's script does."""

import itertools
import os
import shutil
from pathlib import Path

import story
from faults import COVERAGE, START, WHOLE_RUN, FaultTest
from terminal import PARTITIONS
from tests.support import tool
from tests.support.faults import fault

LONGEST_ARGUMENT = 131071  # the kernel takes 32 pages of one argument, with the zero behind it
NOBODY = 65534
TEST_FOLDER = "/mnt/test"


def with_standard_output(told):
    """The trace of a run whose standard output was closed at first: it counts as opened."""
    opened = ["open descriptor 1"]
    return [each for line in told for each in (
        [line] + opened if line.startswith("system ") else
        opened + [line] if line == "exit" else [line])]


class Caller(FaultTest):
    @fault("Inputs", "standard streams closed at the start, in each combination")
    def test_closed_streams(self):
        for count in 1, 2, 3:
            for closed in itertools.combinations(range(3), count):
                with self.subTest(closed=closed):
                    self.prepare = lambda: [os.close(each) for each in closed]
                    self.run_row(with_standard_output(WHOLE_RUN) if 1 in closed else WHOLE_RUN,
                                 "-d", "EIWD")
                    self.assertEqual(Path(f"{TEST_FOLDER}/root/proc/partitions").read_text(
                        encoding="ascii"), PARTITIONS)

    @fault("Inputs", "131,071 letters behind `-d`, the longest argument that the kernel takes")
    def test_longest_argument(self):
        letters = ("EIWD" * LONGEST_ARGUMENT)[:LONGEST_ARGUMENT]
        self.run_row(WHOLE_RUN, "-d", letters)
        with self.assertRaises(OSError):
            self.run_tool("-d", letters + "E")

    def install_for_others(self):
        """Takes the programs out of the build folder, which may be closed to others."""
        files = self.tool, self.probe, f"{os.path.dirname(os.environ['PROBE'])}/libtroption.so"
        for file, folder in zip(files, ("bin", "lib", "lib")):
            os.makedirs(f"{TEST_FOLDER}/{folder}", exist_ok=True)
            shutil.copy(file, f"{TEST_FOLDER}/{folder}")
        self.tool, self.probe = (f"{TEST_FOLDER}/{folder}/{os.path.basename(file)}"
                                 for file, folder in zip(files, ("bin", "lib")))

    @fault("Inputs", "not root: nothing can be mounted or unmounted")
    def test_not_root(self):
        if Path("/proc/self/uid_map").read_text(encoding="ascii").split()[2] == "1":
            self.skipTest("only root can become another user, and this is a namespace of one user")
        self.skip_with(COVERAGE, "only root can write the counts of an instrumented tool")
        self.install_for_others()
        for folder in TEST_FOLDER, tool.RAM_DISK:
            os.chmod(folder, 0o777)
        self.prepare = lambda: (os.setgroups([]), os.setgid(NOBODY), os.setuid(NOBODY))
        self.mount_results = self.umount_results = "-1"
        self.run_row(START + story.LOOK + story.UMOUNT_FAILS + story.failed_attempt("sda")
                     + story.failed_attempt("sda1") + story.MOUNTED_FAILED + story.SYNC
                     + story.EXIT, "-d", "EIWD")
        self.assertEqual(os.stat(tool.OUTPUT_FILE).st_uid, NOBODY)
