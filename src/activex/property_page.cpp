#include "activex/property_page.hpp"

#include <algorithm>
#include <array>
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

// What leaves error objects.
constexpr std::array<const IID*, 2> Telling_Interfaces = {&IID_IPropertyPage, &IID_IPropertyPage2};

// What a method answers that calls no member: the words of an older failure are not those of this
// one.
template <class Call>
HRESULT Answered(Call&& call) noexcept {
  const HRESULT code = Guarded(std::forward<Call>(call));
  if (FAILED(code)) SetErrorInfo(0, nullptr);
  return code;
}

}  // namespace

HRESULT Make_Property_Page(REFCLSID page, IUnknown* outer, REFIID iid, void** object) {
  return Guarded([&]() -> HRESULT {
    if (!object) return E_POINTER;
    *object = nullptr;
    const PropertyPage* const found = Page_Of(page);
    if (!found) return CLASS_E_CLASSNOTAVAILABLE;
    if (outer && !IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
    const ThreadEntry entry;
    if (FAILED(entry.Code())) return entry.Code();
    return Give_New(*new PropertyPageObject(outer, *found), outer, iid, object);
  });
}

PropertyPageObject::PropertyPageObject(IUnknown* outer, const PropertyPage& page)
    : AggregatedObject(outer),
      page_(Whole(), page),
      dispatch_(Whole(), activex::Interface_Of(page)),
      support_error_info_(Whole(), Telling_Interfaces) {}

IUnknown* PropertyPageObject::Interface_Of(REFIID iid) {
  if (IsEqualIID(iid, IID_IPropertyPage) || IsEqualIID(iid, IID_IPropertyPage2)) return &page_;
  if (IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, dispatch_.Id())) return &dispatch_;
  return IsEqualIID(iid, IID_ISupportErrorInfo) ? &support_error_info_ : nullptr;
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
  return Answered([&]() -> HRESULT {
    if (site && site_) return E_UNEXPECTED;
    site_ = ComPtr<IPropertyPageSite>(site);
    return S_OK;
  });
}

// The words are those of a member that has failed, if any did.
HRESULT PropertyPageObject::Page::With_Members(void (PageForm::*procedure)(MemberSource&)) {
  const ComPtr<IUnknown> whole(&Whole());
  const bool was_changed = form_.Is_Changed();
  LateBoundMembers members(object_);
  SetErrorInfo(0, nullptr);
  const HRESULT result = members.Result(Guarded([&] {
    (form_.*procedure)(members);
    return S_OK;
  }));
  if (form_.Is_Changed() != was_changed) Tell_Status();
  return result;
}

// A member may call back and give the page another object.
HRESULT PropertyPageObject::Page::Read() {
  const ComPtr<IUnknown> whole(&Whole());
  const auto object = object_;
  is_read_ = false;
  const HRESULT read = With_Members(&PageForm::PropertyPage_SelectionChanged);
  is_read_ = SUCCEEDED(read) && object_.Get() == object.Get();
  return read;
}

// Objects that cannot be reached by name are none for it.
HRESULT PropertyPageObject::Page::SetObjects(ULONG count, IUnknown** objects) {
  const HRESULT taken = Answered([&]() -> HRESULT {
    if (count > 0 && !objects) return E_POINTER;
    is_read_ = false;
    object_ = nullptr;
    if (count == 0) return S_OK;
    object_ = ComPtr<IUnknown>(objects[0]).As<IDispatch>();
    return object_ ? S_OK : E_NOINTERFACE;
  });
  return SUCCEEDED(taken) && object_ && is_active_ ? Read() : taken;
}

HRESULT PropertyPageObject::Page::Activate(HWND parent, LPCRECT place, BOOL) {
  const ComPtr<IUnknown> whole(&Whole());
  const HRESULT opened = Answered([&]() -> HRESULT {
    if (!place) return E_POINTER;
    if (is_active_ || !object_) return E_UNEXPECTED;
    Views().Make_Child(form_.View(), reinterpret_cast<std::intptr_t>(parent),
                       windows::Child_Place_Of(*place), ChildMode::Live);
    is_active_ = true;
    return S_OK;
  });
  if (FAILED(opened)) return opened;
  const HRESULT read = Read();
  if (FAILED(read)) Close();
  return read;
}

HRESULT PropertyPageObject::Page::Close() {
  return Guarded([&] {
    if (std::exchange(is_active_, false)) form_.View().Unload();
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::Deactivate() {
  return Answered([&] { return is_active_ ? Close() : E_UNEXPECTED; });
}

// The size of the whole structure is what a frame may leave undefined.
HRESULT PropertyPageObject::Page::GetPageInfo(PROPPAGEINFO* information) {
  return Answered([&]() -> HRESULT {
    if (!information) return E_POINTER;
    information->pszTitle = Given_String(form_.Page().caption);
    information->size = Common_Size();
    information->pszDocString = nullptr;
    information->pszHelpFile = nullptr;
    information->dwHelpContext = 0;
    return information->pszTitle ? S_OK : E_OUTOFMEMORY;
  });
}

HRESULT PropertyPageObject::Page::Show(UINT command) {
  return Answered([&]() -> HRESULT {
    if (!is_active_) return E_UNEXPECTED;
    if (command != SW_SHOW && command != SW_SHOWNORMAL && command != SW_HIDE) return E_INVALIDARG;
    if (command == SW_HIDE) {
      Views().Hide(form_.View());
    } else {
      Views().Show(form_.View(), Modality::None);
    }
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::Move(LPCRECT place) {
  return Answered([&]() -> HRESULT {
    if (!place) return E_POINTER;
    if (!is_active_) return E_UNEXPECTED;
    Views().Move_Child(form_.View(), windows::Child_Place_Of(*place));
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::Apply() {
  if (is_read_) return With_Members(&PageForm::PropertyPage_ApplyChanges);
  return Answered([&]() -> HRESULT {
    return !object_ || is_active_ || form_.Is_Changed() ? E_UNEXPECTED : S_OK;
  });
}

HRESULT PropertyPageObject::Page::Help(LPCOLESTR) {
  return Answered([&]() -> HRESULT {
    if (!form_.Page().has_help) return E_NOTIMPL;
    Show_Help_File(Module::Of_This_File().Session(), Window());
    return S_OK;
  });
}

HRESULT PropertyPageObject::Page::TranslateAccelerator(MSG* message) {
  return Answered([&]() -> HRESULT {
    if (!message) return E_POINTER;
    if (!is_active_) return S_FALSE;
    const ComPtr<IUnknown> whole(&Whole());
    if (Views().Translate(form_.View(), *message)) return S_OK;
    const auto site = site_;
    return site && site->TranslateAccelerator(message) == S_OK ? S_OK : S_FALSE;
  });
}

// Also one whose box is bound to nothing.
HRESULT PropertyPageObject::Page::EditProperty(DISPID property) {
  return Answered([&]() -> HRESULT {
    for (const PageBox& box : form_.Page().boxes) {
      const Member* const member = Find_Member(box.name, Access::Get);
      if (!member || member->id != property) continue;
      form_.View().Set_Focus("txt" + std::string(box.name));
      return S_OK;
    }
    return E_INVALIDARG;
  });
}

}  // namespace quillspeech::activex
