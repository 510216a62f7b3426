// The vtable of _Quillspeech, called as programs do that were built against the type library.
#include <gtest/gtest.h>

#include <string>

#include "activex/errors.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::DispatchTest;
using tests::Variant;

constexpr std::size_t Before_Members = 7;

struct DispatchVtable : DispatchTest {
  void* Entry(std::size_t place) const {
    return (*reinterpret_cast<void***>(dispatch))[Before_Members + place];
  }
  // Values of every type are one word of the stack.
  template <class Value>
  HRESULT Get(std::size_t place, Value* value) const {
    return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Value*)>(Entry(place))(dispatch,
                                                                                           value);
  }
  template <class Value>
  HRESULT Let(std::size_t place, Value value) const {
    return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(IDispatch*, Value)>(Entry(place))(dispatch,
                                                                                          value);
  }
  HRESULT Call(std::size_t place) const {
    return reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(IDispatch*)>(Entry(place))(dispatch);
  }

  // The value of the member at that place, got by the vtable, as Invoke would give it.
  HRESULT Get_As_Variant(std::size_t place, Variant& value) const {
    switch (Member_Table()[place].type) {
      case MemberType::Text:
        value.vt = VT_BSTR;
        return Get(place, &value.bstrVal);
      case MemberType::Number16:
        value.vt = VT_I2;
        return Get(place, &value.iVal);
      case MemberType::Number32:
        value.vt = VT_I4;
        return Get(place, &value.lVal);
      default:
        value.vt = VT_BOOL;
        return Get(place, &value.boolVal);
    }
  }
  HRESULT Let_From_Variant(std::size_t place, const Variant& value) const {
    switch (value.vt) {
      case VT_BSTR:
        return Let(place, value.bstrVal);
      case VT_I2:
        return Let(place, value.iVal);
      case VT_I4:
        return Let(place, value.lVal);
      default:
        return Let(place, value.boolVal);
    }
  }
  std::size_t Place_Of(std::string_view name, Access access) const {
    const Member* const member = Find_Member(name, access);
    return static_cast<std::size_t>(member - Member_Table().data());
  }
  static Variant Sample(MemberType type) {
    switch (type) {
      case MemberType::Text:
        return L"YES";
      case MemberType::Number16:
        return SHORT{12};
      case MemberType::Number32:
        return LONG{5000};
      default:
        return false;
    }
  }
};

bool Are_Same(const VARIANT& one, const VARIANT& other) {
  if (one.vt != other.vt) return false;
  VARIANT left = one;
  VARIANT right = other;
  return ::VarCmp(&left, &right, LOCALE_NEUTRAL, 0) == HRESULT{VARCMP_EQ};
}

TEST_F(DispatchVtable, Every_get_answers_what_Invoke_answers) {
  session.results.Platinum_Words_Available = 2;
  session.results.Platinum_Best_Table[1] = "six";
  session.filter.Voice_Words_Explode_Count = 1;
  session.filter.Voice_Word_Table[1] = "fth*s";
  for (std::size_t place = 0; place < Member_Count; ++place) {
    const Member& member = Member_Table()[place];
    if (member.access != Access::Get) continue;
    Variant value;
    ASSERT_EQ(Get_As_Variant(place, value), S_OK) << member.name;
    DISPPARAMS none{};
    const auto answer = script.Invoke(member.id, DISPATCH_PROPERTYGET, none);
    EXPECT_TRUE(Are_Same(value, answer.result)) << member.name;
  }
}

TEST_F(DispatchVtable, Every_let_does_what_that_by_Invoke_does) {
  for (std::size_t place = 0; place < Member_Count; ++place) {
    const Member& member = Member_Table()[place];
    if (member.access != Access::Let) continue;
    const Variant value = Sample(member.type);
    const auto told_by = [&](auto&& let) {
      host_program.changed.clear();
      EXPECT_EQ(let(), S_OK) << member.name;
      const auto answer = script.Get(tests::Widened(member.name));
      return std::pair(host_program.changed, Variant(answer.result));
    };
    const auto [by_vtable, one] = told_by([&] { return Let_From_Variant(place, value); });
    const auto [by_invoke, other] =
        told_by([&] { return script.Let(tests::Widened(member.name), value).code; });
    EXPECT_EQ(by_vtable, by_invoke) << member.name;
    EXPECT_TRUE(Are_Same(one, other)) << member.name;
  }
}

TEST_F(DispatchVtable, Every_call_reaches_the_control) {
  for (std::size_t place = 0; place < Member_Count; ++place) {
    if (Member_Table()[place].access == Access::Call) {
      EXPECT_EQ(Call(place), S_OK) << Member_Table()[place].name;
    }
  }
  EXPECT_EQ(host_program.repaints, 1);
  EXPECT_EQ(Times("Show_Help"), 1);
  EXPECT_EQ(Times("Show_Splash"), 2);
  EXPECT_EQ(host_program.Times("StartRecognitionActivity"), 1);
  EXPECT_EQ(host_program.Times("StopRecognitionActivity"), 1);
}

TEST_F(DispatchVtable, What_lies_above_a_short_value_on_the_stack_means_nothing) {
  Let<LONG>(Place_Of("Noise_Sensitivity", Access::Let), 0x7BCD000C);
  EXPECT_EQ(session.settings.Noise_Sensitivity.Raw(), 12);
  Let<LONG>(Place_Of("Enabled", Access::Let), 0x7BCD0000);
  EXPECT_FALSE(control->Enabled());
}

TEST_F(DispatchVtable, A_failure_is_its_code_and_leaves_an_error_object) {
  session.settings.Send_of_no = 500;
  session.filter.Voice_Words_Explode_Count = 1;
  ::SetErrorInfo(0, nullptr);
  BSTR word = reinterpret_cast<BSTR>(1);
  EXPECT_EQ(Get(Place_Of("Voice_Word_Matched", Access::Get), &word), Code_Of(9));
  EXPECT_EQ(word, nullptr);
  ComPtr<IErrorInfo> error;
  ASSERT_EQ(::GetErrorInfo(0, error.Receive()), S_OK);
  BSTR words = nullptr;
  error->GetDescription(&words);
  EXPECT_STREQ(words, L"Subscript out of range");
  ::SysFreeString(words);
  GUID interface_id = {};
  error->GetGUID(&interface_id);
  EXPECT_EQ(interface_id, IID__Quillspeech);
}

TEST_F(DispatchVtable, Any_other_failure_takes_the_words_of_an_older_one_away) {
  BSTR word = nullptr;
  SHORT value = 0;
  session.settings.Send_of_no = 500;
  session.filter.Voice_Words_Explode_Count = 1;
  const auto fail = [&] { Get(Place_Of("Voice_Word_Matched", Access::Get), &word); };
  ComPtr<IErrorInfo> error;
  fail();
  EXPECT_EQ(Get<BSTR>(Place_Of("Open_this_Wave_File", Access::Get), nullptr), E_POINTER);
  EXPECT_EQ(::GetErrorInfo(0, error.Receive()), S_FALSE);
  fail();
  owner.control.reset();
  EXPECT_EQ(Get(Place_Of("Noise_Sensitivity", Access::Get), &value), RPC_E_DISCONNECTED);
  EXPECT_EQ(::GetErrorInfo(0, error.Receive()), S_FALSE);
}

TEST_F(DispatchVtable, A_value_beyond_its_variable_is_failure_6) {
  EXPECT_EQ(Let<SHORT>(Place_Of("Noise_Word_No_CutOff", Access::Let), 256), Code_Of(6));
}

TEST_F(DispatchVtable, Nowhere_is_refused_and_a_null_text_is_empty) {
  session.settings.Open_this_Wave_File = "a.wav";
  EXPECT_EQ(Get<BSTR>(Place_Of("Open_this_Wave_File", Access::Get), nullptr), E_POINTER);
  EXPECT_EQ(Let<BSTR>(Place_Of("Open_this_Wave_File", Access::Let), nullptr), S_OK);
  EXPECT_EQ(session.settings.Open_this_Wave_File, "");
}

TEST_F(DispatchVtable, An_ended_control_is_disconnected) {
  owner.control.reset();
  SHORT value = 0;
  EXPECT_EQ(Get(Place_Of("Noise_Sensitivity", Access::Get), &value), RPC_E_DISCONNECTED);
  EXPECT_EQ(Call(Place_Of("Refresh", Access::Call)), RPC_E_DISCONNECTED);
}

TEST_F(DispatchVtable, The_interface_is_a_part_of_the_whole) {
  ComPtr<IUnknown> unknown;
  ASSERT_EQ(dispatch->QueryInterface(IID_IUnknown, unknown.Receive_Void()), S_OK);
  EXPECT_EQ(unknown.Get(), static_cast<IUnknown*>(&owner));
  EXPECT_EQ(owner.references, 1u);
  EXPECT_EQ(dispatch->AddRef(), 2u);
  EXPECT_EQ(dispatch->Release(), 1u);
}

}  // namespace
}  // namespace quillspeech::activex
