#include "activex/registration.hpp"

// After the headers of COM.
#include <comcat.h>

#include <array>
#include <cstddef>

#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "activex/ole_object.hpp"
#include "activex/page_classes.hpp"
#include "platform/windows/text.hpp"

// In the system since Windows Vista; the compiler's headers have neither.
STDAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* file, OLECHAR* help_folder);
STDAPI UnRegisterTypeLibForUser(REFGUID library, WORD major, WORD minor, LCID locale, SYSKIND kind);

namespace quillspeech::activex {
namespace {

constexpr wchar_t Version[] = L"1.0";
constexpr WORD Version_Major = 1;
constexpr WORD Version_Minor = 0;

static_assert(Misc_Status == 131473);

// Not among them: safe for scripting, safe for initialising. The control opens files and
// microphones.
constexpr std::array<CATID, 4> Categories = {{
    {0x40FC6ED4, 0x2438, 0x11CF, {0xA3, 0xDB, 0x08, 0x00, 0x36, 0xF1, 0x25, 0x02}},  // controls
    {0x40FC6ED5, 0x2438, 0x11CF, {0xA3, 0xDB, 0x08, 0x00, 0x36, 0xF1, 0x25, 0x02}},  // programmable
    // persist to a stream that they can initialise
    {0x0DE86A53, 0x2BAA, 0x11CF, {0xA2, 0x29, 0x00, 0xAA, 0x00, 0x3D, 0x73, 0x52}},
    // persist to a property bag
    {0x0DE86A57, 0x2BAA, 0x11CF, {0xA2, 0x29, 0x00, 0xAA, 0x00, 0x3D, 0x73, 0x52}},
}};

// The library registers its interfaces too.
constexpr std::array Interfaces = {&IID__Quillspeech, &DIID___Quillspeech};

std::wstring Text_Of(REFGUID guid) {
  std::array<wchar_t, 39> text{};
  ::StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring Class_Key(REFCLSID class_id) { return L"CLSID\\" + Text_Of(class_id); }

constexpr wchar_t Program_Id[] = L"QuillspeechX.Quillspeech";
constexpr wchar_t Versioned_Program_Id[] = L"QuillspeechX.Quillspeech.1";

using Rows = std::vector<RegistryRow>;

void Add_Server(Rows& rows, const std::wstring& key, std::wstring_view file) {
  rows.push_back({key + L"\\InprocServer32", L"", std::wstring(file)});
  rows.push_back({key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"});
}

void Add_Control(Rows& rows, std::wstring_view file) {
  const std::wstring key = Class_Key(CLSID_Quillspeech);
  const auto add = [&](const wchar_t* below, std::wstring text) {
    rows.push_back({key + below, L"", std::move(text)});
  };
  add(L"", L"Quillspeech Control");
  Add_Server(rows, key, file);
  add(L"\\ProgID", Versioned_Program_Id);
  add(L"\\VersionIndependentProgID", Program_Id);
  add(L"\\TypeLib", Text_Of(LIBID_QuillspeechX));
  add(L"\\Version", Version);
  add(L"\\Control", L"");
  add(L"\\Programmable", L"");
  add(L"\\MiscStatus", L"0");
  add(L"\\MiscStatus\\1", std::to_wstring(Misc_Status));
  add(L"\\ToolboxBitmap32", std::wstring(file) + L", 101");
  add(L"\\Verb", L"");
  // Behind the name: a menu item as any other, and one for the container's menu.
  add(L"\\Verb\\0", L"&Edit,0,2");
  add(L"\\Verb\\1", L"&Properties,0,2");
  for (const CATID& category : Categories) {
    rows.push_back({key + L"\\Implemented Categories\\" + Text_Of(category), L"", L""});
  }
}

void Add_Program_Ids(Rows& rows) {
  for (const std::wstring id : {Program_Id, Versioned_Program_Id}) {
    rows.push_back({id, L"", L"Quillspeech Control"});
    rows.push_back({id + L"\\CLSID", L"", Text_Of(CLSID_Quillspeech)});
  }
  rows.push_back({std::wstring(Program_Id) + L"\\CurVer", L"", Versioned_Program_Id});
}

void Add_Pages(Rows& rows, std::wstring_view file) {
  for (const CLSID& page : Page_Classes) {
    const std::wstring key = Class_Key(page);
    const std::wstring name = windows::Wide(Page_Of(page)->name);
    rows.push_back({key, L"", L"Quillspeech " + name + L" Property Page"});
    Add_Server(rows, key, file);
  }
}

// A folder of the classes that is open for writing.
class Classes {
 public:
  explicit Classes(RegistrationScope scope) {
    const HKEY root = scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    is_open_ = ::RegCreateKeyExW(root, L"Software\\Classes", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                 &key_, nullptr) == ERROR_SUCCESS;
  }
  ~Classes() {
    if (is_open_) ::RegCloseKey(key_);
  }
  Classes(const Classes&) = delete;
  Classes& operator=(const Classes&) = delete;

  bool Is_Open() const { return is_open_; }

  bool Write(const RegistryRow& row) const {
    const auto bytes = static_cast<DWORD>((row.text.size() + 1) * sizeof(wchar_t));
    // A key that is there for its name alone gets no value.
    if (row.name.empty() && row.text.empty()) return Make_Key(row.key);
    return ::RegSetKeyValueW(key_, row.key.c_str(), row.name.empty() ? nullptr : row.name.c_str(),
                             REG_SZ, row.text.c_str(), bytes) == ERROR_SUCCESS;
  }
  bool Remove(const std::wstring& key) const {
    const LONG removed = ::RegDeleteTreeW(key_, key.c_str());
    return removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND;
  }
  // A key that others use stays.
  void Remove_If_Empty(const std::wstring& key) const {
    HKEY found = nullptr;
    if (::RegOpenKeyExW(key_, key.c_str(), 0, KEY_READ, &found) != ERROR_SUCCESS) return;
    DWORD keys = 0;
    DWORD values = 0;
    const LONG asked = ::RegQueryInfoKeyW(found, nullptr, nullptr, nullptr, &keys, nullptr, nullptr,
                                          &values, nullptr, nullptr, nullptr, nullptr);
    ::RegCloseKey(found);
    if (asked == ERROR_SUCCESS && keys == 0 && values == 0) ::RegDeleteKeyW(key_, key.c_str());
  }
  bool Has(const std::wstring& key) const {
    HKEY found = nullptr;
    if (::RegOpenKeyExW(key_, key.c_str(), 0, KEY_READ, &found) != ERROR_SUCCESS) return false;
    ::RegCloseKey(found);
    return true;
  }
  std::wstring Text_At(const std::wstring& key) const {
    std::array<wchar_t, 64> text{};
    DWORD bytes = sizeof text - sizeof(wchar_t);
    const LONG read =
        ::RegGetValueW(key_, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &bytes);
    return read == ERROR_SUCCESS ? text.data() : std::wstring();
  }

 private:
  bool Make_Key(const std::wstring& key) const {
    HKEY made = nullptr;
    if (::RegCreateKeyExW(key_, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &made, nullptr) !=
        ERROR_SUCCESS) {
      return false;
    }
    ::RegCloseKey(made);
    return true;
  }

  HKEY key_ = nullptr;
  bool is_open_ = false;
};

HRESULT Register_Type_Library(RegistrationScope scope) {
  const std::wstring file = Module::Of_This_File().File_Name();
  ComPtr<ITypeLib> library;
  if (FAILED(Module::Of_This_File().Type_Library(library.Receive()))) return SELFREG_E_TYPELIB;
  std::wstring name = file;  // the call takes a pointer to what it could change
  const HRESULT registered = scope == RegistrationScope::Machine
                                 ? ::RegisterTypeLib(library.Get(), name.data(), nullptr)
                                 : ::RegisterTypeLibForUser(library.Get(), name.data(), nullptr);
  return FAILED(registered) ? SELFREG_E_TYPELIB : S_OK;
}

// The interfaces' keys go too, unless they have become somebody else's.
HRESULT Unregister_Type_Library(RegistrationScope scope, const Classes& classes) {
  const auto unregister =
      scope == RegistrationScope::Machine ? &::UnRegisterTypeLib : &::UnRegisterTypeLibForUser;
  const HRESULT removed =
      unregister(LIBID_QuillspeechX, Version_Major, Version_Minor, LOCALE_NEUTRAL, SYS_WIN32);
  const std::wstring library = L"TypeLib\\" + Text_Of(LIBID_QuillspeechX) + L"\\" + Version;
  bool is_clean = SUCCEEDED(removed) || !classes.Has(library);
  const auto remove = [&](REFIID iid) {
    const std::wstring key = L"Interface\\" + Text_Of(iid);
    if (classes.Text_At(key + L"\\TypeLib") != Text_Of(LIBID_QuillspeechX)) return;
    is_clean = classes.Remove(key) && is_clean;
  };
  for (const IID* const iid : Interfaces) remove(*iid);
  for (const IID& page : Page_Interfaces) remove(page);
  return is_clean ? S_OK : SELFREG_E_TYPELIB;
}

bool Remove_Classes(const Classes& classes) {
  bool is_clean = classes.Remove(Program_Id);
  is_clean = classes.Remove(Versioned_Program_Id) && is_clean;
  is_clean = classes.Remove(Class_Key(CLSID_Quillspeech)) && is_clean;
  for (const CLSID& page : Page_Classes) {
    is_clean = classes.Remove(Class_Key(page)) && is_clean;
  }
  classes.Remove_If_Empty(L"CLSID");  // a user may have no other class
  return is_clean;
}

// The system's manager of categories keeps lists of its own, of what is there for everybody. The
// rows stand also where it cannot be reached, or writes among the classes of one user who has the
// control already.
void Tell_Category_Manager() {
  ComPtr<ICatRegister> manager;
  if (FAILED(::CoCreateInstance(CLSID_StdComponentCategoriesMgr, nullptr, CLSCTX_INPROC_SERVER,
                                IID_ICatRegister, manager.Receive_Void()))) {
    return;
  }
  auto categories = Categories;  // the call takes a pointer to what it could change
  manager->RegisterClassImplCategories(CLSID_Quillspeech, categories.size(), categories.data());
}

HRESULT Write_All(RegistrationScope scope, const Classes& classes) {
  for (const RegistryRow& row : Registry_Rows(Module::Of_This_File().File_Name())) {
    if (!classes.Write(row)) return SELFREG_E_CLASS;
  }
  if (scope == RegistrationScope::Machine) Tell_Category_Manager();
  return Register_Type_Library(scope);
}

}  // namespace

std::vector<RegistryRow> Registry_Rows(std::wstring_view file) {
  Rows rows;
  Add_Control(rows, file);
  Add_Program_Ids(rows);
  Add_Pages(rows, file);
  return rows;
}

HRESULT Register(RegistrationScope scope) {
  const Classes classes(scope);
  if (!classes.Is_Open()) return SELFREG_E_CLASS;
  const HRESULT written = Write_All(scope, classes);
  if (FAILED(written)) Unregister(scope);
  return written;
}

HRESULT Unregister(RegistrationScope scope) {
  const Classes classes(scope);
  if (!classes.Is_Open()) return SELFREG_E_CLASS;
  const bool are_removed = Remove_Classes(classes);
  const HRESULT library = Unregister_Type_Library(scope, classes);
  return are_removed ? library : SELFREG_E_CLASS;
}

}  // namespace quillspeech::activex
