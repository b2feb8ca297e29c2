// Numbers at fixed positions of a text.

#include "util/timeutils/texts/fields.h"

#include <gtest/gtest.h>

#include "tests/support/exact_copy.h"

namespace {

int Read(std::string_view text, int position, int width) {
    return ReadField(ExactCopy(text).get(), position, width);
}

}  // namespace

TEST(ReadField, ReadsTheCharactersAtThePosition) {
    EXPECT_EQ(Read("2024-05-17", 0, 4), 2024);
    EXPECT_EQ(Read("2024-05-17", 5, 2), 5);
    EXPECT_EQ(Read("2024-05-17", 8, 2), 17);
}

TEST(ReadField, EndsAtTheFirstOtherCharacter) {
    EXPECT_EQ(Read("2-24", 0, 4), 2);
    EXPECT_EQ(Read("5:30", 0, 2), 5);
    EXPECT_EQ(Read("x1", 0, 2), 0);
    EXPECT_EQ(Read("1x", 0, 2), 1);
}

TEST(ReadField, TakesWhiteSpaceAndASignBeforeTheDigits) {
    EXPECT_EQ(Read(" 7", 0, 2), 7);
    EXPECT_EQ(Read("\t\n 7", 0, 4), 7);
    EXPECT_EQ(Read("+7", 0, 2), 7);
    EXPECT_EQ(Read("-7", 0, 2), -7);
    EXPECT_EQ(Read("-24-", 0, 4), -24);
    EXPECT_EQ(Read("- 7", 0, 3), 0);
}

TEST(ReadField, OfATextThatEndsBeforeItIsZero) {
    EXPECT_EQ(Read("", 0, 2), 0);
    EXPECT_EQ(Read("24-", 3, 2), 0);
    EXPECT_EQ(Read("24", 3, 2), 0);
    EXPECT_EQ(Read("24", 6, 4), 0);
}

TEST(ReadField, ReadsNothingAfterTheEndOfTheText) {
    EXPECT_EQ(Read("24-0", 3, 2), 0);
    EXPECT_EQ(Read("24-05-1", 6, 2), 1);
    const char kLonger[] =
        "24\0"
        "5678";
    EXPECT_EQ(ReadField(kLonger, 3, 4), 0);
}
