"""Runs under tests/process/private_mounts, which runs nothing where nothing can be mounted."""

CANNOT_MOUNT = 77  # its status then, with the reason behind "skipped: "


def skip_where_refused(test, ended):
    """Skips the test, with the reason, when this run of it could not mount."""
    if ended.returncode == CANNOT_MOUNT:
        test.skipTest(ended.stdout.strip().removeprefix("skipped: "))
