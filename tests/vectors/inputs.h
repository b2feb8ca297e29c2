// What random calls pass: numbers and texts near the ones that callers pass, and far ones.
#ifndef TESTS_VECTORS_INPUTS_H
#define TESTS_VECTORS_INPUTS_H

#include "tests/vectors/call.h"

namespace vectors::input {

Value Number(Random& random);  // of any size
Value Year(Random& random);    // full, as in 2024
Value TmYear(Random& random);
Value Month(Random& random);
Value Day(Random& random);
Value Hour(Random& random);
Value Minute(Random& random);  // also of an hour
Value Flag(Random& random);
Value Zone(Random& random);  // mostly 0
Value Bias(Random& random);
Value Clock(Random& random);  // HHMM
Value Mode(Random& random);
Value Code(Random& random);
Value TextType(Random& random);
Value Size(Random& random);
Value TextSize(Random& random);  // 0 and below, or enough for 10 characters
Value Count(Random& random);
Value Separator(Random& random);
Value Character(Random& random);

Value DateText(Random& random);
Value ClockText(Random& random);
Value DateTimeText(Random& random);
Value BuildDateText(Random& random);
Value NumberText(Random& random);
Value ListText(Random& random);
Value Key(Random& random);
Value PlainText(Random& random);
Value SpacedText(Random& random);
Value HexText(Random& random);
Value MacText(Random& random);
Value FileName(Random& random);
Value Bytes(Random& random);  // of any value, at most 64
Value Numbers(Random& random);

}  // namespace vectors::input

#endif
