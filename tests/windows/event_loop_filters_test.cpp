// Who is asked of a message before its window: the loop's filters and the host's hook.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct MessageFilters : MessageLoop {
  void Expect_Only_The_Other_To_Arrive() {
    Post(Some_Message);
    Post(Other_Message);
    events.Run_Pending_Events();
    EXPECT_EQ(window.Count(Some_Message), 0);
    EXPECT_EQ(window.Count(Other_Message), 1);
  }
};

// A host's hook that sees messages of such loops, and takes one of them.
struct MessageHook {
  MessageHook()
      : hook(::SetWindowsHookExW(WH_MSGFILTER, &Procedure, nullptr, ::GetCurrentThreadId())) {}
  ~MessageHook() { ::UnhookWindowsHookEx(hook); }
  MessageHook(const MessageHook&) = delete;
  MessageHook& operator=(const MessageHook&) = delete;

  static LRESULT CALLBACK Procedure(int code, WPARAM, LPARAM message) {
    if (code != MSGF_USER) return 0;
    return reinterpret_cast<const MSG*>(message)->message == Some_Message;
  }
  HHOOK hook;
};

TEST_F(MessageFilters, The_hosts_hook_is_asked_too) {
  const MessageHook hook;
  Expect_Only_The_Other_To_Arrive();
}

TEST_F(MessageFilters, A_filter_can_deal_with_a_message_before_its_window) {
  events.Add_Filter([](MSG& message) { return message.message == Some_Message; });
  Expect_Only_The_Other_To_Arrive();
}

TEST_F(MessageFilters, The_oldest_is_asked_first_and_the_first_that_takes_it_is_the_last_asked) {
  std::string asked;
  for (const auto& [name, takes] : {std::pair{'a', false}, {'b', true}, {'c', true}}) {
    events.Add_Filter([&asked, name, takes](MSG&) {
      asked += name;
      return takes;
    });
  }
  Post(Some_Message);
  events.Run_Pending_Events();
  EXPECT_EQ(asked, "ab");
}

TEST_F(MessageFilters, One_that_was_removed_is_not_asked_even_by_another_filter) {
  int first = 0;
  int second = 0;
  int asked = 0;
  first = events.Add_Filter([&](MSG&) {
    events.Remove_Filter(first);
    events.Remove_Filter(second);
    return false;
  });
  second = events.Add_Filter([&](MSG&) {
    ++asked;
    return true;
  });
  for (int i = 0; i < 2; ++i) Post(Some_Message);
  events.Run_Pending_Events();
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(window.Count(Some_Message), 2);
}

TEST_F(MessageFilters, What_is_for_the_hidden_window_goes_past_them) {
  int asked = 0;
  events.Add_Filter([&](MSG&) {
    ++asked;
    return true;
  });
  Post_Tick();
  events.Wake();
  events.Run_Pending_Events();
  EXPECT_EQ(asked, 0);
}

}  // namespace
}  // namespace quillspeech::tests
