#include "activex/quick_activate.hpp"

#include <gtest/gtest.h>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using QuickActivateTest = OleTest;

TEST_F(QuickActivateTest, One_call_sites_the_control_and_connects_all_sinks) {
  EventSink events;
  QACONTAINER from = {};
  from.cbSize = sizeof from;
  from.pClientSite = &container;
  from.pPropertyNotifySink = &container;
  from.pUnkEventSink = &events;
  QACONTROL to = {};
  to.cbSize = sizeof to;
  Place();
  ASSERT_EQ(As<IQuickActivate>()->QuickActivate(&from, &to), S_OK);
  EXPECT_EQ(to.cbSize, sizeof to);
  EXPECT_EQ(to.dwMiscStatus, 131473u);
  EXPECT_NE(to.dwEventCookie, 0u);
  EXPECT_NE(to.dwPropNotifyCookie, 0u);
  container.Expect({"OnChanged"});
  EXPECT_EQ(Let("Noise_Sensitivity", "7"), S_OK);
  EXPECT_EQ(container.changed, Id_Of("Noise_Sensitivity", Access::Get));
  Call("Stop_Real_Action");
  EXPECT_EQ(events.heard, std::vector{EventId::StopRecognitionActivity});
  const auto points = As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  points->FindConnectionPoint(DIID___Quillspeech, point.Receive());
  EXPECT_EQ(point->Unadvise(to.dwEventCookie), S_OK);
  points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive());
  EXPECT_EQ(point->Unadvise(to.dwPropNotifyCookie), S_OK);
}

TEST_F(QuickActivateTest, It_connects_a_view_sink_also_without_a_site) {
  QACONTAINER from = {};
  from.cbSize = sizeof from;
  from.pAdviseSink = &container;
  QACONTROL to = {};
  to.cbSize = sizeof to;
  ASSERT_EQ(As<IQuickActivate>()->QuickActivate(&from, &to), S_OK);
  EXPECT_EQ(to.dwViewStatus, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
  EXPECT_EQ(to.dwEventCookie, 0u);
  EXPECT_EQ(to.dwPropNotifyCookie, 0u);
  container.Expect({"OnViewChange"});
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_EQ(As<IViewObject>()->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(QuickActivateTest, Its_flags_hold_where_the_container_does_not_know_the_property) {
  QACONTAINER from = {};
  from.cbSize = sizeof from;
  from.pClientSite = &container;
  from.dwAmbientFlags = QACONTAINER_SUPPORTSMNEMONICS;  // and so of a container in design
  QACONTROL to = {};
  to.cbSize = sizeof to;
  Place();
  const auto shows_properties = [&] {
    EXPECT_EQ(As<IQuickActivate>()->QuickActivate(&from, &to), S_OK);
    container.Expect({"ShowPropertyFrame"});
    EXPECT_EQ(Do(OLEIVERB_PRIMARY), S_OK);
    container.Done();
  };
  shows_properties();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  from.dwAmbientFlags = QACONTAINER_USERMODE;  // it knows better by name
  shows_properties();
  container.ambients.clear();
  EXPECT_EQ(As<IQuickActivate>()->QuickActivate(&from, &to), S_OK);
  container.Refuse("CanInPlaceActivate", S_FALSE);
  container.Expect({"CanInPlaceActivate"});
  EXPECT_EQ(Do(OLEIVERB_PRIMARY), E_FAIL);
}

TEST_F(QuickActivateTest, Structures_of_another_size_are_refused) {
  QACONTAINER from = {};
  QACONTROL to = {};
  EXPECT_EQ(As<IQuickActivate>()->QuickActivate(&from, &to), E_INVALIDARG);
  EXPECT_EQ(As<IQuickActivate>()->QuickActivate(nullptr, &to), E_POINTER);
}

TEST_F(QuickActivateTest, It_knows_its_extent) {
  SIZEL extent = {};
  EXPECT_EQ(As<IQuickActivate>()->GetContentExtent(&extent), S_OK);
  EXPECT_EQ(extent.cx, 5884);
  EXPECT_EQ(As<IQuickActivate>()->SetContentExtent(&extent), S_OK);
}

}  // namespace
}  // namespace quillspeech::activex::tests
