// A property page in a frame, and objects whose members it shows.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "activex/errors.hpp"
#include "activex/property_page.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {

// The frame around a page: what it is told of the page's state is noted.
class PageSite final : public IPropertyPageSite {
 public:
  ~PageSite() { EXPECT_EQ(references_, 0u) << "somebody holds the site"; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD flags) override {
    told.push_back(flags);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* id) override {
    *id = LOCALE_USER_DEFAULT;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*) override {
    ++keys;
    return S_FALSE;
  }

  std::vector<DWORD> told;
  int keys = 0;

 private:
  ULONG references_ = 0;
};

// Any object with members that are reached by name.
class NotingObject final : public IDispatch {
 public:
  ~NotingObject() { EXPECT_EQ(references_, 0u) << "somebody holds the object"; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool is_own = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch);
    *object = is_own ? this : nullptr;
    if (is_own) AddRef();
    return is_own ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    names_.push_back(windows::Narrow(names[0]));
    *ids = static_cast<DISPID>(names_.size() - 1);
    return names_.back() == unknown ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override {
    const std::string& name = names_[static_cast<std::size_t>(id)];
    if (flags & DISPATCH_PROPERTYGET) {
      gets.push_back(name);
      if (const auto now = std::exchange(At_Get, nullptr)) now();
      result->vt = name == without_value ? VT_NULL : VT_BSTR;
      if (result->vt == VT_BSTR) result->bstrVal = SysAllocString(L"old");
      return S_OK;
    }
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(arguments->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
    EXPECT_EQ(arguments->rgvarg[0].vt, VT_BSTR);
    lets.push_back(name + "=" + windows::Narrow(arguments->rgvarg[0].bstrVal));
    if (name == refusing) return E_ACCESSDENIED;
    if (name != failing) return S_OK;
    exception->scode = static_cast<SCODE>(0x800A000D);
    exception->bstrDescription = SysAllocString(L"Type mismatch");
    return DISP_E_EXCEPTION;
  }

  std::vector<std::string> gets;
  std::vector<std::string> lets;
  std::string failing;   // with words
  std::string refusing;  // without
  std::string unknown;
  std::string without_value;
  std::function<void()> At_Get;  // once

 private:
  std::vector<std::string> names_;
  ULONG references_ = 0;
};

inline const std::vector<std::string> Starting_Keys = {
    "Memory_Clean", "Stop_everything_now", "Send_words_one_by_one", "On_speech_show_activities"};

class PropertyPageTest : public OleTest {
 protected:
  void Make(REFCLSID id) {
    ASSERT_EQ(Make_Property_Page(id, nullptr, IID_IPropertyPage, page.Receive_Void()), S_OK);
    EXPECT_EQ(page->SetPageSite(&site), S_OK);
  }
  HRESULT Give(IUnknown& object) {
    IUnknown* objects[] = {&object};
    return page->SetObjects(1, objects);
  }
  HRESULT Activate_Page() {
    const RECT place = {0, 0, 600, 400};
    return page->Activate(container.window, &place, FALSE);
  }
  void Activate_On(IUnknown& object) {
    EXPECT_EQ(Give(object), S_OK);
    EXPECT_EQ(Activate_Page(), S_OK);
    EXPECT_EQ(page->Show(SW_SHOW), S_OK);
  }
  ~PropertyPageTest() override {
    if (!page) return;
    page->Deactivate();
    EXPECT_EQ(page->SetObjects(0, nullptr), S_OK);
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
    page = nullptr;
  }

  struct Search {
    std::wstring text;
    HWND found = nullptr;
  };
  static BOOL CALLBACK Compare(HWND window, LPARAM search) {
    auto& wanted = *reinterpret_cast<Search*>(search);
    wchar_t text[300] = {};
    SendMessageW(window, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text));
    if (text == wanted.text) wanted.found = window;
    return wanted.found == nullptr;
  }
  HWND Box(const wchar_t* text) const {
    Search search{text};
    EnumChildWindows(container.window, Compare, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  // What the thread's error object says; it is taken away.
  static std::wstring Words() {
    ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.Receive()) != S_OK) return {};
    BSTR words = nullptr;
    error->GetDescription(&words);
    const std::wstring told = words ? words : L"";
    SysFreeString(words);
    return told;
  }
  // As a person would.
  static void Type(HWND box, const wchar_t* text) {
    SendMessageW(box, EM_SETSEL, 0, -1);
    SendMessageW(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
  }

  PageSite site;
  NotingObject other;
  NotingObject next;
  ComPtr<IPropertyPage> page;
};

}  // namespace quillspeech::activex::tests
