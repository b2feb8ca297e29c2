"""Power cuts: the stick after each sector of a run's writes, made offline from a recording."""

import random

from board import figures, torn
from board.fat import Volume
from board.recording import Recorded
from board.sticks import MIB, run
from board.terminal import SERIAL
from board.tests.support.faults import FaultTest
from tests.support import tool
from tests.support.faults import fault

KIB = 1024
LARGE_LOG = b"0123456789abcde\n" * (25 * KIB)
VERSION, LONG_VERSION = "/proc/version", "/tmp/version"
ANY_ORDER = 100  # states
SEED = 20240507


class PowerCut(FaultTest):

    @classmethod
    def setUpClass(cls):
        cls.all = torn.Figures()

    @classmethod
    def tearDownClass(cls):
        figures.write("power_cut", {
            "torn sticks": cls.all.states,
            "torn sticks, different ones": cls.all.distinct,
            "torn sticks with a fault": cls.all.faulty,
            "torn sticks, seconds": round(cls.all.took_s),
            **{f"torn sticks, fsck.fat: {finding}": count
               for finding, count in sorted(cls.all.findings.items())}})

    def record(self, stick):
        """Runs the tool undisturbed. Returns what was on the stick before, and each sector."""
        self.remember(stick)
        recorded = Recorded(stick)
        self.terminal.plug(recorded)
        self.run_row(tool.RELEASED_NOTHING, tool.MADE_MOUNT_POINT,
                     tool.mounted("sda", stick.mib()),
                     tool.exported(SERIAL, tool.NO_SUCH_FILE))
        self.terminal.unplug()
        self.assert_reader_agrees(stick)
        return recorded.before, recorded.written()

    def assert_reader_agrees(self, stick):
        """Our reader of FAT finds the same as mtools do."""
        found = {(0, path): entry.sha256
                 for path, entry in Volume(stick.image.read_bytes()).entries() if entry.sha256}
        self.assertEqual(found, {key: digest for key, digest in stick.digests().items()
                                 if not key[1].endswith("/")})

    def assert_good(self, found, states):
        """At least so many states, none with a fault."""
        self.all.add(found)
        self.assertEqual(found.faults[:10], [])
        self.assertGreaterEqual(found.states, states)

    def assert_all_states_good(self, form, mib):
        """Cuts a run with a short log, and one with a long log."""
        stick = self.stick(whole=form, mib=mib)
        blank = stick.image.read_bytes()
        short = self.record(stick)
        self.assert_good(torn.examine(*short), 10)
        self.assert_good(torn.examine_any_order(*short, ANY_ORDER, SEED), ANY_ORDER)
        stick.image.write_bytes(blank)
        self.terminal.write(LONG_VERSION, LARGE_LOG)
        self.terminal.check(f"rmdir {tool.MOUNT_POINT} && mount --bind {LONG_VERSION} {VERSION}")
        self.addCleanup(self.terminal.check, f"umount {VERSION}")
        self.assert_good(torn.examine(*self.record(stick)), len(LARGE_LOG) // 512)

    @fault("Power cut", "FAT12: the power fails after any sector, with a log of 100 bytes and"
                        " with one of 400 KiB")
    def test_power_cut_on_fat12(self):
        self.assert_all_states_good("fat12", mib=1)

    @fault("Power cut", "FAT16: the same")
    def test_power_cut_on_fat16(self):
        self.assert_all_states_good("fat16", mib=8)

    @fault("Power cut", "FAT32: the same")
    def test_power_cut_on_fat32(self):
        self.assert_all_states_good("fat32", mib=33)

    @fault("Power cut", "free clusters that hold random bytes, as deleted files leave them",
           volume="cut between the export folder's record and its first cluster, the folder shows"
                  " those bytes as files; fsck.fat -a may then harm old files that they name")
    def test_power_cut_over_remains(self):
        stick = self.stick(whole="fat16", mib=8)
        stick.write("deleted", random.Random(SEED).randbytes(4 * MIB))
        run("mdel", "-i", str(stick.image), "::/deleted")
        self.assert_good(torn.examine(*self.record(stick), repairs=0), 10)
