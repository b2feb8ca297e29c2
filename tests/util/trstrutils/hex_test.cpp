// Decode16 and str2Hex.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

class Decode16Test : public testing::Test {
protected:
    int Decode(std::string_view hex) {
        out_ = GuardedBuffer(8);
        return Decode16(ExactCopy(hex).get(), reinterpret_cast<unsigned char*>(out_.data()));
    }

    GuardedBuffer out_{8};
};

void ExpectAsNaive(const std::string& hex) {
    naive::Outcome outcome = {-1, std::string(32, 'o'), ""};
    const naive::Outcome expected = naive::Decode16(hex, outcome.first);
    outcome.result =
        Decode16(ExactCopy(hex).get(), reinterpret_cast<unsigned char*>(outcome.first.data()));
    ASSERT_EQ(outcome, expected) << "differs from naive::Decode16, " << testing::PrintToString(hex);
}

}  // namespace

TEST_F(Decode16Test, DecodesPairs) {
    EXPECT_EQ(Decode("0aFF"), 2);
    out_.ExpectHolds("\x0A\xFF");
    EXPECT_EQ(Decode("0123456789abcdef"), 8);
    out_.ExpectHolds("\x01\x23\x45\x67\x89\xAB\xCD\xEF");
    EXPECT_EQ(Decode("ABCDEF"), 3);
    out_.ExpectHolds("\xAB\xCD\xEF");
}

TEST_F(Decode16Test, WritesNoTerminator) {
    EXPECT_EQ(Decode("41"), 1);
    out_.ExpectHolds("A");
}

TEST_F(Decode16Test, IgnoresAnOddLastCharacter) {
    EXPECT_EQ(Decode("abc"), 1);
    out_.ExpectHolds("\xAB");
    EXPECT_EQ(Decode("abz"), 1);
    out_.ExpectHolds("\xAB");
}

TEST_F(Decode16Test, IsZeroForLessThanAPair) {
    EXPECT_EQ(Decode(""), 0);
    out_.ExpectUntouched();
    EXPECT_EQ(Decode("a"), 0);
    out_.ExpectUntouched();
}

TEST_F(Decode16Test, IsZeroForACharacterThatIsNoDigit) {
    for (const char* hex : {"0g", "g0", "G0", "0G", "/0", "0/", "@0", "0@", "`0", "0`", "0\x80",
                            "\xFF"
                            "0",
                            " 1", "1\n", "-1"}) {
        EXPECT_EQ(Decode(hex), 0) << hex;
        out_.ExpectUntouched();
    }
}

TEST_F(Decode16Test, KeepsTheBytesBeforeABadPair) {
    EXPECT_EQ(Decode("12340g56"), 0);
    out_.ExpectHolds("\x12\x34");
    EXPECT_EQ(Decode("12g056"), 0);
    out_.ExpectHolds("\x12");
}

TEST_F(Decode16Test, CountsOnFromNineToTheQuestionMark) {
    EXPECT_EQ(Decode(":;"), 1);
    out_.ExpectHolds("\xAB");
    EXPECT_EQ(Decode("<=>?"), 2);
    out_.ExpectHolds("\xCD\xEF");
}

TEST_F(Decode16Test, AgreesWithTheNaiveOneOnEveryPairOfBytes) {
    for (int high = 1; high < 256; ++high) {
        for (int low = 1; low < 256; ++low) {
            ExpectAsNaive({static_cast<char>(high), static_cast<char>(low)});
        }
    }
}

TEST_F(Decode16Test, AgreesWithTheNaiveOneOnAllShortTexts) {
    CheckAllTexts("0aF?g", 7, ExpectAsNaive);
}

TEST_F(Decode16Test, AgreesWithTheNaiveOneOnRandomTexts) {
    CheckRandom(8, [](Random& random) {
        const bool is_clean = random.Between(0, 3) != 0;
        ExpectAsNaive(random.Text(
            is_clean ? "0123456789abcdefABCDEF:;<=>?" : "0123456789abcdefABCDEFgG@`/\x80\xE1", 40));
    });
}

TEST(str2Hex, JoinsTwoDigits) {
    EXPECT_EQ(str2Hex('4', 'f'), 0x4F);
    EXPECT_EQ(str2Hex('A', '0'), 0xA0);
    EXPECT_EQ(str2Hex('0', '0'), 0x00);
    EXPECT_EQ(str2Hex('F', 'f'), 0xFF);
    EXPECT_EQ(str2Hex('a', 'A'), 0xAA);
    EXPECT_EQ(str2Hex('9', '9'), 0x99);
}

TEST(str2Hex, TakesAnyOtherCharacterAsADecimalDigit) {
    EXPECT_EQ(str2Hex('g', '1'), 0x71);  // 'g' counts as 55
    EXPECT_EQ(str2Hex('1', 'g'), 0x47);  // 16 + 55
    EXPECT_EQ(str2Hex('G', '0'), 0x70);  // 23
    EXPECT_EQ(str2Hex('@', '0'), 0x00);  // 16
    EXPECT_EQ(str2Hex('0', '@'), 0x10);
    EXPECT_EQ(str2Hex('`', '0'), 0x00);  // 48
    EXPECT_EQ(str2Hex('0', '`'), 0x30);
    EXPECT_EQ(str2Hex('0', ':'), 0x0A);
    EXPECT_EQ(str2Hex('0', '/'), 0xFF);  // -1
    EXPECT_EQ(str2Hex('/', '0'), 0xF0);
    EXPECT_EQ(str2Hex(0, 0), 0xD0);  // -48
}

TEST(str2Hex, IsAByteForAnyCharacters) {
    const auto value_of = [](long long character) {
        if (character >= 'A' && character <= 'F') {
            return character - 55;
        }
        return character >= 'a' && character <= 'f' ? character - 87 : character - 48;
    };
    const auto check = [&](int high, int low) {
        ASSERT_EQ(str2Hex(high, low), (value_of(high) * 16 + value_of(low)) & 0xFF)
            << high << ", " << low;
    };
    for (int high = -300; high <= 300; ++high) {
        for (int low = -300; low <= 300; ++low) {
            check(high, low);
        }
    }
    for (const int extreme : {INT_MIN, INT_MIN + 47, INT_MIN + 48, INT_MAX - 1, INT_MAX}) {
        check(extreme, '7');
        check('7', extreme);
        check(extreme, extreme);
    }
}

TEST_F(Decode16Test, IsZeroForNull) {
    EXPECT_EQ(Decode16(nullptr, reinterpret_cast<unsigned char*>(out_.data())), 0);
    out_.ExpectUntouched();
}

TEST_F(Decode16Test, ChecksAndCountsWithoutOut) {
    EXPECT_EQ(Decode16("0aFF1", nullptr), 2);
    EXPECT_EQ(Decode16("0a0g", nullptr), 0);
}
