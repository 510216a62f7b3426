// What one tick of the control's Timer1 makes of the shared state. The status is read afresh at
// each step, because the host's handlers run in between.
#include <array>
#include <string>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "core/control.hpp"

namespace quillspeech {
namespace {

bool Is_Status(const Session& session, std::string_view status) {
  return Trim(session.flags.Operation_Status) == status;
}

std::string Best_Word(const Session& session) {
  return Trimmed(session.results.Platinum_Best_Table[1]);
}

std::string First_Pattern(const Session& session) {
  return Trimmed(session.filter.Voice_Word_Table[1]);
}

}  // namespace

void Control::Timer1_Timer() {
  constexpr std::array Steps = {
      &Control::Raise_Status_Event,  &Control::Show_Status,          &Control::Raise_Text_Event,
      &Control::Raise_Pattern_Event, &Control::Raise_Detected_Event, &Control::Show_Pattern,
      &Control::Show_Best_Word,      &Control::Raise_No_Match,
  };
  const auto self = shared_from_this();
  for (const auto step : Steps) {
    if (Is_Terminated()) return;  // what is left is for the session's other instances
    (this->*step)();
  }
}

// The failure of a handler is not that of whoever yielded, an analysis with a recovery of its own
// perhaps.
void Control::Run_Tick() {
  const auto self = shared_from_this();
  try {
    Timer1_Timer();
  } catch (...) {
    if (container_) container_->Pump_Failed(Current_Failure_Number());
  }
}

void Control::Raise_Status_Event() { Raise(EventId::PropertyStatusBetweenDetectionToCoversion); }

void Control::Show_Status() { Set_Label1(Trim(session.flags.Operation_Status)); }

void Control::Raise_Text_Event() {
  if (!Is_Status(session, "Finish") || session.results.Platinum_Words_Available < 1) return;
  const std::string word = Best_Word(session);
  if (Text_Event_Raised || word.empty()) return;
  Raise(EventId::SpokenWordConvertedToText, word);
  Text_Event_Raised = true;
  Detected_Event_Raised = false;
}

void Control::Raise_Pattern_Event() {
  if (!Is_Status(session, "Finish") || session.results.Platinum_Words_Available != 0) return;
  const std::string pattern = First_Pattern(session);
  if (Pattern_Event_Raised || pattern.empty()) return;
  Raise(EventId::SpokenWordConvertedToPatternOnly, pattern);
  Pattern_Event_Raised = true;
  Detected_Event_Raised = false;
}

// The number is that of the word under way, mostly 0 here, and not the count of words.
void Control::Raise_Detected_Event() {
  if (!Is_Status(session, "Speechdetected") || Detected_Event_Raised) return;
  Raise(EventId::SpokenWordDetected, session.words.Current_Word_no_Processed.Raw());
  Detected_Event_Raised = true;
  Text_Event_Raised = false;
  Pattern_Event_Raised = false;
}

// Both boxes keep their last text when there is no new one.
void Control::Show_Pattern() {
  const std::string pattern = First_Pattern(session);
  if (!pattern.empty()) Show(&Face::Text2, pattern);
}

void Control::Show_Best_Word() {
  const std::string word = Best_Word(session);
  if (!word.empty()) Show(&Face::Text1, word);
}

void Control::Raise_No_Match() {
  if (session.results.No_Language_Match != True) return;
  Raise(EventId::NoMatchFoundinFile);
  session.results.No_Language_Match = False;
}

}  // namespace quillspeech
