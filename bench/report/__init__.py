"""Measures speed and writes docs/performance.md with its plot."""
