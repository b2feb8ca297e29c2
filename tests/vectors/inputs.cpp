// Numbers near their range or of any size; texts that are an example with a few bytes changed.

#include "tests/vectors/inputs.h"

#include "tests/util/timeutils/any_int.h"

namespace vectors::input {
namespace {

// Mostly of the range, else a little beyond it or of any size.
Value Near(Random& random, int low, int high) {
    switch (random.Between(0, 7)) {
        case 0:
            return random.Between(low - 40, high + 40);
        case 1:
            return AnyInt(random);
        default:
            return random.Between(low, high);
    }
}

Value OneOf(Random& random, std::initializer_list<int> numbers) {
    return numbers.begin()[random.Next() % numbers.size()];
}

// One of the examples with up to four bytes replaced, added or taken out; or of the alphabet alone.
Value Like(Random& random, std::initializer_list<const char*> examples, std::string_view alphabet) {
    constexpr int kLongest = 24;
    if (random.Between(0, 7) == 0) {
        return random.Text(alphabet, kLongest);
    }
    std::string text = examples.begin()[random.Next() % examples.size()];
    for (int changes = random.Between(0, 4); changes > 0; --changes) {
        const auto at = static_cast<size_t>(random.Between(0, static_cast<int>(text.size())));
        const int kind = at == text.size() ? 0 : random.Between(0, 2);
        if (kind == 0) {
            text.insert(at, 1, random.OneOf(alphabet));
        } else if (kind == 1) {
            text.erase(at, 1);
        } else {
            text[at] = random.OneOf(alphabet);
        }
    }
    return text;
}

}  // namespace

Value Number(Random& random) {
    return AnyInt(random);
}
Value Year(Random& random) {
    return Near(random, 1300, 2100);
}
Value TmYear(Random& random) {
    return Near(random, 60, 150);
}
Value Month(Random& random) {
    return Near(random, 1, 12);
}
// Bounded: the naive mktime walks from month to month.
Value Day(Random& random) {
    return random.Between(0, 7) == 0 ? SmallInt(random, 14) : random.Between(1, 31);
}
Value Hour(Random& random) {
    return random.Between(0, 7) == 0 ? SmallInt(random, 18) : random.Between(0, 23);
}
Value Minute(Random& random) {
    return Near(random, 0, 59);
}
Value Flag(Random& random) {
    return random.Between(-1, 1);
}
Value Zone(Random& random) {
    return random.Between(0, 3) == 0 ? AnyInt(random) : 0;
}
Value Bias(Random& random) {
    return random.Between(0, 3) == 0 ? Near(random, 0, 7200) : 0;
}
Value Clock(Random& random) {
    return Near(random, 0, 2359);
}
Value Mode(Random& random) {
    return random.Between(0, 15) == 0 ? AnyInt(random) : random.Between(0, 2);
}
Value Code(Random& random) {
    return random.Between(0, 3) == 0 ? AnyInt(random) : random.Between(-10, 19);
}
Value TextType(Random& random) {
    return random.Between(0, 7) == 0 ? AnyInt(random) : random.Between(0, 5);
}
Value Size(Random& random) {
    return random.Between(-2, 40);
}
Value TextSize(Random& random) {
    return random.Between(0, 7) == 0 ? random.Between(-2, 0) : random.Between(11, 60);
}
Value Count(Random& random) {
    return random.Between(-1, 8);
}
Value Separator(Random& random) {
    return OneOf(random, {',', ';', '=', ' ', 'a', 0xE9, -23, 0, 256 + ','});
}
Value Character(Random& random) {
    return random.Between(0, 3) == 0 ? AnyInt(random) : random.Between(0, 127);
}

Value DateText(Random& random) {
    return Like(random,
                {"2024-05-07", "24/05/07", "07.05.24", "1403-12-29", "99-12-31", "1445-9-1"},
                "0123456789-/. +aT");
}
Value ClockText(Random& random) {
    return Like(
        random,
        {"07:45 PM", "12:00 AM", "12:30:15 PM", "19:45", "00:10", "08:09:10", "11:59 AM, Pause"},
        "0123456789: APM-+");
}
Value DateTimeText(Random& random) {
    return Like(random,
                {"2024-05-07T08:09:10", "1403-01-01 12:30", "1445-09-01T23:59:59",
                 "1969-12-31T23:59:59", "2038-01-19T03:14:08"},
                "0123456789-:T ");
}
Value BuildDateText(Random& random) {
    return Like(random, {"May 17 2024", "Feb  3 2025", "Dec 31 1999", "Jan 1 2000", "Xyz 3 2025"},
                "ADFJMNOSaceghlnoprtuvy 0123456789-+");
}
Value NumberText(Random& random) {
    return Like(random, {"123", "-45", "  7", "0 42", "- 7", "4294967296", "-2147483648", "12 34"},
                "0123456789 -+a\t");
}
Value ListText(Random& random) {
    return Like(random,
                {"name=Tom,age=7", "a=1;b=22;ab=333", "a=,b=-12", "ab=+9 x,a= 5",
                 "\xE9"
                 "a=1"},
                "ab=,;1 \xE9");
}
Value Key(Random& random) {
    return Like(random, {"a", "b", "ab", "name", "age", ""}, "ab=,");
}
Value PlainText(Random& random) {
    return Like(random, {"ab,cd,ef", "key=value", "2024-01-02T10:20", "abc", ","}, "abz,;= \xE9");
}
Value SpacedText(Random& random) {
    return Like(random, {"  a b  ", " ", "ab", "   ", "\ta "}, "  a\t");
}
Value HexText(Random& random) {
    return Like(random, {"0aFF", "00112233445566778899", "abcdefABCDEF", ":;<=>?", "abc"},
                "0123456789abcdefABCDEF:;<=>?");
}
Value MacText(Random& random) {
    return Like(random,
                {"00:1A:2b:3C:4d:5E", "1:2:3:4:5:6", ":::::", "00:1a:2b:3c:4d:5e:ff",
                 "100:0:0:0:0:0", "fffffff0:0:0:0:0:ff"},
                "0123456789abcdefABCDEF:::-");
}
Value FileName(Random& random) {
    return Like(random, {"a.jpg", "B.PNG", "x.y.bmp", "photo.jpeg", ".gif", "bmp"},
                ".jpegbmnifJPG");
}
Value Bytes(Random& random) {
    std::string bytes(static_cast<size_t>(random.Between(0, 64)), '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random.Next());
    }
    return bytes;
}
Value Numbers(Random& random) {
    std::vector<int> numbers(static_cast<size_t>(random.Between(0, 20)));
    for (int& number : numbers) {
        number = random.Between(0, 1) == 0 ? AnyInt(random) : random.Between(-3, 3);
    }
    return numbers;
}

}  // namespace vectors::input
