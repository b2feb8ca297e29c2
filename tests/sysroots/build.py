"""The product and C callers built with a sysroot, in the way that docs/old-terminals.md tells."""

import re
import shlex
import shutil
from pathlib import Path

from tests.support.succeeding import run
from tests.sysroots import packages

ROOT = Path(__file__).parents[2]
TOOLCHAIN = ROOT / "cmake/terminal-sysroot.cmake"
WARNINGS = ("-Wall", "-Wextra", "-Werror")
C_COMPILER = "arm-linux-gnueabi-gcc"
CXX_COMPILER = "arm-linux-gnueabi-g++"


class Build:
    """The product, built and installed."""

    def __init__(self, name):
        self.folder = ROOT / "build" / f"sysroot-{name}"
        shutil.rmtree(self.folder, ignore_errors=True)
        # A copy, because some tests are another user, who may not see the cache.
        self.sysroot = self.folder / "sysroot"
        shutil.copytree(packages.sysroot(name), self.sysroot, symlinks=True)
        self.installed = self.folder / "installed"
        run("cmake", "-S", ROOT, "-B", self.folder, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=MinSizeRel",
            f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}", f"-DCMAKE_SYSROOT={self.sysroot}",
            "-DORVATOOL_WERROR=ON", "-DORVATOOL_INSTALL_STANDINS=ON")
        run("cmake", "--build", self.folder)
        run("cmake", "--install", self.folder, "--prefix", self.installed)
        self.tool = self.folder / "bin/orvatool"
        self.emulator = ["qemu-arm", "-L", str(self.sysroot)]
        self.headers = sorted(path.relative_to(self.installed / "include")
                              for path in (self.installed / "include").rglob("*.h"))

    def flags(self, language="C"):
        """What the toolchain file gives to every compilation of the language."""
        cache = (self.folder / "CMakeCache.txt").read_text(encoding="utf-8")
        names = rf"CMAKE_({language}|EXE_LINKER)_FLAGS"
        found = re.findall(rf"^{names}:\w+=(.*)$", cache, flags=re.MULTILINE)
        return [f"--sysroot={self.sysroot}"] + [word for _, text in found
                                                for word in shlex.split(text)]

    def compile(self, output, *words, compiler=C_COMPILER, language="C"):
        """Compiles as the product is compiled."""
        run(compiler, *self.flags(language), *WARNINGS, "-o", output, *words, cwd=ROOT)
        return output

    def objects(self):
        """The library's objects and the tool's, but for its main."""
        return sorted(self.folder.glob("CMakeFiles/or*_objects.dir/**/*.o"))

    def emulated(self, program, *arguments, **variables):
        """Runs a program. Returns what it prints."""
        variables = {"TZ": "UTC0", "LD_LIBRARY_PATH": self.installed / "lib", **variables}
        words = [word for name, value in variables.items() for word in ("-E", f"{name}={value}")]
        return run(*self.emulator, *words, program, *arguments)

    def needed_versions(self, file):
        """The versions of the C library's symbols that a file needs."""
        symbols = run("arm-linux-gnueabi-nm", "-D", "--undefined-only", file)
        return set(re.findall(r"@(\S+)", symbols))
