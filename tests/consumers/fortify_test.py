"""_FORTIFY_SOURCE, which renames platform functions: off, whatever the flags, unless asked for."""

import json
import os
import re

from tests.consumers import target
from tests.consumers.target import output_of

PRODUCT = re.compile(r"/(?:log|splash|tool|udisk|util)/[\w/]+\.cpp$")


class Fortify(target.ConfigureTest):
    def needed(self, *options):
        """What the tool's main needs of other objects, with the flags of a packager."""
        flags = "-O2 -D_FORTIFY_SOURCE=2"
        self.assert_ends(self.configured("-DCMAKE_BUILD_TYPE=None", f"-DCMAKE_C_FLAGS={flags}",
                                         f"-DCMAKE_CXX_FLAGS={flags}",
                                         "-UORVATOOL_FORTIFY", *options), 0)
        output_of([target.CMAKE, "--build", self.build, "--target", "orvatool_main"])
        object_, = self.build.glob("CMakeFiles/orvatool_main.dir/**/*.o")
        return re.findall(r" U (\S+)", output_of([os.environ["NM"], "-u", object_]))

    def hooked(self):
        """Whether each source of the product is compiled without it."""
        commands = json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8"))
        found = [each["command"] for each in commands if PRODUCT.search(each["file"])]
        self.assertGreater(len(found), 30, "too few sources")
        return {bool(re.search(r"-D_FORTIFY_SOURCE=2 .*-U_FORTIFY_SOURCE ", each))
                for each in found}

    def test_off_by_default(self):
        needed = self.needed()
        self.assertIn("snprintf", needed, needed)
        self.assertEqual([name for name in needed if name.endswith("_chk")], [], needed)
        self.assertEqual(self.hooked(), {True}, "a source is compiled with it")

    def test_on_when_asked_for(self):
        needed = self.needed("-DORVATOOL_FORTIFY=ON")
        self.assertIn("__snprintf_chk", needed, needed)
        self.assertEqual(self.hooked(), {False}, "a source is compiled without it")
