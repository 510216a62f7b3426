#include "cli/host_on_real_clock.hpp"

#include <algorithm>

namespace quillspeech::cli {

RequestsOnRealClock::RequestsOnRealClock(HostControl& host, int input)
    : events_(*host.Live().Real_Clock()),
      input_(events_, input),
      requests_(host, [this](std::chrono::milliseconds time) { Pass_Time(time); }) {
  run_ = events_.Make_Timer(std::chrono::milliseconds(1), [this] {
    run_->Enable(false);
    requests_.Time_Has_Passed();
    Serve_All();
  });
  rest_ = events_.Make_Timer(std::chrono::milliseconds(1), [this] {
    rest_->Enable(false);
    Serve_All();
  });
  host.Wait_In_Window = [this] { return Wait_In_Window(); };
  input_.Watch([this] {
    Read();
    Serve_All();
  });
}

RequestsOnRealClock::~RequestsOnRealClock() {
  requests_.host.Wait_In_Window = [] { return false; };
  Close();
}

void RequestsOnRealClock::Read() {
  if (const auto bytes = input_.Read()) return lines_.Add(*bytes);
  lines_.Close();
  Close();
}

void RequestsOnRealClock::Close() {
  if (!is_open_) return;
  is_open_ = false;
  input_.Unwatch();
}

// The lines behind a run wait until its time has passed.
bool RequestsOnRealClock::Serve_One() {
  if (requests_.Is_Running() || !requests_.host.Is_Heard()) return false;
  const auto line = lines_.Next();
  if (!line) return false;
  if (line->is_too_long) {
    requests_.Refuse_Long_Line();
  } else {
    requests_.Serve(line->text);
  }
  return true;
}

// The lines behind one that has closed a modal window wait until its showing has returned.
void RequestsOnRealClock::Serve_All() {
  do {
    if (requests_.host.Live().views.Is_Modal_Show_Over()) return rest_->Enable(true);
  } while (Serve_One());
  End_When_Done();
}

bool RequestsOnRealClock::Wait_In_Window() {
  if (ended_ || Serve_One()) return !ended_;
  End_When_Done();
  if (!ended_) requests_.host.Wait_For_Events();
  return !ended_;
}

void RequestsOnRealClock::End_When_Done() {
  const bool is_done = !is_open_ && !requests_.Is_Running();
  if (is_done || !requests_.host.Is_Heard()) End();
}

void RequestsOnRealClock::End() {
  if (ended_) return;
  ended_ = true;
  Close();
  requests_.host.End();
}

void RequestsOnRealClock::Pass_Time(std::chrono::milliseconds time) {
  run_->Set_Interval(std::max(time, std::chrono::milliseconds(1)));
  run_->Enable(true);
}

}  // namespace quillspeech::cli
