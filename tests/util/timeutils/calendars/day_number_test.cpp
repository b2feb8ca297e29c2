// The calendars in whole numbers against their published formulas in doubles.
//
// The formulas take too long in soft-float code and with sanitizers. There the product alone runs
// through every day, and its digest is compared with the one that both have elsewhere.

#include "util/timeutils/calendars/day_number.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

#include "tests/support/digest.h"
#include "tests/support/inputs.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/date_records.h"

namespace {

#if defined(__arm__) || defined(__SANITIZE_ADDRESS__)
constexpr bool kWithFormulas = false;
constexpr int kSomeDays = 3000;
#else
constexpr bool kWithFormulas = true;
constexpr int kSomeDays = 300'000;
#endif

constexpr uint64_t kDigestOfGregorianDays = 3678169498050143966;
constexpr uint64_t kDigestOfPersianDays = 13181936109073106824u;
constexpr uint64_t kDigestOfIslamicDays = 12465874856125397188u;

// A calendar by whole numbers, and by its formulas.
struct Calendar {
    int64_t (*day)(const CalendarDate& date);
    CalendarDate (*date)(int64_t day);
    double (*naive_jd)(const Date& date);
    Date (*naive_date)(double jd);
};

const Calendar kGregorian = {GregorianDay, GregorianDate, naive::GregorianToJd,
                             naive::JdToGregorian};
const Calendar kPersian = {PersianDay, PersianDate, naive::PersianToJd, naive::JdToPersian};
const Calendar kIslamic = {IslamicDay, IslamicDate, naive::IslamicToJd, naive::JdToIslamic};

Date TestDate(const CalendarDate& date) {
    return {date.year, date.month, date.day};
}

// 365 x the year wraps at 32 bits, and so does the day of the year.
constexpr int64_t kFarthestGregorianDay = int64_t{2} << 32;

// Both ways for every day of 20,000 Gregorian years. Returns a digest of all the dates and days.
uint64_t DigestOfEveryDay(const Calendar& calendar) {
    const int64_t last = GregorianDay({10'000, 12, 31});
    Digest digest;
    for (int64_t day = GregorianDay({-9'999, 1, 1}); day <= last; ++day) {
        const CalendarDate date = calendar.date(day);
        const int64_t back = calendar.day(date);
        digest.Add(date);
        digest.Add(back);
        if (kWithFormulas) {
            const double jd = static_cast<double>(day) + 0.5;
            const Date expected = calendar.naive_date(jd);
            if (TestDate(date) != expected ||
                static_cast<double>(back) + 0.5 != calendar.naive_jd(expected)) {
                ADD_FAILURE() << day << ": " << TestDate(date) << " for " << expected;
                break;
            }
        }
    }
    return digest.value();
}

// A day number of any size that a calendar can give, and beyond what its years can hold.
int64_t AnyDay(Random& random) {
    const int bits = random.Between(0, 44);
    const uint64_t number = uint64_t{random.Next()} << 32 | random.Next();
    const auto size = static_cast<int64_t>(number & ((uint64_t{1} << bits) - 1));
    return random.Between(0, 1) == 0 ? size : -size;
}

}  // namespace

TEST(GregorianDate, IsThatOfTheFormulasOnEveryDay) {
    EXPECT_EQ(DigestOfEveryDay(kGregorian), kDigestOfGregorianDays);
}

TEST(PersianDate, IsThatOfTheFormulasOnEveryDay) {
    EXPECT_EQ(DigestOfEveryDay(kPersian), kDigestOfPersianDays);
}

TEST(IslamicDate, IsThatOfTheFormulasOnEveryDay) {
    EXPECT_EQ(DigestOfEveryDay(kIslamic), kDigestOfIslamicDays);
}

TEST(GregorianDate, IsThatOfTheFormulasForDaysOfAnySize) {
    Random random(1582);
    for (int i = 0; i < kSomeDays; ++i) {
        const int64_t day = AnyDay(random);
        const double jd = static_cast<double>(day) + 0.5;
        ASSERT_EQ(TestDate(GregorianDate(day)), naive::JdToGregorian(jd)) << day;
        if (std::abs(day) <= kFarthestGregorianDay) {
            ASSERT_EQ(TestDate(PersianDate(day)), naive::JdToPersian(jd)) << day;
        }
        ASSERT_EQ(TestDate(IslamicDate(day)), naive::JdToIslamic(jd)) << day;
    }
}

TEST(GregorianDay, IsThatOfTheFormulasForAnyNumbers) {
    Random random(622);
    for (int i = 0; i < kSomeDays; ++i) {
        const int year = AnyInt(random);
        const int month = AnyInt(random);
        const Date date = {year, month, AnyInt(random)};
        ASSERT_EQ(GregorianToJd(date.year, date.month, date.day), naive::GregorianToJd(date));
        ASSERT_EQ(PersianToJd(date.year, date.month, date.day), naive::PersianToJd(date));
        ASSERT_EQ(IslamicToJd(date.year, date.month, date.day), naive::IslamicToJd(date));
    }
}

TEST(JdToGregorian, TakesDayNumbersWithAnyFraction) {
    Random random(29);
    for (int i = 0; i < kSomeDays; ++i) {
        const double jd = static_cast<double>(AnyDay(random)) + random.Between(-8, 8) / 8.0;
        Date gregorian;
        Date islamic;
        EXPECT_EQ(JdToGregorian(jd, &gregorian.year, &gregorian.month, &gregorian.day), 1);
        EXPECT_EQ(JdToIslamic(jd, &islamic.year, &islamic.month, &islamic.day), 1);
        ASSERT_EQ(gregorian, naive::JdToGregorian(jd)) << jd;
        ASSERT_EQ(islamic, naive::JdToIslamic(jd)) << jd;
    }
}

TEST(GetIslamicMonthDay, IsThatOfTheFormulasInEveryYearNearAndFar) {
    Random random(354);
    for (int i = 0; i < kSomeDays; ++i) {
        const int year = i % 2 == 0 ? AnyInt(random) : i - kSomeDays / 2;
        const int month = random.Between(0, 1) == 0 ? AnyInt(random) : random.Between(-1, 14);
        ASSERT_EQ(GetIslamicMonthDay(year, month), naive::GetIslamicMonthDay(year, month))
            << year << '-' << month;
    }
}
