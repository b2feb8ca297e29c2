"""The library's manual pages, which docs/manual.py writes from the comments of its public headers.

Called with the folder of the sources and the headers, as the build calls docs/manual.py.
"""

import collections
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

from tests.support import exports_list

root = pathlib.Path(sys.argv[1])
headers = sys.argv[2:]

# What the library offers beside the names that the executable exports.
LOG_FUNCTIONS = ["SetLogLevel", "GetLogLevel", "SetLogLevelByStr", "SetLogProgName",
                 "RegisterLogThread", "SetLogOption"]
ENTRY = re.compile(r"^\.It (?:Fn|Va) (\w+)$", re.MULTILINE)
INCLUDES = {"log": ["log"], "fileutils": ["fileutils"], "trstrutils": ["trstrutils"],
            "": ["fileutils", "log", "timeutils", "trstrutils"],
            **{f"timeutils{topic}": ["timeutils"] for topic in (
                "", "_calendars", "_clock", "_ethernet", "_texts", "_values")}}


def write_pages(folder, names, sources=root):
    return subprocess.run([sys.executable, "-B", root / "docs/manual.py", folder, *names],
                          cwd=sources, capture_output=True, text=True, check=False)


def mandoc(*arguments, folder):
    """What the command says; the folder has all the manual pages that it finds."""
    run = subprocess.run(arguments, env={"PATH": "/usr/bin:/bin:/usr/sbin:/sbin", "MANPATH": folder,
                                         "LC_ALL": "C.UTF-8"},
                         capture_output=True, text=True, check=False)
    return run.stdout + run.stderr


def words(text):
    return collections.Counter(re.findall(r"\w+", text.casefold()))


class Pages(unittest.TestCase):
    longMessage = False

    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        cls.folder = pathlib.Path(temporary.name)
        for section in ("man3", "man8"):
            (cls.folder / section).mkdir()
        (cls.folder / "man8/orvatool.8").write_bytes((root / "docs/orvatool.8").read_bytes())
        run = write_pages(cls.folder / "man3", headers)
        assert (run.returncode, run.stdout, run.stderr) == (0, "", ""), run.stderr
        said = mandoc("makewhatis", cls.folder, folder=cls.folder)
        assert said == "", said
        cls.files = sorted((cls.folder / "man3").iterdir())
        cls.texts = {file.stem: file.read_text(encoding="utf-8") for file in cls.files}
        cls.index = cls.texts["orvautil"]
        cls.owners = collections.defaultdict(list)
        for page, text in cls.texts.items():
            if page != "orvautil":
                for name in ENTRY.findall(text):
                    cls.owners[name].append(page)

    def test_there_is_one_for_each_header_and_an_index(self):
        told = {re.sub(r"orvautil_?", "", page): re.findall(r"^\.In orvautil/(\w+)\.h$", text,
                                                            re.MULTILINE)
                for page, text in self.texts.items()}
        self.assertEqual({page: sorted(includes) for page, includes in told.items()}, INCLUDES)

    def test_mandoc_accepts_them_and_that_of_the_tool_without_a_word(self):
        for file in (*self.files, self.folder / "man8/orvatool.8"):
            with self.subTest(page=file.name):
                said = mandoc("mandoc", "-T", "lint", "-W", "style", file, folder=self.folder)
                self.assertEqual(said, "", said)

    def test_each_name_of_the_library_is_on_one_of_them(self):
        expected = exports_list.names(root / "tool/exports.list") + LOG_FUNCTIONS
        self.assertEqual(sorted(self.owners), sorted(expected), "the names on the pages")
        for name, pages in self.owners.items():
            self.assertEqual(len(pages), 1, f"{name} is on {pages}")

    def test_the_index_has_each_name_with_its_page(self):
        told = re.findall(r"^\.It (?:Fn|Va) (\w+)\n(?:[^.].*\n)+\.Xr (\w+) 3$", self.index,
                          re.MULTILINE)
        self.assertEqual(dict(told), {name: pages[0] for name, pages in self.owners.items()},
                         "the names in orvautil.3 and their pages")
        self.assertEqual(len(told), len(ENTRY.findall(self.index)), "orvautil.3 has a name twice")

    def test_man_finds_the_page_by_each_name(self):
        for name, pages in self.owners.items():
            with self.subTest(name=name):
                found = mandoc("mman", "-w", name, folder=self.folder).strip()
                self.assertEqual(found, str(self.folder / f"man3/{pages[0]}.3"), f"man {name}")

    def test_no_file_has_the_name_of_another_packages_page(self):
        for file in self.files:
            self.assertRegex(file.name, r"^orvautil(_\w+)?\.3$", f"the page {file.name}")

    def test_each_shows_all_words_of_its_header(self):
        for header in headers:
            page = "orvautil_" + re.sub(r"^(log|util)/|\.h$", "", header).replace("/", "_")
            source = re.sub("^#.*", "", (root / header).read_text(encoding="utf-8"),
                            flags=re.MULTILINE)
            comments = re.findall(r"/\*(?! SPDX)(.*?)\*/", source, re.DOTALL)
            text = re.sub(r"\b(?:log|util)/[\w/]+\.h\b", "", "\n".join(comments))
            shown = mandoc("mandoc", "-T", "utf8", "-O", "width=1000",
                           self.folder / f"man3/{page}.3", folder=self.folder)
            shown = re.sub(".\b", "", shown).replace("\xa0", " ")
            with self.subTest(header=header):
                self.assertEqual(words(text) - words(shown), {}, f"lost on the page of {header}")
                for quoted in re.findall(r'"[^"\n]*  [^"\n]*"', text):
                    self.assertIn(quoted, shown, f"the blanks on the page of {header}")

    def test_each_item_of_a_list_is_one_on_the_page(self):
        for header in headers:
            page = "orvautil_" + re.sub(r"^(log|util)/|\.h$", "", header).replace("/", "_")
            items = (root / header).read_text(encoding="utf-8").count("\n *  - ")
            self.assertEqual(len(re.findall(r"^\.It$", self.texts[page], re.MULTILINE)), items,
                             f"the items of lists in {header}")


COMMENT = """/*
 * Copies.
 *
 * Good to know:
 *  - It is slow.
 */
"""
FINE = f"/* Files. */\n\n{COMMENT}int Copy(const char* from);\n"


class Refused(unittest.TestCase):
    """A header that docs/manual.py does not understand whole gives no page."""

    longMessage = False

    def run_on(self, text):
        """The run for a header of this text, and the pages that it wrote."""
        with tempfile.TemporaryDirectory() as folder:
            header = pathlib.Path(folder, "util/files.h")
            header.parent.mkdir()
            header.write_text(text, encoding="utf-8")
            run = write_pages(folder, ["util/files.h"], sources=folder)
            return run, sorted(file.name for file in pathlib.Path(folder).glob("*.3"))

    def check(self, before, after, line, fault):
        self.assertIn(before, FINE)
        run, pages = self.run_on(FINE.replace(before, after))
        self.assertEqual((run.returncode, pages), (1, []), "it is not refused")
        self.assertRegex(run.stderr, rf"\Autil/files\.h:{line}: {fault}", run.stderr)

    def test_the_header_without_a_fault_is_not(self):
        run, pages = self.run_on(FINE)
        self.assertEqual((run.returncode, run.stderr), (0, ""), run.stderr)
        self.assertEqual(pages, ["orvautil.3", "orvautil_files.3"])

    def test_a_function_without_comment(self):
        self.check(COMMENT, "", 3, r"no comment directly above: int Copy\(")

    def test_a_function_apart_from_its_comment(self):
        self.check("int Copy", "\nint Copy", 10, r"no comment directly above: int Copy\(")

    def test_a_directive_between_them_does_not_matter(self):
        run, pages = self.run_on(FINE.replace("int Copy", "#ifdef __linux__\nint Copy"))
        self.assertEqual((run.returncode, len(pages)), (0, 2), run.stderr)

    def test_a_type_without_comment(self):
        self.check(COMMENT, "enum { A };\n\n" + COMMENT, 3, r"no comment directly above: enum")

    def test_a_header_without_comment(self):
        run, pages = self.run_on("#include <time.h>\n")
        self.assertEqual((run.returncode, pages), (1, []), "it is not refused")

    def test_a_declaration_of_another_kind(self):
        self.check("int Copy(const char* from);", "inline int Copy() { return 1; }", 9,
                   "not understood: inline int Copy")

    def test_a_comment_of_another_kind(self):
        self.check("int Copy", "// fast\nint Copy", 9, "not understood: // fast")

    def test_an_item_that_is_set_in_otherwise(self):
        self.check(" *  - It", " * - It", 3, "this part of the comment is not understood")

    def test_a_list_without_its_words(self):
        self.check("Good to know:", "Remember:", 3, "this part of the comment is not understood")

    def test_good_to_know_in_other_letters(self):
        self.check("Good to know:", "Good To Know:", 3,
                   "this part of the comment is not understood")

    def test_more_after_good_to_know(self):
        self.check("slow.\n", "slow.\n *\n * Returns 1.\n", 3,
                   "this part of the comment is not understood: Good to know")

    def test_a_sentence_without_its_end(self):
        self.check("Copies.", "Copies", 3, "this part of the comment is not understood: Copies")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
