"""Serial numbers: the file's name, the copy command as a format, what the shell makes of it."""

import os

import story
from faults import FaultTest
from terminal import OPTIONS_FILE, kernel_version, read, tree
from tests.support import tool
from tests.support.faults import fault
from tests.support.tool import EXPORT_FOLDER


class Serial(FaultTest):
    def check(self, name, *, serial=None, logged=None):
        self.run_row(story.REOPEN + story.LEVELS
                     + story.serial_steps(name if serial is None else serial) + story.MOUNT
                     + story.export(name, logged=logged), "-d", "EIWD")
        self.assertEqual(os.listdir(EXPORT_FOLDER), [name + ".log"])
        self.assertEqual(read(f"{EXPORT_FOLDER}/{name}.log"), kernel_version())

    @fault("Inputs", "serial number of 23 characters, the longest")
    def test_of_23_characters_is_whole(self):
        serial = "ABCDEFGHIJKLMNOPQRSTUVW"
        self.set_serial(serial)
        self.check(serial)

    def test_of_more_characters_is_cut_by_the_store(self):
        self.set_serial("ABCDEFGHIJKLMNOPQRSTUVWXYZ")
        self.check("ABCDEFGHIJKLMNOPQRSTUVW")

    @fault("Inputs", "serial number empty")
    def test_empty(self):
        self.set_serial("")
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")

    @fault("Inputs", "serial number not in the option store")
    def test_missing_in_the_store(self):
        with open(OPTIONS_FILE, "w", encoding="ascii") as file:
            file.write("~SerialNumbers=1\nSerialNumber=2\n")
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")

    @fault("Inputs", "option store missing")
    def test_without_a_store(self):
        os.remove(OPTIONS_FILE)
        self.check(tool.NAME_WITHOUT_SERIAL, serial="")


class SerialAsFormat(FaultTest):
    def check(self, serial, logged_serial):
        self.set_serial(serial)
        self.run_row(story.REOPEN + story.LEVELS + story.serial_steps(serial) + story.MOUNT
                     + story.export(serial, logged=tool.copy_command(logged_serial)),
                     "-d", "EIWD")

    def test_percent_sign(self):
        self.check("50%%", "50%")

    @fault("Inputs", "serial number of doubled percent signs, `%%`")
    def test_two_percent_signs(self):
        self.check("%%%%", "%%")

    @fault("Inputs", "serial number with `%m`")
    def test_error_text(self):
        self.check("a%m", "a" + tool.NO_SUCH_FILE)

    def test_percent_sign_before_a_letter(self):
        self.check("%%n", "%n")

    @fault("Inputs", "serial number with `%n`, `%s%s%s`, `%999d` and more conversions")
    def test_other_conversions_are_mere_text(self):
        for serial in ("%n", "%s%s%s", "%d", "%5d", "%999d", "%s", "%-5m", "%m%n", "%%%s", "%l",
                       "%.*s", "%1$s", "% d", "%x%x%x%x%x%x%x%x%x%x"):
            with self.subTest(serial=serial):
                self.check(serial, serial)

    def test_a_last_percent_sign_is_mere_text(self):
        self.check("100%", "100%")

    @fault("Inputs", "serial number as long as can be, a row of `%s`")
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


class SerialInTheShell(FaultTest):
    """The shell reads the copy command, and with it the serial number, which is trusted."""

    def check(self, serial, *copies):
        """The run ends as always; the copies are all that it adds."""
        self.set_serial(serial)
        before = tree("/mnt")
        run = self.run_row(story.REOPEN + story.LEVELS + story.serial_steps(serial) + story.MOUNT
                           + story.export(serial), "-d", "EIWD")
        after = tree("/mnt")
        self.assertCountEqual(after.keys() - before.keys(),
                              [tool.OUTPUT_FILE, EXPORT_FOLDER, *copies])
        return run.stderr

    @fault("Inputs", "serial number `a b`: the copy command gets a word too many and fails")
    def test_blank_parts_the_name(self):
        self.assertIn("b.log", self.check("a b"))  # which cp takes for its target

    @fault("Inputs", "serial number `../x`: the copy gets out of the export folder")
    def test_slash_leads_to_another_folder(self):
        self.check("../x", f"{tool.MOUNT_POINT}/x.log")

    @fault("Inputs", "serial number `a/b`: nothing is copied")
    def test_slash_to_a_missing_folder_makes_no_copy(self):
        self.assertIn(tool.NO_SUCH_FILE, self.check("a/b"))

    @fault("Inputs", "serial number `'a b'`:"
           " the quotes are taken off, and the log's name has a blank")
    def test_quotes_are_taken_off(self):
        self.check("'a b'", f"{EXPORT_FOLDER}/a b.log")

    @fault("Inputs", 'serial number `"a b"`: the same')
    def test_double_quotes_are_taken_off(self):
        self.check('"a b"', f"{EXPORT_FOLDER}/a b.log")

    @fault("Inputs", "serial number with one quote: there is no copy command")
    def test_single_quote_alone_makes_no_copy(self):
        self.assertNotEqual(self.check("it's"), "")

    @fault("Inputs", "serial number `x;touch /mnt/made`: the second command is run")
    def test_semicolon_begins_a_command(self):
        self.check("x;touch /mnt/made", f"{EXPORT_FOLDER}/x", "/mnt/made.log")

    @fault("Inputs", "serial number `$(echo 7)`: the command is run")
    def test_command_in_dollar_and_brackets_is_run(self):
        self.check("$(echo 7)", f"{EXPORT_FOLDER}/7.log")

    @fault("Inputs", "serial number `$(id)`: the copy command gets words too many and fails")
    def test_command_that_prints_words_makes_no_copy(self):
        self.assertNotEqual(self.check("$(id)"), "")

    @fault("Inputs", "serial number `;x`: the copy gets the name of the RAM-disk file")
    def test_semicolon_first_ends_the_copy_command(self):
        self.check(";x", f"{EXPORT_FOLDER}/output.txt")

    def test_comment_sign_ends_the_command(self):
        self.check("x #", f"{EXPORT_FOLDER}/x")
