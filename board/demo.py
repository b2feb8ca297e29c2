"""The main job, shown, and the interactive terminal."""

from board.sticks import Stick
from board.terminal import SERIAL, Terminal

COMMAND = "orvatool -d EIWD"


def run(build):
    """Carries the tool's output off the terminal on a stick and prints it. Returns the status."""
    print("booting the terminal ...")
    terminal = Terminal(build)
    try:
        terminal.set_serial_number(SERIAL)
        stick = Stick(terminal.folder / "stick.img", True)
        terminal.plug(stick)
        print(f"terminal# {COMMAND}")
        status = terminal.run(COMMAND).status
        print(f"exit status {status}")
        terminal.unplug()
        export, = (path for path in stick.files(1) if path.endswith(f"/{SERIAL}.log"))
        print(f"the stick holds {export}:\n{stick.read(export, 1).decode()}")
        return status
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
