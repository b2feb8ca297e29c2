"""Tests on the emulated terminal, one topic in each file."""
