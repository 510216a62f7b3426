#include "activex/property_page.hpp"

#include <algorithm>
#include <cwchar>
#include <string>
#include <utility>

#include "activex/errors.hpp"
#include "activex/late_bound_members.hpp"
#include "activex/module.hpp"
#include "activex/page_classes.hpp"
#include "core/member_table.hpp"
#include "core/property_page_layout.hpp"
#include "platform/windows/form_layout.hpp"
#include "platform/windows/text.hpp"
#include "presentation/help_page.hpp"

namespace quillspeech::activex {
namespace {

LPOLESTR Given_String(std::string_view text) {
  const std::wstring wide = windows::Wide(text);
  const std::size_t length = wide.size() + 1;
  auto* const given = static_cast<LPOLESTR>(CoTaskMemAlloc(length * sizeof(wchar_t)));
  if (given) std::wmemcpy(given, wide.c_str(), length);
  return given;
}

// That of the largest page, so that each fills the frame.
SIZE Common_Size() {
  FormSize largest;
  for (const PropertyPage& page : Property_Pages()) {
    const FormSize size = Page_Size(page);
    largest.width = std::max(largest.width, size.width);
    largest.height = std::max(largest.height, size.height);
  }
  return windows::Pixels_Of(largest,
                            windows::Scale_At(Module::Of_This_File().Views().Dots_Per_Inch()));
}

windows::FormViews& Views() { return Module::Of_This_File().Views(); }

}  // namespace

HRESULT Make_Property_Page(REFCLSID page, IUnknown* outer, REFIID iid, void** object) {
  return Guarded([&]() -> HRESULT {
    if (!object) return E_POINTER;
    *object = nullptr;
    const PropertyPage* const found = Page_Of(page);
    if (!found) return CLASS_E_CLASSNOTAVAILABLE;
    if (outer && !IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
    const HRESULT entered = Module::Of_This_File().Enter_Thread();
    if (FAILED(entered)) return entered;
    return Give_New(*new PropertyPageObject(outer, *found), outer, iid, object);
  });
}

// Its form is on the session's thread, as a control is.
PropertyPageObject::PropertyPageObject(IUnknown* outer, const PropertyPage& page)
    : AggregatedObject(outer), page_(Whole(), page) {
  Module::Of_This_File().Add_Control();
}

PropertyPageObject::~PropertyPageObject() { Module::Of_This_File().Remove_Control(); }

IUnknown* PropertyPageObject::Interface_Of(REFIID iid) {
  const bool is_page = IsEqualIID(iid, IID_IPropertyPage) || IsEqualIID(iid, IID_IPropertyPage2);
  return is_page ? &page_ : nullptr;
}

PropertyPageObject::Page::Page(IUnknown& whole, const PropertyPage& page)
    : PartOf(whole), form_(page, Module::Of_This_File().Session(), [this] { return Window(); }) {
  form_.At_Change = [this] { Tell_Status(); };
}

std::intptr_t PropertyPageObject::Page::Window() const { return Views().Window_Of(form_.View()); }

void PropertyPageObject::Page::Tell_Status() {
  const ComPtr<IUnknown> whole(&Whole());
  const auto site = site_;
  if (site) site->OnStatusChange(form_.Is_Changed() ? PROPPAGESTATUS_DIRTY : 0);
}

HRESULT PropertyPageObject::Page::SetPageSite(IPropertyPageSite* site) {
  if (site && site_) return E_UNEXPECTED;
  site_ = ComPtr<IPropertyPageSite>(site);
  return S_OK;
}

HRESULT PropertyPageObject::Page::With_Members(void (PageForm::*procedure)(MemberSource&)) {
  const ComPtr<IUnknown> whole(&Whole());
  const bool was_changed = form_.Is_Changed();
  LateBoundMembers members(object_);
  const HRESULT result = members.Result(Guarded([&] {  // the words are the member's own
    (form_.*procedure)(members);
    return S_OK;
  }));
  if (form_.Is_Changed() != was_changed) Tell_Status();
  return result;
}

// Objects that cannot be reached by name are none for it.
HRESULT PropertyPageObject::Page::SetObjects(ULONG count, IUnknown** objects) {
  if (count > 0 && !objects) return E_POINTER;
  object_ = nullptr;
  if (count == 0) return S_OK;
  object_ = ComPtr<IUnknown>(objects[0]).As<IDispatch>();
  if (!object_) return E_NOINTERFACE;
  return is_active_ ? With_Members(&PageForm::PropertyPage_SelectionChanged) : S_OK;
}

HRESULT PropertyPageObject::Page::Activate(HWND parent, LPCRECT place, BOOL) {
  if (!place) return E_POINTER;
  if (is_active_ || !object_) return E_UNEXPECTED;
  return Guarded([&]() -> HRESULT {
    const ComPtr<IUnknown> whole(&Whole());
    Views().Make_Child(form_.View(), reinterpret_cast<std::intptr_t>(parent),
                       windows::Child_Place_Of(*place), ChildMode::Live);
    is_active_ = true;
    const HRESULT shown = With_Members(&PageForm::PropertyPage_SelectionChanged);
    if (FAILED(shown)) Close();
    return shown;
  });
}

void PropertyPageObject::Page::Close() {
  if (std::exchange(is_active_, false)) form_.View().Unload();
}

HRESULT PropertyPageObject::Page::Deactivate() {
  if (!is_active_) return E_UNEXPECTED;
  return Guarded([&] {
    Close();
    return S_OK;
  });
}

// The size of the whole structure is what a frame may leave undefined.
HRESULT PropertyPageObject::Page::GetPageInfo(PROPPAGEINFO* information) {
  if (!information) return E_POINTER;
  return Guarded([&]() -> HRESULT {
    information->pszTitle = Given_String(form_.Page().caption);
    information->size = Common_Size();
    information->pszDocString = nullptr;
    information->pszHelpFile = nullptr;
    information->dwHelpContext = 0;
    return information->pszTitle ? S_OK : E_OUTOFMEMORY;
  });
}

HRESULT PropertyPageObject::Page::Show(UINT command) {
  if (!is_active_) return E_UNEXPECTED;
  if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
  return Guarded([&] {
    if (command == SW_HIDE) {
      Views().Hide(form_.View());
    } else {
      Views().Show(form_.View(), Modality::None);
    }
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::Move(LPCRECT place) {
  if (!place) return E_POINTER;
  if (!is_active_) return E_UNEXPECTED;
  return Guarded([&] {
    Views().Move_Child(form_.View(), windows::Child_Place_Of(*place));
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::Apply() {
  if (!object_) return E_UNEXPECTED;
  return With_Members(&PageForm::PropertyPage_ApplyChanges);
}

HRESULT PropertyPageObject::Page::Help(LPCOLESTR) {
  return Guarded([&] {
    Show_Help_File(Module::Of_This_File().Session(), Window());
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::TranslateAccelerator(MSG* message) {
  if (!message) return E_POINTER;
  if (!is_active_) return S_FALSE;
  return Guarded([&]() -> HRESULT {
    const ComPtr<IUnknown> whole(&Whole());
    if (Views().Translate(form_.View(), *message)) return S_OK;
    const auto site = site_;
    return site && site->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
  });
}

// The id is that of a member.
HRESULT PropertyPageObject::Page::EditProperty(DISPID property) {
  return Guarded([&]() -> HRESULT {
    for (const std::string_view name : Bound_Members(form_.Page())) {
      const Member* const member = Find_Member(name, Access::Get);
      if (!member || member->id != property) continue;
      form_.View().Set_Focus("txt" + std::string(name));
      return S_OK;
    }
    return E_INVALIDARG;
  });
}

}  // namespace quillspeech::activex
