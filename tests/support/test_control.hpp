// A control in a container that keeps what it hears.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "core/control.hpp"
#include "core/session_operations.hpp"
#include "tests/support/analysis_session.hpp"

namespace quillspeech::tests {

struct NotingContainer final : Container {
  bool User_Mode() const override {
    Tell("User_Mode");
    return user_mode;
  }
  void Raise(const ControlEvent& event) override {
    const std::string name(Row_Of(event.id).name);
    if (event.id == EventId::PropertyStatusBetweenDetectionToCoversion) {
      ++status_events;
    } else if (const auto* text = std::get_if<std::string>(&event.argument)) {
      events.push_back(name + " " + *text);
    } else if (const auto* number = std::get_if<std::int16_t>(&event.argument)) {
      events.push_back(name + " " + std::to_string(*number));
    } else {
      events.push_back(name);
    }
    if (At_Event) At_Event(event);
  }
  void Property_Changed(std::string_view name) override {
    changed.emplace_back(name);
    Tell("Property_Changed");
  }
  void Face_Changed(const Face& face) override {
    faces.push_back(face);
    Tell("Face_Changed");
  }
  void Pump_Failed(int number) override { pump_failures.push_back(number); }
  void Enabled_Changed(bool on) override {
    enabled = on;
    Tell("Enabled_Changed");
  }
  std::int32_t Window_Handle() const override { return 1234; }
  void Repaint() override { ++repaints; }

  // Runs the action at the first event of that kind.
  void At_First(EventId id, std::function<void()> action) {
    At_Event = [this, id, action = std::move(action)](const ControlEvent& event) {
      if (event.id != id) return;
      const auto now = action;
      At_Event = nullptr;
      now();
    };
  }
  std::int64_t Times(std::string_view event) const {
    return std::count(events.begin(), events.end(), event);
  }

  bool user_mode = true;
  std::vector<std::string> events;  // names, with the argument if there is one; but for this one:
  int status_events = 0;            // PropertyStatusBetweenDetectionToCoversion
  std::vector<std::string> changed;
  std::vector<Face> faces;
  std::vector<int> pump_failures;
  bool enabled = true;
  int repaints = 0;
  std::function<void(const ControlEvent&)> At_Event;   // what the host does then
  std::function<void(std::string_view call)> At_Call;  // what it does in four other calls

 private:
  void Tell(std::string_view call) const {
    if (At_Call) At_Call(call);
  }
};

// One control on a session whose calls that go up are noted, ready to start.
struct ControlTest : AnalysisSession {
  ControlTest() {
    session.flags.Settings_Ready_Count = 2;
    Operations& operations = session.operations;
    operations.Show_Splash = [this](Session&) { calls.emplace_back("Show_Splash"); };
    operations.Show_Help = [this](Session&) { calls.emplace_back("Show_Help"); };
    operations.Unload_Help = [this](Session&) { calls.emplace_back("Unload_Help"); };
  }

  bool Pump_Is_On() { return control->Timer1().Is_Enabled(); }
  void Pass_Time(std::chrono::milliseconds time) { events.Run_For(time); }
  // One tick of the pump.
  const std::vector<std::string>& Tick() {
    control->Timer1_Timer();
    return host_program.events;
  }
  // The one box that was shown.
  const MessageBox& Box() const { return boxes.shown.at(0).box; }

  NotingContainer host_program;
  std::shared_ptr<Control> control = Control::Make(session, host_program);
};

}  // namespace quillspeech::tests
