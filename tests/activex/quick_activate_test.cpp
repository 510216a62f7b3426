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
