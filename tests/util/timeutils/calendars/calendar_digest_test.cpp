// The same bits on every target, also far beyond any date that is used: a digest of doubles and
// fields, with the second implementation as the witness.

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "tests/support/digest.h"
#include "tests/util/timeutils/any_int.h"
#include "tests/util/timeutils/calendars/converted_date.h"
#include "tests/util/timeutils/calendars/naive_calendars.h"
#include "tests/util/timeutils/date_records.h"
#include "util/timeutils.h"
#include "util/timeutils/calendars/day_number.h"

namespace {

// Computed by the second implementation on x86-64.
constexpr uint64_t kDigestOfDates = 0x2c60e7d5c8ec0eb5;
constexpr uint64_t kDigestOfExtremes = 0xe027fc9d7af87c3e;

constexpr int kExtremeDates = 10'000;

// All that the calendars say about three numbers.
struct Answers {
    double jd_of_gregorian, jd_of_persian, jd_of_islamic;
    Date gregorian_of_persian, gregorian_of_islamic;
    Date persian_of_gregorian, islamic_of_gregorian;
    Date gregorian_of_jd, islamic_of_jd;  // of the day number of the Persian date
    int persian_days, islamic_days;
    int gregorian_leap, persian_leap, islamic_leap;

    bool operator==(const Answers&) const = default;

    void AddTo(Digest& digest) const {
        for (const double jd : {jd_of_gregorian, jd_of_persian, jd_of_islamic}) {
            digest.Add(jd);
        }
        for (const Date& date : {gregorian_of_persian, gregorian_of_islamic, persian_of_gregorian,
                                 islamic_of_gregorian, gregorian_of_jd, islamic_of_jd}) {
            digest.Add(date);
        }
        for (const int value :
             {persian_days, islamic_days, gregorian_leap, persian_leap, islamic_leap}) {
            digest.Add(value);
        }
    }
};

Date Split(int (*split)(double, int*, int*, int*), double jd) {
    Date date;
    split(jd, &date.year, &date.month, &date.day);
    return date;
}

Answers Ask(const Date& date) {
    const auto& [year, month, day] = date;
    const double jd = PersianToJd(year, month, day);
    return {
        .jd_of_gregorian = GregorianToJd(year, month, day),
        .jd_of_persian = jd,
        .jd_of_islamic = IslamicToJd(year, month, day),
        .gregorian_of_persian = Converted(PersianTmToChrisTm, date),
        .gregorian_of_islamic = Converted(IslamicTmToChrisTm, date),
        .persian_of_gregorian = Converted(ChrisTmToPersianTm, date),
        .islamic_of_gregorian = Converted(ChrisTmToIslamicTm, date),
        .gregorian_of_jd = Split(JdToGregorian, jd),
        .islamic_of_jd = Split(JdToIslamic, jd),
        .persian_days = GetPersianMonthDay(year, month),
        .islamic_days = GetIslamicMonthDay(year, month),
        .gregorian_leap = IsGregorianLeap(year),
        .persian_leap = IsLeapYearByCalendar(1, year),
        .islamic_leap = IsLeapYearByCalendar(2, year),
    };
}

Answers AskNaive(const Date& date) {
    const double jd = naive::PersianToJd(date);
    return {
        .jd_of_gregorian = naive::GregorianToJd(date),
        .jd_of_persian = jd,
        .jd_of_islamic = naive::IslamicToJd(date),
        .gregorian_of_persian = naive::JdToGregorian(jd),
        .gregorian_of_islamic = naive::JdToGregorian(naive::IslamicToJd(date)),
        .persian_of_gregorian = naive::JdToPersian(naive::GregorianToJd(date)),
        .islamic_of_gregorian = naive::JdToIslamic(naive::GregorianToJd(date)),
        .gregorian_of_jd = naive::JdToGregorian(jd),
        .islamic_of_jd = naive::JdToIslamic(jd),
        .persian_days = naive::GetPersianMonthDay(date.year, date.month),
        .islamic_days = naive::GetIslamicMonthDay(date.year, date.month),
        .gregorian_leap = naive::IsGregorianLeap(date.year),
        .persian_leap = naive::IsPersianLeap(date.year),
        .islamic_leap = naive::IsIslamicLeap(date.year),
    };
}

class BothDigests {
public:
    void Add(const Date& date) {
        const Answers product = Ask(date);
        const Answers witness = AskNaive(date);
        ASSERT_EQ(product, witness) << date;
        product.AddTo(product_);
        witness.AddTo(witness_);
    }
    void ExpectAre(uint64_t expected) const {
        EXPECT_EQ(witness_.value(), expected);
        EXPECT_EQ(product_.value(), expected);
    }

private:
    Digest product_;
    Digest witness_;
};

}  // namespace

TEST(Calendars, GiveTheSameBitsOnEveryTargetForDates) {
    BothDigests digests;
    int days = 0;
    for (int year = -6000; year <= 6000 && !HasFatalFailure(); ++year) {
        // Months and days run through their range and out of it, at another pace than the years.
        digests.Add({year, year % 15 + 1, ++days % 34 - 1});
    }
    digests.ExpectAre(kDigestOfDates);
}

TEST(Calendars, GiveTheSameBitsOnEveryTargetForExtremes) {
    BothDigests digests;
    Random random(2820);
    for (int i = 0; i < kExtremeDates && !HasFatalFailure(); ++i) {
        const int year = AnyInt(random);
        const int month = AnyInt(random);
        digests.Add({year, month, AnyInt(random)});
    }
    for (const int year : {INT_MIN, 0, INT_MAX}) {
        for (const int month : {INT_MIN, 0, 1, INT_MAX}) {
            for (const int day : {INT_MIN, 0, 1, INT_MAX}) {
                digests.Add({year, month, day});
            }
        }
    }
    digests.ExpectAre(kDigestOfExtremes);
}
