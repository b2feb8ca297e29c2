"""The files of examples/plug: the udev rule's events, what systemd takes, how mdev's line gets in.

Called with the folder of the examples.
"""

import configparser
import fnmatch
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

plug = pathlib.Path(sys.argv[1], "plug")
UNIT = "orvatool.service"
TERM = re.compile(r'([A-Z]+(?:\{\w+\})?)(==|=|\+=)"([^"]*)"(?:, |$)')
# What the kernel tells of a disk. SUBSYSTEMS are those of the device and all above it.
STICK = {"ACTION": "add", "SUBSYSTEM": "block", "ENV{DEVTYPE}": "disk", "KERNEL": "sda",
         "SUBSYSTEMS": ("block", "scsi", "usb", "pci")}


def terms(rule):
    """The (key, operator, value) of a rule, which must consist of nothing else."""
    found = TERM.findall(rule)
    assert "".join(f'{key}{operator}"{value}", ' for key, operator, value in found) == rule + ", "
    return found


def matches(value, patterns):
    """Whether one value, or one of several, matches one of the patterns."""
    values = (value,) if isinstance(value, str) else value
    return any(fnmatch.fnmatchcase(each, pattern) for each in values for pattern in patterns)


class UdevRule(unittest.TestCase):
    def setUp(self):
        lines = (plug / "80-orvatool.rules").read_text("utf-8").splitlines()
        rule, = [line for line in lines if line and not line.startswith("#")]
        self.terms = terms(rule)

    def wanted(self, **changes):
        """What systemd is told to start at the event of a stick, or at one that differs from it."""
        event = STICK | changes
        if not all(matches(event[key], value.split("|")) for key, operator, value in self.terms
                   if operator == "=="):
            return None
        done = {(key, operator): value for key, operator, value in self.terms if operator != "=="}
        self.assertEqual(done.pop(("TAG", "+=")), "systemd")
        (_, unit), = done.items()
        self.assertEqual(list(done), [("ENV{SYSTEMD_WANTS}", "+=")])
        return unit

    def test_wants_the_unit_for_a_disk(self):
        self.assertEqual(self.wanted(), UNIT)
        self.assertEqual(self.wanted(KERNEL="sdb"), UNIT)
        self.assertEqual(self.wanted(KERNEL="uba"), UNIT)

    def test_wants_nothing_for_other_events(self):
        for changes in ({"ENV{DEVTYPE}": "partition", "KERNEL": "sda1"}, {"ACTION": "remove"},
                        {"ACTION": "change"}, {"KERNEL": "sr0"}, {"SUBSYSTEM": "scsi_disk"},
                        {"SUBSYSTEMS": ("block", "scsi", "pci")}):
            with self.subTest(**changes):
                self.assertIsNone(self.wanted(**changes))


class SystemdUnit(unittest.TestCase):
    def setUp(self):
        self.text = (plug / UNIT).read_text("utf-8")

    def test_runs_the_installed_tool_once(self):
        unit = configparser.ConfigParser()
        unit.optionxform = str
        unit.read_string(self.text)
        self.assertEqual(dict(unit["Service"]),
                         {"Type": "oneshot", "ExecStart": "/usr/sbin/orvatool -d EIWD"})

    @unittest.skipUnless(shutil.which("systemd-analyze"), "systemd-analyze is not installed")
    def test_is_taken_by_systemd(self):
        with tempfile.TemporaryDirectory() as folder:
            unit = pathlib.Path(folder, UNIT)
            unit.write_text(self.text.replace("/usr/sbin/orvatool", shutil.which("true")), "utf-8")
            run = subprocess.run(["systemd-analyze", "verify", "--man=no", unit], check=False,
                                 capture_output=True, text=True)
        self.assertEqual((run.returncode, run.stderr), (0, ""))


class MdevLine(unittest.TestCase):
    def configured(self, before):
        """/etc/mdev.conf as the README's commands leave it; before, it was this, or none."""
        readme = (plug / "README.md").read_text("utf-8")
        commands = re.findall(r"^    (.*mdev\.conf.*)$", readme, re.MULTILINE)
        with tempfile.TemporaryDirectory() as root:
            for name in "etc", "tmp":
                pathlib.Path(root, name).mkdir()
            file = pathlib.Path(root, "etc/mdev.conf")
            if before is not None:
                file.write_text(before, "utf-8")
            subprocess.run(["sh", "-ec", re.sub(r"/(?=etc|tmp)", f"{root}/", "\n".join(commands))],
                           cwd=plug, check=True)
            return file.read_text("utf-8")

    def test_gets_in_front_of_what_is_there(self):
        line = (plug / "mdev.conf").read_text("utf-8")
        for before in None, "", "sd[a-z] 0:0 660\n":
            with self.subTest(before=before):
                self.assertEqual(self.configured(before), line + (before or ""))

    def test_stays_one_line_when_it_is_put_in_again(self):
        once = self.configured("sd[a-z] 0:0 660\n")
        self.assertEqual(self.configured(once), once)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)  # names what is skipped
