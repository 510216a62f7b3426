#include "activex/dispatch.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

#include "activex/errors.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::Answer;
using tests::DispatchTest;
using tests::Script;
using tests::Variant;
using tests::Widened;

constexpr DISPID Put = DISPID_PROPERTYPUT;
constexpr WORD Get_Or_Call = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

struct DispatchInvoke : DispatchTest {
  // The values stand last first, the names belong to the first of them.
  Answer Invoke(DISPID id, WORD flags, std::vector<Variant> values = {},
                std::vector<DISPID> names = {}) {
    std::vector<VARIANT> plain(values.begin(), values.end());
    DISPPARAMS arguments{plain.data(), names.data(), static_cast<UINT>(plain.size()),
                         static_cast<UINT>(names.size())};
    return script.Invoke(id, flags, arguments);
  }
  HRESULT Code(DISPID id, WORD flags, std::vector<Variant> values = {},
               std::vector<DISPID> names = {}) {
    return Invoke(id, flags, std::move(values), std::move(names)).code;
  }

  const DISPID sensitivity = script.Id(L"Noise_Sensitivity");
  const DISPID refresh = script.Id(L"Refresh");
};
using DispatchNames = DispatchTest;
using DispatchTypeInfo = DispatchTest;

TEST_F(DispatchNames, Every_member_is_found_in_any_case_of_letters) {
  for (const Member& member : Member_Table()) {
    std::string upper;
    for (const char letter : member.name) {
      upper += static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
    }
    EXPECT_EQ(script.Id(Widened(member.name)), member.id) << member.name;
    EXPECT_EQ(script.Id(Widened(upper)), member.id) << member.name;
  }
}

TEST_F(DispatchNames, A_name_that_nobody_has_is_unknown) {
  for (const wchar_t* const name : {L"", L"Enable", L"Enabled ", L"Enabled2", L"\u212Aeep"}) {
    std::wstring own = name;
    LPOLESTR names[] = {own.data()};
    DISPID id = 5;
    EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, &id), DISP_E_UNKNOWNNAME) << own;
    EXPECT_EQ(id, DISPID_UNKNOWN);
  }
}

TEST_F(DispatchNames, No_argument_has_a_name) {
  std::wstring member = L"Send_of_no";
  std::wstring argument = L"value";
  LPOLESTR names[] = {member.data(), argument.data()};
  std::array<DISPID, 2> ids = {};
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 2, 0, ids.data()), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], script.Id(L"Send_of_no"));
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(DispatchNames, A_call_without_names_or_with_an_interface_id_is_refused) {
  std::wstring member = L"Enabled";
  LPOLESTR names[] = {member.data()};
  LPOLESTR nothing[] = {nullptr};
  DISPID id = 0;
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_IUnknown, names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, nothing, 1, 0, &id), E_INVALIDARG);
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 0, 0, &id), E_INVALIDARG);
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_INVALIDARG);
}

TEST_F(DispatchTypeInfo, There_is_one_of_the_dual_interface) {
  UINT count = 0;
  EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(dispatch->GetTypeInfoCount(nullptr), E_POINTER);
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, information.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, IID__Quillspeech);
  EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
  information->ReleaseTypeAttr(attributes);
  EXPECT_EQ(dispatch->GetTypeInfo(1, 0, information.Receive()), DISP_E_BADINDEX);
  EXPECT_EQ(dispatch->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST_F(DispatchInvoke, A_value_that_was_let_is_got_in_the_type_of_its_member) {
  EXPECT_EQ(script.Let(L"Noise_Sensitivity", L"12").code, S_OK);
  const Answer number = script.Get(L"Noise_Sensitivity");
  EXPECT_EQ(number.code, S_OK);
  EXPECT_EQ(number.result.vt, VT_I2);
  EXPECT_EQ(number.result.iVal, 12);
  EXPECT_EQ(script.Let(L"Open_this_Wave_File", L"caf\u00E9.wav").code, S_OK);
  EXPECT_EQ(script.Get(L"Open_this_Wave_File").Text(), L"caf\u00E9.wav");
  EXPECT_EQ(session.settings.Open_this_Wave_File, "caf\xE9.wav");
  EXPECT_EQ(script.Get(L"Send_of_no").result.vt, VT_I4);
  EXPECT_EQ(script.Get(L"Enabled").result.boolVal, VARIANT_TRUE);
}

TEST_F(DispatchInvoke, A_call_is_made_and_answers_nothing) {
  const Answer answer = Invoke(refresh, DISPATCH_METHOD);
  EXPECT_EQ(answer.code, S_OK);
  EXPECT_EQ(answer.result.vt, VT_EMPTY);
  EXPECT_EQ(host_program.repaints, 1);
}

TEST_F(DispatchInvoke, The_flags_must_fit_the_member) {
  struct Case {
    DISPID id;
    WORD flags;
    HRESULT code;
  };
  const DISPID handle = script.Id(L"hWnd");
  for (const auto& [id, flags, code] : std::vector<Case>{
           {sensitivity, DISPATCH_PROPERTYGET, S_OK},
           {sensitivity, Get_Or_Call, S_OK},
           {sensitivity, DISPATCH_METHOD, DISP_E_MEMBERNOTFOUND},
           {sensitivity, 0, DISP_E_MEMBERNOTFOUND},
           {sensitivity, DISPATCH_PROPERTYPUTREF, DISP_E_MEMBERNOTFOUND},
           {refresh, DISPATCH_METHOD, S_OK},
           {refresh, Get_Or_Call, S_OK},
           {refresh, DISPATCH_PROPERTYGET, DISP_E_MEMBERNOTFOUND},
           {refresh, DISPATCH_PROPERTYPUT, DISP_E_MEMBERNOTFOUND},
           {handle, DISPATCH_PROPERTYGET, S_OK},
           {handle, DISPATCH_PROPERTYPUT, DISP_E_MEMBERNOTFOUND},
           {DISPID_VALUE, Get_Or_Call, DISP_E_MEMBERNOTFOUND},
           {DISPID_NEWENUM, Get_Or_Call, DISP_E_MEMBERNOTFOUND},
           {DISPID_UNKNOWN, Get_Or_Call, DISP_E_MEMBERNOTFOUND},
           {12345, DISPATCH_PROPERTYPUT, DISP_E_MEMBERNOTFOUND},
       }) {
    EXPECT_EQ(Code(id, flags), code) << id << " with flags " << flags;
  }
}

TEST_F(DispatchInvoke, A_let_may_come_as_a_let_of_an_object_too) {
  EXPECT_EQ(Code(sensitivity, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {SHORT{7}}, {Put}),
            S_OK);
  EXPECT_EQ(session.settings.Noise_Sensitivity.Raw(), 7);
}

TEST_F(DispatchInvoke, Arguments_must_be_as_many_as_the_member_takes) {
  EXPECT_EQ(Code(sensitivity, DISPATCH_PROPERTYPUT), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Code(sensitivity, DISPATCH_PROPERTYPUT, {1, 2}, {Put}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Code(sensitivity, DISPATCH_PROPERTYPUT, {1, 2}, {Put, 7}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Code(sensitivity, Get_Or_Call, {1}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Code(refresh, DISPATCH_METHOD, {1}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(host_program.repaints, 0);
}

TEST_F(DispatchInvoke, A_let_takes_its_argument_by_the_name_of_lets_alone) {
  const Answer nameless = Invoke(sensitivity, DISPATCH_PROPERTYPUT, {1});
  EXPECT_EQ(nameless.code, DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(nameless.bad_argument, 0u);
  EXPECT_EQ(Code(sensitivity, DISPATCH_PROPERTYPUT, {1}, {0}), DISP_E_PARAMNOTFOUND);
  EXPECT_EQ(Code(sensitivity, Get_Or_Call, {1}, {0}), DISP_E_NONAMEDARGS);
  EXPECT_EQ(Code(refresh, DISPATCH_METHOD, {1}, {Put}), DISP_E_NONAMEDARGS);
}

TEST_F(DispatchInvoke, An_argument_left_out_is_not_optional) {
  Variant missing(VARTYPE{VT_ERROR});
  missing.scode = DISP_E_PARAMNOTFOUND;
  const Answer answer = Invoke(sensitivity, DISPATCH_PROPERTYPUT, {missing}, {Put});
  EXPECT_EQ(answer.code, DISP_E_PARAMNOTOPTIONAL);
  EXPECT_EQ(answer.bad_argument, 0u);
}

TEST_F(DispatchInvoke, A_failed_member_is_an_exception_with_number_source_and_words) {
  script.Let(L"Send_of_no", 500);
  session.filter.Voice_Words_Explode_Count = 1;
  const Answer answer = script.Get(L"Voice_Word_Matched");
  EXPECT_EQ(answer.code, DISP_E_EXCEPTION);
  EXPECT_EQ(answer.exception.scode, Code_Of(9));
  EXPECT_EQ(answer.exception.wCode, 0);
  EXPECT_STREQ(answer.exception.bstrSource, L"Quillspeech");
  EXPECT_STREQ(answer.exception.bstrDescription, L"Subscript out of range");
  EXPECT_EQ(answer.result.vt, VT_EMPTY);
}

TEST_F(DispatchInvoke, A_value_that_cannot_be_converted_fails_before_the_member_sees_it) {
  struct Case {
    Variant value;
    int number;
    const wchar_t* words;
  };
  for (const auto& [value, number, words] : std::vector<Case>{
           {L"abc", 13, L"Type mismatch"},
           {40000, 6, L"Overflow"},
           {Variant(VARTYPE{VT_NULL}), 94, L"Invalid use of Null"},
       }) {
    for (const wchar_t* const member :
         {L"Noise_Sensitivity", L"Filter_Pass_Value", L"Platinum_Word_Percentage"}) {
      const Answer answer = script.Let(member, value);
      EXPECT_EQ(answer.Number(), number) << member;
      EXPECT_STREQ(answer.exception.bstrDescription, words);
      EXPECT_EQ(answer.bad_argument, 0u);
    }
  }
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(host_program.changed.empty());
}

TEST_F(DispatchInvoke, A_let_of_a_result_succeeds_and_does_nothing) {
  EXPECT_EQ(script.Let(L"Platinum_Word_Best", L"six").code, S_OK);
  EXPECT_EQ(script.Get(L"Platinum_Word_Best").Text(), L"");
  EXPECT_TRUE(host_program.changed.empty());
}

TEST_F(DispatchInvoke, Nobody_needs_to_take_an_answer_or_an_exception) {
  DISPPARAMS none{};
  EXPECT_EQ(
      dispatch->Invoke(sensitivity, IID_NULL, 0, Get_Or_Call, &none, nullptr, nullptr, nullptr),
      S_OK);
  Variant value(L"abc");
  DISPID put = Put;
  DISPPARAMS one{&value, &put, 1, 1};
  EXPECT_EQ(dispatch->Invoke(sensitivity, IID_NULL, 0, DISPATCH_PROPERTYPUT, &one, nullptr, nullptr,
                             nullptr),
            DISP_E_EXCEPTION);
}

TEST_F(DispatchInvoke, Pointers_to_nowhere_and_interface_ids_are_refused) {
  DISPPARAMS none{};
  DISPPARAMS no_values{nullptr, nullptr, 1, 0};
  Variant value(1);
  DISPPARAMS no_names{&value, nullptr, 1, 1};
  DISPID put = Put;
  DISPPARAMS more_names{&value, &put, 0, 1};
  const auto code = [&](REFIID iid, DISPPARAMS* arguments) {
    return dispatch->Invoke(sensitivity, iid, 0, DISPATCH_PROPERTYPUT, arguments, nullptr, nullptr,
                            nullptr);
  };
  EXPECT_EQ(code(IID_IDispatch, &none), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(code(IID_NULL, nullptr), E_INVALIDARG);
  EXPECT_EQ(code(IID_NULL, &no_values), E_INVALIDARG);
  EXPECT_EQ(code(IID_NULL, &no_names), E_INVALIDARG);
  EXPECT_EQ(code(IID_NULL, &more_names), E_INVALIDARG);
}

TEST_F(DispatchInvoke, An_ended_control_is_disconnected) {
  owner.control.reset();
  EXPECT_EQ(script.Get(L"Send_of_no").code, RPC_E_DISCONNECTED);
  EXPECT_EQ(script.Let(L"Send_of_no", 1).code, RPC_E_DISCONNECTED);
  EXPECT_EQ(Code(refresh, DISPATCH_METHOD), RPC_E_DISCONNECTED);
}

TEST_F(DispatchInvoke, A_member_that_ends_the_control_still_comes_to_its_end) {
  host_program.At_Call = [&](std::string_view) {
    const auto ended = std::exchange(owner.control, nullptr);
    control.reset();
    if (ended) ended->UserControl_Terminate();
  };
  EXPECT_EQ(script.Let(L"Noise_Sensitivity", 9).code, S_OK);
  EXPECT_EQ(session.settings.Noise_Sensitivity.Raw(), 9);
  EXPECT_EQ(script.Get(L"Noise_Sensitivity").code, RPC_E_DISCONNECTED);
}

TEST_F(DispatchInvoke, A_huge_text_and_one_with_NULs_arrive_whole) {
  const std::wstring huge(1'000'000, L'\u20AC');
  EXPECT_EQ(script.Let(L"Open_this_Wave_File", std::wstring_view(huge)).code, S_OK);
  EXPECT_EQ(script.Get(L"Open_this_Wave_File").Text(), huge);
  const std::wstring nuls(L"a\0b\0", 4);
  EXPECT_EQ(script.Let(L"Open_this_Wave_File", std::wstring_view(nuls)).code, S_OK);
  EXPECT_EQ(script.Get(L"Open_this_Wave_File").Text(), nuls);
}

TEST_F(DispatchInvoke, A_call_leaves_no_reference_behind) {
  owner.references = 1;
  script.Get(L"Send_of_no");
  script.Let(L"Send_of_no", L"x");
  Invoke(refresh, DISPATCH_METHOD);
  EXPECT_EQ(owner.references, 1u);
}

}  // namespace
}  // namespace quillspeech::activex
