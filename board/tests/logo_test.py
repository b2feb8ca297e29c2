"""The boot logo, through an image manager library that is there or not."""

from board.tests.support.devices import DeviceTest

LIBRARY = "/usr/lib/libbmpmngr.so"
OTHER_LIBRARY = "/usr/lib/libtroption.so"  # any that has no such entry point
NOTES = "/tmp/notes"
ASKED_INIT = "init with an empty table\n"
ASKED_ALL = f"{ASKED_INIT}update bmp.splash 7 4294967295\n"


class Logo(DeviceTest):

    def setUp(self):
        super().setUp()
        self.addCleanup(self.terminal.check, f"rm -f {LIBRARY}")

    def assert_update(self, message, result, settings=""):
        """The message is printed, and neither the library nor a descriptor stays behind."""
        before = f"ORVATOOL_BMPMNGR_NOTES={NOTES} {settings}"
        self.assertEqual(
            self.splash("UpdateSplashLogo=7,0xffffffff", f"IsLoaded={LIBRARY}", "CountDescriptors",
                        before=before),
            f"{message}\nUpdateSplashLogo {result}\nIsLoaded 0\nCountDescriptors 3\n")

    def install(self):
        """Puts our stand-in into its place."""
        self.terminal.install(self.build("lib/libbmpmngr.so"), LIBRARY)

    def test_update(self):
        self.install()
        self.assert_update("update bmp  LOGO ok", 0)
        self.assertEqual(self.terminal.read(NOTES), ASKED_ALL)

    def test_failing_update(self):
        self.install()
        self.assert_update("failed to update bmp", 0, "ORVATOOL_BMPMNGR_UPDATE=-1")
        self.assertEqual(self.terminal.read(NOTES), ASKED_ALL)

    def test_failing_entry_point(self):
        self.install()
        self.assert_update("bmp_manager_init_env failed -9", -3, "ORVATOOL_BMPMNGR_INIT=-9")
        self.assertEqual(self.terminal.read(NOTES), ASKED_INIT)

    def test_library_without_the_entry_point(self):
        self.terminal.check(f"cp {OTHER_LIBRARY} {LIBRARY}")
        self.assert_update(f"bmp_manager_init_env not defined or exported in {LIBRARY}", -2)

    def test_no_library(self):
        # The loader of this C library keeps its errors out of errno.
        self.assert_update("dlopen failed: Success", -1)
