#include "activex/property_page.hpp"

#include "tests/activex/property_page_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

IID Id_Of_Type(ITypeInfo& type) {
  TYPEATTR* attributes = nullptr;
  EXPECT_EQ(type.GetTypeAttr(&attributes), S_OK);
  const IID id = attributes->guid;
  type.ReleaseTypeAttr(attributes);
  return id;
}

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
}

TEST_F(PropertyPageTest, Each_answers_to_the_interface_that_the_type_library_has_for_its_class) {
  CAUUID pages = {};
  ASSERT_EQ(As<ISpecifyPropertyPages>()->GetPages(&pages), S_OK);
  for (ULONG i = 0; i < pages.cElems; ++i) {
    ComPtr<ITypeInfo> of_class;
    ASSERT_EQ(Module::Of_This_File().Type_Info(pages.pElems[i], of_class.Receive()), S_OK);
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> listed;
    ASSERT_EQ(of_class->GetRefTypeOfImplType(0, &reference), S_OK);
    ASSERT_EQ(of_class->GetRefTypeInfo(reference, listed.Receive()), S_OK);
    const IID id = Id_Of_Type(*listed);
    Make(pages.pElems[i]);
    const auto dispatch = page.As<IDispatch>();
    ASSERT_TRUE(dispatch);
    EXPECT_EQ(page.As<IDispatch>(id).Get(), dispatch.Get());
    ComPtr<ITypeInfo> told;
    ASSERT_EQ(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, told.Receive()), S_OK);
    EXPECT_TRUE(IsEqualGUID(Id_Of_Type(*told), id));
    EXPECT_EQ(page->SetPageSite(nullptr), S_OK);
  }
  CoTaskMemFree(pages.pElems);
}

TEST_F(PropertyPageTest, That_interface_has_no_members) {
  Make(CLSID_StartingKeys);
  const auto dispatch = page.As<IDispatch>();
  UINT count = 0;
  EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1u);
  wchar_t name[] = L"Memory_Clean";
  LPOLESTR names[] = {name};
  DISPID id = 0;
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  DISPPARAMS none = {};
  EXPECT_EQ(dispatch->Invoke(0, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &none, nullptr,
                             nullptr, nullptr),
            DISP_E_MEMBERNOTFOUND);
}

TEST_F(PropertyPageTest, Questions_that_make_no_sense_to_that_interface_are_refused) {
  Make(CLSID_StartingKeys);
  const auto dispatch = page.As<IDispatch>();
  ComPtr<ITypeInfo> information;
  EXPECT_EQ(dispatch->GetTypeInfoCount(nullptr), E_POINTER);
  EXPECT_EQ(dispatch->GetTypeInfo(0, LOCALE_NEUTRAL, nullptr), E_POINTER);
  EXPECT_EQ(dispatch->GetTypeInfo(1, LOCALE_NEUTRAL, information.Receive()), DISP_E_BADINDEX);
  DISPID id = 0;
  LPOLESTR names[] = {nullptr};
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_IDispatch, names, 1, LOCALE_NEUTRAL, &id),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, LOCALE_NEUTRAL, &id), E_INVALIDARG);
  EXPECT_EQ(dispatch->Invoke(0, IID_IDispatch, LOCALE_NEUTRAL, DISPATCH_METHOD, nullptr, nullptr,
                             nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
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

}  // namespace
}  // namespace quillspeech::activex::tests
