"""Where tests make folders that a program lists: in memory, or not under an emulator."""

import unittest
from unittest import mock

from tests.support import work_place

DISK = "/proc"  # no tmpfs either


class WorkPlace(unittest.TestCase):
    def setUp(self):
        for name in "MEMORY", "tempfile.gettempdir":
            value = DISK if name == "MEMORY" else lambda: DISK
            change = mock.patch(f"tests.support.work_place.{name}", value)
            change.start()
            self.addCleanup(change.stop)

    def test_of_an_emulated_program_is_in_memory(self):
        with self.assertRaisesRegex(unittest.SkipTest, f"^{DISK} is no tmpfs"):
            work_place.work_place(is_emulated=True)

    def test_of_this_machines_is_any(self):
        self.assertEqual(work_place.work_place(is_emulated=False), DISK)

    def test_is_in_memory_where_it_can_be(self):
        with mock.patch.object(work_place, "is_in_memory", lambda folder: folder == DISK):
            self.assertEqual(work_place.work_place(is_emulated=True), DISK)


if __name__ == "__main__":
    unittest.main()
