// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/data_engine.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/settings_store.h"
#include "tests/support/memory_settings.h"

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
      {1e300, 0, kErrOverflow},
      {Text(" 12 "), 12, 0},
      {Text("1.5e1"), 15, 0},
      {Text(""), 0, kErrTypeMismatch},
      {Text("12 lines"), 0, kErrTypeMismatch},
  };
  for (const auto& row : rows) {
    int failure = 0;
    int number = 0;
    try {
      number = Int16Of(row.value);
    } catch (const RuntimeError& error) {
      failure = error.Number();
    }
    EXPECT_EQ(failure, row.failure) << TextOf(row.value);
    EXPECT_EQ(number, row.number) << TextOf(row.value);
  }
}

TEST(FieldValue, ReadsAsTextAndTruth) {
  EXPECT_EQ(TextOf({}), "");
  EXPECT_EQ(TextOf(std::int64_t{-5}), "-5");
  EXPECT_EQ(TextOf(29.97), "29.97");
  EXPECT_EQ(TextOf(25.0), "25");
  for (const FieldValue& yes : {FieldValue{std::int64_t{-1}}, FieldValue{0.5}, FieldValue{Text("true")},
                                FieldValue{Text("YES")}, FieldValue{Text("on")}, FieldValue{Text("-1")}}) {
    EXPECT_TRUE(BooleanOf(yes)) << TextOf(yes);
  }
  for (const FieldValue& no : {FieldValue{}, FieldValue{std::int64_t{0}}, FieldValue{Text("False")},
                               FieldValue{Text("")}, FieldValue{Text("0")}}) {
    EXPECT_FALSE(BooleanOf(no)) << TextOf(no);
  }
}

TEST(Settings, ReadAsNumbers) {
  MemorySettings settings;
  settings.values = {
      {"Page", " 3x"}, {"Timer", "never"}, {"Top", ""}, {"Left", "99999999999"}, {"Width", "-12.5"}};
  EXPECT_EQ(SettingNumber(settings, "page", "0"), 3);
  EXPECT_EQ(SettingNumber(settings, "Timer", "1"), 0);
  EXPECT_EQ(SettingNumber(settings, "Top", "7"), 0) << "an empty value is a value";
  EXPECT_EQ(SettingNumber(settings, "Left", "7"), 0);
  EXPECT_EQ(SettingNumber(settings, "Width", "7"), -12);
  EXPECT_EQ(SettingNumber(settings, "Height", "7"), 7);
}

}  // namespace
}  // namespace marlinset
