"""Checks of the tree and of its documents."""
