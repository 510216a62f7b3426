#include "cli/listener.hpp"

#include <algorithm>
#include <string>
#include <utility>

#include "base/run_time_failure.hpp"
#include "core/session_operations.hpp"

namespace quillspeech::cli {

namespace {

// An interrupt does not wake the loop; this is how long it may go unseen.
constexpr EventLoop::Time Time_Between_Looks = std::chrono::milliseconds(100);

std::string Named_Failure(int number) {
  return "run-time failure " + std::to_string(number) + ", " + Failure_Text(number);
}

}  // namespace

Listener::Listener(Session& session, TimedLoop& events, Console& console)
    : session_(session),
      events_(events),
      console_(console),
      control_(quillspeech::Control::Make(session, *this)) {
  events_.Add_Source(*this);
}

Listener::~Listener() {
  events_.Remove_Source(*this);
  control_->UserControl_Terminate();
}

bool Listener::Run(ListenReport& report, std::optional<EventLoop::Time> time) {
  report_ = &report;
  start_ = events_.Now();
  if (time) end_ = start_ + *time;
  Start_Real_Action(*control_);
  const bool has_started = session_.flags.Session_Started == 1;
  is_over_ = !has_started;
  while (!is_over_) events_.Wait_For_Events();
  report_ = nullptr;
  return has_started && !is_given_up_;
}

void Listener::Raise(const ControlEvent& event) {
  if (report_) report_->Event(event, Since_Start());
}

void Listener::Pump_Failed(int number) {
  if (std::exchange(pump_failure_told_, true)) return;
  console_.err << "quillspeech: events were lost: " << Named_Failure(number) << "\n" << std::flush;
}

std::optional<EventLoop::Time> Listener::Next_Due() const {
  if (!report_ || is_over_) return std::nullopt;
  const EventLoop::Time look = served_ + Time_Between_Looks;
  return end_ ? std::min(*end_, look) : look;
}

bool Listener::Is_End_Wanted(EventLoop::Time now) const {
  return is_given_up_ || console_.Is_Interrupted() || !console_.out || (end_ && now >= *end_);
}

void Listener::Serve(EventLoop::Time now) {
  served_ = now;
  if (!report_ || is_over_) return;
  if (Is_End_Wanted(now)) {
    is_over_ = true;
    return Stop_Real_Action(*control_);
  }
  if (!standstill_told_ && Stands_Still()) Tell_Of_Standstill();
}

// Whether nothing will ever begin another capture: no timer of the hidden window is on, and the
// only wait under way is that of Run.
bool Listener::Stands_Still() {
  if (events_.Depth() > 1) return false;
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    if (events_.Is_Enabled(timer)) return false;
  }
  return true;
}

void Listener::Tell_Of_Standstill() {
  standstill_told_ = true;
  console_.err << "quillspeech: listening has come to a stand: ";
  const int failure = session_.trace.Last_Failure;
  if (failure != 0 && Is_Stopped(session_)) {
    console_.err << Named_Failure(failure) << "\n";
  } else if (session_.words.Probable_no_of_words_recognized == 0) {
    console_.err << "the last sample held no word by Noise_Sensitivity "
                 << session_.settings.Noise_Sensitivity.Raw() << ", and then no other begins\n";
  } else {
    console_.err << "no other capture begins\n";
  }
  console_.err << std::flush;
}

}  // namespace quillspeech::cli
