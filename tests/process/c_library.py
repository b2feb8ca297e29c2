"""What the C library decides of a run: glibc, or musl where C_LIBRARY says so."""

import os

import story

IS_MUSL = os.environ.get("C_LIBRARY") == "musl"

NO_ERROR = "No error information" if IS_MUSL else "Success"
IO_ERROR = "I/O error" if IS_MUSL else "Input/output error"
CUTS_WIDE_NUMBERS = IS_MUSL  # also where `long` has 32 bits; glibc scans the largest there


def without_output(told):
    """A run whose output file could not be opened: all that it prints is lost.

    musl's closed stream still takes the text, so that the probe sees it.
    """
    return told if IS_MUSL else story.quiet(told)


def behind_other_words(told):
    """A run with options that stand behind another word: musl does not look for them there."""
    return story.quiet(told[len(story.LEVELS):]) if IS_MUSL else told


def unknown_option(letter):
    """getopt's report, as a regular expression."""
    return f"unrecognized option: {letter}" if IS_MUSL else f"invalid option -- '{letter}'"


def missing_argument(letter):
    """The same for an option that is the last word."""
    if IS_MUSL:
        return f"option requires an argument: {letter}"
    return f"option requires an argument -- '{letter}'"
