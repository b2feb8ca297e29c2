"""docs/in_process.md: its commands build and run the example, and what it rules out is refused."""

import re
import shlex
import shutil

from tests.consumers import target
from tests.consumers.target import PROGRAMS, output_of

EXAMPLE = target.ROOT / "examples/in_process"
CC = target.COMPILERS["c"]
TOOL = target.BUILD / "bin/orvatool"
PAGE = (target.ROOT / "docs/in_process.md").read_text(encoding="utf-8")
COMMANDS, PRINTED = (re.sub("^    ", "", block, flags=re.MULTILINE)
                     for block in re.findall(r"^\n((?:    .*\n)+)", PAGE, re.MULTILINE))


class InProcess(target.Test):
    def setUp(self):
        super().setUp()
        (self.folder / "prefix").symlink_to(target.installation() / "usr")

    def assert_refused(self, reason, said):
        """The reason is what was said, and what the page says."""
        self.assertIn(f'"{reason}"', " ".join(PAGE.split()), "the reason on the page")
        self.assertIn(reason, said, said)

    def test_commands_of_the_page_print_what_it_shows(self):
        shutil.copy(EXAMPLE / "in_process.c", self.folder)
        compile_, run = COMMANDS.splitlines()
        self.assertRegex(compile_, "^cc ", COMMANDS)
        output_of(f"{CC} -std=c11 -Wall -Wextra -Werror {compile_[3:]}", self.folder)
        preload, tool = run.split(" ")
        self.assertEqual(tool, "orvatool", run)
        if target.ARM:  # this machine's programs stay without the library
            preload = f"{shlex.join(target.EMULATOR)} -E {preload}"
        printed = output_of(f"{preload} {shlex.quote(str(TOOL))}", self.folder)
        self.assertEqual(printed, PRINTED, printed)
        self.assertEqual(printed, (EXAMPLE / "in_process.expected").read_text(encoding="ascii"),
                         "in_process.expected")

    def test_tool_cannot_be_opened_as_a_library(self):
        output_of([CC, PROGRAMS / "open_library.c", "-o", self.folder / "open", "-ldl"])
        said = output_of([*target.EMULATOR, self.folder / "open", TOOL])
        self.assert_refused("cannot dynamically load position-independent executable", said)

    def test_tool_cannot_be_linked_as_a_library(self):
        ended = target.run([CC, "-I", self.folder / "prefix/include", PROGRAMS / "zone.c", TOOL,
                            "-o", self.folder / "program"])
        self.assertNotEqual(ended.returncode, 0, "it is linked")
        self.assert_refused("cannot use executable file", ended.stderr)
