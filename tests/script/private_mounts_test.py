"""Where tests/process/private_mounts runs a command, and how it says that it cannot."""

import unittest

from tests.script.commands import ROOT, CommandTest
from tests.support import fake_commands

FAILS = "echo 'unshare: not permitted' >&2; exit 1"
NAMESPACE_OF_ROOT = f'case "$*" in *--map-root-user*) shift 2; exec "$@" ;; esac; {FAILS}'


class PrivateMounts(CommandTest):
    """`unshare` is a fake, and what it starts is not in a namespace: `mount` does nothing."""

    def run_with(self, unshare, command=f"'{ROOT}/tests/process/private_mounts' echo run"):
        fake_commands.write(self.folder, {"unshare": unshare, "mount": ":"})
        return self.run_command(f"PATH=$PWD:$PATH {command}")

    def test_root_needs_no_other_namespace(self):
        self.assertEqual(self.run_with('shift; exec "$@"'), (0, "run\n"))

    def test_others_become_root_of_a_new_one(self):
        self.assertEqual(self.run_with(NAMESPACE_OF_ROOT), (0, "run\n"))

    def test_without_either_it_is_skipped_with_the_reasons(self):
        self.assertEqual(self.run_with(FAILS), (
            77, "skipped: nothing can be mounted here, not even in private"
            " (unshare: not permitted; unshare: not permitted)\n"))

    def test_without_either_no_call_is_let_fail(self):
        (self.folder / "tests").symlink_to(ROOT / "tests")
        self.assertEqual(self.run_with(FAILS, "script/inject"), (
            1, "script/inject: no call can be tried: nothing can be mounted here, not even in"
            " private (unshare: not permitted; unshare: not permitted)\n"))


if __name__ == "__main__":
    unittest.main()
