"""The tool's log as a test expects it: times, ticks and line numbers replaced by letters."""

import re

HEAD = re.compile(
    r"^\[orvatool:\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\] (\w+) \[(\w+) (\w+) [1-9]\d*\]: ", re.MULTILINE)
TICK = re.compile(r"(Info main main: (?:Init|Begin) time:)\d+")

LEVELS = "Set Debug Level Message...[EIWD]\n"
RELEASED_NOTHING = "Warning udiskdetection DoUmount: umounted /mnt/removable failed!\n\n"
RELEASED = "Info udiskdetection DoUmount: umounted /mnt/removable successfully!\n\n"
MADE_MOUNT_POINT = """\
Info fileutils CreateMulvPath: /mnt/removable/:15

Info fileutils CreateMulvPath: create 0 p=[]

Info fileutils CreateMulvPath: create 14 p=[/mnt/removable]

"""
NO_STICK = "Info udiskdetection DoMountUdisk: Insert udisk please\n\n"
NOTHING_MOUNTED = "Warning udiskdetection DoMountUdisk: mounted failed\n\n"
NO_SUCH_FILE = "No such file or directory"
INVALID = "Invalid argument"


def shortened(text):
    """The log with each line's head as level, file and function, and N for a tick.

    A line whose head is not exactly as it should be stays as it is.
    """
    return TICK.sub(r"\1N", HEAD.sub(r"\1 \2 \3: ", text))


def started(serial):
    """The lines of every run with log levels."""
    return f"""\
Info main main: Init time:N ret:0
Info main main: SerialNumber:{serial}
Info main main: Begin time:N
"""


def refused(device):
    """The line of a device that could not be mounted."""
    return f"Warning udiskdetection DoLoopMount: Mount /dev/{device} failed\n\n"


def mounted(device, size_mib):
    """The lines of a device that was mounted."""
    return f"""\
Info udiskdetection DoLoopMount: capacity={size_mib}M

Info udiskdetection DoLoopMount: Mount /dev/{device} sucessfully

Info udiskdetection DoMountUdisk: mount successful

"""


def exported(serial, error):
    """The lines of the copy and of the unmount."""
    return f"""\
Info main main: cp /mnt/ramdisk/output.txt /mnt/removable/tesmar_debug/{serial}.log && sync
Info main main: {error}
{RELEASED}"""
