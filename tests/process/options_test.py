"""The command line."""

import story
from c_library import behind_other_words, missing_argument, unknown_option
from terminal import TerminalTest, kernel_version, read
from tests.support import tool

WHOLE_RUN = story.serial_steps("12345") + story.MOUNT + story.export()


class Levels(TerminalTest):
    def check(self, arguments, expected):
        run = self.run_tool(*arguments)
        self.assertEqual(run.trace, story.REOPEN + expected)
        self.assertEqual(run.stderr, "")

    def test_one_level_alone(self):
        warnings = [line for line in WHOLE_RUN if not line.startswith("out ")]
        at = warnings.index(*story.UMOUNT_CALL) + 1
        warnings[at:at] = story.UMOUNT_FAILS[1:]
        self.check(["-d", "W"], story.LEVELS + warnings)

    def test_letters_may_follow_directly(self):
        self.check(["-dEIWD"], story.LEVELS + WHOLE_RUN)

    def test_other_letters_do_nothing(self):
        self.check(["-d", "xyz eiwd"], story.LEVELS + story.quiet(WHOLE_RUN))

    def test_an_empty_text_takes_the_three_steps(self):
        self.check(["-d", ""], story.LEVELS + story.quiet(WHOLE_RUN))

    def test_a_repeat_repeats_the_steps_and_adds_up(self):
        self.check(["-d", "W", "-d", "I"], story.LEVELS + story.LEVELS + WHOLE_RUN)

    def test_an_option_may_be_the_argument(self):
        self.check(["-d", "-d", "-d", "IW"], story.LEVELS + story.LEVELS + WHOLE_RUN)

    def test_other_arguments_are_ignored(self):
        self.check(["one", "-d", "EIWD", "two"], behind_other_words(story.LEVELS + WHOLE_RUN))

    def test_any_number_of_other_arguments_may_precede_it(self):
        self.check(["word"] * 40_000 + ["-d", "EIWD"],
                   behind_other_words(story.LEVELS + WHOLE_RUN))

    def test_letters_without_the_option_are_ignored(self):
        self.check(["EIWD"], story.quiet(WHOLE_RUN))

    def test_options_end_at_two_hyphens(self):
        self.check(["--", "-d", "EIWD"], story.quiet(WHOLE_RUN))


class Usage(TerminalTest):
    def check(self, arguments, report, levels=0):
        run = self.run_tool(*arguments)
        self.assertEqual(run.trace,
                         story.REOPEN + levels * story.LEVELS + story.USAGE + story.EXIT)
        self.assertRegex(run.stderr, rf"^.*orvatool: {report}\n$")
        self.assertEqual(run.stdout, "")
        self.assertEqual(read(tool.OUTPUT_FILE), levels * kernel_version()
                         + levels * tool.LEVELS
                         + tool.USAGE)

    def test_unknown_option(self):
        self.check(["-x"], unknown_option("x"))

    def test_unknown_option_in_upper_case(self):
        self.check(["-D", "EIWD"], unknown_option("D"))

    def test_long_option(self):
        self.check(["--help"], unknown_option("-"))

    def test_levels_as_the_last_word(self):
        self.check(["-d"], missing_argument("d"))

    def test_options_before_it_take_their_steps(self):
        self.check(["-d", "EIWD", "-x"], unknown_option("x"), levels=1)
        self.check(["-d", "EIWD", "-d"], missing_argument("d"), levels=1)

    def test_options_behind_it_do_not(self):
        self.check(["-x", "-d", "EIWD"], unknown_option("x"))

    def test_question_mark(self):
        self.check(["-?"], unknown_option(r"\?"))
