// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/data_engine.h"

#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using Text = std::string;

TEST(FieldValue, ReadsAsAWholeNumberOrFails) {
  const struct {
    FieldValue value;
    int number;
    int failure;
  } rows[] = {
      {{}, 0, 0},
      {std::int64_t{-32768}, -32768, 0},
      {std::int64_t{32768}, 0, kErrOverflow},
      {2.5, 2, 0},
      {3.5, 4, 0},
      {Text(" 1.5e1 "), 15, 0},
      {Text(""), 0, kErrTypeMismatch},
      {Text("12 lines"), 0, kErrTypeMismatch},
  };
  for (const auto& row : rows) {
    int number = 0;
    EXPECT_EQ(FailureOf([&] { number = Int16Of(row.value); }), row.failure) << TextOf(row.value);
    EXPECT_EQ(number, row.number) << TextOf(row.value);
  }
}

TEST(FieldValue, ReadsAsTextAndTruth) {
  EXPECT_EQ(TextOf(29.97) + TextOf({}) + TextOf(25.0), "29.9725");
  for (const FieldValue& yes : {FieldValue{0.5}, FieldValue{Text("true")}, FieldValue{Text("YES")},
                                FieldValue{Text("on")}, FieldValue{Text("-1")}}) {
    EXPECT_TRUE(BooleanOf(yes)) << TextOf(yes);
  }
  for (const FieldValue& no : {FieldValue{}, FieldValue{Text("False")}, FieldValue{Text("0")}}) {
    EXPECT_FALSE(BooleanOf(no)) << TextOf(no);
  }
}

}  // namespace
}  // namespace marlinset
