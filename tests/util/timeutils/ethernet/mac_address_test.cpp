// str2mac.

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <optional>
#include <string>

#include "tests/support/exact_copy.h"
#include "tests/support/guarded_buffer.h"
#include "tests/support/inputs.h"
#include "tests/support/log_lines.h"
#include "tests/util/timeutils/ethernet/naive_mac.h"
#include "util/timeutils.h"

namespace {

constexpr size_t kMacSize = 6;
constexpr char kHexDigits[] = "0123456789abcdefABCDEF";

// The six bytes that a text gives, or nothing; checks the result and all else around them.
std::optional<std::string> Parse(const std::string& text) {
    GuardedBuffer out(kMacSize);
    const int result = str2mac(ExactCopy(text).get(), reinterpret_cast<unsigned char*>(out.data()));
    if (result != 0) {
        EXPECT_EQ(result, -1) << text;
        out.ExpectUntouched();
        return std::nullopt;
    }
    const std::string bytes(out.data(), kMacSize);
    out.ExpectHolds(bytes);
    return bytes;
}

std::string Bytes(const std::array<unsigned char, kMacSize>& bytes) {
    return std::string(bytes.begin(), bytes.end());
}

void ExpectFails(const std::string& text) {
    EXPECT_EQ(Parse(text), std::nullopt) << text;
}

// As Parse, without the costly checks of a guarded buffer.
void ExpectSameAsNaive(const std::string& text) {
    unsigned char out[kMacSize + 1];
    memset(out, 0x5A, sizeof out);
    const std::optional<std::string> expected = naive::str2mac(text);
    ASSERT_EQ(str2mac(text.c_str(), out), expected ? 0 : -1) << text;
    const std::string bytes(out, out + sizeof out);
    ASSERT_EQ(bytes, expected.value_or(std::string(kMacSize, '\x5A')) + '\x5A') << text;
}

}  // namespace

TEST(str2mac, ReadsSixGroupsOfHexDigits) {
    EXPECT_EQ(Parse("00:1A:2b:3C:4d:5E"), Bytes({0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E}));
    EXPECT_EQ(Parse("01:23:45:67:89:ab"), Bytes({0x01, 0x23, 0x45, 0x67, 0x89, 0xAB}));
    EXPECT_EQ(Parse("cd:ef:AB:CD:EF:ff"), Bytes({0xCD, 0xEF, 0xAB, 0xCD, 0xEF, 0xFF}));
}

TEST(str2mac, TakesGroupsOfOneDigit) {
    EXPECT_EQ(Parse("1:2:3:4:5:6"), Bytes({1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Parse("a:B:c:D:e:F"), Bytes({10, 11, 12, 13, 14, 15}));
}

TEST(str2mac, TakesGroupsOfManyDigitsUpTo255) {
    EXPECT_EQ(Parse("00ff:001:0a:00000000000000fe:0:00"), Bytes({255, 1, 10, 254, 0, 0}));
    for (const char* large : {"100", "0100", "1ff", "fff", "7fffffff", "00007fffffff", "10000"}) {
        const std::string group = large;
        ExpectFails(group + ":0:0:0:0:0");
        ExpectFails("0:0:0:" + group + ":0:0");
        ExpectFails("0:0:0:0:0:" + group);
    }
}

TEST(str2mac, ReadsEmptyGroupsAsZero) {
    EXPECT_EQ(Parse(":::::"), Bytes({0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Parse("1::3:::"), Bytes({1, 0, 3, 0, 0, 0}));
    EXPECT_EQ(Parse(":2:3:4:5:6"), Bytes({0, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Parse("1:2:3:4:5:"), Bytes({1, 2, 3, 4, 5, 0}));
}

TEST(str2mac, FailsWithFewerThanSixGroups) {
    for (const char* text : {"", ":", "::::", "0", "001a2b3c4d5e", "0:1a:2b:3c:4d", "0:1a:2b:3c:4d",
                             "1:2:3:4:5", "1:2:3:4:", "00:1a:2b:3c:4d5e"}) {
        ExpectFails(text);
    }
}

TEST(str2mac, IgnoresWhatFollowsASixthColon) {
    const std::string first_six = Bytes({0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0x5E});
    EXPECT_EQ(Parse("00:1a:2b:3c:4d:5e:ff"), first_six);
    EXPECT_EQ(Parse("00:1a:2b:3c:4d:5e:"), first_six);
    EXPECT_EQ(Parse("00:1a:2b:3c:4d:5e::::"), first_six);
    EXPECT_EQ(Parse("00:1a:2b:3c:4d:5e:100:xyz"), first_six);
    EXPECT_EQ(Parse("::::::"), Bytes({0, 0, 0, 0, 0, 0}));
    ExpectFails("00:1a:2b:3c:4d:5e ");
    ExpectFails("00:1a:2b:3c:4d:5e-ff");
}

TEST(str2mac, DoesNotReadPastASixthColon) {
    const std::string text = "00:1a:2b:3c:4d:5e:";
    const auto unterminated = std::make_unique<char[]>(text.size());
    memcpy(unterminated.get(), text.data(), text.size());
    unsigned char out[kMacSize];
    EXPECT_EQ(str2mac(unterminated.get(), out), 0);
}

TEST(str2mac, FailsOnAnyOtherCharacter) {
    ExpectFails("00-1a-2b-3c-4d-5e");
    for (int code = 1; code <= 0xFF; ++code) {
        const auto c = static_cast<char>(code);
        if (c == ':' || strchr(kHexDigits, c) != nullptr) {
            continue;
        }
        for (const size_t position : {0U, 1U, 7U, 16U}) {
            std::string text = "00:1a:2b:3c:4d:5e";
            text[position] = c;
            EXPECT_EQ(Parse(text), std::nullopt) << "character " << code << " at " << position;
        }
    }
}

TEST(str2mac, KnowsTheValueOfEachDigit) {
    for (int value = 0; value < 256; ++value) {
        char lower[3];
        char upper[3];
        snprintf(lower, sizeof lower, "%02x", static_cast<unsigned>(value));
        snprintf(upper, sizeof upper, "%02X", static_cast<unsigned>(value));
        const std::string bytes = std::string(1, static_cast<char>(value)) + '\0' +
                                  static_cast<char>(value) + std::string(3, '\0');
        EXPECT_EQ(Parse(std::string(lower) + "::" + upper + ":::"), bytes);
    }
}

TEST(str2mac, WrapsGroupsAt32Bits) {
    // From 80000000 on a group's value is negative, which is not above 255.
    EXPECT_EQ(Parse("80000000:80000001:ffffffff:fedcba98:8000ff7f:0"),
              Bytes({0x00, 0x01, 0xFF, 0x98, 0x7F, 0x00}));
    EXPECT_EQ(Parse("100000000:1000000ff:123456789000000ab:ff00000007:f80000000:0"),
              Bytes({0x00, 0xFF, 0xAB, 0x07, 0x00, 0x00}));
    ExpectFails("100000100:0:0:0:0:0");
    ExpectFails("f7fffffff:0:0:0:0:0");
}

TEST(str2mac, DoesNotLog) {
    CapturedLog log;
    Parse("00:1a");
    Parse("100:0:0:0:0:0");
    EXPECT_EQ(log.TakeText(), "");
}

TEST(str2mac, AgreesWithReadingByGroupsOnAllShortTexts) {
    constexpr size_t kMaxLength = sizeof(long) == 8 ? 9 : 7;  // qemu-arm is slow
    CheckAllTexts(":8fg", kMaxLength, ExpectSameAsNaive);
    CheckAllTexts(":0", kMaxLength + 4, ExpectSameAsNaive);
}

TEST(str2mac, AgreesWithReadingByGroupsOnRandomTexts) {
    CheckRandom(1, [](Random& random) {
        // Mostly well formed, so that most of them reach the sixth group.
        std::string text;
        const int groups = random.Between(5, 7);
        for (int i = 0; i < groups; ++i) {
            text += i > 0 ? ":" : "";
            text +=
                random.Between(0, 9) != 0 ? random.Text(kHexDigits, 2) : random.Text("0018fF", 12);
        }
        if (random.Between(0, 9) == 0) {
            text += random.OneOf(" g-\x80\xFF");
        }
        ExpectSameAsNaive(text);
    });
}

TEST(str2mac, WithoutAnOutputOnlyChecksTheText) {
    EXPECT_EQ(str2mac("1:2:3:4:5:6", nullptr), 0);
    EXPECT_EQ(str2mac("1:2:3:4:5", nullptr), -1);
}
