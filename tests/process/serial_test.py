"""Serial numbers: the name of the file, the copy command as a log format, and what the shell does."""

import os
import shutil

import story
from terminal import OPTIONS_FILE, TerminalTest, kernel_version, read, tree
from tests.support import tool
from tests.support.tool import EXPORT_FOLDER


class Serial(TerminalTest):
    def check(self, name, *, serial=None, logged=None):
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS
                         + story.serial_steps(name if serial is None else serial) + story.MOUNT
                         + story.export(name, logged=logged))
        self.assertEqual(os.listdir(EXPORT_FOLDER), [name + ".log"])
        self.assertEqual(read(f"{EXPORT_FOLDER}/{name}.log"), kernel_version())

    def test_of_23_characters_is_whole(self):
        serial = "ABCDEFGHIJKLMNOPQRSTUVW"
        self.set_serial(serial)
        self.check(serial)

    def test_of_more_characters_is_cut_by_the_store(self):
        self.set_serial("ABCDEFGHIJKLMNOPQRSTUVWXYZ")
        self.check("ABCDEFGHIJKLMNOPQRSTUVW")

    def test_empty(self):
        self.set_serial("")
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")

    def test_missing_in_the_store(self):
        with open(OPTIONS_FILE, "w", encoding="ascii") as file:
            file.write("~SerialNumbers=1\nSerialNumber=2\n")
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")

    def test_without_a_store(self):
        os.remove(OPTIONS_FILE)
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")


class SerialAsFormat(TerminalTest):
    def check(self, serial, logged_serial):
        self.set_serial(serial)
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps(serial)
                         + story.MOUNT
                         + story.export(serial, logged=tool.copy_command(logged_serial)))
        shutil.rmtree(EXPORT_FOLDER)

    def test_percent_sign(self):
        self.check("50%%", "50%")

    def test_two_percent_signs(self):
        self.check("%%%%", "%%")

    def test_error_text(self):
        self.check("a%m", "a" + tool.NO_SUCH_FILE)

    def test_percent_sign_before_a_letter(self):
        self.check("%%n", "%n")

    def test_other_conversions_are_mere_text(self):
        for serial in ("%n", "%s%s%s", "%d", "%5d", "%s", "%-5m", "%m%n", "%%%s", "%l", "%.*s",
                       "%1$s", "% d", "%x%x%x%x%x%x%x%x%x%x"):
            with self.subTest(serial=serial):
                self.check(serial, serial)

    def test_a_last_percent_sign_is_mere_text(self):
        self.check("100%", "100%")

    def test_at_full_length(self):
        serial = "%s" * 11 + "%"
        self.assertEqual(len(serial), 23)
        self.check(serial, serial)

    def test_without_levels(self):
        self.set_serial("%s%n%s")
        run = self.run_tool()
        self.assertEqual(run.trace, story.REOPEN + story.quiet(
            story.serial_steps("") + story.MOUNT + story.export("%s%n%s")))
        self.assertEqual(os.listdir(EXPORT_FOLDER), ["%s%n%s.log"])


class SerialInTheShell(TerminalTest):
    """The shell reads the copy command, and with it the serial number, which is trusted."""

    def check(self, serial, *copies):
        """The run ends as always; the copies are all that it adds."""
        self.set_serial(serial)
        before = tree("/mnt")
        run = self.run_tool("-d", "EIWD")
        self.assertEqual(run.trace, story.REOPEN + story.LEVELS + story.serial_steps(serial)
                         + story.MOUNT + story.export(serial))
        after = tree("/mnt")
        self.assertCountEqual(after.keys() - before.keys(),
                              [tool.OUTPUT_FILE, EXPORT_FOLDER, *copies])
        return run.stderr

    def test_blank_parts_the_name(self):
        self.assertIn("b.log", self.check("a b"))  # which cp takes for its target

    def test_slash_leads_to_another_folder(self):
        self.check("../x", f"{tool.MOUNT_POINT}/x.log")

    def test_slash_to_a_missing_folder_makes_no_copy(self):
        self.assertIn(tool.NO_SUCH_FILE, self.check("a/b"))

    def test_quotes_are_taken_off(self):
        self.check("'a b'", f"{EXPORT_FOLDER}/a b.log")

    def test_double_quotes_are_taken_off(self):
        self.check('"a b"', f"{EXPORT_FOLDER}/a b.log")

    def test_single_quote_alone_makes_no_copy(self):
        self.assertNotEqual(self.check("it's"), "")

    def test_semicolon_begins_a_command(self):
        self.check("x;touch /mnt/made", f"{EXPORT_FOLDER}/x", "/mnt/made.log")

    def test_command_in_dollar_and_brackets_is_run(self):
        self.check("$(echo 7)", f"{EXPORT_FOLDER}/7.log")

    def test_comment_sign_ends_the_command(self):
        self.check("x #", f"{EXPORT_FOLDER}/x")
