"""Commands of a test's own, in the place of the machine's."""


def write(folder, commands):
    """Makes a shell command of each name and text, and the folder where it is missing."""
    folder.mkdir(exist_ok=True)
    for name, text in commands.items():
        path = folder / name
        path.write_text(f"#!/bin/sh\n{text}\n", encoding="utf-8")
        path.chmod(0o755)
