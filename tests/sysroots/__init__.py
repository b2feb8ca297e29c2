"""Builds with other C libraries than the compiler brings, in the way that users do it."""
