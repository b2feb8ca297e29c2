// Texts taken apart, hexadecimal, numbers, checksum, sorting, and names of files and interfaces.

#include <algorithm>

#include "tests/util/timeutils/ethernet/naive_mac.h"
#include "tests/util/trstrutils/naive.h"
#include "tests/vectors/inputs.h"
#include "util/fileutils.h"
#include "util/timeutils/ethernet.h"
#include "util/trstrutils.h"

namespace vectors {
namespace {

bool NaiveIsPicture(std::string name) {
    constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (char& letter : name) {
        if (kUpper.find(letter) != std::string_view::npos) {
            letter = static_cast<char>(letter + 'a' - 'A');
        }
    }
    const size_t dot = name.find('.');
    const std::string extension = dot == std::string::npos ? "" : name.substr(dot + 1);
    return extension == "jpg" || extension == "jpeg" || extension == "bmp" || extension == "png" ||
           extension == "gif";
}

int NaiveHexValue(int character) {
    if (character >= 'A' && character <= 'F') {
        return character - 'A' + 10;
    }
    return Cut(int64_t{character} - (character >= 'a' && character <= 'f' ? 'a' - 10 : '0'));
}

// Words in pairs of bytes, little-endian as on all targets.
std::vector<unsigned short> Words(const std::string& bytes) {
    std::vector<unsigned short> words(bytes.size() / 2 + 1);
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(words.data()));
    return words;
}

}  // namespace

const std::vector<Function>& StringFunctions() {
    using namespace input;
    static const std::vector<Function> kFunctions = {
        {"SplitByChar",
         {PlainText, Separator},
         [](const Arguments& a, Outcome& out) {
             Buffer first;
             Buffer rest;
             char* const start = rest.data() + 1;  // the byte before may be written
             out << SplitByChar(a.Text(0).c_str(), first.data(), start, a.Int(1)) - start;
             out << first << rest;
         },
         [](const Arguments& a, Outcome& out) {
             const naive::Outcome made =
                 naive::SplitByChar(a.Text(0), BufferBytes(), BufferBytes(), a.Int(1));
             (out << made.result).Bytes(made.first).Bytes(made.second);
         }},
        {"SplitKeyValueByChar",
         {PlainText, Size, Size, Separator},
         [](const Arguments& a, Outcome& out) {
             Buffer key;
             Buffer value;
             out << SplitKeyValueByChar(a.Text(0).c_str(), key.data(), a.Int(1), value.data(),
                                        a.Int(2), static_cast<char>(a.Int(3)));
             out << key << value;
         },
         [](const Arguments& a, Outcome& out) {
             const naive::Outcome made =
                 naive::SplitKeyValueByChar(a.Text(0), BufferBytes(), a.Int(1), BufferBytes(),
                                            a.Int(2), static_cast<char>(a.Int(3)));
             (out << made.result).Bytes(made.first).Bytes(made.second);
         }},
        {"ExtractValue",
         {ListText, Key, Separator, Size},
         [](const Arguments& a, Outcome& out) {
             Buffer value;
             out << ExtractValue(a.Text(0).c_str(), a.Text(1).c_str(), a.Int(2), value.data(),
                                 a.Int(3));
             out << value;
         },
         [](const Arguments& a, Outcome& out) {
             const naive::Outcome made =
                 naive::ExtractValue(a.Text(0), a.Text(1), a.Int(2), BufferBytes(), a.Int(3));
             (out << made.result).Bytes(made.first);
         }},
        {"ExtractValueInt",
         {ListText, Key, Separator, Number},
         [](const Arguments& a, Outcome& out) {
             out << ExtractValueInt(a.Text(0).c_str(), a.Text(1).c_str(), a.Int(2), a.Int(3));
         },
         [](const Arguments& a, Outcome& out) {
             out << naive::ExtractValueInt(a.Text(0), a.Text(1), a.Int(2), a.Int(3));
         }},
        {"TrimAroundSpace",
         {SpacedText},
         [](const Arguments& a, Outcome& out) {
             Buffer text(a.Text(0));
             TrimAroundSpace(text.data());
             out << text;
         },
         [](const Arguments& a, Outcome& out) { out.Text(naive::TrimAroundSpace(a.Text(0))); }},
        {"Str2Upcase",
         {PlainText, Size},
         [](const Arguments& a, Outcome& out) {
             Buffer text(a.Text(0));
             out << Str2Upcase(text.data(), a.Int(1)) << text;
         },
         [](const Arguments& a, Outcome& out) {
             out << 0;
             out.Bytes(naive::Str2Upcase(BufferBytes(a.Text(0)), a.Int(1)));
         }},
        {"Decode16",
         {HexText},
         [](const Arguments& a, Outcome& out) {
             Buffer bytes;
             out << Decode16(a.Text(0).c_str(), bytes.bytes()) << bytes;
         },
         [](const Arguments& a, Outcome& out) {
             const naive::Outcome made = naive::Decode16(a.Text(0), BufferBytes());
             (out << made.result).Bytes(made.first);
         }},
        {"str2Hex",
         {Character, Character},
         [](const Arguments& a, Outcome& out) { out << str2Hex(a.Int(0), a.Int(1)); },
         [](const Arguments& a, Outcome& out) {
             const int64_t high = NaiveHexValue(a.Int(0));
             out << ((high * 16 + NaiveHexValue(a.Int(1))) & 0xFF);
         }},
        {"str2int",
         {NumberText, Number},
         [](const Arguments& a, Outcome& out) { out << str2int(a.Text(0).c_str(), a.Int(1)); },
         [](const Arguments& a, Outcome& out) { out << naive::str2int(a.Text(0), a.Int(1)); }},
        {"in_chksum",
         {Bytes},
         [](const Arguments& a, Outcome& out) {
             const std::vector<unsigned short> words = Words(a.Text(0));
             out << in_chksum(words.data(), static_cast<int>(a.Text(0).size()));
         },
         [](const Arguments& a, Outcome& out) {
             out << naive::in_chksum({a.Text(0).begin(), a.Text(0).end()});
         }},
        {"MergeSort",
         {Numbers},
         [](const Arguments& a, Outcome& out) {
             std::vector<int> numbers = a.List(0);
             MergeSort(numbers.data(), static_cast<int>(numbers.size()));
             out << numbers;
         },
         [](const Arguments& a, Outcome& out) {
             std::vector<int> numbers = a.List(0);
             std::sort(numbers.begin(), numbers.end());
             out << numbers;
         }},
        {"str2mac",
         {MacText},
         [](const Arguments& a, Outcome& out) {
             Buffer mac;
             out << str2mac(a.Text(0).c_str(), mac.bytes()) << mac;
         },
         [](const Arguments& a, Outcome& out) {
             const std::string mac = naive::str2mac(a.Text(0)).value_or("");
             out << (mac.empty() ? -1 : 0);
             out.Bytes(BufferBytes().replace(0, mac.size(), mac));
         }},
        {"JudgePicFile",
         {FileName},
         [](const Arguments& a, Outcome& out) { out << JudgePicFile(a.Text(0).c_str()); },
         [](const Arguments& a, Outcome& out) { out << NaiveIsPicture(a.Text(0)); }},
    };
    return kFunctions;
}

}  // namespace vectors
