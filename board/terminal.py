"""The emulated terminal as a test sees it: commands, files, sticks."""

import shlex
import shutil
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

from board import initramfs, packages
from board.machine import Machine, MachineGone

BOOT_BOUND_S = 300
COMMAND_BOUND_S = 180
INSTALLED = {  # from the build folder to the terminal
    "bin/orvatool": "/usr/bin/orvatool",
    "lib/libtroption.so": "/usr/lib/libtroption.so",
    "lib/libboard_caller.so": "/usr/lib/libboard_caller.so",
    "bin/board_devices": "/usr/bin/board_devices",
    "bin/board_splash_calls": "/usr/bin/board_splash_calls",
}
BACKGROUND = "/tmp/background"
OPTIONS = "/mnt/mtdblock/options.txt"
SERIAL = "4711-0815"  # of a terminal unless a test gives it another


@dataclass
class Result:
    """What a command left: exit status (above 128: ended by a signal) and its two outputs."""
    status: int
    output: str
    errors: str


class Terminal:
    """A booted terminal with the tool installed and no stick plugged in."""

    def __init__(self, build, interactive=False):
        root = packages.root()
        self._machine = None
        self._plugged = []
        self.folder = Path(tempfile.mkdtemp(prefix="terminal-"))  # for images and the console
        try:
            self._boot(root, interactive)
            for source, target in INSTALLED.items():
                self.install(Path(build) / source, target)
        except BaseException:
            self.clean_up()
            raise

    def _boot(self, root, interactive):
        """Boots what lies unpacked below `root`."""
        initrd = self.folder / "initramfs"
        initrd.write_bytes(initramfs.build(root))
        serial = "mon:stdio" if interactive else f"file:{self.folder / 'console.txt'}"
        try:
            with open(self.folder / "emulator.txt", "wb") as messages:
                self._machine = Machine(initramfs.kernel(root), initrd, serial, messages,
                                        COMMAND_BOUND_S)
        except MachineGone as error:
            raise MachineGone(f"{error}\n{self.console()}") from error
        self._port = self._machine.port.makefile("rwb")
        self.run("true", bound_s=BOOT_BOUND_S)

    def run(self, command, data=b"", bound_s=COMMAND_BOUND_S):
        """Runs a shell command with `data` as its standard input."""
        self._machine.port.settimeout(bound_s)
        text = command.encode()
        try:
            self._port.write(b"%d %d\n" % (len(text), len(data)) + text + data)
            self._port.flush()
            head = self._port.readline().split()
            if len(head) != 3:
                raise MachineGone("the terminal switched itself off")
            status, *sizes = map(int, head)
            output, errors = (self._port.read(size).decode(errors="replace") for size in sizes)
        except (OSError, MachineGone) as error:
            self.end()
            shown = f"The console shows:\n{self.console()}"
            raise MachineGone(f"{command}: {error}\n{shown}") from error
        return Result(status, output, errors)

    def check(self, command, data=b""):
        """Runs a shell command that has to succeed and returns its output."""
        result = self.run(command, data)
        if result.status != 0:
            raise AssertionError(f"{command}: status {result.status}\n{result.errors}")
        return result.output

    def start(self, command):
        """Starts a shell command in the background; `finish` waits for its end."""
        self.check(f"rm -f {BACKGROUND}.*; (({command}) >{BACKGROUND}.output 2>{BACKGROUND}.errors;"
                   f" echo $? >{BACKGROUND}.new; mv {BACKGROUND}.new {BACKGROUND}.status) &")

    def finish(self):
        """Waits for the command in the background and returns what it left."""
        self.wait_for(f"[ -e {BACKGROUND}.status ]")
        return Result(int(self.read(f"{BACKGROUND}.status")), self.read(f"{BACKGROUND}.output"),
                      self.read(f"{BACKGROUND}.errors"))

    def wait_for(self, condition):
        """Waits until a shell command succeeds."""
        self.check(f"until {condition}; do usleep 10000; done")

    def write(self, path, data):
        """Writes a file, and the folders above it."""
        name = shlex.quote(str(path))
        self.check(f"mkdir -p $(dirname {name}) && cat >{name}",
                   data.encode() if isinstance(data, str) else data)

    def read(self, path):
        """The content of a file."""
        return self.check(f"cat {shlex.quote(str(path))}")

    def install(self, source, target):
        """Copies a program of this machine onto the terminal."""
        self.write(target, Path(source).read_bytes())
        self.check(f"chmod 755 {shlex.quote(str(target))}")

    def set_serial_number(self, serial):
        """Stores the serial number that the tool reads."""
        self.write(OPTIONS, f"~SerialNumber={serial}\n")

    def console(self):
        """What the console has shown so far, and the emulator's own messages."""
        return "".join(path.read_text(errors="replace") for path in self.folder.glob("*.txt"))

    def plug(self, stick, **options):
        """Plugs a stick in and waits until the kernel has registered it and its partitions."""
        self.plug_in(stick, **options)
        names = stick.names(f"sd{chr(ord('a') + len(self._plugged) - 1)}")
        self.wait_for(" && ".join(f"[ -b /dev/{name} ]" for name in names))

    def plug_in(self, stick, **options):
        """Plugs a stick in and returns at once."""
        name = f"stick{len(self._plugged)}"
        self._machine.control.execute("blockdev-add", **stick.block_device(name))
        self._machine.control.execute("device_add", driver="usb-storage", bus="usb.0", id=name,
                                      drive=name, **options)
        self._plugged.append(name)

    def plug_in_reader(self, stick):
        """Plugs a card reader in. Its medium, the stick, is gone before the kernel sees it."""
        self._machine.control.execute("stop")
        self.plug_in(stick, removable=True)
        name = self._plugged[-1]
        disk = f"/machine/peripheral/{name}/{name}.0/legacy[0]"
        self._machine.control.execute("blockdev-open-tray", id=disk, force=True)
        self._machine.control.execute("blockdev-remove-medium", id=disk)
        self._machine.control.execute("cont")

    def unplug(self):
        """Pulls the stick out that was plugged in last."""
        name = self._plugged.pop()
        self._machine.control.execute("device_del", id=name)
        self._machine.control.wait_until_deleted(name)
        self._machine.control.execute("blockdev-del", **{"node-name": name})

    def reset(self):
        """Brings the terminal back to its state after the boot."""
        while self._plugged:
            self.unplug()
        self.check("fresh && until ! ls /sys/block/sd* >/dev/null 2>&1; do usleep 10000; done"
                   f" && date -s @{int(time.time())}")

    def wait(self):
        """Waits until the terminal is switched off."""
        self._machine.wait()

    def end(self):
        """Switches the terminal off, if it was ever on."""
        if self._machine:
            self._machine.end()

    def clean_up(self):
        """Switches the terminal off and removes its folder."""
        self.end()
        shutil.rmtree(self.folder)
