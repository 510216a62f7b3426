// Bytes that come in by a descriptor while a loop on the real clock runs.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "cli/backend.hpp"

namespace quillspeech::cli {

class LiveInput {
 public:
  // The descriptor outlives it, and the loop its being watched.
  LiveInput(backend::EventLoop& events, int descriptor);
  ~LiveInput();
  LiveInput(const LiveInput&) = delete;
  LiveInput& operator=(const LiveInput&) = delete;

  // Runs the handler at yields and waits whenever there is something to read, the end of the input
  // too, again and again until it reads or unwatches.
  void Watch(std::function<void()> ready);
  void Unwatch();

  // To be called by the handler: what came in, empty where there was nothing after all; nothing
  // once the input has ended.
  std::optional<std::string> Read();

 private:
  class System;
  std::unique_ptr<System> system_;
};

}  // namespace quillspeech::cli
