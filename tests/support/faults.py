"""The rows of the fault catalogue, docs/faults.md: each stands above the test that holds it."""

from dataclasses import dataclass

# What the tool keeps, whatever goes wrong around it.
PROMISES = {
    "exit": "the tool ends with status 0, not by a signal",
    "output": "the RAM-disk file is whole, and equal to what is expected",
    "mounts": "nothing stays mounted that the tool mounted",
    "files": "every file that was on the stick before has the same hash",
    "volume": "`fsck.fat -n` finds nothing new outside the export folder",
    "time": "the tool ends within 30 s",
}
BOUND_S = 30


@dataclass(frozen=True)
class Fault:
    """A row: its section, what goes wrong, and each promise that is not kept, with the reason."""
    section: str
    what: str
    exceptions: dict

    def kept(self):
        """The promises that the test has to check."""
        return [promise for promise in PROMISES if promise not in self.exceptions]


def fault(section, what, **exceptions):
    """Makes a test a row of the catalogue. An exception names a promise and says why not."""
    row = Fault(section, what, exceptions)
    if unknown := set(exceptions) - set(PROMISES):
        raise ValueError(f"{what}: no promise is named {', '.join(unknown)}")

    def mark(test):
        test.fault = row
        return test
    return mark


def row_of(case):
    """The row that a running test is."""
    return getattr(case, case._testMethodName).fault
