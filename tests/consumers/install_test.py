"""What `cmake --install` puts where, and that orvatool_uninstall takes all of it away.

The build folder is one of the test's own, with the files that the target's build folder has.
"""

import os
import re
import shutil

from tests.consumers import target
from tests.consumers.target import output_of

VERSION = re.search(r'ORVAUTIL_VERSION "(.*)"', (target.BUILD / "include/orvautil/config.h")
                    .read_text(encoding="ascii")).group(1)
FOLDERS = {"SBINDIR": "sbin", "LIBDIR": "lib", "INCLUDEDIR": "include", "MANDIR": "share/man"}
FILES = {
    "SBINDIR": {"orvatool"},
    "LIBDIR": {"liborvautil.a", "liborvautil.so", "liborvautil.so.1", f"liborvautil.so.{VERSION}",
               "pkgconfig/orvautil.pc", "cmake/orvautil/orvautil-config.cmake",
               "cmake/orvautil/orvautil-config-version.cmake",
               "cmake/orvautil/orvautil-targets.cmake",
               "cmake/orvautil/orvautil-targets-none.cmake"},
    "INCLUDEDIR": {f"orvautil/{name}.h" for name in (
        "config", "fileutils", "log", "timeutils", "timeutils/calendars", "timeutils/clock",
        "timeutils/ethernet", "timeutils/texts", "timeutils/values", "trstrutils")},
    "MANDIR": {"man8/orvatool.8", "man3/orvautil.3"} | {f"man3/orvautil_{name}.3" for name in (
        "fileutils", "log", "timeutils", "timeutils_calendars", "timeutils_clock",
        "timeutils_ethernet", "timeutils_texts", "timeutils_values", "trstrutils")},
}


def contents(folder):
    """Every file and folder below it, by its path from there."""
    return {str(path.relative_to(folder)) for path in folder.rglob("*")}


class InstallTest(target.ConfigureTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for name in "bin", "lib", "man3":
            shutil.copytree(target.BUILD / name, cls.build / name, symlinks=True)
        shutil.copy(target.BUILD / "liborvautil.a", cls.build)
        cls.options = None  # of the last configuration, which takes longer than all else

    def setUp(self):
        super().setUp()
        self.root = self.folder / "a root [1] für alle"
        self.root.mkdir()

    def install(self, *options):
        if options != self.options:
            type(self).options = options
            self.assert_ends(self.configured(
                "-DCMAKE_INSTALL_PREFIX=/opt/terminal", "-DCMAKE_BUILD_TYPE=None",
                "-UORVATOOL_INSTALL*", *(f"-UCMAKE_INSTALL_{each}" for each in FOLDERS),
                *options), 0)
        output_of([target.CMAKE, "--install", self.build], DESTDIR=str(self.root))

    def uninstall(self, destdir=None):
        return target.run([target.CMAKE, "--build", self.build, "--target", "orvatool_uninstall"],
                          DESTDIR=str(self.root) if destdir is None else destdir)

    def assert_installed(self, folders):
        """Exactly our files are there, in these folders."""
        expected = {os.path.join("/opt/terminal", folders[kind], name)
                    for kind, names in FILES.items() for name in names}
        found = {f"/{name}" for name in contents(self.root) if not (self.root / name).is_dir()}
        self.assertEqual(found, expected, f"missing {expected - found}, more {found - expected}")


class Places(InstallTest):
    def assert_found_by_pkg_config(self, folders):
        """By its own place, wherever the root folder was moved."""
        moved = self.folder / "moved"
        self.root.rename(moved)
        libraries = moved / "opt/terminal" / folders["LIBDIR"].lstrip("/")
        if folders["LIBDIR"].startswith("/"):
            libraries = moved / folders["LIBDIR"][1:]
        for word, variable in (("LIBDIR", "libdir"), ("INCLUDEDIR", "includedir")):
            told = output_of(f"pkg-config --variable={variable} orvautil",
                             PKG_CONFIG_LIBDIR=f"{libraries}/pkgconfig").strip()
            folder = os.path.join("/opt/terminal", folders[word])
            self.assertEqual(os.path.realpath(told), f"{moved}{folder}", told)

    def test_usual_ones(self):
        self.install()
        self.assert_installed(FOLDERS)
        self.assert_found_by_pkg_config(FOLDERS)

    def test_folders_of_the_prefix(self):
        folders = {"SBINDIR": "bin", "LIBDIR": "lib/arm", "INCLUDEDIR": "inc",
                   "MANDIR": "share/my man"}
        options = [f"-DCMAKE_INSTALL_{name}={path}" for name, path in folders.items()]
        self.install(*options)
        self.assert_installed(folders)
        self.assert_ends(self.uninstall(), 0)
        self.assertEqual(contents(self.root), set(), "what is left")
        self.install(*options)
        self.assert_found_by_pkg_config(folders)

    def test_absolute_folders(self):
        folders = {"SBINDIR": "/sbin", "LIBDIR": "/lib/arm", "INCLUDEDIR": "/usr/include",
                   "MANDIR": "/usr/share/man"}
        self.install(*(f"-DCMAKE_INSTALL_{name}={path}" for name, path in folders.items()))
        self.assert_installed(folders)
        self.assert_found_by_pkg_config(folders)

    def test_stand_in_only_when_it_is_asked_for(self):
        self.install("-DORVATOOL_INSTALL_STANDINS=ON")
        library = self.root / "opt/terminal/lib/libtroption.so"
        self.assertTrue(library.is_file(), "no stand-in")
        library.unlink()
        self.assert_installed(FOLDERS)

    def test_nothing_when_it_is_switched_off(self):
        self.install("-DORVATOOL_INSTALL=OFF")
        self.assertEqual(contents(self.root), set(), "something was installed")


class Uninstall(InstallTest):
    def test_leaves_what_was_there_and_nothing_else(self):
        (self.root / "opt/terminal/lib/cmake/other").mkdir(parents=True)
        (self.root / "opt/terminal/include/orvautil").mkdir(parents=True)
        (self.root / "opt/terminal/include/orvautil/own.h").write_text("", encoding="ascii")
        before = contents(self.root)
        self.install()
        self.assertGreater(contents(self.root), before, "nothing was installed")
        self.assert_ends(self.uninstall(), 0)
        self.assertEqual(contents(self.root), before, "what is left")

    def test_leaves_what_came_afterwards(self):
        self.install()
        self.install()  # once more: the folders are there then
        own = self.root / "opt/terminal/share/man/man8/own.8"
        own.write_text("", encoding="ascii")
        self.assert_ends(self.uninstall(), 0)
        self.assertEqual(contents(self.root), {
            str(path.relative_to(self.root)) for path in (own, *own.parents)
            if self.root in path.parents}, "what is left")

    def test_of_a_prefix_below_the_current_folder_leaves_nothing(self):
        self.install()
        self.assert_ends(self.uninstall(), 0)
        output_of([target.CMAKE, "--install", self.build, "--prefix", "here"], self.root, DESTDIR="")
        self.assertTrue((self.root / "here/sbin/orvatool").is_file(), "nothing was installed")
        self.assert_ends(self.uninstall(""), 0)
        self.assertEqual(contents(self.root), set(), "what is left")

    def test_refuses_another_root_folder_than_that_of_the_installation(self):
        self.install()
        before = contents(self.root)
        for other in "", f"{self.folder}/other":
            with self.subTest(destdir=other):
                self.assert_ends(self.uninstall(other), 2, "It was installed with DESTDIR="
                                 f'"{self.root}", and now DESTDIR is "{other}": nothing was'
                                 " removed. Give the first one.")
        self.assertEqual(contents(self.root), before, "what is left")
        # Of one component: what is noted of the whole one stays.
        output_of([target.CMAKE, "--install", self.build, "--component", "Unspecified",
                   "--prefix", self.folder / "other"])
        self.assert_ends(self.uninstall(), 0)
        self.assertEqual(contents(self.root), set(), "what is left")

    def test_knows_a_root_folder_that_was_given_from_another_one(self):
        self.install()  # configures
        output_of([target.CMAKE, "--install", self.build], self.folder, DESTDIR="root")
        self.assert_ends(self.uninstall(f"{self.folder}/root"), 0)
        self.assertFalse((self.folder / "root").exists(), "it is left")

    def test_twice_tells_that_nothing_is_installed(self):
        self.install()
        self.assert_ends(self.uninstall(), 0)
        self.assertEqual(contents(self.root), set(), "what is left")
        ended = self.uninstall()
        self.assertNotEqual(ended.returncode, 0, "it ends with success")
        self.assertIn("Nothing was installed from", ended.stdout + ended.stderr, "the reason")
