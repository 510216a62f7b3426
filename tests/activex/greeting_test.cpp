// The help window, which greets each new control.
#include "presentation/help_windows.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

constexpr auto Title = L"About Quillspeech";

class GreetingTest : public OleTest {
 protected:
  GreetingTest() {
    Operations& operations = session().operations;
    Connect_Help_Windows(session());
    operations.Unload_Help = [this, unload = operations.Unload_Help](quillspeech::Session& shared) {
      ++terminations;
      unload(shared);
    };
  }
  ~GreetingTest() override { session().operations.Show_Help = Operations::Nothing; }
};

TEST_F(GreetingTest, A_new_control_greets_its_developer) {
  BoxCloser closer(Title, [] {});
  EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(closer.closed, 1);
}

TEST_F(GreetingTest, The_frame_is_told_while_the_window_is_up) {
  Place();
  Activate();
  container.Expect({"Frame.EnableModeless none"});
  HWND owner = nullptr;
  BoxCloser closer(Title, [&] {
    container.Done();
    owner = GetWindow(FindWindowW(nullptr, Title), GW_OWNER);
    container.Expect({"Frame.EnableModeless"});
  });
  EXPECT_EQ(Call("AboutBox"), S_OK);
  EXPECT_EQ(closer.closed, 1);
  EXPECT_NE(owner, nullptr);
  container.Done();
  Deactivate();
}

TEST_F(GreetingTest, A_control_that_is_let_go_of_behind_it_ends_when_it_closes) {
  BoxCloser closer(Title, [this] {
    control = nullptr;
    EXPECT_EQ(terminations, 0);
  });
  EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(terminations, 1);
}

TEST_F(GreetingTest, The_file_stays_loaded_meanwhile) {
  bool can_unload = true;
  BoxCloser closer(Title, [&] {
    control = nullptr;
    can_unload = Module::Of_This_File().Can_Unload();
  });
  EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_FALSE(can_unload);
}

}  // namespace
}  // namespace quillspeech::activex::tests
