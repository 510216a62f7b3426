// Ctrl-C, turned into a flag, and a standard input that it can end.
#pragma once

#include <array>
#include <atomic>
#include <streambuf>
#include <thread>

namespace quillspeech::cli {

// SIGINT and SIGTERM end the program with 130. Until Take() is called the first one does; from then
// on the first one raises the flag, and the second ends the program.
class InterruptWatch {
 public:
  InterruptWatch();
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  // Call it before any other thread begins. A second call does nothing.
  void Take();

  const std::atomic<bool>& Flag() const { return flag_; }
  // Readable once the flag is up.
  int Descriptor() const { return event_; }

 private:
  void Watch();

  int event_;
  std::atomic<bool> flag_ = false;
  std::atomic<bool> is_over_ = false;
  std::thread thread_;
};

// Bytes of a file descriptor, which end early when the watch's flag goes up.
class InterruptibleInput final : public std::streambuf {
 public:
  InterruptibleInput(int input, const InterruptWatch& watch) : input_(input), watch_(watch) {}

 protected:
  int_type underflow() override;

 private:
  int input_;
  const InterruptWatch& watch_;
  std::array<char, 4096> buffer_;
};

}  // namespace quillspeech::cli
