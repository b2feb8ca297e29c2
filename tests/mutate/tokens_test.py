"""C++ as tokens."""

import sys
import unittest

from tests.mutate.tokens import pairs, tokens, without_comments


def texts(source):
    return [token.text for token in tokens(source)]


class Tokens(unittest.TestCase):
    def test_comments_and_blanks_are_none(self):
        self.assertEqual(texts("a = 1;  // b = 2;\n/* c\n = 3; */ d();"),
                         ["a", "=", "1", ";", "d", "(", ")", ";"])

    def test_texts_and_characters_are_whole(self):
        self.assertEqual(texts(r'f("a // \" b", L"c", '"'\\'', 'x', u8\"d\");"),
                         ["f", "(", r'"a // \" b"', ",", 'L"c"', ",", r"'\''", ",", "'x'", ",",
                          'u8"d"', ")", ";"])

    def test_numbers_are_whole(self):
        numbers = ["0", "1'000'000", "0x7Fu", "1.5e-3", ".5", "2UL", "0b101"]
        self.assertEqual(texts(" ".join(numbers)), numbers)

    def test_the_longest_operator_counts(self):
        operators = ["<<=", "<<", "<=", "<", "->", "--", "-=", "-", "&&", "&", "::", ":", "..."]
        self.assertEqual(texts(" ".join(operators)), operators)
        self.assertEqual(texts("a+++b"), ["a", "++", "+", "b"])

    def test_directives_are_none_but_for_what_a_name_is_defined_as(self):
        source = ('#include <a.h>\n#pragma once\n#define SIZE 24\n'
                  '#define LOG(level, ...) Print((level), \\\n    __VA_ARGS__)\n#ifdef B\nc;\n#endif\n')
        self.assertEqual(texts(source), ["24", "Print", "(", "(", "level", ")", ",",
                                         "__VA_ARGS__", ")", "c", ";"])

    def test_an_operator_between_blanks_is_marked(self):
        spaced = [token.text for token in tokens("a < b; f<int>(c); d *e; g * h;")
                  if token.is_spaced and token.kind == "operator"]
        self.assertEqual(spaced, ["<", "*"])

    def test_a_token_knows_its_place(self):
        source = "int  x = 5;"
        for token in tokens(source):
            self.assertEqual(source[token.start:token.end], token.text)

    def test_what_is_no_token_is_told(self):
        with self.assertRaises(ValueError):
            tokens("a = `b`;")


class Pairs(unittest.TestCase):
    def test_brackets_find_each_other(self):
        found = tokens("f(a[1], {2}, \")\");")
        partners = pairs(found)
        text = {found[a].text + found[b].text for a, b in partners.items() if a < b}
        self.assertEqual(text, {"()", "[]", "{}"})
        self.assertEqual(partners[1], len(found) - 2)


class WithoutComments(unittest.TestCase):
    def test_keeps_texts_that_look_like_comments(self):
        self.assertEqual(without_comments('f("%s//%s"); // why'), 'f("%s//%s");  ')


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
