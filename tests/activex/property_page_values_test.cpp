// What a page reads from an object, and what it sets.
#include "tests/activex/property_page_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using PropertyPageValues = PropertyPageTest;

TEST_F(PropertyPageValues, It_shows_the_members_of_the_control) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  EXPECT_TRUE(Box(L"C:\\Page.EGN"));
  EXPECT_TRUE(Box(L"Consider_this_Engine_for_Recognition:"));
  EXPECT_EQ(page->IsPageDirty(), S_FALSE);
  EXPECT_TRUE(site.told.empty());
}

TEST_F(PropertyPageValues, Typing_marks_it_as_changed_and_an_apply_sets_the_member) {
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

TEST_F(PropertyPageValues, It_reads_and_sets_all_its_members_by_name_in_order) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(other.gets, Starting_Keys);
  EXPECT_EQ(page->Apply(), S_OK);  // also when nothing was typed
  std::vector<std::string> all;
  for (const std::string& name : Starting_Keys) all.push_back(name + "=old");
  EXPECT_EQ(other.lets, all);
}

TEST_F(PropertyPageValues, Of_several_objects_the_first_is_shown_and_set) {
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

TEST_F(PropertyPageValues, A_new_selection_is_shown_while_the_page_is_active) {
  Let("Consider_this_Engine_for_Recognition", "C:\\Page.EGN");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  Type(Box(L"C:\\Page.EGN"), L"typed");
  EXPECT_EQ(Give(other), S_OK);
  EXPECT_EQ(other.gets.size(), Bound_Members(Property_Pages()[3]).size());
  EXPECT_FALSE(Box(L"typed"));
  EXPECT_EQ(site.told, (std::vector<DWORD>{PROPPAGESTATUS_DIRTY, 0}));
}

TEST_F(PropertyPageValues, A_member_that_fails_ends_the_apply_and_the_page_stays_changed) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  Type(Box(L"old"), L"new");
  other.failing = "Stop_everything_now";
  EXPECT_EQ(page->Apply(), static_cast<HRESULT>(0x800A000D));
  EXPECT_EQ(other.lets.size(), 2u);
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  EXPECT_EQ(Words(), L"Type mismatch");
}

TEST_F(PropertyPageValues, A_text_that_is_no_number_fails_the_apply_of_a_number) {
  Let("Engine_Explode_Limit", "77");
  Make(CLSID_EngineDepartment);
  Activate_On(*control);
  Type(Box(L"77"), L"many");
  EXPECT_EQ(page->Apply(), static_cast<HRESULT>(0x800A000D));
  EXPECT_EQ(page->IsPageDirty(), S_OK);
  EXPECT_EQ(Get("Engine_Explode_Limit"), "77");
  SetErrorInfo(0, nullptr);
}

TEST_F(PropertyPageValues, A_member_that_the_object_does_not_know_fails_the_activation) {
  other.unknown = "Send_words_one_by_one";
  Make(CLSID_StartingKeys);
  EXPECT_EQ(Give(other), S_OK);
  EXPECT_EQ(Activate_Page(), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(page->Show(SW_SHOW), E_UNEXPECTED);
}

TEST_F(PropertyPageValues, A_page_that_was_never_shown_sets_nothing) {
  Make(CLSID_StartingKeys);
  EXPECT_EQ(Give(other), S_OK);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_TRUE(other.lets.empty());
}

TEST_F(PropertyPageValues, What_was_shown_of_one_object_is_not_set_on_the_next) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(page->Deactivate(), S_OK);
  EXPECT_EQ(Give(next), S_OK);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_TRUE(next.lets.empty());
  EXPECT_TRUE(other.lets.empty());
}

TEST_F(PropertyPageValues, What_was_typed_over_one_object_is_refused_for_the_next) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  Type(Box(L"old"), L"new");
  EXPECT_EQ(page->Deactivate(), S_OK);
  EXPECT_EQ(Give(next), S_OK);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_TRUE(next.lets.empty());
  EXPECT_EQ(Activate_Page(), S_OK);  // which shows what the next one has
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(next.lets.front(), "Memory_Clean=old");
}

TEST_F(PropertyPageValues, An_object_that_could_not_be_read_to_the_end_is_not_set) {
  next.unknown = "Stop_everything_now";
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(Give(next), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_TRUE(next.lets.empty());
  EXPECT_TRUE(other.lets.empty());
}

TEST_F(PropertyPageValues, An_object_that_gives_the_page_another_one_while_it_is_read_is_not_set) {
  other.At_Get = [&] { EXPECT_EQ(Give(next), S_OK); };
  Make(CLSID_StartingKeys);
  EXPECT_EQ(Give(other), S_OK);
  EXPECT_EQ(Activate_Page(), S_OK);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_TRUE(next.lets.empty());
  EXPECT_TRUE(other.lets.empty());
}

TEST_F(PropertyPageValues, What_was_shown_is_still_set_after_the_page_is_closed) {
  Make(CLSID_StartingKeys);
  Activate_On(other);
  EXPECT_EQ(page->Deactivate(), S_OK);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_EQ(other.lets.size(), Starting_Keys.size());
}

TEST_F(PropertyPageValues, A_member_without_a_text_fails_the_activation) {
  other.without_value = "Memory_Clean";
  Make(CLSID_StartingKeys);
  EXPECT_EQ(Give(other), S_OK);
  EXPECT_EQ(Activate_Page(), DISP_E_TYPEMISMATCH);
}

TEST_F(PropertyPageValues, A_failure_without_words_leaves_none_of_an_older_one) {
  Make(CLSID_StartingKeys);
  Tell_Failure(9);
  EXPECT_EQ(page->Apply(), E_UNEXPECTED);
  EXPECT_EQ(Words(), L"");
  Activate_On(other);
  other.refusing = "Stop_everything_now";
  Tell_Failure(9);
  EXPECT_EQ(page->Apply(), E_ACCESSDENIED);
  EXPECT_EQ(Words(), L"");
  Tell_Failure(9);
  EXPECT_EQ(page->SetObjects(1, nullptr), E_POINTER);
  EXPECT_EQ(Words(), L"");
}

TEST_F(PropertyPageValues, The_page_of_the_sound_card_shows_nothing_and_changes_nothing) {
  Make(CLSID_SoundCardSettings);
  Activate_On(other);
  EXPECT_EQ(page->Apply(), S_OK);
  EXPECT_TRUE(other.gets.empty());
  EXPECT_TRUE(other.lets.empty());
}

}  // namespace
}  // namespace quillspeech::activex::tests
