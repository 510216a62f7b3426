// A control that listens for a command, until somebody wants an end.
#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "cli/console.hpp"
#include "cli/listen_report.hpp"
#include "core/control.hpp"
#include "platform/timed_loop.hpp"

namespace quillspeech::cli {

class Listener final : public Container, public EventSource {
 public:
  // All three outlive it, the loop being the session's; the session is prepared.
  Listener(Session& session, TimedLoop& events, Console& console);
  ~Listener() override;
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  quillspeech::Control& Control() const { return *control_; }
  EventLoop::Time Since_Start() const { return events_.Now() - start_; }

  // Listens from a start to a stop, until the user wants an end, that much time has passed, or
  // Give_Up was called. False when no session came about, or it was given up.
  bool Run(ListenReport& report, std::optional<EventLoop::Time> time);
  void Give_Up() { is_given_up_ = true; }
  // The stop has begun, or no session came about.
  bool Is_Over() const { return is_over_; }

  // Container.
  bool User_Mode() const override { return true; }
  void Raise(const ControlEvent& event) override;
  void Property_Changed(std::string_view) override {}
  void Face_Changed(const Face&) override {}
  void Pump_Failed(int number) override;  // is told once

  // EventSource.
  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

 private:
  bool Is_End_Wanted(EventLoop::Time now) const;
  bool Stands_Still();
  void Tell_Of_Standstill();

  Session& session_;
  TimedLoop& events_;
  Console& console_;
  ListenReport* report_ = nullptr;
  EventLoop::Time start_{0};
  EventLoop::Time served_{0};
  std::optional<EventLoop::Time> end_;
  bool is_over_ = false;
  bool is_given_up_ = false;
  bool standstill_told_ = false;
  bool pump_failure_told_ = false;
  std::shared_ptr<quillspeech::Control> control_;
};

}  // namespace quillspeech::cli
