// Callers that send anything.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "activex/errors.hpp"
#include "tests/activex/process_memory.hpp"
#include "tests/activex/simple_object.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::Answer;
using tests::DispatchTest;
using tests::Variant;

class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}
  unsigned Below(unsigned bound) { return engine_() % bound; }
  bool One_In(unsigned many) { return Below(many) == 0; }
  std::int64_t Number() {
    constexpr std::array<std::int64_t, 12> Edges = {
        0, 1, -1, 255, 256, 32767, 32768, -32769, 2147483647, 2147483648, -2147483649, 1LL << 62};
    return One_In(2) ? Edges[Below(Edges.size())] : static_cast<std::int64_t>(engine_()) - 1000;
  }

 private:
  std::mt19937 engine_;
};

// What a host calls "the value", of any type that a VARIANT has.
class AnyValue {
 public:
  explicit AnyValue(Chance& chance) {
    ::VariantInit(&inner_);
    Fill(chance, inner_);
    value_ = inner_;
    if (!chance.One_In(4) || inner_.vt == VT_EMPTY || inner_.vt == VT_NULL) return;
    const VARTYPE type = chance.One_In(2) ? VARTYPE{VT_VARIANT} : inner_.vt;
    value_.vt = static_cast<VARTYPE>(type | VT_BYREF);
    value_.byref = value_.vt == (VT_VARIANT | VT_BYREF) ? static_cast<void*>(&inner_)
                   : inner_.vt == VT_DECIMAL            ? static_cast<void*>(&inner_.decVal)
                                                        : static_cast<void*>(&inner_.lVal);
    if (chance.One_In(10)) value_.byref = nullptr;
  }
  ~AnyValue() { ::VariantClear(&inner_); }
  AnyValue(const AnyValue&) = delete;
  AnyValue& operator=(const AnyValue&) = delete;

  const VARIANT& Value() const { return value_; }

 private:
  static std::wstring Text(Chance& chance) {
    static constexpr const wchar_t* Texts[] = {
        L"",      L"YES", L"NO", L"abc", L"12",           L"-3.5",         L"1e400", L"&HFFFF",
        L"70000", L"Top", L"* ", L"(5)", L"\u20AC\u4E2D", L"C:\\x\\y.SAY", L"True"};
    if (chance.One_In(500)) return std::wstring(100'000, L'x');
    if (chance.One_In(20)) return std::wstring(L"a\0b", 3);
    return Texts[chance.Below(std::size(Texts))];
  }
  static void Fill(Chance& chance, VARIANT& value) {
    static constexpr VARTYPE Types[] = {VT_EMPTY, VT_NULL, VT_I2,   VT_I4,           VT_R4,
                                        VT_R8,    VT_CY,   VT_DATE, VT_BSTR,         VT_DISPATCH,
                                        VT_ERROR, VT_BOOL, VT_BSTR, VT_UNKNOWN,      VT_DECIMAL,
                                        VT_I1,    VT_UI1,  VT_UI2,  VT_UI4,          VT_I8,
                                        VT_UI8,   VT_INT,  VT_UINT, VT_ARRAY | VT_I4};
    const VARTYPE type = Types[chance.Below(std::size(Types))];
    value.llVal = chance.Number();
    switch (type) {
      case VT_R4:
        value.fltVal = static_cast<float>(chance.Number());
        break;
      case VT_R8:
      case VT_DATE:
        value.dblVal = chance.One_In(8) ? std::numeric_limits<double>::quiet_NaN()
                                        : static_cast<double>(chance.Number()) / 3;
        break;
      case VT_BSTR: {
        const std::wstring text = Text(chance);
        value.bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        break;
      }
      case VT_ERROR:
        if (chance.One_In(2)) value.scode = DISP_E_PARAMNOTFOUND;
        break;
      case VT_DISPATCH:
      case VT_UNKNOWN:
        value.punkVal = nullptr;
        break;
      case VT_ARRAY | VT_I4:
        value.parray = ::SafeArrayCreateVector(VT_I4, 0, 2);
        break;
      case VT_DECIMAL:
        value.decVal = {};
        value.decVal.Lo64 = static_cast<ULONGLONG>(chance.Number());
        value.decVal.scale = static_cast<BYTE>(chance.Below(29));
        break;
      default:
        break;
    }
    value.vt = type;
  }

  VARIANT inner_;
  VARIANT value_;
};

struct DispatchHostile : DispatchTest {
  static constexpr std::array<DISPID, 6> Ids = {DISPID_VALUE, DISPID_UNKNOWN, DISPID_PROPERTYPUT,
                                                0x68030050,   0x60030000,     -1000};

  void Call_Anything(Chance& chance) {
    const DISPID id = chance.One_In(20) ? Ids[chance.Below(Ids.size())]
                                        : Member_Table()[chance.Below(Member_Count)].id;
    static constexpr WORD Flags[] = {1, 2, 3, 4, 4, 4, 8, 12, 0, 0x4001, 0xFFFF};
    const AnyValue one(chance);
    const AnyValue other(chance);
    std::array<VARIANT, 2> values = {one.Value(), other.Value()};
    std::array<DISPID, 2> names = {chance.One_In(10) ? DISPID{7} : DISPID_PROPERTYPUT, 0};
    const WORD flags = Flags[chance.Below(std::size(Flags))];
    const UINT count = chance.One_In(8) ? chance.Below(3) : flags & 4 ? 1 : 0;
    const UINT named = chance.One_In(8) ? chance.Below(3) : count;
    DISPPARAMS arguments{chance.One_In(50) ? nullptr : values.data(),
                         chance.One_In(50) ? nullptr : names.data(), count, named};
    Answer answer;
    answer.code = dispatch->Invoke(id, IID_NULL, chance.Below(2) * 0x407, flags,
                                   chance.One_In(50) ? nullptr : &arguments,
                                   chance.One_In(20) ? nullptr : &answer.result,
                                   chance.One_In(20) ? nullptr : &answer.exception,
                                   chance.One_In(20) ? nullptr : &answer.bad_argument);
    ++codes[answer.code];
  }

  std::map<HRESULT, int> codes;
};

// Every code that may come back.
const std::set<HRESULT> Known_Codes = {
    S_OK,         DISP_E_EXCEPTION,     DISP_E_MEMBERNOTFOUND,   DISP_E_BADPARAMCOUNT,
    E_INVALIDARG, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL, DISP_E_NONAMEDARGS,
};

TEST_F(DispatchHostile, A_hundred_thousand_calls_of_any_kind_get_a_code_each_and_leak_nothing) {
  cues.keep_calls = false;
  Chance chance(20);
  const auto round = [&] {
    for (int call = 0; call < 25'000; ++call) {
      Call_Anything(chance);
      host_program.events.clear();
      host_program.changed.clear();
      host_program.faces.clear();
      boxes.shown.clear();
      calls.clear();
      session.settings.Send_of_no = 1;
    }
  };
  round();
  const std::size_t before = tests::Private_Bytes();
  for (int rounds = 0; rounds < 3; ++rounds) round();
  EXPECT_LT(tests::Private_Bytes(), before + 500'000);
  for (const auto& [code, times] : codes) {
    EXPECT_TRUE(Known_Codes.contains(code)) << std::hex << code;
  }
  for (const HRESULT code : Known_Codes) EXPECT_GT(codes[code], 0) << std::hex << code;
  EXPECT_EQ(owner.references, 0u);
}

TEST_F(DispatchHostile, Any_names_get_an_id_or_a_code) {
  Chance chance(21);
  for (int call = 0; call < 20'000; ++call) {
    std::wstring name = tests::Widened(Member_Table()[chance.Below(Member_Count)].name);
    const auto place = chance.Below(static_cast<unsigned>(name.size()));
    const bool is_spoiled = chance.One_In(2);
    if (is_spoiled) name[place] = static_cast<wchar_t>(0x7F + chance.Below(0xF000));
    std::wstring empty;
    std::array<LPOLESTR, 3> names = {chance.One_In(50) ? nullptr : name.data(), empty.data(),
                                     nullptr};
    std::array<DISPID, 3> ids = {};
    const UINT count = chance.One_In(10) ? chance.Below(4) : 1;
    const HRESULT code = dispatch->GetIDsOfNames(IID_NULL, names.data(), count, 0, ids.data());
    if (SUCCEEDED(code)) {
      EXPECT_FALSE(is_spoiled);
      EXPECT_EQ(count, 1u);
    } else {
      EXPECT_TRUE(code == DISP_E_UNKNOWNNAME || code == E_INVALIDARG) << std::hex << code;
    }
  }
}

TEST_F(DispatchHostile, Any_words_on_the_stack_of_the_vtable_get_a_code_and_leak_nothing) {
  cues.keep_calls = false;
  Chance chance(22);
  void** const vtable = *reinterpret_cast<void***>(dispatch) + 7;
  const auto call = [&] {
    const auto place = chance.Below(Member_Count);
    const Member& member = Member_Table()[place];
    if (member.access == Access::Call) return;  // it takes nothing that could be wrong
    using Entry = HRESULT(STDMETHODCALLTYPE*)(IDispatch*, std::uintptr_t);
    const auto entry = reinterpret_cast<Entry>(vtable[place]);
    const AnyValue value(chance);
    std::uintptr_t word = static_cast<std::uintptr_t>(chance.Number());
    VARIANT answer{};
    BSTR text = nullptr;
    if (member.access == Access::Get) {
      word = chance.One_In(20) ? 0 : reinterpret_cast<std::uintptr_t>(&answer.llVal);
    } else if (member.type == MemberType::Text) {
      text = value.Value().vt == VT_BSTR ? ::SysAllocString(value.Value().bstrVal) : nullptr;
      word = reinterpret_cast<std::uintptr_t>(text);
    }
    const HRESULT code = entry(dispatch, word);
    const bool is_known = code == S_OK || code == E_POINTER || Is_Failure_Number(code);
    EXPECT_TRUE(is_known) << member.name << std::hex << code;
    if (member.access == Access::Get && member.type == MemberType::Text) text = answer.bstrVal;
    ::SysFreeString(text);
  };
  const auto round = [&] {
    for (int calls_made = 0; calls_made < 10'000; ++calls_made) call();
    host_program.changed.clear();
    boxes.shown.clear();
    session.settings.Send_of_no = 1;
  };
  round();
  const std::size_t before = tests::Private_Bytes();
  for (int rounds = 0; rounds < 3; ++rounds) round();
  EXPECT_LT(tests::Private_Bytes(), before + 500'000);
}

}  // namespace
}  // namespace quillspeech::activex
