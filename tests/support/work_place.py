"""Where tests make folders that a program lists, under an emulator perhaps."""

import os
import subprocess
import tempfile
import unittest

MEMORY = "/dev/shm"


def is_in_memory(folder):
    """Whether something can be put there without a disk."""
    kind = subprocess.run(["stat", "--file-system", "--format=%T", folder], check=False,
                          capture_output=True, text=True).stdout
    return kind == "tmpfs\n" and os.access(folder, os.W_OK)


def work_place(is_emulated):
    """The folder for theirs. qemu-arm lists none of a disk, whose 64-bit positions do not fit."""
    temporary = tempfile.gettempdir()
    for folder in MEMORY, temporary:
        if is_in_memory(folder):
            return folder
    if is_emulated:
        raise unittest.SkipTest(f"{MEMORY} is no tmpfs that can be written, and an emulator lists"
                                " no other folders")
    return temporary
