"""A step in one line, as script/steps shows it: its name, and the time that it took."""

import time
from contextlib import contextmanager


@contextmanager
def step(name):
    """Shows what is done here. Whoever catches what goes wrong says how."""
    print(f"{name:<12} ", end="", flush=True)
    start_s = time.monotonic()
    try:
        yield
    except BaseException:
        print("failed", flush=True)
        raise
    print(f"{time.monotonic() - start_s:6.1f} s", flush=True)
