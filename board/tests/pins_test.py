"""Pins behind a real character device: which requests reach the driver, with what in them."""

from board.tests.support.devices import DeviceTest

INVALID = "invalid operation!\n"
NO_GPIO = "Error: open dev/gpio\nOpenGpioNand 0\n"


class Pins(DeviceTest):

    def test_commands(self):
        self.serve("gpio", "nand")
        self.assertEqual(
            self.splash("OpenGpioNand", "GpioPinCmd1=7,1", "GpioPinCmd1=7,0", "GpioPinCmd3=260,1",
                        "GpioPinCmd3=8,0", "GpioPinCmd1=7,2", "GpioPinCmd3=7,-1"),
            "OpenGpioNand 1\nGpioPinCmd1 0\nGpioPinCmd1 0\nGpioPinCmd3 0\nGpioPinCmd3 0\n"
            "GpioPinCmd1 0\nGpioPinCmd3 0\n")
        self.assertEqual(self.requests(), ["gpio 1 7 1 -", "gpio 1 7 0 -", "gpio 3 260 1 -",
                                           "gpio 3 8 0 -"])

    def test_reads_what_the_driver_fills_in(self):
        self.serve("gpio", "nand", answers="4 7 0 1\n4 8 0 77\n4 9 -5 1\n")
        self.assertEqual(
            self.splash("OpenGpioNand", *(f"GpioReadPin={pin}" for pin in (6, 7, 8, 9))),
            "OpenGpioNand 1\nGpioReadPin 0\nGpioReadPin 1\nGpioReadPin 77\n"
            "GpioReadPin 0\n")  # a failing request fills nothing in
        self.assertEqual(self.requests(), [f"gpio 4 {pin} 0 -" for pin in (6, 7, 8, 9)])

    def test_bytes(self):
        # The two words of this request mean nothing.
        self.serve("gpio", "nand", answers="16 -1 42 0\n")
        self.assertEqual(
            self.splash("OpenGpioNand", "GpioPutBytes=a1b2c3d4e5f60708,8",
                        "GpioPutBytes=010203040506,6", "GpioPutBytes=0102030405,5"),
            "OpenGpioNand 1\nGpioPutBytes 42\nGpioPutBytes 42\nGpioPutBytes -1\n")
        self.assertEqual([(*request.split()[:2], request.split()[-1])
                          for request in self.requests()],
                         [("gpio", "16", "a1b2c3d4e5f6"), ("gpio", "16", "010203040506")])

    def test_bytes_that_the_driver_refuses(self):
        self.serve("gpio", "nand", answers="16 -1 -22 0\n")
        self.assertEqual(self.splash("OpenGpioNand", "GpioPutBytes=010203040506,6"),
                         "OpenGpioNand 1\nGpioPutBytes -1\n")

    def test_last_close_closes_the_pins_only(self):
        self.serve("gpio", "nand", answers="4 7 0 1\n")
        self.assertEqual(
            self.splash("OpenGpioNand", "OpenGpioNand", "CountDescriptors", "CloseGpioNand",
                        "GpioReadPin=7", "CloseGpioNand", "CountDescriptors", "GpioReadPin=7",
                        "OpenGpioNand", "NandSetRote=1"),
            "OpenGpioNand 1\nOpenGpioNand 1\nCountDescriptors 5\nCloseGpioNand 1\n"
            "GpioReadPin 1\nCloseGpioNand 1\nCountDescriptors 4\n"
            "GpioReadPin 0\n"   # of a descriptor that is closed
            "OpenGpioNand 1\n"  # counts only
            "Rote=1, 1\nNandSetRote 0\n")
        events = self.events()
        self.assertEqual(events[:5], ["gpio open", "nand open", "gpio 4 7 0 -", "gpio close",
                                      "nand 11 512 0 -"])
        self.assertEqual(events[-1], "nand close")

    def test_no_devices(self):
        self.assertEqual(
            self.splash("OpenGpioNand", "GpioReadPin=7", "GpioPinCmd1=7,1", "GpioPinCmd3=7,1",
                        "GpioPinCmd3=7,2", "GpioPutBytes=010203040506,6", "CloseGpioNand"),
            f"{NO_GPIO}{INVALID}GpioReadPin -1\n{INVALID}GpioPinCmd1 0\n{INVALID}GpioPinCmd3 0\n"
            f"GpioPinCmd3 0\n{INVALID}GpioPutBytes -1\nCloseGpioNand 0\n")

    def test_pins_missing(self):
        self.serve("nand")
        self.assertEqual(self.splash("OpenGpioNand", "GpioReadPin=7"),
                         f"{NO_GPIO}{INVALID}GpioReadPin -1\n")
        self.assertEqual(self.events(), [])
