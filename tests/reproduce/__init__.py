"""Builds of the same sources under other circumstances, which have to give the same files."""
