"""Commands that have to succeed: where one fails, what is raised has all that it said."""

import shlex
import subprocess


def run(*command, **options):
    """Runs a command, and returns what it prints."""
    words = [str(word) for word in command]
    done = subprocess.run(words, capture_output=True, text=True, check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{shlex.join(words)}: status {done.returncode}\n"
                             f"{done.stdout}{done.stderr}")
    return done.stdout


def pipe(text, *words, **options):
    """Runs a pipe of the shell, all of whose commands have to succeed; "$1" is the first word."""
    return run("bash", "-o", "pipefail", "-c", text, "bash", *words, **options)
