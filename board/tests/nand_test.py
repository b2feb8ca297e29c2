"""The number in the flash: the whole of it compared before and after, and the requests' order."""

import random
import struct

from board.tests.support.devices import DeviceTest

PAGE = 2048
PAGES = 1024
FIRST, COUNT = 512, 65
BLOCK, BLOCK_PAGES = 8, 64
READ, WRITE, ERASE = 11, 12, 15
ERROR = -5
ERASED_PAGE = b"\xff" * PAGE
WRITTEN = "write 65 pages to nand\nNandSetRote 1\n"


def new_flash():
    """A flash without a page that equals another one, or an erased one."""
    return random.Random(8).randbytes(PAGES * PAGE)


def with_page(flash, number, page):
    """The flash with another page in it."""
    return flash[:number * PAGE] + page + flash[(number + 1) * PAGE:]


def with_number(flash, number):
    """The flash with the number in its place, little-endian."""
    place = FIRST * PAGE + 4
    return flash[:place] + struct.pack("<I", number) + flash[place + 4:]


def reads(device="nand"):
    """The requests that read the region, each with an empty record."""
    return [f"{device} {READ} {page} 0 -" for page in range(FIRST, FIRST + COUNT)]


def erase(device="nand"):
    """The request that erases the block, as far as it means anything."""
    return f"{device} {ERASE} {BLOCK} "


def writes(flash, device="nand"):
    """The requests that write the region."""
    return [f"{device} {WRITE} {page} 0 {flash[page * PAGE:][:8].hex()}"
            for page in range(FIRST, FIRST + COUNT)]


class Nand(DeviceTest):

    def set_number(self, text, answers="", devices=("gpio", "nand"), opened="OpenGpioNand 1\n"):
        """Sets the number in a new flash. Returns what was printed behind the opening."""
        self.serve(*devices, answers=answers, flash=new_flash())
        output = self.splash("OpenGpioNand", f"NandSetRote={text}")
        self.assertTrue(output.startswith(opened), output)
        return output.removeprefix(opened)

    def assert_flash(self, expected):
        """Every page is as expected; others are named."""
        flash = self.flash()
        self.assertEqual(len(flash), PAGES * PAGE)
        self.assertEqual([page for page in range(PAGES)
                          if flash[page * PAGE:][:PAGE] != expected[page * PAGE:][:PAGE]], [])

    def assert_requests(self, written, device="nand"):
        """The region was read, the block erased and this written; with None nothing was."""
        requests = self.requests()
        self.assertEqual(requests[:COUNT], reads(device))
        self.assertTrue(requests[COUNT].startswith(erase(device)), requests[COUNT])
        self.assertEqual(requests[COUNT + 1:],
                         [] if written is None else writes(written, device))

    def test_number(self):
        self.assertEqual(self.set_number("0x12345678"), f"Rote=0x12345678, 305419896\n{WRITTEN}")
        expected = with_number(new_flash(), 0x12345678)
        self.assert_requests(expected)
        self.assert_flash(expected)

    def test_bases_and_bounds(self):
        self.serve("gpio", "nand", flash=new_flash())
        flash = new_flash()
        for text, number, shown in (("16", 16, 16), ("010", 8, 8), ("4294967295", 0xFFFFFFFF, -1)):
            self.assertEqual(self.splash("OpenGpioNand", f"NandSetRote={text}"),
                             f"OpenGpioNand 1\nRote={text}, {shown}\n{WRITTEN}")
            flash = with_number(flash, number)
            self.assertEqual(self.requests()[-COUNT:], writes(flash))

    def test_failing_erase(self):
        self.assertEqual(self.set_number("16", answers=f"{ERASE} {BLOCK} {ERROR} 0\n"),
                         "Rote=16, 16\nNandSetRote 0\n")
        self.assert_requests(None)
        self.assert_flash(new_flash())

    def test_pages_that_cannot_be_read(self):
        # 512 gets the number, 520 fails by a positive result. 576 is not erased and flash can
        # only be cleared without that: writing FF there changes nothing.
        answers = "".join(
            f"{READ} {page} {result} 0\n"
            for page, result in ((FIRST, ERROR), (520, 1), (575, ERROR), (576, ERROR)))
        self.assertEqual(self.set_number("0x10", answers), f"Rote=0x10, 16\n{WRITTEN}")
        expected = new_flash()
        for page in FIRST, 520, 575:
            expected = with_page(expected, page, ERASED_PAGE)
        expected = with_number(expected, 16)
        self.assert_requests(with_page(expected, 576, ERASED_PAGE))
        self.assert_flash(expected)

    def test_failing_writes_are_not_noticed(self):
        answers = f"{WRITE} 513 {ERROR} 0\n{WRITE} 575 {ERROR} 0\n"
        self.assertEqual(self.set_number("0x10", answers), f"Rote=0x10, 16\n{WRITTEN}")
        expected = with_number(new_flash(), 16)
        self.assert_requests(expected)
        for page in 513, 575:
            expected = with_page(expected, page, ERASED_PAGE)
        self.assert_flash(expected)

    def test_no_flash_device(self):
        # All goes to the pins' driver, which here understands it.
        self.assertEqual(self.set_number("0x10", devices=("gpio",),
                                         opened="Error: open dev/nand\nOpenGpioNand 1\n"),
                         f"Rote=0x10, 16\n{WRITTEN}")
        expected = with_number(new_flash(), 16)
        self.assert_requests(expected, "gpio")
        self.assert_flash(expected)

    def test_no_devices(self):
        invalid = "invalid operation!\n"
        self.assertEqual(self.splash("NandSetRote=0x10"),
                         f"Rote=0x10, 16\n:Nand_Block_isBad:390 {invalid}"
                         + invalid * (COUNT + 1) + "NandSetRote 0\n")
