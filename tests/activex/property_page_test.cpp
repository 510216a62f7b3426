#include "activex/property_page.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

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
      result->vt = VT_BSTR;
      result->bstrVal = SysAllocString(L"old");
      return S_OK;
    }
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(arguments->rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
    EXPECT_EQ(arguments->rgvarg[0].vt, VT_BSTR);
    lets.push_back(name + "=" + windows::Narrow(arguments->rgvarg[0].bstrVal));
    if (name != failing) return S_OK;
    exception->scode = static_cast<SCODE>(0x800A000D);
    exception->bstrDescription = SysAllocString(L"Type mismatch");
    return DISP_E_EXCEPTION;
  }

  std::vector<std::string> gets;
  std::vector<std::string> lets;
  std::string failing;
  std::string unknown;

 private:
  std::vector<std::string> names_;
  ULONG references_ = 0;
};

const std::vector<std::string> Starting_Keys = {
    "Memory_Clean", "Stop_everything_now", "Send_words_one_by_one", "On_speech_show_activities"};

class PropertyPageTest : public OleTest {
 protected:
  void Make(REFCLSID id) {
    ASSERT_EQ(Make_Property_Page(id, nullptr, IID_IPropertyPage, page.Receive_Void()), S_OK);
    EXPECT_EQ(page->SetPageSite(&site), S_OK);
  }
  void Activate_On(IUnknown& object) {
    IUnknown* objects[] = {&object};
    EXPECT_EQ(page->SetObjects(1, objects), S_OK);
    const RECT place = {0, 0, 600, 400};
    EXPECT_EQ(page->Activate(container.window, &place, FALSE), S_OK);
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
  // As a person would.
  static void Type(HWND box, const wchar_t* text) {
    SendMessageW(box, EM_SETSEL, 0, -1);
    SendMessageW(box, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text));
  }

  PageSite site;
  NotingObject other;
  ComPtr<IPropertyPage> page;
};

TEST_F(PropertyPageTest, The_control_names_its_eight_pages_in_order_and_each_can_be_made) {
  CAUUID pages = {};
  ASSERT_EQ(As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
  ASSERT_EQ(pages.cElems, Property_Page_Count);
  for (std::size_t i = 0; i < Property_Page_Count; ++i) {
    Make(pages.pElems[i]);
    PROPPAGEINFO information;
    std::memset(&information, 0xAA,
                sizeof information);  // a frame may leave even the size undefined
    ASSERT_EQ(page->GetPageInfo(&information), S_OK);
    EXPECT_EQ(windows::Narrow(information.pszTitle), Property_Pages()[i].caption);
    EXPECT_GT(information.size.cx, 0);
    EXPECT_LE(information.size.cx, 700);
    EXPECT_LE(information.size.cy, 420);
    EXPECT_EQ(information.pszDocString, nullptr);
    CoTaskMemFree(information.pszTitle);
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
  }
  CoTaskMemFree(pages.pElems);
}

TEST_F(PropertyPageTest, All_pages_are_of_one_size_and_so_fill_their_frame) {
  std::vector<LONG> widths;
  for (const IID* id : {&CLSID_StartingKeys, &CLSID_WindowsTechnicalSettings}) {
    Make(*id);
    PROPPAGEINFO information = {};
    ASSERT_EQ(page->GetPageInfo(&information), S_OK);
    CoTaskMemFree(information.pszTitle);
    widths.push_back(information.size.cx);
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
  }
  EXPECT_EQ(widths[0], widths[1]);
}

TEST_F(PropertyPageTest, Other_classes_are_no_pages) {
  void* made = this;
  EXPECT_EQ(Make_Property_Page(CLSID_Quillspeech, nullptr, IID_IUnknown, &made),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(made, nullptr);
}

TEST_F(PropertyPageTest, A_page_is_one_object_with_both_interfaces_of_pages) {
  Make(CLSID_StartingKeys);
  EXPECT_TRUE(page.As<IPropertyPage2>());
  EXPECT_EQ(page.As<IPropertyPage2>().As<IUnknown>().Get(), page.As<IUnknown>().Get());
  EXPECT_FALSE(page.As<IDispatch>());
}

TEST_F(PropertyPageTest, It_shows_the_members_of_the_control) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  EXPECT_TRUE(Box(L"C:\\Page.EGN"));
  EXPECT_TRUE(Box(L"Consider_this_Engine_for_Recognition:"));
  EXPECT_EQ(page->IsPageDirty(), S_FALSE);
  EXPECT_TRUE(site.told.empty());
}

TEST_F(PropertyPageTest, Typing_marks_it_as_changed_and_an_apply_sets_the_member) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  Type(Box(L"C:\\Page.EGN"), L"C:\\Typed.EGN");
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  EXPECT_EQ(site.told, std::vector<DWORD>{PROPPAGESTATUS_DIRTY});
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "C:\\Page.EGN");
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(page->IsPageDirty(), S_FALSE);
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "C:\\Typed.EGN");
  EXPECT_EQ(site.told, (std::vector<DWORD>{PROPPAGESTATUS_DIRTY, 0}));  // nothing to apply now
}

TEST_F(PropertyPageTest, It_reads_and_sets_all_its_members_by_name_in_order) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(other.gets, Starting_Keys);
  EXPECT_EQ(page->Apply(), S_OK);  // also when nothing was typed
  std::vector<std::string> all;
  for (const std::string& name : Starting_Keys) all.push_back(name + "=old");
  EXPECT_EQ(other.lets, all);
}

TEST_F(PropertyPageTest, Of_several_objects_the_first_is_shown_and_set) {
  NotingObject second;
  Make(CLSID_StartingKeys);
  IUnknown* objects[] = {&other, &second};
  EXPECT_EQ(page->SetObjects(2, objects), S_OK);
  const RECT place = {0, 0, 600, 400};
  EXPECT_EQ(page->Activate(container.window, &place, TRUE), S_OK);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(other.lets.size(), 4u);
  EXPECT_TRUE(second.gets.empty());
  EXPECT_TRUE(second.lets.empty());
}

TEST_F(PropertyPageTest, A_new_selection_is_shown_while_the_page_is_active) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  Type(Box(L"C:\\Page.EGN"), L"typed");
  IUnknown* objects[] = {&other};
  EXPECT_EQ(page->SetObjects(1, objects), S_OK);
  EXPECT_EQ(other.gets.size(), Bound_Members(Property_Pages()[3]).size());
  EXPECT_FALSE(Box(L"typed"));
  EXPECT_EQ(site.told, (std::vector<DWORD>{PROPPAGESTATUS_DIRTY, 0}));
}

TEST_F(PropertyPageTest, A_member_that_fails_ends_the_apply_and_the_page_stays_changed) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  Type(Box(L"old"), L"new");
  other.failing = "Stop_everything_now";
  EXPECT_EQ(page->Apply(), static_cast<HRESULT>(0x800A000D));
  EXPECT_EQ(other.lets.size(), 2u);
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  ComPtr<IErrorInfo> error;
  ASSERT_EQ(GetErrorInfo(0, error.Receive()), S_OK);
  BSTR words = nullptr;
  EXPECT_EQ(error->GetDescription(&words), S_OK);
  EXPECT_EQ(std::wstring(words), L"Type mismatch");
  SysFreeString(words);
}

TEST_F(PropertyPageTest, A_text_that_is_no_number_fails_the_apply_of_a_number) {
  Let("Engine_Explode_Limit", "77");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  Type(Box(L"77"), L"many");
  EXPECT_EQ(page->Apply(), static_cast<HRESULT>(0x800A000D));
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  EXPECT_EQ(Get("Engine_Explode_Limit"), "77");
  SetErrorInfo(0, nullptr);
}

TEST_F(PropertyPageTest, A_member_that_the_object_does_not_know_fails_the_activation) {
  other.unknown = "Send_words_one_by_one";
  Make(CLSID_StartingKeys);
  IUnknown* objects[] = {&other};
  EXPECT_EQ(page->SetObjects(1, objects), S_OK);
  const RECT place = {0, 0, 600, 400};
  EXPECT_EQ(page->Activate(container.window, &place, FALSE), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
}

TEST_F(PropertyPageTest, The_page_of_the_sound_card_shows_nothing_and_changes_nothing) {
  Make(CLSID_SoundCardSettings);
  Activate_On(other);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_TRUE(other.gets.empty());
  EXPECT_TRUE(other.lets.empty());
}

TEST_F(PropertyPageTest, Calls_out_of_turn_are_refused) {
  Make(CLSID_StartingKeys);
  const RECT place = {0, 0, 600, 400};
  EXPECT_EQ(page->SetPageSite(&site), E_UNEXPECTED);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_EQ(page->Deactivate(), E_UNEXPECTED);
  EXPECT_EQ(page->Move(&place), E_UNEXPECTED);
  EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
  EXPECT_EQ(page->Activate(container.window, &place, FALSE), E_UNEXPECTED);  // nothing to show
  Activate_On(other);
  EXPECT_EQ(page->Show(SW_SHOWNORMAL), S_OK);
  EXPECT_EQ(page->Show(SW_MINIMIZE), E_INVALIDARG);
  EXPECT_EQ(page->Activate(container.window, &place, FALSE), E_UNEXPECTED);
  EXPECT_EQ(page->Activate(container.window, nullptr, FALSE), E_POINTER);
  EXPECT_EQ(page->GetPageInfo(nullptr), E_POINTER);
  EXPECT_EQ(page->SetObjects(1, nullptr), E_POINTER);
  EXPECT_EQ(page->Move(nullptr), E_POINTER);
}

TEST_F(PropertyPageTest, It_moves_hides_and_goes_with_its_deactivation) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  const HWND window = GetParent(Box(L"Memory_Clean:"));
  const RECT place = {30, 40, 630, 440};
  EXPECT_EQ(page->Move(&place), S_OK);
  RECT now = {};
  GetWindowRect(window, &now);
  MapWindowPoints(nullptr, container.window, reinterpret_cast<POINT*>(&now), 2);
  EXPECT_EQ(now.left, 30);
  EXPECT_EQ(now.bottom, 440);
  EXPECT_EQ(page->Show(SW_HIDE), S_OK);
  EXPECT_FALSE(IsWindowVisible(window));
  EXPECT_EQ(page->Deactivate(), S_OK);
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(PropertyPageTest, The_tab_key_goes_from_box_to_box_and_other_keys_to_the_frame) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  const HWND box = Box(L"old");
  SetFocus(box);
  MSG tab = {box, WM_KEYDOWN, VK_TAB, 0, 0, {}};
  EXPECT_EQ(page->TranslateAccelerator(&tab), S_OK);
  EXPECT_NE(GetFocus(), box);
  MSG keys[] = {{box, WM_KEYDOWN, VK_F5, 0, 0, {}},
                {box, WM_KEYDOWN, 'S', 0, 0, {}},
                {box, WM_SYSCHAR, 'x', 0, 0, {}}};
  for (MSG& key : keys) EXPECT_EQ(page->TranslateAccelerator(&key), S_FALSE) << key.wParam;
  EXPECT_EQ(site.keys, 3);
}

TEST_F(PropertyPageTest, A_member_may_be_asked_for_by_its_id) {
  Make(CLSID_StartingKeys);
  Activate_On(*control);
  const auto page2 = page.As<IPropertyPage2>();
  EXPECT_EQ(page2->EditProperty(Id_Of("Memory_Clean", Access::Get)), S_OK);
  EXPECT_EQ(page2->EditProperty(Id_Of("Noise_Sensitivity", Access::Get)), E_INVALIDARG);
}

// Makes the pages of one class for this process, as a registered file would.
class PageFactory final : public IClassFactory {
 public:
  explicit PageFactory(REFCLSID id) : id_(id) {
    EXPECT_EQ(
        CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_),
        S_OK);
  }
  ~PageFactory() { CoRevokeClassObject(registration_); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    return Make_Property_Page(id_, outer, iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  CLSID id_;
  DWORD registration_ = 0;
};

// Presses OK in the property frame as soon as it shows.
struct FrameCloser {
  static void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND frame = FindWindowW(L"#32770", nullptr);
    if (!frame || !IsWindowVisible(frame)) return;
    wchar_t title[100] = {};
    GetWindowTextW(frame, title, 100);
    Title() = title;
    KillTimer(nullptr, timer);
    PostMessageW(frame, WM_COMMAND, IDOK, 0);
  }
  static std::wstring& Title() {
    static std::wstring title;
    return title;
  }
};

TEST_F(PropertyPageTest, The_systems_frame_shows_all_pages_of_a_control) {
  CAUUID pages = {};
  ASSERT_EQ(As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
  std::vector<std::unique_ptr<PageFactory>> factories;
  for (ULONG i = 0; i < pages.cElems; ++i) {
    factories.push_back(std::make_unique<PageFactory>(pages.pElems[i]));
  }
  FrameCloser::Title().clear();
  SetTimer(nullptr, 0, 20, FrameCloser::Look);
  container.is_control_site = false;
  EXPECT_EQ(Do(OLEIVERB_PROPERTIES), S_OK);
  EXPECT_NE(FrameCloser::Title().find(L"Quillspeech"), std::wstring::npos);
  Place();
  container.display_name = L"Recogniser7";
  SetTimer(nullptr, 0, 20, FrameCloser::Look);
  EXPECT_EQ(Do(OLEIVERB_PROPERTIES), S_OK);
  EXPECT_NE(FrameCloser::Title().find(L"Recogniser7"), std::wstring::npos);
  Withdraw();
  CoTaskMemFree(pages.pElems);
}

}  // namespace
}  // namespace quillspeech::activex::tests
