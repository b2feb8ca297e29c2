"""Runs an example as its README says."""

import os
import re
import subprocess
import tempfile

from tests.support.work_place import work_place

ZONE = "CET-1CEST,M3.5.0,M10.5.0/3"
HEAD = re.compile(r"^\[(\w*):\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\](\[[\w ]*\])?"
                  r" (\w+) \[(\w+) (\w+) [1-9]\d*\]: ", re.MULTILINE)


def sources(folder):
    """The names of the examples."""
    return sorted(path.stem for path in folder.glob("*.c"))


def expected(folder, name):
    """What an example has to print."""
    return (folder / f"{name}.expected").read_text(encoding="utf-8")


def printed(*command, **environment):
    """What an example prints in an empty folder, with TIME and N in its log lines."""
    place = work_place(is_emulated=len(command) > 1)  # by what stands before the program
    with tempfile.TemporaryDirectory(dir=place) as folder:
        run = subprocess.run(command, cwd=folder, check=False, capture_output=True, text=True,
                             env={"PATH": os.environ["PATH"], "TZ": ZONE, **environment})
    assert run.returncode == 0, f"{command[-1]}: {run.returncode}\n{run.stdout}{run.stderr}"
    return HEAD.sub(r"[\1:TIME]\2 \3 [\4 \5 N]: ", run.stdout)
