"""The runs that a lack of something may leave: each step works, or fails as the tool knows it."""

import itertools
import re

import story
from faults import FaultTest, calls, printed_text
from terminal import kernel_version, read
from tests.support import tool

# errno's text after the copy tells of whatever failed before.
ERROR = re.compile(rf"^Info main main: .*\n(?={re.escape(tool.RELEASED)})", re.MULTILINE)
NO_LIST = story.printed(tool.line("Warning", "udiskdetection", "readPartitionList",
                                  "failed to open /proc/partitions"))
# A header that could not be read leaves the empty line below it as the first of the list.
NO_HEADER = story.printed(tool.disk_line("Info", "readPartitionList",
                                         "invalid line in /proc/partitions: ''"))
REFUSED = "refused"  # an allocation, as the probe writes it down
LEFT_OPEN = "open descriptor"  # where a close was refused
BUS = story.LOOK_AT_BUS[-1:]
PATH_LOOK, *PATH_STEPS = tool.MOUNT_POINT_STEPS


def without_error(text):
    """The output with one word for each error."""
    return ERROR.sub("Info main main: error\n", text)


def path_steps(missing):
    """The walk to the mount point, where some of the folders seem to be missing."""
    told = story.printed(PATH_LOOK)
    for path in "", "/mnt", tool.MOUNT_POINT:
        told = told + [f"access [{path}] 0"]
        if path in missing:
            told += story.printed(tool.line("Info", "fileutils", "CreateMulvPath",
                                            f"create {len(path)} p=[{path}]\n"))
            told += [f"mkdir [{path}] 0777"]
    return told


def attempts(told):
    """An attempt to mount, and those that look for the mount point in vain."""
    yield told
    for missing in ("",), ("", "/mnt"), ("", tool.MOUNT_POINT), ("", "/mnt", tool.MOUNT_POINT):
        yield story.MOUNT_POINT_TEST + path_steps(missing) + told[len(story.MOUNT_POINT_TEST):]


def stories(*devices):
    """Every run on a terminal with these attempts, of which the last one mounts."""
    starts = ((serial, story.REOPEN + story.LEVELS + story.serial_steps(serial) + story.LOOK[:1]
               + lines + story.LOOK[1:] + bus)
              for serial in ("12345", "") for lines in ([], NO_LIST, NO_HEADER)
              for bus in ([], BUS))
    for serial, start in starts:
        yield start + story.NO_DISK + story.SYNC + story.EXIT
        for count in range(len(devices) + 1):
            for tried in itertools.product(*map(attempts, devices[:count])):
                told = start + story.UMOUNT_FAILS + sum(tried, [])
                if count < len(devices):
                    yield told + story.MOUNTED_FAILED + story.SYNC + story.EXIT
                    continue
                copy = story.copy(serial or tool.NAME_WITHOUT_SERIAL) + story.UMOUNT + story.EXIT
                yield told + story.SYNC + story.EXPORT_FOLDER_TEST + copy
                yield told + story.SYNC + story.MAKE_EXPORT_FOLDER + copy


def outcomes(*devices):
    """The calls of every such run, and for each the outputs that it may leave."""
    found = {}
    for told in stories(*devices):
        found.setdefault(tuple(calls(told)), set()).add(without_error(printed_text(told)))
    return found


class OutcomeTest(FaultTest):
    """A terminal on which something is lacking."""

    def assert_known(self, run, expected, has_output=True):
        """The run is one of those expected, in its calls and, unless it is lost, in its output.

        The kernel's version may be missing, which a command writes, and stand anywhere.
        """
        made = tuple(line for line in calls(run.trace)
                     if line != REFUSED and not line.startswith(LEFT_OPEN))
        self.assertIn(made, expected)
        if has_output:
            output = read(tool.OUTPUT_FILE).replace(kernel_version(), "", 1)
            self.assertIn(without_error(tool.shortened(output)), expected[made])
