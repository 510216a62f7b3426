// Lines that somebody types while a session goes on.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/live_input.hpp"
#include "cli/request_lines.hpp"

namespace quillspeech::cli {

class LiveLines {
 public:
  // Reads the descriptor, and only while a line is waited for. It and the loop outlive this.
  LiveLines(backend::EventLoop& events, int input) : events_(events), input_(events, input) {}
  LiveLines(const LiveLines&) = delete;
  LiveLines& operator=(const LiveLines&) = delete;

  // Lets the loop run until a line is in. Nothing once the input has ended, or when an event was
  // served and `is_over` says so. May be called from inside an event: the latest gets its line
  // first.
  std::optional<std::string> Next(const std::function<bool()>& is_over);

 private:
  class Watch;
  void Read();

  backend::EventLoop& events_;
  LiveInput input_;
  RequestLines lines_;
  int waits_ = 0;
  bool has_ended_ = false;
};

}  // namespace quillspeech::cli
