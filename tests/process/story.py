"""The run of the tool, told as the lines of a trace."""

from terminal import FIRST_TICK, TICK_STEP

REOPEN = ["freopen /mnt/ramdisk/output.txt w stdout"]
LEVELS = ["out Set Debug Level Message...[EIWD]", "system cat /proc/version"]
USAGE = ["out Usage: orvatool [-d EIWD]"]
SYNC = ["sync"]
EXIT = ["exit"]


def log(level, file, function, message):
    """The lines that a log line with all its newlines makes."""
    return ["out " + line for line in f"{level} {file} {function}: {message}".split("\n")]


def main_log(message):
    return log("Info", "main", "main", message)


def disk_log(level, function, message):
    return log(level, "udiskdetection", function, message)


def serial_steps(serial):
    """From the program's name to the begin of the mounting."""
    return (main_log(f"Init time:{FIRST_TICK} ret:0")
            + ["InitOption", "LoadOptionStr ~SerialNumber zeroes 24"]
            + main_log(f"SerialNumber:{serial}")
            + main_log(f"Begin time:{FIRST_TICK + TICK_STEP}"))


LOOK = ["fopen /proc/partitions r", "opendir /proc/scsi/usb-storage"]
LOOK_AT_BUS = LOOK + ["scandir /proc/bus/usb/001"]
NO_DISK = disk_log("Info", "DoMountUdisk", "Insert udisk please\n")
UMOUNT_FAILS = ["umount /mnt/removable"] + disk_log(
    "Warning", "DoUmount", "umounted /mnt/removable failed!\n")
UMOUNT = ["umount /mnt/removable"] + disk_log(
    "Info", "DoUmount", "umounted /mnt/removable successfully!\n")
MOUNTED_FAILED = disk_log("Warning", "DoMountUdisk", "mounted failed\n")
EXPORT_FOLDER_TEST = ["access [/mnt/removable/tesmar_debug] 0"]
MAKE_EXPORT_FOLDER = EXPORT_FOLDER_TEST + ["system mkdir /mnt/removable/tesmar_debug -p"]


def attempt(device):
    return ["access [/mnt/removable] 0", f"mount {device} /mnt/removable vfat 8 none"]


def failed_attempt(device):
    return attempt(device) + disk_log("Warning", "DoLoopMount", f"Mount {device} failed\n")


def good_attempt(device, capacity):
    return (attempt(device)
            + disk_log("Info", "DoLoopMount", f"capacity={capacity}M\n")
            + disk_log("Info", "DoLoopMount", f"Mount {device} sucessfully\n")
            + disk_log("Info", "DoMountUdisk", "mount successful\n"))


MOUNT = LOOK + UMOUNT_FAILS + good_attempt("/dev/sda", 7639)


def copy_command(name):
    return f"cp /mnt/ramdisk/output.txt /mnt/removable/tesmar_debug/{name}.log && sync"


def copy(name, logged=None, error="No such file or directory"):
    """The copy and its log lines; the error is errno's text, left by the test for the export folder."""
    command = copy_command(name)
    return (main_log(command if logged is None else logged) + ["system " + command]
            + main_log(error))


def export(serial="12345", **kwargs):
    """From a mounted disk that has no export folder yet to the end."""
    return SYNC + MAKE_EXPORT_FOLDER + copy(serial, **kwargs) + UMOUNT + EXIT


def quiet(story):
    """The story when no level is enabled."""
    return [line for line in story if not line.startswith("out ")]
