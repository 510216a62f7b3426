// A live session as its user follows it: every event with its time.
#pragma once

#include <memory>

#include "cli/console.hpp"
#include "core/control_events.hpp"
#include "platform/event_loop.hpp"
#include "platform/message_boxes.hpp"
#include "session/session.hpp"

namespace quillspeech::cli {

class ListenReport {
 public:
  virtual ~ListenReport() = default;

  // Inside the event. `at` is the time since the start.
  virtual void Event(const ControlEvent& event, EventLoop::Time at) = 0;
  virtual void Box(const MessageBox& box, BoxAnswer answer, EventLoop::Time at) = 0;
};

// For a person: the event that announces the status comes only when the status is another, and with
// it; a result comes with its ranked words. The session and the console outlive the report.
std::unique_ptr<ListenReport> Make_Text_Report(const Session& session, Console& console);

// One JSON object a line: {"event","at_ms"} with the event's argument, a result also with "words"
// and "pattern"; {"box"} as recognize --json has it.
std::unique_ptr<ListenReport> Make_Json_Report(const Session& session, Console& console);

}  // namespace quillspeech::cli
