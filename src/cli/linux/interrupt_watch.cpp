#include "cli/linux/interrupt_watch.hpp"

#include <poll.h>
#include <pthread.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigset_t is not in csignal
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>

namespace quillspeech::cli {

namespace {

constexpr int Exit_Interrupted = 130;

sigset_t Signals_Watched() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  return signals;
}

extern "C" void End_At_Once(int) { ::_exit(Exit_Interrupted); }

}  // namespace

InterruptWatch::InterruptWatch() : event_(::eventfd(0, EFD_CLOEXEC)) {
  ::signal(SIGINT, End_At_Once);
  ::signal(SIGTERM, End_At_Once);
}

void InterruptWatch::Take() {
  if (thread_.joinable()) return;
  const sigset_t signals = Signals_Watched();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
  thread_ = std::thread([this] { Watch(); });
}

InterruptWatch::~InterruptWatch() {
  if (thread_.joinable()) {
    is_over_ = true;
    // The thread waits for the signal in sigwait; nothing is terminated.
    pthread_kill(thread_.native_handle(), SIGTERM);  // NOLINT(bugprone-bad-signal-to-kill-thread)
    thread_.join();
  }
  if (event_ >= 0) ::close(event_);
}

void InterruptWatch::Watch() {
  const sigset_t signals = Signals_Watched();
  for (;;) {
    if (sigwaitinfo(&signals, nullptr) < 0) continue;
    if (is_over_) return;
    if (flag_.exchange(true)) ::_exit(Exit_Interrupted);
    if (event_ >= 0) ::eventfd_write(event_, 1);
  }
}

InterruptibleInput::int_type InterruptibleInput::underflow() {
  for (;;) {
    std::array<pollfd, 2> awaited = {{{input_, POLLIN, 0}, {watch_.Descriptor(), POLLIN, 0}}};
    if (::poll(awaited.data(), awaited.size(), -1) < 0) {
      if (errno == EINTR) continue;
      return traits_type::eof();
    }
    if (awaited[1].revents != 0) return traits_type::eof();
    const ssize_t got = ::read(input_, buffer_.data(), buffer_.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return traits_type::eof();
    setg(buffer_.data(), buffer_.data(), buffer_.data() + got);
    return traits_type::to_int_type(buffer_[0]);
  }
}

}  // namespace quillspeech::cli
