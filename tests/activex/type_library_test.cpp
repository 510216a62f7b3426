// The type library, read back as a compiler of a host reads it, is what the tables say.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "activex/module.hpp"
#include "core/control_events.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::Widened;

std::wstring Kept(BSTR text) {
  const std::wstring kept = text ? text : L"";
  ::SysFreeString(text);
  return kept;
}

struct Words {
  std::wstring name;
  std::wstring help;
};
template <class Documented>
Words Words_Of(Documented& documented, LONG which) {
  BSTR name = nullptr;
  BSTR help = nullptr;
  EXPECT_EQ(documented.GetDocumentation(which, &name, &help, nullptr, nullptr), S_OK);
  return {Kept(name), Kept(help)};
}

struct Attributes {
  explicit Attributes(ITypeInfo& of) : type(of) { type.GetTypeAttr(&attributes); }
  ~Attributes() { type.ReleaseTypeAttr(attributes); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  TYPEATTR* operator->() const { return attributes; }

  ITypeInfo& type;
  TYPEATTR* attributes = nullptr;
};

struct Function {
  Function(ITypeInfo& of, UINT index) : type(of) {
    EXPECT_EQ(type.GetFuncDesc(index, &description), S_OK);
  }
  ~Function() { type.ReleaseFuncDesc(description); }
  Function(const Function&) = delete;
  Function& operator=(const Function&) = delete;
  FUNCDESC* operator->() const { return description; }

  // Its own name, then those of its arguments.
  std::vector<std::wstring> Names() const {
    std::array<BSTR, 4> names = {};
    UINT count = 0;
    type.GetNames(description->memid, names.data(), static_cast<UINT>(names.size()), &count);
    std::vector<std::wstring> kept;
    for (UINT index = 0; index < count; ++index) kept.push_back(Kept(names[index]));
    return kept;
  }

  ITypeInfo& type;
  FUNCDESC* description = nullptr;
};

VARTYPE Type_Of(MemberType type) {
  constexpr std::array<VARTYPE, 5> Types = {VT_VOID, VT_BSTR, VT_I2, VT_I4, VT_BOOL};
  return Types[static_cast<std::size_t>(type)];
}

struct TypeLibrary : tests::DispatchTest {
  TypeLibrary() { EXPECT_EQ(Module::Of_This_File().Type_Library(library.Receive()), S_OK); }

  ComPtr<ITypeInfo> Type(REFGUID guid) const {
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(library->GetTypeInfoOfGuid(guid, type.Receive()), S_OK);
    return type;
  }
  // The vtable behind the dispatch interface.
  ComPtr<ITypeInfo> Vtable() const {
    const auto dual = Type(IID__Quillspeech);
    HREFTYPE reference = 0;
    EXPECT_EQ(dual->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(dual->GetRefTypeInfo(reference, type.Receive()), S_OK);
    return type;
  }
  // Of the class: the interface at that place, and how it is marked.
  static GUID Implemented(ITypeInfo& of, UINT index, int expected_flags) {
    HREFTYPE reference = 0;
    EXPECT_EQ(of.GetRefTypeOfImplType(index, &reference), S_OK);
    INT flags = 0;
    EXPECT_EQ(of.GetImplTypeFlags(index, &flags), S_OK);
    EXPECT_EQ(flags, expected_flags);
    ComPtr<ITypeInfo> type;
    EXPECT_EQ(of.GetRefTypeInfo(reference, type.Receive()), S_OK);
    return Attributes(*type)->guid;
  }
  // Whether a let, or the get of a result, tells the container of a change by the member's name.
  bool Announces(const Member& member) {
    const std::wstring name = Widened(member.name);
    host_program.changed.clear();
    if (!Find_Member(member.name, Access::Let)) return false;
    switch (member.type) {
      case MemberType::Text:
        script.Let(name, L"YES");
        break;
      case MemberType::Boolean:
        script.Let(name, false);
        break;
      case MemberType::Number16:
        script.Let(name, 12);
        break;
      default:
        script.Let(name, 5000);
        break;
    }
    script.Get(name);
    return std::ranges::find(host_program.changed, member.name) != host_program.changed.end();
  }

  ComPtr<ITypeLib> library;
};

TEST_F(TypeLibrary, It_has_its_name_version_help_text_and_types) {
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, LIBID_QuillspeechX);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  EXPECT_EQ(attributes->lcid, 0u);
  EXPECT_TRUE(attributes->wLibFlags & LIBFLAG_FCONTROL);
  library->ReleaseTLibAttr(attributes);
  const Words words = Words_Of(*library, -1);
  EXPECT_EQ(words.name, L"QuillspeechX");
  EXPECT_EQ(words.help, L"Speech Recognition ActiveX Custom Control from Corvane Studio Works");
  EXPECT_EQ(library->GetTypeInfoCount(), 2u + 1u + 2u * 8u);
}

TEST_F(TypeLibrary, The_interface_is_dual_and_derived_from_IDispatch) {
  const auto vtable = Vtable();
  const Attributes attributes(*vtable);
  EXPECT_EQ(attributes->typekind, TKIND_INTERFACE);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FOLEAUTOMATION);
  EXPECT_EQ(attributes->cFuncs, Member_Count);
  EXPECT_EQ(attributes->cVars, 0);
  EXPECT_EQ(Implemented(*vtable, 0, 0), IID_IDispatch);
}

TEST_F(TypeLibrary, Every_member_stands_in_its_order_with_id_kind_and_help_text) {
  const auto vtable = Vtable();
  for (UINT place = 0; place < Member_Count; ++place) {
    const Member& member = Member_Table()[place];
    const Function function(*vtable, place);
    ASSERT_EQ(function->memid, member.id) << member.name;
    EXPECT_EQ(function->oVft, static_cast<SHORT>((7 + place) * sizeof(void*))) << member.name;
    EXPECT_EQ(function->funckind, FUNC_PUREVIRTUAL);
    EXPECT_EQ(function->callconv, CC_STDCALL);
    EXPECT_EQ(function->elemdescFunc.tdesc.vt, VT_HRESULT);
    EXPECT_EQ(function->invkind, member.access == Access::Get   ? INVOKE_PROPERTYGET
                                 : member.access == Access::Let ? INVOKE_PROPERTYPUT
                                                                : INVOKE_FUNC)
        << member.name;
    const Words words = Words_Of(*vtable, function->memid);
    EXPECT_EQ(words.name, Widened(member.name));
    EXPECT_EQ(words.help, Widened(member.help)) << member.name;
  }
}

TEST_F(TypeLibrary, Every_member_has_the_type_of_its_value) {
  const auto vtable = Vtable();
  for (UINT place = 0; place < Member_Count; ++place) {
    const Member& member = Member_Table()[place];
    const Function function(*vtable, place);
    ASSERT_EQ(function->cParams, member.access == Access::Call ? 0 : 1) << member.name;
    if (member.access == Access::Call) continue;
    const ELEMDESC& argument = function->lprgelemdescParam[0];
    if (member.access == Access::Get) {
      ASSERT_EQ(argument.tdesc.vt, VT_PTR) << member.name;
      EXPECT_EQ(argument.tdesc.lptdesc->vt, Type_Of(member.type)) << member.name;
      EXPECT_EQ(argument.paramdesc.wParamFlags, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
    } else {
      EXPECT_EQ(argument.tdesc.vt, Type_Of(member.type)) << member.name;
      EXPECT_EQ(argument.paramdesc.wParamFlags, PARAMFLAG_FIN);
    }
  }
}

TEST_F(TypeLibrary, A_member_is_bindable_when_it_tells_of_changes) {
  const auto vtable = Vtable();
  for (UINT place = 0; place < Member_Count; ++place) {
    const Member& member = Member_Table()[place];
    const Function function(*vtable, place);
    const bool is_bindable = (function->wFuncFlags & FUNCFLAG_FBINDABLE) != 0;
    EXPECT_EQ(is_bindable, member.access != Access::Call && Announces(member)) << member.name;
  }
}

TEST_F(TypeLibrary, It_calls_the_members_by_the_vtable) {
  const auto dual = Type(IID__Quillspeech);
  session.settings.Noise_Sensitivity = 21;
  DISPPARAMS none{};
  tests::Variant value;
  EXPECT_EQ(dual->Invoke(dispatch, script.Id(L"Noise_Sensitivity"), DISPATCH_PROPERTYGET, &none,
                         &value, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(value.vt, VT_I2);
  EXPECT_EQ(value.iVal, 21);
}

TEST_F(TypeLibrary, The_events_stand_in_their_order_with_arguments_and_help_texts) {
  const auto interface_of_events = Type(DIID___Quillspeech);
  const Attributes attributes(*interface_of_events);
  EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
  EXPECT_FALSE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
  ASSERT_EQ(attributes->cFuncs, Event_Rows().size());
  EXPECT_EQ(Words_Of(*interface_of_events, MEMBERID_NIL).name, L"__Quillspeech");
  UINT index = 0;
  for (const EventRow& row : Event_Rows()) {
    const Function function(*interface_of_events, index++);
    EXPECT_EQ(function->memid, static_cast<MEMBERID>(row.id));
    EXPECT_EQ(function->invkind, INVOKE_FUNC);
    EXPECT_EQ(function->funckind, FUNC_DISPATCH);
    EXPECT_EQ(Words_Of(*interface_of_events, function->memid).help, Widened(row.help));
    std::vector<std::wstring> names = {Widened(row.name)};
    if (row.kind != EventArgument::None) {
      names.push_back(Widened(row.argument));
      ASSERT_EQ(function->cParams, 1);
      EXPECT_EQ(function->lprgelemdescParam[0].tdesc.vt,
                row.kind == EventArgument::Text ? VT_BSTR : VT_I2);
      EXPECT_EQ(function->lprgelemdescParam[0].paramdesc.wParamFlags, PARAMFLAG_FIN);
    } else {
      EXPECT_EQ(function->cParams, 0);
    }
    EXPECT_EQ(function.Names(), names);
  }
}

TEST_F(TypeLibrary, The_class_is_a_control_with_its_interface_and_its_events) {
  const auto control_class = Type(CLSID_Quillspeech);
  const Attributes attributes(*control_class);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
  EXPECT_EQ(Words_Of(*control_class, MEMBERID_NIL).name, L"Quillspeech");
  ASSERT_EQ(attributes->cImplTypes, 2);
  EXPECT_EQ(Implemented(*control_class, 0, IMPLTYPEFLAG_FDEFAULT), IID__Quillspeech);
  EXPECT_EQ(Implemented(*control_class, 1, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE),
            DIID___Quillspeech);
}

TEST_F(TypeLibrary, Each_property_page_is_a_class_with_a_dispatch_interface) {
  struct Page {
    const CLSID& class_id;
    const IID& interface_id;
    const wchar_t* name;
  };
  for (const auto& [class_id, interface_id, name] : {
           Page{CLSID_StartingKeys, DIID__StartingKeys, L"StartingKeys"},
           Page{CLSID_InterestingSettings, DIID__InterestingSettings, L"InterestingSettings"},
           Page{CLSID_WindowsTechnicalSettings, DIID__WindowsTechnicalSettings,
                L"WindowsTechnicalSettings"},
           Page{CLSID_LanguageDepartment, DIID__LanguageDepartment, L"LanguageDepartment"},
           Page{CLSID_WaveAudioDepartment, DIID__WaveAudioDepartment, L"WaveAudioDepartment"},
           Page{CLSID_ErrorDepartment, DIID__ErrorDepartment, L"ErrorDepartment"},
           Page{CLSID_SoundCardSettings, DIID__SoundCardSettings, L"SoundCardSettings"},
           Page{CLSID_EngineDepartment, DIID__EngineDepartment, L"EngineDepartment"},
       }) {
    const auto page = Type(class_id);
    EXPECT_EQ(Attributes(*page)->typekind, TKIND_COCLASS);
    EXPECT_EQ(Words_Of(*page, MEMBERID_NIL).name, name);
    ASSERT_EQ(Attributes(*page)->cImplTypes, 1) << name;
    EXPECT_EQ(Implemented(*page, 0, IMPLTYPEFLAG_FDEFAULT), interface_id);
    const auto dispatch_interface = Type(interface_id);
    EXPECT_EQ(Attributes(*dispatch_interface)->typekind, TKIND_DISPATCH);
    EXPECT_EQ(Attributes(*dispatch_interface)->cFuncs, 0);
    EXPECT_EQ(Words_Of(*dispatch_interface, MEMBERID_NIL).name, std::wstring(L"_") + name);
  }
}

}  // namespace
}  // namespace quillspeech::activex
