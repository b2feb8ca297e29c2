"""A terminal under /mnt on which the tool runs as a process, and the story that its run leaves.

The process must be in a mount namespace of its own; PROBE, TOOL and EMULATOR come from CTest.
"""

import os
import shutil
import subprocess
import unittest
from dataclasses import dataclass
from pathlib import Path

from tests.support import tool

OPTIONS_FILE = "/mnt/test/options.txt"
TRACE_FILE = "/mnt/test/trace.txt"
ROOT = "/mnt/test/root"
COMMANDS = "/mnt/test/commands"
PRELOADED = "/mnt/test/libprobe.so"  # the loader takes a path with a blank for two
EMULATOR = os.environ["EMULATOR"].split()  # runs the tool when it is not this machine's
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
    """All files under folder with their contents; links have their target, folders None."""
    found = {}
    for parent, folders, files in os.walk(folder):
        found.update({os.path.join(parent, name): None for name in folders})
        for path in (os.path.join(parent, name) for name in files):
            found[path] = os.readlink(path) if os.path.islink(path) else read(path)
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
        self.refused = None     # the allocation that fails
        self.path = f"{self.quick_sync()}:{os.environ['PATH']}"
        self.tool, self.probe = os.environ["TOOL"], PRELOADED
        os.symlink(os.environ["PROBE"], PRELOADED)
        self.wrapper = []       # what starts the tool on this machine, as `strace` does
        self.prepare = None     # called in the new process before it becomes the tool
        self.inherited = ()     # descriptors that stay open
        self.status = 0         # as always

    def quick_sync(self):
        """A folder with a `sync` that does not wait for what others write on this machine."""
        write(f"{COMMANDS}/sync", "#!/bin/sh\n")
        os.chmod(f"{COMMANDS}/sync", 0o755)
        return COMMANDS

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
        """Runs the tool and checks its status."""
        run, trace = self.start_tool(*arguments)
        self.assertEqual(run.returncode, self.status, f"{trace}\n{run.stderr}")
        return Run(plain_trace(trace), run.stdout, run.stderr)

    def start_tool(self, *arguments):
        """Runs the tool and returns what it left, and its trace."""
        variables = {
            "PATH": self.path,
            "TZ": "CET-1CEST,M3.5.0,M10.5.0/3",
            "ORVATOOL_OPTIONS": OPTIONS_FILE,
            "PROBE_ROOT": ROOT,
            "PROBE_TRACE": TRACE_FILE,
            "PROBE_MOUNT": self.mount_results,
            "PROBE_UMOUNT": self.umount_results,
            "LSAN_OPTIONS": f"suppressions='{LEAKS}':print_suppressions=0",
        }
        if self.errno_of_commands is not None:
            variables["PROBE_ERRNO"] = str(self.errno_of_commands)
        if self.refused is not None:
            variables["PROBE_REFUSED"] = str(self.refused)
        starter = EMULATOR or self.wrapper
        if starter:
            starter = [shutil.which(starter[0]), *starter[1:], "-E", "LD_PRELOAD=" + self.probe]
        else:
            variables["LD_PRELOAD"] = self.probe
        run = subprocess.run([*starter, self.tool, *arguments], env=variables,
                             stdin=subprocess.DEVNULL, capture_output=True, text=True,
                             preexec_fn=self.prepare, pass_fds=self.inherited,
                             timeout=60, check=False)
        return run, self.take_trace()

    def take_trace(self):
        """The trace of the run that has ended."""
        trace = read(TRACE_FILE)
        os.remove(TRACE_FILE)
        return trace
