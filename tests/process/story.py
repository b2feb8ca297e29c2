"""The run of the tool, told as the lines of a trace."""

from terminal import FIRST_TICK, SECOND_TICK
from tests.support import tool


def printed(text):
    """The lines that a printed text makes."""
    *lines, rest = text.split("\n")
    assert rest == "", text
    return ["out " + line for line in lines]


REOPEN = [f"freopen {tool.OUTPUT_FILE} w stdout"]
LEVELS = printed(tool.LEVELS) + ["system cat /proc/version"]
USAGE = printed(tool.USAGE)
SYNC = ["sync"]
EXIT = ["exit"]


def serial_steps(serial):
    """From the program's name to the begin of the mounting."""
    return (printed(tool.prepared(FIRST_TICK))
            + ["InitOption", "LoadOptionStr ~SerialNumber zeroes 24"]
            + printed(tool.identified(serial) + tool.begun(SECOND_TICK)))


LOOK = ["fopen /proc/partitions r", "opendir /proc/scsi/usb-storage"]
LOOK_AT_BUS = LOOK + ["scandir /proc/bus/usb/001"]
NO_DISK = printed(tool.NO_STICK)
UMOUNT_CALL = [f"umount {tool.MOUNT_POINT}"]
UMOUNT_FAILS = UMOUNT_CALL + printed(tool.RELEASED_NOTHING)
UMOUNT = UMOUNT_CALL + printed(tool.RELEASED)
MOUNTED_FAILED = printed(tool.NOTHING_MOUNTED)
EXPORT_FOLDER_TEST = [f"access [{tool.EXPORT_FOLDER}] 0"]
MAKE_EXPORT_FOLDER = EXPORT_FOLDER_TEST + [f"system mkdir {tool.EXPORT_FOLDER} -p"]
MOUNT_POINT_TEST = [f"access [{tool.MOUNT_POINT}] 0"]


def mount_call(device):
    return [f"mount /dev/{device} {tool.MOUNT_POINT} vfat 8 none"]


def failed_attempt(device):
    return MOUNT_POINT_TEST + mount_call(device) + printed(tool.refused(device))


def good_attempt(device, capacity):
    return MOUNT_POINT_TEST + mount_call(device) + printed(tool.mounted(device, capacity))


def made_mount_point():
    """The steps to a mount point that is missing; /mnt is there."""
    first, top, whole = map(printed, tool.MOUNT_POINT_STEPS)
    return (MOUNT_POINT_TEST + first + ["access [] 0"] + top
            + ["mkdir [] 0777", "access [/mnt] 0"] + MOUNT_POINT_TEST + whole
            + [f"mkdir [{tool.MOUNT_POINT}] 0777"])


MOUNT = LOOK + UMOUNT_FAILS + good_attempt("sda", 7639)


def copy_call(name):
    return ["system " + tool.copy_command(name)]


def copy(name, logged=None, error=tool.NO_SUCH_FILE):
    """The copy and its log lines; the error is errno's text, left by the export folder's test."""
    shown = tool.copy_command(name) if logged is None else logged
    return printed(tool.main_line(shown)) + copy_call(name) + printed(tool.main_line(error))


def export(serial="12345", **kwargs):
    """From a mounted disk that has no export folder yet to the end."""
    return SYNC + MAKE_EXPORT_FOLDER + copy(serial, **kwargs) + UMOUNT + EXIT


def quiet(story):
    """The story when no level is enabled."""
    return [line for line in story if not line.startswith("out ")]
