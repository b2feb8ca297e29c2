"""A run of the tool as its tests expect it: its files, what it prints, its log lines.

A log line stands here as level, file, function and message: stamp and line number differ from run
to run, or from one version of a source file to the next.
"""

import re

RAM_DISK = "/mnt/ramdisk"
OUTPUT_FILE = f"{RAM_DISK}/output.txt"
MOUNT_POINT = "/mnt/removable"
FOLDER_ON_STICK = "tesmar_debug"
EXPORT_FOLDER = f"{MOUNT_POINT}/{FOLDER_ON_STICK}"
NAME_WITHOUT_SERIAL = "no-serial-number"

NO_SUCH_FILE = "No such file or directory"
INVALID = "Invalid argument"

ANY_STAMP = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d"
TICK = re.compile(r"^(Info main main: (?:Init|Begin) time:)\d+", re.MULTILINE)


def shortened(text, stamp=ANY_STAMP):
    """The text with the head of each log line as level, file and function.

    A line whose head is not exactly as it should be stays as it is.
    """
    return re.sub(rf"^\[orvatool:{stamp}\] (\w+) \[(\w+) (\w+) [1-9]\d*\]: ", r"\1 \2 \3: ", text,
                  flags=re.MULTILINE)


def without_times(text):
    """The shortened text with N for each tick, for runs whose clock nobody set."""
    return TICK.sub(r"\1N", shortened(text))


def export_name(serial):
    """The path of the copy on the stick."""
    return f"{FOLDER_ON_STICK}/{serial}.log"


def copy_command(serial):
    """The shell command that makes the copy."""
    return f"cp {OUTPUT_FILE} {MOUNT_POINT}/{export_name(serial)} && sync"


def line(level, file, function, message):
    """A log line, with the newline that the log adds to the message."""
    return f"{level} {file} {function}: {message}\n"


def main_line(message):
    """A log line of the tool's own steps."""
    return line("Info", "main", "main", message)


def disk_line(level, function, message):
    """A log line of mounting and unmounting, whose messages end with a newline of their own."""
    return line(level, "udiskdetection", function, f"{message}\n")


LEVELS = "Set Debug Level Message...[EIWD]\n"
USAGE = "Usage: orvatool [-d EIWD]\n"
NO_STICK = disk_line("Info", "DoMountUdisk", "Insert udisk please")
RELEASED = disk_line("Info", "DoUmount", f"umounted {MOUNT_POINT} successfully!")
RELEASED_NOTHING = disk_line("Warning", "DoUmount", f"umounted {MOUNT_POINT} failed!")
NOTHING_MOUNTED = disk_line("Warning", "DoMountUdisk", "mounted failed")
MOUNT_POINT_STEPS = tuple(  # of a mount point that is missing below a folder that is there
    line("Info", "fileutils", "CreateMulvPath", f"{message}\n")
    for message in (f"{MOUNT_POINT}/:15", "create 0 p=[]", f"create 14 p=[{MOUNT_POINT}]"))
MADE_MOUNT_POINT = "".join(MOUNT_POINT_STEPS)


def prepared(tick="N"):
    """The first line of every run."""
    return main_line(f"Init time:{tick} ret:0")


def identified(serial):
    """The line of the terminal's serial number."""
    return main_line(f"SerialNumber:{serial}")


def begun(tick="N"):
    """The last line before a stick is looked for."""
    return main_line(f"Begin time:{tick}")


def started(serial, first_tick="N", second_tick="N"):
    """The lines of every run, up to the stick."""
    return prepared(first_tick) + identified(serial) + begun(second_tick)


def refused(device):
    """The line of a device that could not be mounted."""
    return disk_line("Warning", "DoLoopMount", f"Mount /dev/{device} failed")


def mounted(device, size_mib):
    """The lines of a device that was mounted."""
    return (disk_line("Info", "DoLoopMount", f"capacity={size_mib}M")
            + disk_line("Info", "DoLoopMount", f"Mount /dev/{device} sucessfully")
            + disk_line("Info", "DoMountUdisk", "mount successful"))


def exported(serial, error):
    """The lines of the copy, with the text of errno before it, and of the unmount."""
    return main_line(copy_command(serial)) + main_line(error) + RELEASED
