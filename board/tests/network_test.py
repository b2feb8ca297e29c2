"""The Ethernet address of a real interface: read, changed, and refused."""

from board.tests.support.library import LibraryTest

ADDRESS = "/sys/class/net/eth0/address"
FIRST, SECOND = "5a:c4:00:12:3e:06", "02:11:22:b3:44:55"
GROUP = "03:11:22:b3:44:55"  # the lowest bit of the first byte: no interface may have it
LINE = "Warning timeutils set_mac_addr: "
BUFFER = 24
ATTEMPTS = 500


def raw(text):
    """The bytes of an address."""
    return bytes.fromhex(text.replace(":", ""))


def attempt(number, error, requested, current):
    """The lines of a refused attempt; of both addresses the fourth byte is shown."""
    return (f"{LINE}{error}\n{LINE}SIOCSIFHWADDR:{error}\n{LINE}{error}\n"
            f"{LINE}{number} :{requested}-{current}\n")


class Network(LibraryTest):

    def setUp(self):
        super().setUp()
        self.terminal.check(f"ip link set eth0 address {FIRST}")

    def assert_read(self, size, form, written):
        """GetMac succeeds, writes these bytes and leaves the rest of its buffer alone."""
        self.assertEqual(self.call("GetMac", size, form),
                         f"result 1 {written.ljust(BUFFER, b'U').hex()}\n")

    def test_address_as_text(self):
        self.assert_read(18, 1, FIRST.encode() + b"\0")

    def test_address_as_bytes(self):
        self.assert_read(6, 2, raw(FIRST))
        self.assert_read(4, 0, raw(FIRST)[:4])
        self.assert_read(BUFFER, 3, raw(FIRST))

    def test_buffer_too_small(self):
        for size, form in (17, 1), (5, 2):
            self.assertEqual(self.call("GetMac", size, form),
                             "Warning timeutils GetMac: Buffer Length too small\n"
                             f"result 0 {(b'U' * BUFFER).hex()}\n")

    def test_no_interface(self):
        self.addCleanup(self.terminal.check, "ip link set eth9 name eth0")
        self.terminal.check("ip link set eth0 name eth9")
        self.assertEqual(self.call("GetMac", 18, 1),
                         "Warning timeutils GetMac: get mac error:No such device\n"
                         f"result 0 {(b'U' * BUFFER).hex()}\n")

    def test_new_address(self):
        self.assertEqual(self.call("set_mac_addr", "eth0", SECOND),
                         f"{LINE}Success\n" * 2 + "result 0, 0 pauses\n")
        self.assertEqual(self.terminal.read(ADDRESS), f"{SECOND}\n")
        self.assert_read(18, 1, SECOND.encode() + b"\0")

    def test_interface_that_comes_late(self):
        self.addCleanup(self.terminal.check, "ip link set eth9 name eth0")
        error = "No such device"
        self.assertEqual(
            self.call("set_mac_addr", "eth9", SECOND, "true", "ip link set eth0 name eth9"),
            attempt(1, error, "b3", "0") + attempt(2, error, "b3", "0")
            + f"{LINE}{error}\n" * 2  # of the attempts before
            + "result 0, 2 pauses\n")
        self.assertEqual(self.terminal.read("/sys/class/net/eth9/address"), f"{SECOND}\n")

    def test_group_address_is_refused_to_the_end(self):
        error = "Cannot assign requested address"
        lines = "".join(attempt(n, error, "b3", "12") for n in range(1, ATTEMPTS + 1))
        # Reading the address back worked, and that is the result.
        self.assertEqual(self.call("set_mac_addr", "eth0", GROUP),
                         f"{lines}result 0, {ATTEMPTS} pauses\n")
        self.assertEqual(self.terminal.read(ADDRESS), f"{FIRST}\n")

    def test_name_is_cut_to_15_characters(self):
        name = "interface123456"
        self.addCleanup(self.terminal.check, f"ip link set {name} name eth0")
        self.terminal.check(f"ip link set eth0 name {name}")
        self.assertTrue(self.call("set_mac_addr", f"{name}7", SECOND)
                        .endswith("result 0, 0 pauses\n"))
        self.assertEqual(self.terminal.read(f"/sys/class/net/{name}/address"), f"{SECOND}\n")
