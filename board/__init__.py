"""The emulated terminal: a 32-bit ARM machine with USB sticks, and the tests that run on it."""
