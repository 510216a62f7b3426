#include "activex/ole_control.hpp"

#include <gtest/gtest.h>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using OleControlTest = OleTest;

TEST_F(OleControlTest, Events_of_a_time_in_which_they_are_frozen_are_dropped) {
  EventSink sink;
  sink.Connect(*control);
  const auto frozen = As<IOleControl>();
  EXPECT_EQ(frozen->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(frozen->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(Call("Stop_Real_Action"), S_OK);
  EXPECT_EQ(frozen->FreezeEvents(FALSE), S_OK);
  EXPECT_EQ(Call("Stop_Real_Action"), S_OK);
  EXPECT_TRUE(sink.heard.empty());
  EXPECT_EQ(frozen->FreezeEvents(FALSE), S_OK);
  EXPECT_TRUE(sink.heard.empty());
  EXPECT_EQ(Call("Stop_Real_Action"), S_OK);
  EXPECT_EQ(sink.heard, std::vector{EventId::StopRecognitionActivity});
  sink.Disconnect();
}

TEST_F(OleControlTest, It_has_no_letters_to_press) {
  CONTROLINFO information = {};
  EXPECT_EQ(As<IOleControl>()->GetControlInfo(&information), S_OK);
  EXPECT_EQ(information.cb, sizeof information);
  EXPECT_EQ(information.cAccel, 0);
  EXPECT_EQ(information.hAccel, nullptr);
  EXPECT_EQ(As<IOleControl>()->GetControlInfo(nullptr), E_POINTER);
  EXPECT_EQ(As<IOleControl>()->OnMnemonic(nullptr), S_OK);
}

TEST_F(OleControlTest, Ambient_properties_may_change_while_there_is_no_window) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
}

TEST_F(OleControlTest, The_container_is_asked_for_its_mode_whenever_a_member_goes_by_it) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", "100"), S_OK);  // a person is told of it at run time
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "100");
}

}  // namespace
}  // namespace quillspeech::activex::tests
