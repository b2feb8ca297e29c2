// in_chksum.

#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "tests/support/inputs.h"
#include "tests/util/trstrutils/naive.h"
#include "util/trstrutils.h"

namespace {

constexpr size_t kShifts[] = {0, 2};  // aligned for 32 bits, and for 16 bits only

// Of a copy shift bytes behind the start of its block, in front of so many bytes more.
int ChecksumAt(size_t shift, const std::vector<uint8_t>& bytes, size_t bytes_behind = 0) {
    std::vector<uint8_t> copy(shift + bytes.size() + bytes_behind, 0xA5);
    std::copy(bytes.begin(), bytes.end(), copy.begin() + static_cast<ptrdiff_t>(shift));
    return in_chksum(reinterpret_cast<const unsigned short*>(copy.data() + shift),
                     static_cast<int>(bytes.size()));
}

// Of a copy that is aligned for 16 bits and no more, in a block of exactly its size.
int Checksum(const std::vector<uint8_t>& bytes) {
    return ChecksumAt(2, bytes);
}

void ExpectAsFolding(const std::vector<uint8_t>& bytes) {
    for (const size_t shift : kShifts) {
        ASSERT_EQ(ChecksumAt(shift, bytes), naive::in_chksum(bytes))
            << testing::PrintToString(bytes) << " at " << shift;
    }
}

// Fills bytes with every value that numbers of the alphabet allow.
void ExpectAllAsFolding(const std::vector<uint8_t>& alphabet, size_t length) {
    std::vector<size_t> digits(length, 0);
    std::vector<uint8_t> bytes(length, alphabet[0]);
    for (size_t i = 0; i < length;) {
        ExpectAsFolding(bytes);
        for (i = 0; i < length; ++i) {
            digits[i] = (digits[i] + 1) % alphabet.size();
            bytes[i] = alphabet[digits[i]];
            if (digits[i] != 0) {
                break;
            }
        }
    }
}

}  // namespace

TEST(in_chksum, IsTheComplementOfAWord) {
    EXPECT_EQ(Checksum({0x01, 0x02}), 0xFDFE);
    EXPECT_EQ(Checksum({0x00, 0x00}), 0xFFFF);
    EXPECT_EQ(Checksum({0xFF, 0xFF}), 0x0000);
}

TEST(in_chksum, TakesAnOddLastByteAsALowOne) {
    EXPECT_EQ(Checksum({0xFF}), 0xFF00);
    EXPECT_EQ(Checksum({0x01, 0x02, 0x03}), 0xFDFB);
    EXPECT_EQ(Checksum({0x00, 0x00, 0x80}), 0xFF7F);
}

TEST(in_chksum, IsAllOnesOverNothing) {
    const unsigned short word = 0x1234;
    for (const int length : {0, -1, -2, INT_MIN}) {
        EXPECT_EQ(in_chksum(&word, length), 0xFFFF) << length;
    }
    EXPECT_EQ(in_chksum(nullptr, 0), 0xFFFF);
}

TEST(in_chksum, AddsCarriesBackIn) {
    EXPECT_EQ(Checksum({0xFF, 0xFF, 0x01, 0x00}), 0xFFFE);              // 0x10000 folds to 1
    EXPECT_EQ(Checksum({0x00, 0x80, 0x00, 0x80}), 0xFFFE);              // 0x8000 twice
    EXPECT_EQ(Checksum({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), 0x0000);  // 0x2FFFD folds to 0xFFFF
    EXPECT_EQ(Checksum({0xFF, 0xFF, 0x01}), 0xFFFE);                    // by the odd byte
}

// A sum of 0x1FFFFFFFF: its parts make 0x1FFFF, which folds to 0x10000, and that to 1.
TEST(in_chksum, AddsTheCarryOfACarryBackIn) {
    const std::vector<uint8_t> bytes = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                                        0xFF, 0xFF, 0x01, 0x00, 0x00, 0x00};
    EXPECT_EQ(ChecksumAt(0, bytes), 0xFFFE);
    EXPECT_EQ(ChecksumAt(2, bytes), 0xFFFE);
}

// Worked by hand: the words 4500 0073 0000 4000 4011 0000 C0A8 0001 C0A8 00C7 give B861 on the
// wire.
TEST(in_chksum, IsThatOfAnIpHeaderInMachineOrder) {
    EXPECT_EQ(Checksum({0x45, 0x00, 0x00, 0x73, 0x00, 0x00, 0x40, 0x00, 0x40, 0x11,
                        0x00, 0x00, 0xC0, 0xA8, 0x00, 0x01, 0xC0, 0xA8, 0x00, 0xC7}),
              0x61B8);
}

TEST(in_chksum, IsZeroOverABufferThatHoldsItsChecksum) {
    const unsigned short words[] = {0x0045, 0x7300, 0x0000, 0x0040, 0x1140,
                                    0x61B8, 0xA8C0, 0x0100, 0xA8C0, 0xC700};
    EXPECT_EQ(in_chksum(words, sizeof words), 0);
}

TEST(in_chksum, ReadsOnlyTheGivenBytes) {
    const unsigned short words[] = {0x1111, 0x2222, 0x4444};
    EXPECT_EQ(in_chksum(words, 2), 0xEEEE);
    EXPECT_EQ(in_chksum(words, 3), 0xFFFF - 0x1133);
    EXPECT_EQ(in_chksum(words, 4), 0xFFFF - 0x3333);
    EXPECT_EQ(in_chksum(words, 5), 0xFFFF - 0x3377);
}

TEST(in_chksum, AgreesWithFoldingOnEverySmallBuffer) {
    std::vector<uint8_t> all_values(256);
    for (size_t i = 0; i < all_values.size(); ++i) {
        all_values[i] = static_cast<uint8_t>(i);
    }
    ExpectAllAsFolding(all_values, 1);
    ExpectAllAsFolding(all_values, 2);
    for (size_t length = 1; length <= 8; ++length) {
        ExpectAllAsFolding({0x00, 0x01, 0x80, 0xFF}, length);
    }
}

// A byte alone in a field of zeros shows when it is left out or taken for another half of a word.
TEST(in_chksum, CountsEveryByteInItsPlace) {
    for (size_t length = 1; length <= 130; ++length) {
        for (size_t i = 0; i < length; ++i) {
            std::vector<uint8_t> bytes(length, 0);
            bytes[i] = 0x5C;
            ExpectAsFolding(bytes);
        }
    }
}

TEST(in_chksum, LooksAtNoByteBesidesItsOwn) {
    for (const size_t shift : kShifts) {
        for (size_t length = 0; length <= 130; ++length) {
            const std::vector<uint8_t> bytes(length, 0x11);
            EXPECT_EQ(ChecksumAt(shift, bytes, 40), naive::in_chksum(bytes)) << length;
        }
    }
}

// The two zeros of ones' complement: only a sum of zeros is 0, one of 0xFFFF is 0xFFFF.
TEST(in_chksum, TellsNothingButZerosFromNothingButOnes) {
    for (const size_t shift : kShifts) {
        for (size_t length = 2; length <= 260; length += 2) {
            EXPECT_EQ(ChecksumAt(shift, std::vector<uint8_t>(length, 0x00)), 0xFFFF) << length;
            EXPECT_EQ(ChecksumAt(shift, std::vector<uint8_t>(length, 0xFF)), 0x0000) << length;
        }
    }
}

TEST(in_chksum, AgreesWithFoldingOnRandomBuffers) {
    CheckRandom(10, [](Random& random) {
        std::vector<uint8_t> bytes(static_cast<size_t>(random.Between(0, 100)));
        for (uint8_t& byte : bytes) {
            byte = static_cast<uint8_t>(random.Next());
        }
        ExpectAsFolding(bytes);
    });
}

// 32,768 words of 0xFFFF reach the top bit of a 32-bit sum, 65,538 words pass all its bits.
TEST(in_chksum, AgreesWithFoldingOnLargeBuffers) {
    for (const size_t length : {65'535u, 65'536u, 65'537u, 65'538u, 131'073u, 131'076u, 131'077u,
                                262'143u, 1'000'001u, 4'194'304u, 4'194'305u}) {
        for (const uint8_t fill : std::vector<uint8_t>{0xFF, 0xFE, 0x80}) {
            const std::vector<uint8_t> bytes(length, fill);
            const int expected = naive::in_chksum(bytes);
            EXPECT_EQ(ChecksumAt(0, bytes), expected) << length << " of " << int{fill};
            EXPECT_EQ(ChecksumAt(2, bytes), expected) << length << " of " << int{fill};
        }
    }
}

TEST(in_chksum, TakesNullForNoBytes) {
    for (const int length : {INT_MIN, 0, 1, 2, 100, INT_MAX}) {
        EXPECT_EQ(in_chksum(nullptr, length), 0xFFFF) << length;
    }
}
