"""Getting the emulated terminal's packages: what is pinned, or with a word what there is."""

import contextlib
import dataclasses
import errno
import io
import os
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from board import lockfile, packages
from tests.board.mirror import FakeMirror

KERNEL, NEW_KERNEL = "linux-image-6.1.0-1-armmp:armhf", "linux-image-6.1.0-2-armmp:armhf"
RELEASE, NEW_RELEASE = "6.1.1-1", "6.1.2-1"
SHELL = "dash:armel"
OLD, PINNED, NEW = "1:1.0+b1", "1:1.5", "1:2.0"  # a file name writes the colon in another way
LIST = f"""\
cmake  # a package of this machine
{lockfile.KERNEL}
{SHELL}  # commands
musl:armel proof  # not the terminal's, and not on the mirror
"""
OTHER_SHELL = ("script/setup: the mirrors do not have the pinned dash:armel 1:1.5;"
               " going on with dash:armel 1:2.0\n")


class PackagesTest(unittest.TestCase):
    """A mirror with a kernel and a shell, both pinned, and an empty cache."""

    maxDiff = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        folder = Path(folder.name)
        self.mirror = FakeMirror(folder / "mirror")
        (folder / "packages").write_text(LIST)
        for change in (
                mock.patch.dict(os.environ, {"ORVATOOL_CACHE": str(folder / "cache"),
                                             "APT_CONFIG": str(self.mirror.settings)}),
                mock.patch.object(lockfile, "LIST", folder / "packages"),
                mock.patch.object(lockfile, "LOCK", folder / "packages.lock"),
                mock.patch.object(packages, "PAUSES_S", (0, 0))):
            change.start()
            self.addCleanup(change.stop)
        self.pins = {KERNEL: self.add_kernel(KERNEL, RELEASE), SHELL: self.add(SHELL, PINNED)}
        lockfile.write(self.pins.values())

    def add(self, full_name, version, **more):
        """Adds a package to the mirror. Returns what pins it."""
        return lockfile.Package(*full_name.split(":"), version,
                                self.mirror.add(full_name, version, **more))

    def add_kernel(self, full_name, version):
        """Adds a kernel and the package that depends on it."""
        name = full_name.partition(":")[0]
        self.mirror.add(lockfile.KERNEL, version, depends=f"{name} (= {version})")
        modules = f"lib/modules/{version}/modules"
        return self.add(full_name, version, files=(f"{modules}.order", f"{modules}.builtin"))

    def replace_shell(self):
        """Puts a new version of the shell in the place of the pinned one."""
        self.mirror.add(SHELL, NEW)
        self.mirror.remove(SHELL, PINNED)

    def make_old(self):
        """Gets a substitute and lets the time pass after which the mirrors are asked again."""
        self.replace_shell()
        self.call(packages.fetch)
        note = packages.substitute() / packages.NOTE
        os.utime(note, (0, note.stat().st_mtime - packages.ASK_AGAIN_S - 1))

    def call(self, function, error=None):
        """Calls the function, which may have to raise an error. Returns what the user is told."""
        told = io.StringIO()
        with contextlib.redirect_stderr(told):
            with self.assertRaises(error) if error else contextlib.nullcontext():
                function()
        return told.getvalue()

    def assert_unpacked(self, folder, release=RELEASE, shell=PINNED):
        """This folder is the one in use, with these versions of kernel and shell."""
        self.assertEqual(packages.root(), folder)
        self.assertEqual(os.listdir(folder / "lib/modules"), [release])
        self.assertEqual([name for name in os.listdir(folder / "usr/share") if "dash" in name],
                         [f"dash-{shell}"])


class Fetch(PackagesTest):
    def test_gets_what_is_pinned(self):
        self.mirror.add(SHELL, NEW)
        self.mirror.add(SHELL, OLD)
        self.add_kernel(NEW_KERNEL, NEW_RELEASE)
        self.assertEqual(self.call(packages.fetch), "")
        self.assert_unpacked(packages.unpacked())

    def test_asks_nobody_when_it_is_there(self):
        self.call(packages.fetch)
        self.mirror.use("gone")
        with mock.patch.object(packages, "Mirror", side_effect=AssertionError):
            self.assertEqual(self.call(packages.fetch), "")
        self.assert_unpacked(packages.unpacked())

    def test_of_another_lock_goes_into_another_folder(self):
        self.call(packages.fetch)
        before = packages.unpacked()
        lockfile.write([self.pins[KERNEL], self.add(SHELL, NEW)])
        with self.assertRaises(SystemExit):
            packages.root()
        self.call(packages.fetch)
        self.assertNotEqual(packages.unpacked(), before)
        self.assert_unpacked(packages.unpacked(), shell=NEW)

    def test_goes_on_without_an_index_that_fails(self):
        self.mirror.use("gone", "pool")
        self.assertEqual(self.call(packages.fetch), "")
        self.assert_unpacked(packages.unpacked())

    def test_tries_again_before_it_takes_another_version(self):
        self.replace_shell()
        self.mirror.use("pool", "gone")

        def heal(_):
            if heal.calls.pop():
                self.mirror.add(SHELL, PINNED)
                self.mirror.use("pool")
        heal.calls = [True, False]
        with mock.patch("time.sleep", heal):
            self.assertEqual(self.call(packages.fetch),
                             "script/setup: could not get the package dash:armel 1:1.5\n")
        self.assert_unpacked(packages.unpacked())

    def test_names_what_cannot_be_had(self):
        self.mirror.use("gone")
        told = "".join(f"script/setup: could not get the package {pin}\n"
                       for pin in sorted(self.pins.values(), key=str))
        self.assertEqual(self.call(packages.fetch, packages.Unavailable), told * 2)
        with self.assertRaises(SystemExit):
            packages.root()

    def test_refuses_another_content(self):
        wrong = dataclasses.replace(self.pins[SHELL], sha256="0" * 64)
        lockfile.write([self.pins[KERNEL], wrong])
        self.assertEqual(self.call(packages.fetch, packages.WrongContent),
                         "script/setup: refused dash:armel 1:1.5: its SHA-256 is"
                         f" {self.pins[SHELL].sha256}, the pinned one is {'0' * 64}\n" * 2)
        with self.assertRaises(SystemExit):
            packages.root()

    def test_wants_a_lock_that_fits_the_list(self):
        for pins in [self.pins[KERNEL]], [*self.pins.values(), self.add("libc6:armel", NEW)]:
            lockfile.write(pins)
            self.call(packages.fetch, lockfile.Mismatch)


class Substitute(PackagesTest):
    def test_is_named(self):
        self.replace_shell()
        self.assertEqual(self.call(packages.fetch), OTHER_SHELL)
        self.assert_unpacked(packages.substitute(), shell=NEW)

    def test_is_taken_in_the_end_when_an_index_fails(self):
        self.replace_shell()
        self.mirror.use("gone", "pool")
        self.assertEqual(self.call(packages.fetch),
                         "script/setup: could not get the package dash:armel 1:1.5\n" + OTHER_SHELL)
        self.assert_unpacked(packages.substitute(), shell=NEW)

    def test_of_the_kernel_has_another_name(self):
        self.add_kernel(NEW_KERNEL, NEW_RELEASE)
        self.mirror.remove(KERNEL, RELEASE)
        self.assertEqual(self.call(packages.fetch),
                         f"script/setup: the mirrors do not have the pinned {KERNEL} {RELEASE};"
                         f" going on with {NEW_KERNEL} {NEW_RELEASE}\n")
        self.assert_unpacked(packages.substitute(), release=NEW_RELEASE)

    def test_is_used_and_named_again_without_asking(self):
        self.replace_shell()
        self.call(packages.fetch)
        with mock.patch.object(packages, "Mirror", side_effect=AssertionError):
            self.assertEqual(self.call(packages.fetch), OTHER_SHELL)
        self.assert_unpacked(packages.substitute(), shell=NEW)

    def test_gives_way_to_what_is_pinned(self):
        self.make_old()
        self.mirror.add(SHELL, PINNED)
        self.assertEqual(self.call(packages.fetch), "")
        self.assert_unpacked(packages.unpacked())
        self.assertFalse(packages.substitute().exists())

    def test_stays_when_nothing_can_be_reached(self):
        self.make_old()
        self.mirror.use("gone")
        self.assertTrue(self.call(packages.fetch).endswith(OTHER_SHELL))
        self.assert_unpacked(packages.substitute(), shell=NEW)
        with mock.patch.object(packages, "Mirror", side_effect=AssertionError):
            self.assertEqual(self.call(packages.fetch), OTHER_SHELL)

    def test_does_not_hide_another_content(self):
        self.make_old()
        self.add(SHELL, PINNED, files=("other",))
        self.call(packages.fetch, packages.WrongContent)


class ReadOnlyCache(PackagesTest):
    """Nothing can be put into the cache: it is somebody else's, or its medium is read-only."""

    def fetch_read_only(self):
        refusal = PermissionError(errno.EACCES, "Permission denied")
        with mock.patch.object(packages, "open", create=True, side_effect=refusal):
            return self.call(packages.fetch)

    def test_that_is_filled_will_do(self):
        self.call(packages.fetch)
        self.assertEqual(self.fetch_read_only(), "")
        self.assert_unpacked(packages.unpacked())

    def test_that_is_filled_with_substitutes_will_do(self):
        self.replace_shell()
        self.call(packages.fetch)
        self.assertEqual(self.fetch_read_only(), OTHER_SHELL)

    def test_with_old_substitutes_will_do(self):
        self.make_old()
        self.mirror.add(SHELL, PINNED)
        self.assertEqual(self.fetch_read_only(), OTHER_SHELL)
        self.assert_unpacked(packages.substitute(), shell=NEW)

    def test_that_is_empty_is_named_with_the_way_out(self):
        with self.assertRaisesRegex(packages.Unavailable, "^nothing can be put into .*/cache:"
                                    " Permission denied; ORVATOOL_CACHE names another cache"):
            self.fetch_read_only()

    def test_of_a_user_without_home_is_refused(self):
        with mock.patch.dict(os.environ), mock.patch.object(Path, "home", side_effect=RuntimeError):
            del os.environ["ORVATOOL_CACHE"]
            os.environ.pop("XDG_CACHE_HOME", None)
            with self.assertRaisesRegex(SystemExit, "this user has no home; ORVATOOL_CACHE"):
                packages.fetch()


class Renew(PackagesTest):
    def test_pins_what_there_is_in_the_order_of_names(self):
        kernel = self.add_kernel(NEW_KERNEL, NEW_RELEASE)
        shell = self.add(SHELL, NEW)
        self.assertEqual(self.call(packages.renew), "")
        self.assertEqual(lockfile.LOCK.read_text(), f"""\
{lockfile.HEAD}dash armel {NEW} {shell.sha256}
linux-image-6.1.0-2-armmp armhf {NEW_RELEASE} {kernel.sha256}
""")
        self.assertEqual(self.call(packages.fetch), "")
        self.assert_unpacked(packages.unpacked(), NEW_RELEASE, NEW)

    def test_needs_no_lock(self):
        before = lockfile.LOCK.read_text()
        lockfile.LOCK.unlink()
        self.call(packages.renew)
        self.assertEqual(lockfile.LOCK.read_text(), before)

    def test_changes_nothing_when_a_package_is_missing(self):
        before = lockfile.LOCK.read_text()
        for full_name, version in (SHELL, PINNED), (lockfile.KERNEL, RELEASE):
            self.mirror.remove(full_name, version)
            self.call(packages.renew, packages.Unavailable)
            self.assertEqual(lockfile.LOCK.read_text(), before)
            self.add(SHELL, PINNED)

    def test_tells_that_an_index_failed(self):
        before = lockfile.LOCK.read_text()
        lockfile.LOCK.unlink()
        self.mirror.use("pool", "gone")
        self.assertEqual(self.call(packages.renew), "script/setup: a package index failed;"
                         " pinned is what the others list\n")
        self.assertEqual(lockfile.LOCK.read_text(), before)


class Lock(unittest.TestCase):
    def test_pins_all_packages_of_the_terminal(self):
        pins = lockfile.pinned()
        self.assertEqual(pins, sorted(pins))
        for pin in pins:
            self.assertRegex(pin.sha256, r"^[0-9a-f]{64}$")


if __name__ == "__main__":
    unittest.main()
