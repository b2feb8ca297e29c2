"""One run of the board tests: the build folder they use, and the terminals booted for them."""

from pathlib import Path

from board.machine import MachineGone
from board.terminal import Terminal

_build = None    # the ARM build folder
_long = False    # whether tests that count take their large counts
_terminals = []  # the last one is in use; another one is booted when it died


def begin(build, long=False):
    """Takes the programs of an ARM build folder for the terminals to come."""
    global _build, _long
    _build, _long = Path(build), long


def is_long():
    """Whether this is the long run."""
    return _long


def built(path):
    """A file of the ARM build folder."""
    return _build / path


def fresh_terminal():
    """A terminal in its state after the boot."""
    if _terminals:
        try:
            _terminals[-1].reset()
            return _terminals[-1]
        except (MachineGone, AssertionError):  # another test has ruined it: here is a new one
            _terminals[-1].end()
    _terminals.append(Terminal(_build))
    return _terminals[-1]


def end():
    """Switches every terminal off and removes what they left."""
    while _terminals:
        _terminals.pop().clean_up()
