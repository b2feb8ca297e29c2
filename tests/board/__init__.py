"""The tests of the emulated terminal's own machinery, which run without it."""
