#include "activex/variants.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tests/activex/simple_object.hpp"
#include "tests/activex/test_owner.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::activex {
namespace {

using tests::Failure_Of;
using tests::SimpleObject;
using tests::Variant;
using Text = std::string;

struct Case {
  Variant from;
  MemberType type;
  MemberValue becomes;
};

Variant Of_Type(VARTYPE type, std::int64_t bits) {
  Variant value;
  value.llVal = bits;
  value.vt = type;
  return value;
}
Variant Money(double amount) {
  Variant value(amount);
  ::VariantChangeType(&value, &value, 0, VT_CY);
  return value;
}
Variant Decimal(double amount) {
  Variant value(amount);
  ::VariantChangeType(&value, &value, 0, VT_DECIMAL);
  return value;
}

int Failure_Of_Value(const Variant& from, MemberType type) {
  return Failure_Of([&] { Value_Of(from, type); });
}

TEST(Variants, Every_number_becomes_a_number) {
  const std::vector<Case> cases = {
      {Of_Type(VT_I1, 0xFF), MemberType::Number16, std::int16_t{-1}},
      {Of_Type(VT_UI1, 0xFF), MemberType::Number16, std::int16_t{255}},
      {SHORT{-32768}, MemberType::Number16, std::int16_t{-32768}},
      {Of_Type(VT_UI2, 65535), MemberType::Number32, std::int32_t{65535}},
      {LONG{70000}, MemberType::Number32, std::int32_t{70000}},
      {Of_Type(VT_UI4, 7), MemberType::Number16, std::int16_t{7}},
      {Of_Type(VT_INT, 0xFFFFFFFF), MemberType::Number32, std::int32_t{-1}},
      {Of_Type(VT_UINT, 9), MemberType::Number32, std::int32_t{9}},
      {Of_Type(VT_I8, -5), MemberType::Number32, std::int32_t{-5}},
      {Of_Type(VT_UI8, 5), MemberType::Number32, std::int32_t{5}},
      {Money(12.5), MemberType::Number32, std::int32_t{12}},
      {Decimal(13.5), MemberType::Number32, std::int32_t{14}},
      {Of_Type(VT_DATE, 0), MemberType::Number32, std::int32_t{0}},
      {true, MemberType::Number16, std::int16_t{-1}},
      {Variant(), MemberType::Number32, std::int32_t{0}},
      {L" 12e2 ", MemberType::Number16, std::int16_t{1200}},
  };
  for (const Case& a_case : cases) {
    EXPECT_EQ(Value_Of(a_case.from, a_case.type), a_case.becomes) << "VARTYPE " << a_case.from.vt;
  }
}

TEST(Variants, A_fraction_goes_to_the_nearest_number_and_a_half_to_the_even_one) {
  for (const auto& [from, to] :
       {std::pair{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {2.51, 3}, {-2.4, -2}}) {
    EXPECT_EQ(Value_Of(Variant(from), MemberType::Number32), MemberValue(std::int32_t{to}));
  }
}

TEST(Variants, Everything_that_is_plain_becomes_a_text) {
  const std::vector<Case> cases = {
      {L"caf\u00E9 \u20AC", MemberType::Text, Text("caf\xE9 \x80")},
      {L"\u4E2D", MemberType::Text, Text("?")},
      {std::wstring_view(L"a\0b", 3), MemberType::Text, Text("a\0b", 3)},
      {SHORT{-12}, MemberType::Text, Text("-12")},
      {LONG{70000}, MemberType::Text, Text("70000")},
      {0.25, MemberType::Text, Text("0.25")},
      {true, MemberType::Text, Text("True")},
      {false, MemberType::Text, Text("False")},
      {Variant(), MemberType::Text, Text()},
      {Of_Type(VT_UI4, 4'000'000'000), MemberType::Text, Text("4000000000")},
      {Of_Type(VT_BSTR, 0), MemberType::Text, Text()},
  };
  for (const Case& a_case : cases) {
    EXPECT_EQ(Value_Of(a_case.from, a_case.type), a_case.becomes) << "VARTYPE " << a_case.from.vt;
  }
}

TEST(Variants, Everything_that_is_plain_becomes_a_Boolean) {
  const std::vector<Case> cases = {
      {SHORT{2}, MemberType::Boolean, true},   {LONG{0}, MemberType::Boolean, false},
      {0.1, MemberType::Boolean, true},        {L"true", MemberType::Boolean, true},
      {L"False", MemberType::Boolean, false},  {L"-1", MemberType::Boolean, true},
      {Variant(), MemberType::Boolean, false}, {Of_Type(VT_UI8, 1), MemberType::Boolean, true},
  };
  for (const Case& a_case : cases) {
    EXPECT_EQ(Value_Of(a_case.from, a_case.type), a_case.becomes) << "VARTYPE " << a_case.from.vt;
  }
}

TEST(Variants, A_number_that_does_not_fit_is_failure_6) {
  EXPECT_EQ(Failure_Of_Value(LONG{32768}, MemberType::Number16), 6);
  EXPECT_EQ(Failure_Of_Value(-32768.6, MemberType::Number16), 6);
  EXPECT_EQ(Failure_Of_Value(3e9, MemberType::Number32), 6);
  EXPECT_EQ(Failure_Of_Value(std::numeric_limits<double>::infinity(), MemberType::Number32), 6);
  EXPECT_EQ(Failure_Of_Value(Of_Type(VT_UI4, 0xFFFFFFFF), MemberType::Number32), 6);
  EXPECT_EQ(Failure_Of_Value(Of_Type(VT_I8, 1LL << 40), MemberType::Number16), 6);
  EXPECT_EQ(Failure_Of_Value(L"99999", MemberType::Number16), 6);
}

TEST(Variants, What_is_no_value_is_failure_13_and_Null_is_94) {
  for (const MemberType type :
       {MemberType::Text, MemberType::Number16, MemberType::Number32, MemberType::Boolean}) {
    EXPECT_EQ(Failure_Of_Value(Variant(VARTYPE{VT_NULL}), type), 94);
    EXPECT_EQ(Failure_Of_Value(Of_Type(VT_ERROR, E_FAIL), type), 13);
    EXPECT_EQ(Failure_Of_Value(Of_Type(VT_DISPATCH, 0), type), 13);
    EXPECT_EQ(Failure_Of_Value(Of_Type(VT_UNKNOWN, 0), type), 13);
    Variant array;
    array.parray = ::SafeArrayCreateVector(VT_I4, 0, 3);
    array.vt = VT_ARRAY | VT_I4;
    EXPECT_EQ(Failure_Of_Value(array, type), 13);
    for (const VARTYPE unknown : std::initializer_list<VARTYPE>{15, 24, 31, 64, 4095, 0x1002}) {
      VARIANT strange{};
      strange.vt = unknown;
      EXPECT_EQ(Failure_Of([&] { Value_Of(strange, type); }), 13) << unknown;
    }
  }
  EXPECT_EQ(Failure_Of_Value(L"abc", MemberType::Number16), 13);
  EXPECT_EQ(Failure_Of_Value(L"", MemberType::Number32), 13);
  EXPECT_EQ(Failure_Of_Value(L"perhaps", MemberType::Boolean), 13);
}

TEST(Variants, What_comes_by_reference_is_looked_up) {
  SHORT number = 12;
  double real = 2.5;
  BSTR text = ::SysAllocString(L"12");
  Variant inner(L"7");
  DECIMAL decimal = Decimal(3.0).decVal;
  decimal.wReserved = 0;
  const auto by_ref = [](VARTYPE type, void* to) {
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(type | VT_BYREF);
    value.byref = to;
    return value;
  };
  EXPECT_EQ(Value_Of(by_ref(VT_I2, &number), MemberType::Text), MemberValue(Text("12")));
  EXPECT_EQ(Value_Of(by_ref(VT_R8, &real), MemberType::Number32), MemberValue(std::int32_t{2}));
  EXPECT_EQ(Value_Of(by_ref(VT_BSTR, &text), MemberType::Number16), MemberValue(std::int16_t{12}));
  EXPECT_EQ(Value_Of(by_ref(VT_VARIANT, &inner), MemberType::Number16),
            MemberValue(std::int16_t{7}));
  EXPECT_EQ(Value_Of(by_ref(VT_DECIMAL, &decimal), MemberType::Number16),
            MemberValue(std::int16_t{3}));
  VARIANT further = by_ref(VT_I2, &number);
  EXPECT_EQ(Value_Of(by_ref(VT_VARIANT, &further), MemberType::Number16),
            MemberValue(std::int16_t{12}));
  ::SysFreeString(text);
}

TEST(Variants, A_reference_to_nowhere_or_to_itself_is_failure_13) {
  for (const int type : {VT_I2, VT_BSTR, VT_DISPATCH, VT_DECIMAL, VT_VARIANT, VT_EMPTY}) {
    VARIANT nowhere{};
    nowhere.vt = static_cast<VARTYPE>(type | VT_BYREF);
    EXPECT_EQ(Failure_Of([&] { Value_Of(nowhere, MemberType::Text); }), 13) << type;
  }
  VARIANT ring{};
  ring.vt = VT_BYREF | VT_VARIANT;
  ring.pvarVal = &ring;
  EXPECT_EQ(Failure_Of([&] { Value_Of(ring, MemberType::Text); }), 13);
}

VARIANT Holding(IDispatch* object) {
  VARIANT value{};
  value.vt = VT_DISPATCH;
  value.pdispVal = object;
  return value;
}

TEST(Variants, An_object_is_asked_for_its_default_property) {
  SimpleObject object;
  object.At_Invoke = [](DISPID id, DISPPARAMS*, VARIANT* result) {
    if (id != DISPID_VALUE) return DISP_E_MEMBERNOTFOUND;
    Variant answer(L"42");
    return ::VariantCopy(result, &answer);
  };
  EXPECT_EQ(Value_Of(Holding(&object), MemberType::Number16), MemberValue(std::int16_t{42}));
  VARIANT unknown = Holding(&object);
  unknown.vt = VT_UNKNOWN;
  EXPECT_EQ(Value_Of(unknown, MemberType::Text), MemberValue(Text("42")));
  EXPECT_EQ(object.references, 1);
}

TEST(Variants, An_object_without_one_is_failure_13) {
  SimpleObject object;
  EXPECT_EQ(Failure_Of([&] { Value_Of(Holding(&object), MemberType::Text); }), 13);
}

TEST(Variants, An_object_that_answers_with_itself_is_not_asked_for_ever) {
  SimpleObject object;
  int asked = 0;
  object.At_Invoke = [&](DISPID, DISPPARAMS*, VARIANT* result) {
    ++asked;
    object.AddRef();
    *result = Holding(&object);
    return S_OK;
  };
  EXPECT_EQ(Failure_Of([&] { Value_Of(Holding(&object), MemberType::Text); }), 13);
  EXPECT_LE(asked, 10);
  EXPECT_EQ(object.references, 1);
}

TEST(Variants, A_value_given_has_the_type_of_its_member) {
  const auto given = [](const MemberValue& value) {
    Variant to;
    Give_Value(value, to);
    return to;
  };
  EXPECT_EQ(given({}).vt, VT_EMPTY);
  EXPECT_EQ(given(std::int16_t{3}).vt, VT_I2);
  EXPECT_EQ(given(std::int32_t{3}).vt, VT_I4);
  EXPECT_EQ(given(true).boolVal, VARIANT_TRUE);
  const Variant text = given(Text("\x80 a\0b", 5));
  EXPECT_EQ(text.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(text.bstrVal, ::SysStringLen(text.bstrVal)),
            std::wstring(L"\u20AC a\0b", 5));
}

TEST(Variants, An_argument_left_out_is_told_from_an_error_code) {
  EXPECT_TRUE(Is_Missing(Of_Type(VT_ERROR, DISP_E_PARAMNOTFOUND)));
  EXPECT_FALSE(Is_Missing(Of_Type(VT_ERROR, E_FAIL)));
  EXPECT_FALSE(Is_Missing(Of_Type(VT_I4, DISP_E_PARAMNOTFOUND)));
}

}  // namespace
}  // namespace quillspeech::activex
