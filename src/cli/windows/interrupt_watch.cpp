#include "cli/windows/interrupt_watch.hpp"

#include <array>
#include <mutex>

#include "cli/windows/console_state.hpp"
#include "cli/windows/input_reader.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::cli {

namespace {

constexpr UINT Exit_Interrupted = 130;

// The system hands its handler nothing by which to find the watch.
struct Watched {
  std::mutex mutex;  // held while the watch meets an interrupt
  InterruptWatch* watch = nullptr;
};
Watched& Watched_By_The_Process() {
  static Watched watched;
  return watched;
}

void Set_Watch(InterruptWatch* watch) {
  Watched& watched = Watched_By_The_Process();
  const std::lock_guard lock(watched.mutex);
  watched.watch = watch;
}

bool Tell_Watch() {
  Watched& watched = Watched_By_The_Process();
  const std::lock_guard lock(watched.mutex);
  if (watched.watch) watched.watch->Meet_Interrupt();
  return watched.watch != nullptr;
}

BOOL WINAPI Handle_Interrupt(DWORD kind) {
  if (!Tell_Watch()) return FALSE;
  // When these are handled the program ends. It is to end by itself, for which it has some seconds.
  if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) ::Sleep(INFINITE);
  return TRUE;
}

}  // namespace

InterruptWatch::InterruptWatch() : event_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
  Set_Watch(this);
  ::SetConsoleCtrlHandler(Handle_Interrupt, TRUE);
}

InterruptWatch::~InterruptWatch() {
  ::SetConsoleCtrlHandler(Handle_Interrupt, FALSE);
  Set_Watch(nullptr);
  if (event_) ::CloseHandle(event_);
}

void InterruptWatch::Meet_Interrupt() {
  if (!is_taken_ || flag_.exchange(true)) {
    Put_Consoles_Back();
    ::TerminateProcess(::GetCurrentProcess(), Exit_Interrupted);
  }
  if (event_) ::SetEvent(event_);
}

InterruptibleInput::InterruptibleInput(int input, const InterruptWatch& watch)
    : input_(input), watch_(watch), arrived_(::CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

InterruptibleInput::~InterruptibleInput() {
  reader_.reset();  // it sets the event
  if (arrived_) ::CloseHandle(arrived_);
}

InterruptibleInput::int_type InterruptibleInput::underflow() {
  if (!reader_) {
    reader_ = std::make_unique<InputReader>(input_);
    reader_->At_Arrival([event = arrived_] { ::SetEvent(event); });
  }
  const std::array<HANDLE, 2> awaited = {watch_.Event(), arrived_};
  for (;;) {
    if (watch_.Flag()) return traits_type::eof();
    auto block = reader_->Take();
    if (!block) return traits_type::eof();
    block_ = std::move(*block);
    if (!block_.empty()) break;
    const DWORD woken = ::WaitForMultipleObjects(2, awaited.data(), FALSE, INFINITE);
    if (woken == WAIT_FAILED) return traits_type::eof();
  }
  setg(block_.data(), block_.data(), block_.data() + block_.size());
  return traits_type::to_int_type(block_[0]);
}

}  // namespace quillspeech::cli
