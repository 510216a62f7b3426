#include "activex/ole_object.hpp"

#include <gtest/gtest.h>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using OleObjectTest = OleTest;

TEST_F(OleObjectTest, It_keeps_the_site_that_it_was_given) {
  Place();
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(As<IOleObject>()->GetClientSite(site.Receive()), S_OK);
  EXPECT_EQ(site.Get(), &container);
  site = nullptr;
  Withdraw();
  EXPECT_EQ(container.References(), 0u);
  EXPECT_EQ(As<IOleObject>()->GetClientSite(site.Receive()), S_OK);
  EXPECT_FALSE(site);
}

TEST_F(OleObjectTest, It_tells_containers_how_it_wants_to_be_placed) {
  DWORD status = 0;
  EXPECT_EQ(As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_EQ(status, 131473u);
  EXPECT_EQ(As<IOleObject>()->GetMiscStatus(DVASPECT_ICON, &status), S_OK);
  EXPECT_EQ(status, 0u);
}

TEST_F(OleObjectTest, Its_size_is_3336_by_1884_twips_in_hundredths_of_a_millimetre) {
  SIZEL extent = {};
  EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
  EXPECT_EQ(extent.cx, 5884);
  EXPECT_EQ(extent.cy, 3323);
}

TEST_F(OleObjectTest, Any_other_size_is_refused_and_its_own_is_taken) {
  const auto object = As<IOleObject>();
  SIZEL other = {10000, 10000};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &other), E_FAIL);
  SIZEL own = {5884, 3323};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &own), S_OK);
  SIZEL by_pixels = {222 * 2540 / 96, 126 * 2540 / 96};
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, &by_pixels), S_OK);
  EXPECT_EQ(object->SetExtent(DVASPECT_ICON, &own), DV_E_DVASPECT);
  SIZEL extent = {};
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &extent), S_OK);
  EXPECT_EQ(extent.cx, 5884);
}

TEST_F(OleObjectTest, It_tells_its_class) {
  CLSID id = {};
  EXPECT_EQ(As<IOleObject>()->GetUserClassID(&id), S_OK);
  EXPECT_TRUE(IsEqualCLSID(id, CLSID_Quillspeech));
}

TEST_F(OleObjectTest, It_has_a_name_for_its_users_also_when_it_is_not_registered) {
  LPOLESTR name = nullptr;
  EXPECT_EQ(As<IOleObject>()->GetUserType(USERCLASSTYPE_FULL, &name), S_OK);
  EXPECT_NE(std::wstring(name).find(L"Quillspeech"), std::wstring::npos);
  CoTaskMemFree(name);
}

TEST_F(OleObjectTest, Pointers_to_nowhere_are_refused) {
  const auto object = As<IOleObject>();
  DWORD cookie = 7;
  EXPECT_EQ(object->Advise(&container, nullptr), E_POINTER);
  EXPECT_EQ(object->Advise(nullptr, &cookie), E_INVALIDARG);
  EXPECT_EQ(cookie, 0u);
  EXPECT_EQ(container.References(), 0u);
  EXPECT_EQ(object->EnumAdvise(nullptr), E_POINTER);
  EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->SetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->GetUserType(USERCLASSTYPE_FULL, nullptr), E_POINTER);
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
  EXPECT_EQ(object->EnumVerbs(nullptr), E_POINTER);
  EXPECT_EQ(object->GetClientSite(nullptr), E_POINTER);
}

TEST_F(OleObjectTest, Its_verbs_stand_in_the_registry) {
  ComPtr<IEnumOLEVERB> verbs;
  EXPECT_EQ(As<IOleObject>()->EnumVerbs(verbs.Receive()), OLE_S_USEREG);
}

TEST_F(OleObjectTest, What_it_cannot_do_it_says) {
  const auto object = As<IOleObject>();
  ComPtr<IMoniker> moniker;
  EXPECT_EQ(object->GetMoniker(0, 0, moniker.Receive()), E_NOTIMPL);
  EXPECT_EQ(object->SetMoniker(0, nullptr), E_NOTIMPL);
  ComPtr<IDataObject> data;
  EXPECT_EQ(object->GetClipboardData(0, data.Receive()), E_NOTIMPL);
  EXPECT_EQ(object->InitFromData(nullptr, FALSE, 0), E_NOTIMPL);
  EXPECT_EQ(object->SetColorScheme(nullptr), E_NOTIMPL);
}

TEST_F(OleObjectTest, A_control_that_was_not_changed_closes_without_a_save) {
  Place();
  EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
}

TEST_F(OleObjectTest, A_changed_control_has_its_site_save_it_when_it_closes) {
  Place();
  EXPECT_EQ(Let("Noise_Sensitivity", "7"), S_OK);
  container.Expect({"SaveObject"});
  EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
  container.Done();
  EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
}

TEST_F(OleObjectTest, A_failed_save_goes_out_of_the_close) {
  Place();
  EXPECT_EQ(Let("Noise_Sensitivity", "7"), S_OK);
  DWORD cookie = 0;
  EXPECT_EQ(As<IOleObject>()->Advise(&container, &cookie), S_OK);
  container.Refuse("SaveObject", STG_E_MEDIUMFULL);
  container.Expect({"SaveObject", "OnClose"});  // closed it is all the same
  EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), STG_E_MEDIUMFULL);
  EXPECT_EQ(As<IOleObject>()->Unadvise(cookie), S_OK);
}

TEST_F(OleObjectTest, Sinks_hear_of_the_close_until_they_are_taken_away) {
  const auto object = As<IOleObject>();
  DWORD cookie = 0;
  EXPECT_EQ(object->Advise(&container, &cookie), S_OK);
  container.Expect({"OnClose"});
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
  container.Done();
  ComPtr<IEnumSTATDATA> sinks;
  EXPECT_EQ(object->EnumAdvise(sinks.Receive()), S_OK);
  EXPECT_TRUE(sinks);
  sinks = nullptr;
  EXPECT_EQ(object->Unadvise(cookie), S_OK);
  EXPECT_EQ(object->Unadvise(cookie), OLE_E_NOCONNECTION);
  EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
}

TEST_F(OleObjectTest, A_container_may_let_go_of_the_control_while_it_closes) {
  Place();
  Activate();
  IOleObject* const raw = As<IOleObject>().Get();  // as a caller who counts nothing
  container.Expect({"OnInPlaceDeactivate"});
  container.At("OnInPlaceDeactivate", [this] {
    Withdraw();
    control = nullptr;
  });
  EXPECT_EQ(raw->Close(OLECLOSE_NOSAVE), S_OK);
  EXPECT_EQ(terminations, 1);
}

TEST_F(OleObjectTest, A_control_without_a_site_cannot_be_activated) {
  EXPECT_EQ(
      As<IOleObject>()->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr),
      E_FAIL);
}

TEST_F(OleObjectTest, Unknown_verbs_of_its_own_are_the_primary_one_and_of_the_system_refused) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  container.Expect({"ShowPropertyFrame"});
  EXPECT_EQ(Do(17), OLEOBJ_S_INVALIDVERB);
  EXPECT_EQ(Do(-99), E_NOTIMPL);
  EXPECT_EQ(Do(OLEIVERB_DISCARDUNDOSTATE), S_OK);
}

TEST_F(OleObjectTest, The_container_may_show_the_properties_itself) {
  Place();
  container.Expect({"ShowPropertyFrame", "ShowPropertyFrame"});
  EXPECT_EQ(Do(OLEIVERB_PROPERTIES), S_OK);
  EXPECT_EQ(Do(Verb_Properties), S_OK);
}

TEST_F(OleObjectTest, The_primary_verb_uses_the_control_at_run_time_and_shows_properties_else) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  container.Expect({"ShowPropertyFrame"});
  EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
  container.Done();
  container.ambients[DISPID_AMBIENT_USERMODE] = true;
  container.Expect_Activation();
  container.Expect_UI_Activation();
  container.Expect({"OnFocus got"});
  EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
  container.Done();
  container.Expect_UI_Deactivation();
  container.Expect({"OnFocus lost", "OnInPlaceDeactivate"});
}

}  // namespace
}  // namespace quillspeech::activex::tests
