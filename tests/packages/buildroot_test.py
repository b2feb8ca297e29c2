"""The external tree for Buildroot, as far as it can be tried without Buildroot.

The makefile is read by make, with Buildroot's flags; the options by a program of the same kind as
Buildroot's. Not tried are its checks of a package's legal data and style.
"""

import unittest

from tests.packages.packages import ROOT
from tests.packages.recipes import TOOLCHAIN, RecipeTest
from tests.support.succeeding import run

EXTERNAL = ROOT / "packaging/buildroot"
STUB = ROOT / "tests/packages/buildroot.mk"
NEEDS = ("USE_MMU", "INSTALL_LIBSTDCPP", "TOOLCHAIN_HAS_THREADS", "TOOLCHAIN_GCC_AT_LEAST_10")
# The options that ours ask for, and what is chosen.
OPTIONS = """
config BR2_EXTERNAL_ORVATOOL_PATH
	string
	option env="BR2_EXTERNAL_ORVATOOL_PATH"
config BR2_STATIC_LIBS
	bool "static"
config BR2_ENDIAN
	string
	default "{endian}"
{needs}
source "{external}/Config.in"
"""


class Buildroot(RecipeTest):
    def _build(self, *words):
        run("make", "-f", STUB, f"EXTERNAL={EXTERNAL}", f"OUTPUT={self.folder}",
            f"TOOLCHAIN={TOOLCHAIN}", *words)
        return self.folder / "target"

    def test_installs_tool_and_library_with_narrow_types(self):
        self.assert_terminal_s(self._build(), standins=False)
        with self.subTest("stand-in"):
            self.assert_terminal_s(self._build("BR2_PACKAGE_ORVATOOL_STANDINS=y"), standins=True)

    def _chosen(self, without=(), endian="LITTLE"):
        """The options that are left of a choice of ours on a system without some."""
        needs = "".join(f'config BR2_{name}\n\tbool "{name}"\n' for name in NEEDS)
        (self.folder / "Config.in").write_text(OPTIONS.format(needs=needs, endian=endian,
                                                                external=EXTERNAL))
        wanted = (*(name for name in NEEDS if name not in without), "PACKAGE_ORVATOOL",
                  "PACKAGE_ORVATOOL_STANDINS")
        (self.folder / ".config").write_text("".join(f"BR2_{name}=y\n" for name in wanted))
        run("kconfig-conf", "--olddefconfig", "Config.in", cwd=self.folder,
            env={"PATH": "/usr/bin:/bin", "CONFIG_": "",
                 "BR2_EXTERNAL_ORVATOOL_PATH": str(EXTERNAL)})
        return (self.folder / ".config").read_text(encoding="ascii")

    def test_can_be_chosen_where_its_needs_are_met(self):
        chosen = self._chosen()
        self.assertIn("BR2_PACKAGE_ORVATOOL=y\n", chosen)
        self.assertIn("BR2_PACKAGE_ORVATOOL_STANDINS=y\n", chosen)
        for need in NEEDS:
            with self.subTest(need=need):
                self.assertNotIn("BR2_PACKAGE_ORVATOOL=y\n", self._chosen((need,)))
        with self.subTest("big-endian"):
            self.assertNotIn("BR2_PACKAGE_ORVATOOL=y\n", self._chosen(endian="BIG"))


if __name__ == "__main__":
    unittest.main(verbosity=2)
