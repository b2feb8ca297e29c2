"""A terminal under /mnt on which the tool runs as a process, and the story that its run leaves.

The process must be in a mount namespace of its own; PROBE, TOOL and EMULATOR come from CTest.
"""

import os
import subprocess
import unittest
from dataclasses import dataclass
from pathlib import Path

from tests.support import tool

OPTIONS_FILE = "/mnt/test/options.txt"
TRACE_FILE = "/mnt/test/trace.txt"
ROOT = "/mnt/test/root"
LEAKS = Path(__file__).parents[1] / "lsan.supp"  # what may stay to the end of the process

PARTITIONS = """major minor  #blocks  name

   8        0    7822336 sda
   8        1    7821312 sda1
"""

# The probe's clock: its first reading in milliseconds, and the next one.
FIRST_TICK = 1709644029000 % 2**32
SECOND_TICK = FIRST_TICK + 250
STAMP = "2024-03-05T14:07:09"


@dataclass
class Run:
    trace: list  # the calls and what was printed in between; log lines without stamp and number
    stdout: str
    stderr: str


def plain_trace(text):
    """The trace's lines, those of the log shortened."""
    printed = "out "
    return [printed + tool.shortened(line.removeprefix(printed), STAMP)
            if line.startswith(printed) else line
            for line in text.split("\n")[:-1]]


def read(path):
    with open(path, encoding="ascii") as file:
        return file.read()


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="ascii") as file:
        file.write(text)


def kernel_version():
    return read("/proc/version")


def tree(folder):
    """All files under folder with their contents; folders have None."""
    found = {}
    for parent, folders, files in os.walk(folder):
        found.update({os.path.join(parent, name): None for name in folders})
        found.update({os.path.join(parent, name): read(os.path.join(parent, name))
                      for name in files})
    return found


class TerminalTest(unittest.TestCase):
    """Each test gets a fresh /mnt: a stick that mounts, and the serial number 12345."""

    maxDiff = None

    def setUp(self):
        subprocess.run(["mount", "-t", "tmpfs", "tmpfs", "/mnt"], check=True)
        self.addCleanup(subprocess.run, ["umount", "-l", "/mnt"], check=True)
        for folder in (tool.RAM_DISK, tool.MOUNT_POINT, ROOT + "/proc/scsi/usb-storage"):
            os.makedirs(folder)
        self.set_partitions(PARTITIONS)
        self.set_serial("12345")
        self.mount_results = "0"
        self.umount_results = "-1,0"  # nothing to release before, then the stick
        self.errno_of_commands = None

    def set_partitions(self, text):
        write(ROOT + "/proc/partitions", text)

    def set_serial(self, serial):
        write(OPTIONS_FILE, f"other=value\n~SerialNumber={serial}\n")

    def set_bus_devices(self, *names):
        """No usb-storage folder; these files beside the root hub's on bus 1."""
        os.rmdir(ROOT + "/proc/scsi/usb-storage")
        for name in ("001", *names):
            write(ROOT + "/proc/bus/usb/001/" + name, "")

    def run_tool(self, *arguments):
        """Runs the tool; its status must be 0, as always."""
        variables = {
            "PATH": os.environ["PATH"],
            "TZ": "CET-1CEST,M3.5.0,M10.5.0/3",
            "ORVATOOL_OPTIONS": OPTIONS_FILE,
            "PROBE_ROOT": ROOT,
            "PROBE_TRACE": TRACE_FILE,
            "PROBE_MOUNT": self.mount_results,
            "PROBE_UMOUNT": self.umount_results,
            "LSAN_OPTIONS": f"suppressions={LEAKS}:print_suppressions=0",
        }
        if self.errno_of_commands is not None:
            variables["PROBE_ERRNO"] = str(self.errno_of_commands)
        emulator = os.environ["EMULATOR"].split()
        if emulator:
            emulator += ["-E", "LD_PRELOAD=" + os.environ["PROBE"]]
        else:
            variables["LD_PRELOAD"] = os.environ["PROBE"]
        run = subprocess.run([*emulator, os.environ["TOOL"], *arguments], env=variables,
                             stdin=subprocess.DEVNULL, capture_output=True, text=True,
                             timeout=60, check=False)
        trace = read(TRACE_FILE)
        os.remove(TRACE_FILE)
        self.assertEqual(run.returncode, 0, f"{trace}\n{run.stderr}")
        return Run(plain_trace(trace), run.stdout, run.stderr)
