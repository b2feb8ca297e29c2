"""The ABI lock: what a build offers its callers, beside what was accepted.

Called by script/abi with the word accept or figures, the executable and the library of the headers.
"""

import dataclasses
import re
import subprocess
import sys
import tempfile
from pathlib import Path

FOLDER = Path(__file__).parent

# Nothing of this machine, nothing that changes with a blank line or a new name for a parameter.
STABLE = ("--no-corpus-path", "--no-comp-dir-path", "--no-show-locs", "--no-parameter-names",
          "--type-id-style", "hash", "--drop-private-types")
PARTS = ("log", "util")  # the folders of the public headers
# The records of the C library that are exchanged with callers. Its other types are names only:
# callers pass the address of a FILE, whatever is in it.
LIBRARY_HEADERS = Path("/usr/arm-linux-gnueabi/include/bits")
RECORDS = ("dirent.h", "struct_stat.h", "types/struct_tm.h")


@dataclasses.dataclass(frozen=True)
class Lock:
    """An accepted file, with the words of abidw and abidiff for what it holds."""
    accepted: Path
    dump_word: str
    diff_words: tuple

    def dump(self, file, root="."):
        """What a file that was built from the sources below root offers."""
        headers = [word for part in PARTS for word in ("--headers-dir", f"{root}/{part}")]
        for record in RECORDS:
            headers += ["--header-file", str(LIBRARY_HEADERS / record)]
        run = subprocess.run(("abidw", *STABLE, *headers, self.dump_word, file), check=True,
                             capture_output=True, text=True)
        return run.stdout

    def differences(self, file, root="."):
        """What abidiff says about the file; empty when it offers exactly what was accepted."""
        with tempfile.NamedTemporaryFile("w", suffix=".abi") as offered:
            offered.write(self.dump(file, root))
            offered.flush()
            run = subprocess.run(("abidiff", "--harmless", "--no-show-locs", *self.diff_words,
                                  self.accepted, offered.name),
                                 capture_output=True, text=True, check=False)
        if run.returncode == 0:
            return ""
        return run.stdout + run.stderr or f"abidiff ended with {run.returncode}"


# What the executable exports, with all types that it takes; what the headers define beside that,
# above all the constants.
EXPORTS = Lock(FOLDER / "orvatool.abi", "--exported-interfaces-only", ())
CONSTANTS = Lock(FOLDER / "headers.abi", "--load-all-types", ("--non-reachable-types",))


def figures():
    """(label, figure) of what is locked, and of the breaks that its test plants."""
    exports = EXPORTS.accepted.read_text(encoding="ascii")
    constants = CONSTANTS.accepted.read_text(encoding="ascii")
    yield "functions", len(re.findall(r"<elf-symbol .*type='func-type'", exports))
    yield "data objects", len(re.findall(r"<elf-symbol .*type='object-type'", exports))
    yield "constants", len(re.findall("<enumerator ", constants))
    seeds = (FOLDER / "seeds_test.py").read_text(encoding="ascii")
    yield "planted breaks, all caught", len(re.findall(r"^    Seed\(", seeds, flags=re.MULTILINE))


if __name__ == "__main__":
    if sys.argv[1] == "accept":
        for lock, file in zip((EXPORTS, CONSTANTS), sys.argv[2:]):
            lock.accepted.write_text(lock.dump(file), encoding="ascii")
    else:
        for label, figure in figures():
            print(f"ABI lock, {label}\t{figure}")
