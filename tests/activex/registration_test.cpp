#include "activex/registration.hpp"

// After the headers of COM.
#include <comcat.h>

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "activex/guids.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {
namespace {

using Values = std::map<std::wstring, std::wstring>;  // by key, or key@name: the text

// Every key and value below.
void Read_Tree(HKEY key, const std::wstring& path, Values& values) {
  values[path] = L"";
  std::array<wchar_t, 1024> name{};
  for (DWORD index = 0;; ++index) {
    std::array<BYTE, 4096> data{};
    DWORD name_length = static_cast<DWORD>(name.size());
    DWORD bytes = static_cast<DWORD>(data.size() - sizeof(wchar_t));
    if (::RegEnumValueW(key, index, name.data(), &name_length, nullptr, nullptr, data.data(),
                        &bytes) != ERROR_SUCCESS) {
      break;
    }
    const std::wstring at = name_length == 0 ? path : path + L"@" + name.data();
    values[at] = reinterpret_cast<const wchar_t*>(data.data());
  }
  for (DWORD index = 0;; ++index) {
    DWORD name_length = static_cast<DWORD>(name.size());
    if (::RegEnumKeyExW(key, index, name.data(), &name_length, nullptr, nullptr, nullptr,
                        nullptr) != ERROR_SUCCESS) {
      break;
    }
    HKEY below = nullptr;
    if (::RegOpenKeyExW(key, name.data(), 0, KEY_READ, &below) != ERROR_SUCCESS) continue;
    Read_Tree(below, path.empty() ? name.data() : path + L"\\" + name.data(), values);
    ::RegCloseKey(below);
  }
}

Values Classes_Of(HKEY root) {
  Values values;
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &key) == ERROR_SUCCESS) {
    Read_Tree(key, L"", values);
    ::RegCloseKey(key);
  }
  return values;
}

// What is in the one and not in the other.
Values Difference(const Values& one, const Values& other) {
  Values rest;
  for (const auto& [key, text] : one) {
    const auto found = other.find(key);
    if (found == other.end() || found->second != text) rest.emplace(key, text);
  }
  return rest;
}

const std::wstring Class_Key = L"CLSID\\{AF86036B-46B0-4BAC-B4E0-2AE52AE8F33E}";

// Both scopes, with the branch of the registry that is theirs.
struct Scope {
  RegistrationScope scope;
  HKEY root;
};
class Registration : public testing::TestWithParam<Scope> {
 protected:
  Registration() { Unregister(GetParam().scope); }
  ~Registration() override { Unregister(GetParam().scope); }
};

TEST_P(Registration, What_is_written_is_removed_and_nothing_else) {
  const Values machine = Classes_Of(HKEY_LOCAL_MACHINE);
  const Values user = Classes_Of(HKEY_CURRENT_USER);
  ASSERT_EQ(Register(GetParam().scope), S_OK);
  EXPECT_FALSE(Difference(Classes_Of(GetParam().root),
                          GetParam().root == HKEY_LOCAL_MACHINE ? machine : user)
                   .empty());
  ASSERT_EQ(Unregister(GetParam().scope), S_OK);
  for (const auto& [root, before] :
       {std::pair(HKEY_LOCAL_MACHINE, machine), std::pair(HKEY_CURRENT_USER, user)}) {
    const Values after = Classes_Of(root);
    for (const auto& [key, text] : Difference(after, before)) ADD_FAILURE() << "left: " << key;
    for (const auto& [key, text] : Difference(before, after)) ADD_FAILURE() << "gone: " << key;
  }
}

TEST_P(Registration, Containers_find_the_control_and_all_that_they_ask_of_it) {
  ASSERT_EQ(Register(GetParam().scope), S_OK);
  Values classes = Classes_Of(GetParam().root);
  const std::wstring file = Module::Of_This_File().File_Name();
  for (const auto& [key, text] : Values{
           {Class_Key, L"Quillspeech Control"},
           {Class_Key + L"\\InprocServer32", file},
           {Class_Key + L"\\InprocServer32@ThreadingModel", L"Apartment"},
           {Class_Key + L"\\ProgID", L"QuillspeechX.Quillspeech.1"},
           {Class_Key + L"\\VersionIndependentProgID", L"QuillspeechX.Quillspeech"},
           {Class_Key + L"\\TypeLib", L"{8C8105D3-EEA4-4E42-A2E0-958AE8D38DC5}"},
           {Class_Key + L"\\Version", L"1.0"},
           {Class_Key + L"\\MiscStatus", L"0"},
           {Class_Key + L"\\MiscStatus\\1", L"131473"},
           {Class_Key + L"\\ToolboxBitmap32", file + L", 101"},
           {Class_Key + L"\\Verb\\0", L"&Edit,0,2"},
           {Class_Key + L"\\Verb\\1", L"&Properties,0,2"},
           {Class_Key + L"\\Control", L""},
           {Class_Key + L"\\Programmable", L""},
           {L"QuillspeechX.Quillspeech\\CLSID", L"{AF86036B-46B0-4BAC-B4E0-2AE52AE8F33E}"},
           {L"QuillspeechX.Quillspeech\\CurVer", L"QuillspeechX.Quillspeech.1"},
           {L"QuillspeechX.Quillspeech.1\\CLSID", L"{AF86036B-46B0-4BAC-B4E0-2AE52AE8F33E}"},
           {L"CLSID\\{49333E8B-65D8-448E-9135-BA45BDEA9188}\\InprocServer32", file},
       }) {
    ASSERT_TRUE(classes.contains(key)) << key;
    EXPECT_EQ(classes[key], text) << key;
  }
  for (const wchar_t* const category :
       {L"{40FC6ED4-2438-11CF-A3DB-080036F12502}", L"{40FC6ED5-2438-11CF-A3DB-080036F12502}",
        L"{0DE86A53-2BAA-11CF-A229-00AA003D7352}", L"{0DE86A57-2BAA-11CF-A229-00AA003D7352}"}) {
    EXPECT_TRUE(classes.contains(Class_Key + L"\\Implemented Categories\\" + category));
  }
}

TEST_P(Registration, The_control_is_not_called_safe_for_scripts_or_for_unknown_data) {
  ASSERT_EQ(Register(GetParam().scope), S_OK);
  const Values classes = Classes_Of(GetParam().root);
  for (const wchar_t* const category :
       {L"{7DD95801-9882-11CF-9FA9-00AA006C42C4}", L"{7DD95802-9882-11CF-9FA9-00AA006C42C4}"}) {
    EXPECT_FALSE(classes.contains(Class_Key + L"\\Implemented Categories\\" + category));
  }
}

TEST_P(Registration, It_may_be_done_twice_and_undone_twice) {
  EXPECT_EQ(Register(GetParam().scope), S_OK);
  EXPECT_EQ(Register(GetParam().scope), S_OK);
  EXPECT_EQ(Unregister(GetParam().scope), S_OK);
  EXPECT_EQ(Unregister(GetParam().scope), S_OK);
}

INSTANTIATE_TEST_SUITE_P(For, Registration,
                         testing::Values(Scope{RegistrationScope::Machine, HKEY_LOCAL_MACHINE},
                                         Scope{RegistrationScope::User, HKEY_CURRENT_USER}),
                         [](const auto& scope) {
                           return scope.param.scope == RegistrationScope::Machine ? "everybody"
                                                                                  : "one_user";
                         });

TEST(RegistrationForTheMachine, The_system_finds_the_class_its_status_its_verbs_and_its_library) {
  ASSERT_EQ(Register(RegistrationScope::Machine), S_OK);
  CLSID class_id = {};
  EXPECT_EQ(::CLSIDFromProgID(L"QuillspeechX.Quillspeech", &class_id), S_OK);
  EXPECT_EQ(class_id, CLSID_Quillspeech);
  DWORD status = 0;
  EXPECT_EQ(::OleRegGetMiscStatus(CLSID_Quillspeech, DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473u);
  ComPtr<IEnumOLEVERB> verbs;
  ASSERT_EQ(::OleRegEnumVerbs(CLSID_Quillspeech, verbs.Receive()), S_OK);
  for (const auto& [number, name] : {std::pair(0, L"&Edit"), std::pair(1, L"&Properties")}) {
    OLEVERB verb = {};
    ASSERT_EQ(verbs->Next(1, &verb, nullptr), S_OK);
    EXPECT_EQ(verb.lVerb, number);
    EXPECT_STREQ(verb.lpszVerbName, name);
    EXPECT_EQ(verb.grfAttribs, static_cast<DWORD>(OLEVERBATTRIB_ONCONTAINERMENU));
    ::CoTaskMemFree(verb.lpszVerbName);
  }
  ComPtr<ITypeLib> library;
  EXPECT_EQ(::LoadRegTypeLib(LIBID_QuillspeechX, 1, 0, LOCALE_NEUTRAL, library.Receive()), S_OK);
  EXPECT_EQ(Unregister(RegistrationScope::Machine), S_OK);
  EXPECT_NE(::LoadRegTypeLib(LIBID_QuillspeechX, 1, 0, LOCALE_NEUTRAL, library.Receive()), S_OK);
}

TEST(RegistrationForTheMachine, The_systems_lists_have_the_control_in_each_of_its_categories) {
  ASSERT_EQ(Register(RegistrationScope::Machine), S_OK);
  ComPtr<ICatInformation> categories;
  ASSERT_EQ(::CoCreateInstance(CLSID_StdComponentCategoriesMgr, nullptr, CLSCTX_INPROC_SERVER,
                               IID_ICatInformation, categories.Receive_Void()),
            S_OK);
  ComPtr<IEnumCATID> own;
  ASSERT_EQ(categories->EnumImplCategoriesOfClass(CLSID_Quillspeech, own.Receive()), S_OK);
  std::set<unsigned long> found;  // by their first parts, which differ
  CATID category = {};
  while (own->Next(1, &category, nullptr) == S_OK) found.insert(category.Data1);
  EXPECT_EQ(found, (std::set<unsigned long>{0x40FC6ED4, 0x40FC6ED5, 0x0DE86A53, 0x0DE86A57}));
  EXPECT_EQ(Unregister(RegistrationScope::Machine), S_OK);
}

}  // namespace
}  // namespace quillspeech::activex
