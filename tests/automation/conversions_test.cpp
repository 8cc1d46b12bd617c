// Conversions between value types, against what the automation run-time is documented to give.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/automation/convert.h"
#include "support/text/json.h"
#include "tests/automation/error_number.h"

namespace vmgv {
namespace {

Decimal decimal(const char* text) { return Decimal::fromText(text).value(); }

TEST(Conversions, TextOfEveryType) {
  const struct {
    Value value;
    const char* text;
  } cases[] = {
      {Value(), ""},
      {true, "True"},
      {false, "False"},
      {std::int16_t{-7}, "-7"},
      {2147483647, "2147483647"},
      {0.1, "0.1"},
      {0.1f, "0.1"},
      {1.0 / 3, "0.333333333333333"},
      {1e15, "1E+15"},
      {123456789012345.0, "123456789012345"},
      {0.1 + 0.2, "0.3"},
      {Currency{-12345}, "-1.2345"},
      {Currency{50000}, "5"},
      {decimal("79228162514264337593543950335"), "79228162514264337593543950335"},
      {decimal("-0.0010"), "-0.0010"},
      {Decimal::fromInteger(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808"},
      {Date{0.5}, "12/30/1899 12:00:00"},
      {Date{45000}, "03/15/2023"},
      {"Ωμέγα", "Ωμέγα"},
  };
  for (const auto& c : cases) EXPECT_EQ(toText(c.value), c.text) << typeName(c.value);
}

TEST(Conversions, NumbersRoundToEvenAndRefuseOverflow) {
  EXPECT_EQ(toInteger(2.5), 2);
  EXPECT_EQ(toInteger(3.5), 4);
  EXPECT_EQ(toLong(-0.5), 0);
  EXPECT_EQ(toInteger(true), -1);
  EXPECT_EQ(toLong(" 12e1 "), 120);
  EXPECT_EQ(toDouble(Currency{15000}), 1.5);
  EXPECT_EQ(toDouble(decimal("18446744073709551616")), 18446744073709551616.0);
  EXPECT_EQ(toInteger(Value()), 0);
  EXPECT_EQ(errorNumber([] { toInteger(32768); }), 6);
  EXPECT_EQ(errorNumber([] { toLong(2147483647.5); }), 6);
  EXPECT_EQ(errorNumber([] { toLong(std::nan("")); }), 6);
  for (const char* text : {"", "abc", "1,5", "1 2", "+-1", "nan", "inf", "1e999"}) {
    EXPECT_EQ(errorNumber([&] { toDouble(text); }), 13) << text;
  }
  EXPECT_EQ(errorNumber([] { toDouble(Null{}); }), 94);
  EXPECT_EQ(errorNumber([] { toText(Null{}); }), 94);
  EXPECT_EQ(errorNumber([] { toText(Missing{}); }), 13);
  EXPECT_EQ(errorNumber([] { toText(ObjectRef()); }), 91);
}

TEST(Conversions, BooleansAcceptNumbersAndWords) {
  EXPECT_TRUE(toBoolean("TRUE"));
  EXPECT_FALSE(toBoolean("false"));
  EXPECT_TRUE(toBoolean(0.5));
  EXPECT_FALSE(toBoolean("0"));
  EXPECT_EQ(errorNumber([] { toBoolean("yes"); }), 13);
}

TEST(Conversions, EqualityWithLiterals) {
  EXPECT_TRUE(equals(Value(), ""));
  EXPECT_TRUE(equals(Value(), 0.0));
  EXPECT_TRUE(equals("0", 0.0));
  EXPECT_FALSE(equals("notes", 0.0));
  EXPECT_FALSE(equals(Null{}, 0.0));
  EXPECT_FALSE(equals(Null{}, ""));
  EXPECT_FALSE(equals(std::int16_t{3}, ""));
  EXPECT_TRUE(equals(std::int16_t{3}, "3"));
}

TEST(Conversions, DecimalsRefuseWhatTheyCannotHold) {
  for (const char* text :
       {"", "-", ".", "1.2.3", "1e5", "79228162514264337593543950336", "0.00000000000000000000000000001"}) {
    EXPECT_FALSE(Decimal::fromText(text)) << text;
  }
  EXPECT_EQ(Decimal::fromText("+12.50")->toText(), "12.50");
}

TEST(Json, EscapesAndNests) {
  JsonWriter json;
  json.beginObject().key("a\"b").string("\x01\n\\Ω").key("list").beginArray();
  json.value(true).value(Null{}).value(1.5).value(Currency{15000}).beginObject().endObject().endArray();
  json.key("nan").number(std::nan("")).endObject();
  EXPECT_EQ(json.text(),
            "{\n  \"a\\\"b\": \"\\u0001\\n\\\\Ω\",\n  \"list\": [\n    true,\n    null,\n    1.5,\n"
            "    \"1.5\",\n    {}\n  ],\n  \"nan\": null\n}\n");
}

}  // namespace
}  // namespace vmgv
