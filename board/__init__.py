"""The emulated terminal: a 32-bit ARM machine with USB sticks, and the tests that run on it."""

import os

# mkfs.vfat, fsck.fat, modprobe and depmod: not on the path of an ordinary user.
os.environ["PATH"] += ":/usr/sbin:/sbin"
