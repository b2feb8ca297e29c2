"""Row of the fault catalogue: many runs in a row leave nothing behind in the kernel."""

from board import figures
from board.terminal import SERIAL
from board.tests.support.counts import counted
from board.tests.support.faults import EXPORT, FaultTest
from tests.support import tool
from tests.support.faults import fault

# A tenth of the runs is one command of the terminal, so that none takes too long.
PARTS = 10
WARM_RUNS = 100  # from here on the kernel's memory has to stay
SLAB_BOUND_KIB = 64
RUN_MANY = "i=0; while [ $i != {} ]; do orvatool -d EIWD || exit 1; i=$((i + 1)); done"
COUNTS = ("wc -l </proc/mounts; ls /proc/[0-9]*/fd 2>/dev/null | grep -c '^[0-9]';"
          " echo 3 >/proc/sys/vm/drop_caches; awk '/^SUnreclaim/ { print $2 }' /proc/meminfo")


class RepeatedRuns(FaultTest):

    def counts(self):
        """Mounts, descriptors of all processes, and the kernel's unreclaimable KiB."""
        return tuple(map(int, self.terminal.check(COUNTS).split()))

    @fault("Timing", "20 runs in a row (1,000 in the long run): mounts and descriptors of all"
                     " processes do not grow, and of the kernel's unreclaimable memory at most 64"
                     " KiB are more after the last than after the hundredth")
    @counted(20, 1000)
    def test_runs_in_a_row(self, count):
        stick = self.stick(whole="fat12", mib=1)
        self.plug(stick)
        part = count // PARTS
        samples = []
        for _ in range(PARTS):
            self.begin()
            self.assertEqual(self.terminal.run(RUN_MANY.format(part)).status, 0)
            samples.append(self.counts())
        (mounts, descriptors, slab_kib), last = samples[0], samples[-1]
        figures.write("runs_in_a_row", {
            "runs in a row": count, "growth of mounts": last[0] - mounts,
            "growth of descriptors": last[1] - descriptors,
            "growth of unreclaimable memory, KiB": last[2] - slab_kib})
        self.assertEqual(last[:2], (mounts, descriptors))
        if part >= WARM_RUNS:
            self.assertLessEqual(last[2] - slab_kib, SLAB_BOUND_KIB)
        self.run_row(tool.RELEASED_NOTHING, tool.mounted("sda", stick.mib()),
                     tool.exported(SERIAL, tool.INVALID))
        self.assertEqual(stick.read(EXPORT).decode(), self.version())
