"""What the tests on the emulated terminal share."""
