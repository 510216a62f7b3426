// Message boxes of a session that somebody follows as it runs.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/console.hpp"
#include "cli/live_lines.hpp"
#include "platform/message_boxes.hpp"

namespace quillspeech::cli {

// A question is answered Yes when all are to be, else by the user when standard input is a
// terminal, else No.
class LiveBoxes final : public MessageBoxes {
 public:
  LiveBoxes(Console& console, bool always_yes) : console_(console), always_yes_(always_yes) {}

  BoxAnswer Show(const MessageBox& box) override;

  // From now on the session goes on while a question waits for its line, which comes from that
  // descriptor and no longer from the console. Both outlive the questions.
  void Ask_On(backend::EventLoop& events, int input) { lines_.emplace(events, input); }

  // Told of each box with its answer; while it is not set, boxes go unseen and questions get a No.
  std::function<void(const MessageBox&, BoxAnswer)> Tell;
  // Whether a question that waits on the loop is to get its No now; asked after each event.
  std::function<bool()> Is_Over = [] { return false; };

 private:
  BoxAnswer Answer_To(const MessageBox& box);
  BoxAnswer Ask(const MessageBox& box);
  std::optional<std::string> Typed_Line();

  Console& console_;
  bool always_yes_;
  std::optional<LiveLines> lines_;
};

}  // namespace quillspeech::cli
