#include "cli/host_on_virtual_clock.hpp"

namespace quillspeech::cli {

RequestsOnVirtualClock::RequestsOnVirtualClock(HostControl& host, std::istream& in)
    : events_(*host.Live().Virtual_Clock()),
      in_(in),
      requests_(host, [this](std::chrono::milliseconds time) { *events_.horizon += time; }) {
  events_.horizon = events_.Now();
  events_.At_Horizon = [this] { Serve_Next(); };
  host.Wait_In_Window = [this] { return Wait_In_Window(); };
}

RequestsOnVirtualClock::~RequestsOnVirtualClock() {
  requests_.host.Wait_In_Window = [] { return false; };
  events_.At_Horizon = nullptr;
  events_.horizon.reset();
}

void RequestsOnVirtualClock::Serve_Next() {
  requests_.Time_Has_Passed();
  if (!requests_.host.Is_Heard()) return End();
  const auto line = Next_Line(in_, lines_);
  if (!line) return End();
  if (line->is_too_long) return requests_.Refuse_Long_Line();
  requests_.Serve(line->text);
}

bool RequestsOnVirtualClock::Wait_In_Window() {
  if (!ended_ && requests_.host.Is_Heard()) requests_.host.Wait_For_Events();
  return !ended_ && requests_.host.Is_Heard();
}

// Whatever waits has all the time that it needs to leave.
void RequestsOnVirtualClock::End() {
  ended_ = true;
  requests_.host.End();
  events_.horizon.reset();
}

}  // namespace quillspeech::cli
