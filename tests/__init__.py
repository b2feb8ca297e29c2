"""The tests that run on this machine, and what they share with those on the emulated terminal."""
