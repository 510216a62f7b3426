// A page as it stands in a window, and all of them in the frame of the system.
#include "tests/activex/property_page_fixture.hpp"
#include "tests/activex/system_watch.hpp"

namespace quillspeech::activex::tests {
namespace {

using PropertyPageWindow = PropertyPageTest;

TEST_F(PropertyPageWindow, It_moves_hides_and_goes_with_its_deactivation) {
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

TEST_F(PropertyPageWindow, The_tab_key_goes_from_box_to_box_and_other_keys_to_the_frame) {
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

TEST_F(PropertyPageWindow, A_member_that_is_asked_for_by_its_id_has_the_focus) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  const auto page2 = page.As<IPropertyPage2>();
  const DISPID id = Id_Of("Consider_this_Engine_for_Recognition", Access::Get);
  EXPECT_EQ(page2->EditProperty(id), S_OK);
  EXPECT_EQ(GetFocus(), Box(L"C:\\Page.EGN"));
  EXPECT_EQ(page2->EditProperty(Id_Of("Memory_Clean", Access::Get)), E_INVALIDARG);
  EXPECT_EQ(page2->EditProperty(DISPID_UNKNOWN), E_INVALIDARG);
}

TEST_F(PropertyPageWindow, So_has_a_member_whose_box_is_bound_to_nothing) {
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  const auto page2 = page.As<IPropertyPage2>();
  for (const auto* name : {"Voice_Word", "Engine_Category", "Filter_Slot_Data"}) {
    EXPECT_EQ(page2->EditProperty(Id_Of(name, Access::Get)), S_OK);
    const HWND label = Box((windows::Wide(name) + L":").c_str());
    RECT before = {};
    RECT box = {};
    GetWindowRect(label, &before);
    GetWindowRect(GetFocus(), &box);
    EXPECT_LT(std::abs(before.top - box.top), 5) << name;
    EXPECT_GT(box.left, before.left) << name;
  }
}

TEST_F(PropertyPageWindow, A_member_that_is_asked_for_before_gets_the_focus_with_the_page) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  EXPECT_EQ(Give(*control), S_OK);
  EXPECT_EQ(page.As<IPropertyPage2>()->EditProperty(
                Id_Of("Consider_this_Engine_for_Recognition", Access::Get)),
            S_OK);
  EXPECT_EQ(Activate_Page(), S_OK);
  EXPECT_EQ(page->Show(SW_SHOW), S_OK);
  const HWND box = Box(L"C:\\Page.EGN");
  SetFocus(GetParent(box));
  EXPECT_EQ(GetFocus(), box);
}

const std::wstring Help_Page = L"C:\\windows\\Quillspeech\\help.htm";

TEST_F(PropertyPageWindow, Its_help_is_the_help_page) {
  SystemWatch watch;
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(page->Help(nullptr), S_OK);
  EXPECT_EQ(watch.opened, std::vector<std::wstring>{Help_Page});
  EXPECT_EQ(watch.in_the_name_of, GetParent(Box(L"Memory_Clean:")));
}

TEST_F(PropertyPageWindow, A_click_on_the_help_button_opens_the_same_page) {
  SystemWatch watch;
  Make(CLSID_StartingKeys);
  Activate_On(other);
  SendMessageW(Box(L"&Help"), BM_CLICK, 0, 0);
  EXPECT_EQ(watch.opened, std::vector<std::wstring>{Help_Page});
  EXPECT_EQ(watch.in_the_name_of, GetParent(Box(L"Memory_Clean:")));
}

TEST_F(PropertyPageWindow, The_page_of_the_sound_card_has_no_help) {
  SystemWatch watch;
  Make(CLSID_SoundCardSettings);
  Activate_On(other);
  EXPECT_EQ(page->Help(nullptr), E_NOTIMPL);
  EXPECT_TRUE(watch.opened.empty());
  EXPECT_FALSE(Box(L"&Help"));
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

TEST_F(PropertyPageWindow, The_systems_frame_shows_all_pages_of_a_control) {
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
