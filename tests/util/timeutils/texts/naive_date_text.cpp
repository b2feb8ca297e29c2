// The naive date texts, clock forms and splitters.

#include <algorithm>
#include <climits>

#include "tests/util/timeutils/texts/naive_texts.h"

namespace {

const std::string kWhiteSpace = " \t\n\v\f\r";

// The characters [start, start + count) as far as text has them.
std::string Piece(const std::string& text, size_t start, size_t count) {
    return start < text.size() ? text.substr(start, count) : "";
}

}  // namespace

namespace naive {

int Number(const std::string& text) {
    size_t i = text.find_first_not_of(kWhiteSpace);
    if (i == std::string::npos) {
        return 0;
    }
    const bool is_negative = text[i] == '-';
    if (text[i] == '-' || text[i] == '+') {
        ++i;
    }
    int64_t value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        value = value * 10 + (text[i] - '0');
        if (value > INT_MAX) {
            value = is_negative ? int64_t{INT_MAX} + 1 : INT_MAX;
            break;
        }
    }
    return static_cast<int>(is_negative ? -value : value);
}

std::string Padded(int64_t value, size_t width) {
    std::string digits = std::to_string(value < 0 ? -value : value);
    const std::string sign = value < 0 ? "-" : "";
    while (sign.size() + digits.size() < width) {
        digits = "0" + digits;
    }
    return sign + digits;
}

std::string Put(std::string bytes, int size, const std::string& text) {
    for (int i = 0; i < size; ++i) {
        const auto at = static_cast<size_t>(i);
        if (i == size - 1 || at == text.size()) {
            bytes[at] = '\0';
            break;
        }
        bytes[at] = text[at];
    }
    return bytes;
}

std::string DateText(int code, const Date& date) {
    const int m = code % 10;
    const std::string month = Padded(date.month, 2);
    const std::string day = Padded(date.day, 2);
    if (m == 9) {
        return Padded(date.year, 4) + "-" + month + "-" + day;
    }
    const std::string year = Padded(date.year % 100, 2);
    std::string text;
    if (m < 3) {
        text = year + "-" + month + "-" + day;
    } else if (m > 5) {
        text = day + "-" + month + "-" + year;
    } else {
        text = month + "-" + day + "-" + year;
    }
    text[2] = text[5] = m % 3 == 0 ? '-' : m % 3 == 1 ? '/' : '.';
    return text;
}

Date ReadDate(const std::string& text, int code, int calendar_mode) {
    const int m = code % 10;
    const auto field = [&](size_t start, size_t count) {
        return Number(Piece(text, start, count));
    };
    if (m == 9) {
        return {field(0, 4), field(5, 2), field(8, 2)};
    }
    Date date = m < 3   ? Date{field(0, 2), field(3, 2), field(6, 2)}
                : m > 5 ? Date{field(6, 2), field(3, 2), field(0, 2)}
                        : Date{field(6, 2), field(0, 2), field(3, 2)};
    const bool is_last_century = calendar_mode == 1   ? date.year > 16
                                 : calendar_mode == 2 ? false
                                                      : date.year > 37;
    const int century = calendar_mode == 1 || calendar_mode == 2 ? 1400 : 2000;
    date.year += is_last_century ? century - 100 : century;
    return date;
}

std::string FmtDateToStandardDate(const std::string& bytes, int size, int code, int calendar_mode) {
    return Put(bytes, size, DateText(9, ReadDate(bytes.c_str(), code, calendar_mode)));
}

std::string StandardDateToFmtDate(const std::string& bytes, int code) {
    return Put(bytes, INT_MAX, DateText(code, ReadDate(bytes.c_str(), 9, 0)));
}

HourText ConvertHourText(std::string bytes, int size, bool to24) {
    std::string text = bytes.c_str();
    if (text.empty()) {
        return {-1, bytes, ""};
    }
    const size_t last_a = text.rfind('A');
    const size_t last_p = text.rfind('P');
    const size_t marker = last_a != std::string::npos ? last_a : last_p;
    if ((marker != std::string::npos) != to24) {
        return {0, bytes, ""};
    }
    std::string tail;
    if (to24) {
        text = text.substr(0, marker < 1 ? 0 : marker - 1);
        if (size > 0) {
            bytes[text.size()] = '\0';
        }
    }
    int hour = Number(Piece(text, 0, 2));
    if (!to24) {
        tail = hour > 11 ? " PM" : " AM";
        hour = hour % 12 == 0 ? 12 : hour % 12;
    } else if (last_a != std::string::npos) {
        hour = hour == 12 ? 0 : hour;
    } else {
        hour += hour <= 11 ? 12 : 0;
    }
    const std::string made = (Padded(hour, 2) + Piece(text, 2, text.size()) + tail).substr(0, 63);
    return {1, Put(bytes, size, made), made};
}

Split SplitNumbers(const std::string& text, char separator, std::vector<int> numbers) {
    std::string bytes = text;
    size_t start = 0;
    for (size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = Number(text.substr(start));
        const size_t end = text.find(separator, start);
        if (end == std::string::npos || i + 1 == numbers.size()) {
            break;
        }
        bytes[end] = '\0';
        start = end + 1;
    }
    return {bytes, numbers};
}

std::string CompileDate(std::string text) {
    text = text.substr(0, 39);
    // The next number, or 0 and no text left when there is none.
    const auto skip_blanks = [&] {
        text.erase(0, std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    };
    const auto next_number = [&] {
        skip_blanks();
        const size_t digits = text.find_first_of("+-") == 0 ? 1 : 0;
        const size_t end = text.find_first_not_of("0123456789", digits);
        const int number = Number(text);
        const bool is_missing = std::min(end, text.size()) == digits;
        text.erase(0, is_missing ? text.size() : end);
        return number;
    };
    skip_blanks();
    const std::string word = text.substr(0, text.find_first_of(kWhiteSpace));
    text.erase(0, word.size());
    const int day = next_number();
    const int year = next_number();
    const std::string names = "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec ";
    const size_t at = word.size() < 3 ? std::string::npos : names.find(word.substr(0, 3) + " ");
    const size_t month = at == std::string::npos ? 0 : at / 4 + 1;
    return Padded(year, 4) + Padded(static_cast<int>(month), 2) + Padded(day, 2);
}

}  // namespace naive
