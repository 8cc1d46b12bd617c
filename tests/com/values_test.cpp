// Every type of value on its way in, out and back.
#include "frontends/com/text.h"
#include "tests/com/things.h"

namespace vmgv::test {
namespace {

VARIANT referenceTo(VARIANT& target, VARTYPE type) {
  VARIANT reference;
  V_VT(&reference) = type | VT_BYREF;
  V_BYREF(&reference) = type == VT_VARIANT ? static_cast<void*>(&target) : &V_I8(&target);
  return reference;
}

VARIANT variantOf(VARTYPE type, std::int64_t bits) {
  VARIANT variant;
  V_I8(&variant) = bits;
  V_VT(&variant) = type;
  return variant;
}

TEST(Values, WholeNumbersOfEveryWidth) {
  const struct {
    VARTYPE type;
    std::int64_t bits;
    Value expected;
  } cases[] = {
      {VT_EMPTY, 0, {}},
      {VT_NULL, 0, Null{}},
      {VT_BOOL, VARIANT_TRUE, true},
      {VT_ERROR, DISP_E_PARAMNOTFOUND, Missing{}},
      {VT_I1, 0xFF, std::int16_t{-1}},
      {VT_UI1, 0xFF, Currency{2550000}},
      {VT_I2, 0xFFFF, std::int16_t{-1}},
      {VT_UI2, 0xFFFF, 65535},
      {VT_I4, 0xFFFFFFFF, -1},
      {VT_INT, 0xFFFFFFFF, -1},
      {VT_UI4, 0xFFFFFFFF, *Decimal::fromText("4294967295")},
      {VT_UINT, 0xFFFFFFFF, *Decimal::fromText("4294967295")},
      {VT_I8, std::int64_t{-5000000000}, *Decimal::fromText("-5000000000")},
      {VT_UI8, -1, *Decimal::fromText("18446744073709551615")},
      {VT_CY, -12345, Currency{-12345}},
  };
  for (const auto& test : cases) {
    VARIANT variant = variantOf(test.type, test.bits);
    EXPECT_EQ(test.expected, fromVariant(variant)) << test.type;
    if (test.type <= VT_NULL) continue;
    VARIANT reference = referenceTo(variant, test.type);
    EXPECT_EQ(test.expected, fromVariant(reference)) << "by reference " << test.type;
    EXPECT_EQ(test.expected, fromVariant(referenceTo(reference, VT_VARIANT))) << "by two " << test.type;
  }
}

TEST(Values, ThereAndBack) {
  const ObjectRef thing = makeObject<Thing>();
  const Value values[] = {{},
                          Null{},
                          Missing{},
                          std::int16_t{-32768},
                          1.5f,
                          -1e308,
                          Currency{-1},
                          Date{-1.25},
                          *Decimal::fromText("-79228162514264337593543950335"),
                          std::string("a\0b", 3),
                          "Αθήνα \U0001F600",
                          std::string(10000000, 'x'),
                          thing,
                          ObjectRef()};
  for (const Value& value : values) {
    Variant variant(value);
    EXPECT_EQ(value, variant.value()) << typeName(value);
    EXPECT_EQ(value, fromVariant(referenceTo(variant, VT_VARIANT))) << typeName(value);
    if (V_VT(&variant) <= VT_NULL || V_VT(&variant) == VT_DECIMAL) continue;
    EXPECT_EQ(value, fromVariant(referenceTo(variant, V_VT(&variant)))) << typeName(value);
  }
}

TEST(Values, WhatCannotBeUsedSaysSo) {
  VARIANT itself = referenceTo(itself, VT_VARIANT);
  const std::pair<VARIANT, const char*> cases[] = {
      {variantOf(VT_ARRAY | VT_VARIANT, 0), "13: An array cannot be used here"},
      {variantOf(VT_ARRAY | VT_BYREF | VT_I4, 0), "13: An array cannot be used here"},
      {variantOf(VT_ERROR, DISP_E_OVERFLOW), "13: An error value cannot be used here"},
      {variantOf(VT_RECORD, 0), "13: A value of the automation type 36 cannot be used here"},
      {variantOf(VT_BYREF | VT_VARIANT, 0), "5: A value is passed by a null reference"},
      {itself, "13: A value of the automation type 16396 cannot be used here"},
  };
  EXPECT_EQ("\uFFFDz", narrow(L"\xD800z"));  // malformed text is replaced
  EXPECT_EQ(L"\uFFFDz", wide("\xFFz"));
  for (const auto& [variant, words] : cases) EXPECT_EQ(words, errorOfStep([&] { fromVariant(variant); }));
}

}  // namespace
}  // namespace vmgv::test
