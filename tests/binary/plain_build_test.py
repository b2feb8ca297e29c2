"""The plain build with make, without presets: the tool with our option store, and with a given one.

Called with the folder of the sources, cmake and a C compiler.
"""

import os
import re
import subprocess
import sys
import tempfile
import unittest

root, cmake, compiler = sys.argv[1:]


def output_of(*command):
    """What the command prints; its complaints are shown when it fails."""
    run = subprocess.run(command, capture_output=True, text=True, check=False)
    assert run.returncode == 0, f"{' '.join(command)}\n{run.stdout}{run.stderr}"
    return run.stdout


def build(folder, *options):
    """Builds the tool in the folder and returns it."""
    output_of(cmake, "-S", root, "-B", folder, "-G", "Unix Makefiles", *options)
    output_of(cmake, "--build", folder, "--parallel", str(os.cpu_count()))
    return f"{folder}/bin/orvatool"


def loaded_store(tool):
    """The file that the tool's option store is loaded from."""
    path, = re.findall(r"libtroption\.so => (\S+)", output_of("ldd", tool))
    return os.path.realpath(path)


class PlainBuild(unittest.TestCase):
    def test_with_our_option_store_and_then_with_a_given_one(self):
        with tempfile.TemporaryDirectory() as folder:
            tool = build(folder)
            self.assertEqual(loaded_store(tool), f"{folder}/lib/libtroption.so")
            given = f"{folder}/given/libtroption.so"
            os.mkdir(os.path.dirname(given))
            # Without a soname: the tool must not take the path for one.
            output_of(compiler, "-shared", "-fPIC", "-I", root, "-o", given,
                      f"{root}/platform/troption.c")
            tool = build(folder, f"-DORVATOOL_TROPTION={given}")
            self.assertEqual(loaded_store(tool), given)
            needed = re.findall(r"\(NEEDED\).*\[(.*)\]", output_of("readelf", "-d", "-W", tool))
            self.assertIn("libtroption.so", needed)  # by its name, wherever it was given


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
