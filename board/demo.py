"""The main job, shown, and the interactive terminal."""

import re

from board.step import step
from board.sticks import Stick
from board.terminal import SERIAL, Terminal
from tests.support import tool

COMMAND = "orvatool -d EIWD"
FILE = tool.export_name(SERIAL)  # on the stick
MOUNTED = re.compile(r"^Info udiskdetection DoLoopMount: Mount (/dev/\w+) sucessfully$",
                     re.MULTILINE)


def way(status, log, mounts, files):
    """How a run went: its exit status, its log, what is mounted after it, the files it left."""
    yield f"exit status {status}"
    if device := MOUNTED.search(tool.shortened(log)):
        is_left = f" {tool.MOUNT_POINT} " in mounts
        yield (f"{device[1]} was mounted at {tool.MOUNT_POINT}, and"
               f" {'is still mounted' if is_left else 'unmounted again'}")
    else:
        yield "no stick was mounted"
    yield (f"{tool.OUTPUT_FILE} was {'copied' if FILE in files else 'not copied'} to {FILE}"
           " on the stick")


def seen(printed, files):
    """What a technician sees of a run: on the terminal, and later on the stick."""
    yield f"on the terminal: {printed.strip() or 'nothing, the tool shows no line there'}"
    size = f"{FILE}, {len(files[FILE])} bytes" if FILE in files else "no file of the tool"
    yield f"on the stick, at a desk: {size}"


def report(result, log, mounts, files):
    """The page at the end of a run. `files` are those on the stick, with their content."""
    exported = files.get(FILE, b"").decode(errors="replace")
    parts = {
        f"The file on the stick, {FILE}": exported.splitlines(),
        f"The way it went, with `{COMMAND}` on the terminal":
            way(result.status, log, mounts, files),
        f"Its log, in {tool.OUTPUT_FILE} until the terminal is switched off":
            filter(None, log.splitlines()),
        "What a technician sees": seen(result.output + result.errors, files),
    }
    return "".join(f"\n{heading}:\n" + "".join(f"    {line}\n" for line in lines)
                   for heading, lines in parts.items())


def run(build):
    """Carries the tool's output off the terminal on a stick and shows it. Returns the status."""
    with step("booting"):
        terminal = Terminal(build)
    try:
        with step("plugging in"):
            terminal.set_serial_number(SERIAL)
            stick = Stick(terminal.folder / "stick.img", True)
            terminal.plug(stick)
        with step("running"):
            result = terminal.run(COMMAND)
        log, mounts = terminal.read(tool.OUTPUT_FILE), terminal.read("/proc/mounts")
        terminal.unplug()
        files = {path: stick.read(path, 1) for path in stick.files(1) if not path.endswith("/")}
        print(report(result, log, mounts, files), end="")
        return result.status or int(FILE not in files)
    finally:
        terminal.clean_up()


def shell(build):
    """Gives the terminal's console. Returns the status."""
    terminal = Terminal(build, interactive=True)
    try:
        terminal.set_serial_number(SERIAL)
        terminal.plug(Stick(terminal.folder / "stick.img", True))
        print(f"\r\nA stick is plugged in as sda1; try: {COMMAND}\r\n"
              "Its output is in /mnt/ramdisk/output.txt. End with `exit`, or Ctrl-A X.\r\n# ",
              end="", flush=True)
        terminal.wait()
        return 0
    finally:
        terminal.clean_up()
