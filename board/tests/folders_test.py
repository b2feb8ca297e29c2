"""Folders on a FAT stick: listed, counted and copied."""

from board.tests.support.library import LibraryTest
from board.sticks import NOTES

STICK = "/mnt/stick"
LONG = "a name that only long entries hold.jpeg"
CUT = "n" * 80  # with its folder in front it does not fit the command's path
NAMED = "Info fileutils TrGetFileName: name:"
FOLDER_MODE, TOP_MODE = 0o40755, 0o41777
DOTS = f"{NAMED}.,{FOLDER_MODE}\n{NAMED}..,{TOP_MODE}\n"  # of a folder in /mnt
INNER_DOTS = f"{NAMED}.,{FOLDER_MODE}\n{NAMED}..,{FOLDER_MODE}\n"
FILE_ON_FAT, FOLDER_ON_FAT, FILE = 0o100755, 0o40755, 0o100644
REGULAR, DIRECTORY = 8, 4  # an entry's d_type


def chosen(name, mode, kind):
    """The lines of an entry that CopyFolder considers."""
    return f"{NAMED}{name},{mode}\nInfo fileutils CopyFolder: photName:{name}, type:{kind}\n"


def command(source, target=STICK):
    """The line of an entry that CopyFolder copies."""
    return f"Info fileutils CopyFolder: command:cp {source} {target} -rf && sync\n"


class Folders(LibraryTest):

    def plug(self, full=False):
        """Mounts a stick with a file, a long name and a folder. Returns the stick."""
        stick = self.stick(True)
        stick.write(LONG, b"picture", 1)
        stick.make_folder("album", 1)
        stick.write("album/inner", b"deep", 1)
        if full:
            stick.fill(1)
        self.terminal.plug(stick)
        self.terminal.check(f"mkdir {STICK} && mount -t vfat /dev/sda1 {STICK}")
        return stick

    def test_list(self):
        self.plug()
        self.assertEqual(self.call("TrGetFileName", STICK), f"""\
open 1
{NAMED}.,{FOLDER_MODE}
{NAMED}..,{TOP_MODE}
{NAMED}{NOTES},{FILE_ON_FAT}
{NOTES} 100755 4
{NAMED}{LONG},{FILE_ON_FAT}
{LONG} 100755 7
{NAMED}album,{FOLDER_ON_FAT}
album 40755 2048
close 1
""")

    def test_count(self):
        self.plug()
        for path, count in (STICK, 3), (f"{STICK}/album", 1):
            self.assertEqual(self.call("GetFileCountOfFolder", path), f"result {count}\n")

    def test_folder_that_is_not_there(self):
        for scenario, function, result in (("GetFileCountOfFolder",) * 2 + (0,),
                                           ("CopyFolder",) * 2 + (-1,)):
            self.assertEqual(self.call(scenario, f"{STICK}/no", "/tmp"),
                             f"Warning fileutils {function}: opendir {STICK}/no fail\n"
                             f"result {result}\n")

    def test_copy_from_the_stick(self):
        self.plug()
        self.terminal.check("mkdir /tmp/target")
        self.assertEqual(
            self.call("CopyFolder", f"{STICK}/album", "/tmp/target"),
            INNER_DOTS + chosen("inner", FILE_ON_FAT, REGULAR)
            + command(f"{STICK}/album/inner", "/tmp/target") + "result 1\n")
        self.assertEqual(self.terminal.read("/tmp/target/inner"), "deep")

    def test_copy_onto_the_stick(self):
        stick = self.plug()
        self.terminal.check(f"mkdir -p /tmp/s/sub/deep && echo b >/tmp/s/sub/deep/b"
                            f" && mkfifo /tmp/s/fifo && echo a >/tmp/s/a && >/tmp/s/{CUT}")
        errors = f"cp: can't stat '/tmp/s/{CUT[:72]}': No such file or directory\n"
        # A RAM disk lists what came last first.
        self.assertEqual(
            self.call("CopyFolder", "/tmp/s", STICK, errors=errors),
            INNER_DOTS
            + chosen(CUT, FILE, REGULAR) + command(f"/tmp/s/{CUT[:72]}")
            + chosen("a", FILE, REGULAR) + command("/tmp/s/a")
            + f"{NAMED}fifo,{0o10644}\n"
            + chosen("sub", FOLDER_MODE, DIRECTORY) + command("/tmp/s/sub")
            + "result 2\n")
        self.terminal.check(f"umount {STICK}")
        self.assertEqual(set(stick.files(1)), {NOTES, LONG, "album/", "album/inner", "a", "sub/",
                                               "sub/deep/", "sub/deep/b"})
        self.assertEqual(stick.read("sub/deep/b", 1), b"b\n")
        stick.check(1)

    def test_copy_without_the_entries_that_the_filter_refuses(self):
        self.plug()
        self.terminal.check("mkdir /tmp/target")
        self.assertEqual(
            self.call("CopyFolder", STICK, "/tmp/target", LONG),
            DOTS + chosen(NOTES, FILE_ON_FAT, REGULAR) + f"0 {NOTES} 100755\n"
            + command(f"{STICK}/{NOTES}", "/tmp/target")
            + chosen(LONG, FILE_ON_FAT, REGULAR) + f"1 {LONG} 100755\n"
            + chosen("album", FOLDER_ON_FAT, DIRECTORY) + "1 album 40755\n"
            + command(f"{STICK}/album", "/tmp/target") + "result 2\n")
        self.assertEqual(self.terminal.check("cd /tmp/target && find . | sort"),
                         f".\n./album\n./album/inner\n./{NOTES}\n")

    def test_copy_of_a_name_that_the_shell_interprets(self):
        name = "$(echo b)"
        self.terminal.check(f"mkdir /tmp/s /tmp/target && >'/tmp/s/{name}'")
        self.assertEqual(
            self.call("CopyFolder", "/tmp/s", "/tmp/target",
                      errors="cp: can't stat '/tmp/s/b': No such file or directory\n"),
            INNER_DOTS + chosen(name, FILE, REGULAR)
            + command(f"/tmp/s/{name}", "/tmp/target") + "result 0\n")

    def test_copy_onto_a_full_stick(self):
        self.plug(full=True)
        self.terminal.check("mkdir /tmp/s && echo a >/tmp/s/a")
        self.assertEqual(
            self.call("CopyFolder", "/tmp/s", STICK,
                      errors="cp: write error: No space left on device\n"),
            INNER_DOTS + chosen("a", FILE, REGULAR)
            + command("/tmp/s/a") + "result 0\n")
