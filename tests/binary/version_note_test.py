"""The executable, and the library's header, say which version they are.

Called with the executable, the target's readelf, the build folder and the version of the project.
"""

import json
import pathlib
import re
import subprocess
import sys
import unittest

executable, readelf, build_folder, VERSION = sys.argv[1:]


def note():
    """The text of the note by which tools know a program's package, as readelf -n shows it."""
    shown = subprocess.run([readelf, "-n", "-W", executable], check=True, capture_output=True,
                           text=True).stdout
    return re.findall(r"^Displaying notes found in: \.note\.package\n.*\n"
                      r" +FDO .*Packaging Metadata: (\{.*\})$", shown, re.MULTILINE)


class VersionNote(unittest.TestCase):
    def test_of_the_executable_is_the_version_of_the_project(self):
        text, = note()
        self.assertEqual(json.loads(text),
                         {"type": "generic", "name": "orvatool", "version": VERSION})

    def test_the_library_s_header_has_the_same(self):
        config = pathlib.Path(build_folder, "include/orvautil/config.h").read_text("ascii")
        parts = dict(re.findall(r"^#define ORVAUTIL_VERSION(\w*) (.*)$", config, re.MULTILINE))
        major, minor, patch = VERSION.split(".")
        self.assertEqual(parts, {"": f'"{VERSION}"', "_MAJOR": major, "_MINOR": minor,
                                 "_PATCH": patch})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
