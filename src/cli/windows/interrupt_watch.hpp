#pragma once

#include <atomic>
#include <memory>
#include <streambuf>
#include <string>

namespace quillspeech::cli {

class InputReader;

// Ctrl-C, Ctrl-Break and the closing of the console end the program with 130. Until Take() is
// called the first one does; from then on the first one raises the flag, and the second ends the
// program. One at a time.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  void Take() { is_taken_ = true; }

  const std::atomic<bool>& Flag() const { return flag_; }
  // An event that is set once the flag is up.
  void* Event() const { return event_; }

  // For the system's handler, on a thread of its own.
  void Meet_Interrupt();

 private:
  void* event_;
  std::atomic<bool> is_taken_ = false;
  std::atomic<bool> flag_ = false;
};

// Bytes of a file descriptor, which end early when the watch's flag goes up. Nothing is read before
// the first of them is asked for.
class InterruptibleInput final : public std::streambuf {
 public:
  InterruptibleInput(int input, const InterruptWatch& watch);
  ~InterruptibleInput() override;

 protected:
  int_type underflow() override;

 private:
  int input_;
  const InterruptWatch& watch_;
  void* arrived_;  // an event
  std::unique_ptr<InputReader> reader_;
  std::string block_;
};

}  // namespace quillspeech::cli
