#include "core/session_operations.hpp"

#include <string_view>
#include <utility>

#include "core/operations.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr std::string_view Start_Problems =
    "Problems during start, check your machine system problems or other machine system states. "
    "This is a rare problem. Please try again";
constexpr std::string_view Stop_Problems =
    "Problems during stop, check system problems like RAM memory(32 MB must) or other system "
    "states. This is a rare problem. (Do not execute this instruction twice i.e w/o "
    "Start_Real_Action being executed before the first Start). Please try again";
constexpr std::string_view Termination_Problems =
    "Problems during termination, check system problems like RAM memory(32 MB must) or other "
    "system states. This is a rare problem. ";

// Runs the procedure. A failure ends it and is told to the user; what it has done until then stays
// done.
template <class Procedure>
void Run_Told(Session& session, std::string_view problems, Procedure&& procedure) {
  if (Ends_Well(session, std::forward<Procedure>(procedure))) return;
  Show_Box(session, problems, "Quillspeech", BoxIcon::Information);
}

// Whether a session may start; tells the user when not.
bool Are_Settings_Complete(Session& session) {
  if (session.flags.Settings_Ready_Count >= 2) return true;
  Show_Box(session,
           "Incomplete Settings. ACCESS DENIED  ( Please check Speech Sampling time and Words I "
           "Want )",
           "Quillspeech Start");
  return false;
}

// What every end of live work has in common. An analysis that is still on the stack leaves at its
// next look.
void Halt_Capture(Session& session) {
  session.settings.Stop_everything_now = "YES";
  session.operations.Stop_Recording(session);
  session.flags.Stopped_Marker = 1;
  session.flags.Show_Activities = 0;
  session.ports.events.Enable(FormTimer::Timer5, false);
  session.ports.events.Enable(FormTimer::Timer3, false);
  session.flags.Stopped_Text = "YES";
}

void Begin_Live_Work(Control& control) {
  Session& session = control.session;
  if (session.flags.Session_Started == 1 || !Are_Settings_Complete(session)) return;
  Begin_Session(session);
  session.ports.cues.Purge();
  control.Raise(EventId::StartRecognitionActivity);
  control.Enable_Timer1(true);
}

void End_Live_Work(Control& control) {
  Session& session = control.session;
  Halt_Session(session);
  const std::string& cue = session.settings.Play_this_file_for_Stop;
  if (!cue.empty()) session.ports.cues.Play(cue, CueMode::Once);
  control.Raise(EventId::StopRecognitionActivity);
  control.Enable_Timer1(false);
}

// The second's clock, Timer1 of the hidden window, stays as it is.
void End_Session(Session& session) {
  session.flags.Session_Started = 0;
  Reset_Results(session);
  session.flags.Operation_Status = "Sleeping";
  session.flags.Windows_Stay_Away = true;
  Halt_Capture(session);
  session.data.Main_File_Number.Close();
  const Operations& operations = session.operations;
  for (const auto& unload : {operations.Unload_Graph, operations.Unload_StatusBar,
                             operations.Unload_Database, operations.Unload_Help}) {
    unload(session);
  }
  session.ports.events.Enable(FormTimer::Timer5, false);  // the Language Editor starts it again
  session.ports.cues.Purge();
}

}  // namespace

void Halt_Session(Session& session) {
  session.flags.Session_Started = 0;
  session.flags.Operation_Status = "Sleeping";
  Halt_Capture(session);
  session.ports.events.Enable(FormTimer::Timer1, false);
  session.flags.Session_Alive = False;
  session.data.Main_File_Number.Close();
  session.ports.cues.Purge();
}

void Start_Real_Action(Control& control) {
  const auto self = control.shared_from_this();
  Run_Told(control.session, Start_Problems, [&] { Begin_Live_Work(control); });
}

void Stop_Real_Action(Control& control) {
  const auto self = control.shared_from_this();
  Run_Told(control.session, Stop_Problems, [&] { End_Live_Work(control); });
}

void Restart(Control& control) {
  Session& session = control.session;
  if (session.flags.Session_Alive != True) return;
  const auto self = control.shared_from_this();
  session.flags.Stop_Sample_Flag = 1;
  session.flags.Operation_Status = "Finish";
  Halt_Capture(session);
  session.ports.events.Enable(FormTimer::Timer1, false);
  session.flags.Operation_Status = "Sleeping";
  if (!Are_Settings_Complete(session)) return;
  Clear_For_Capture(session);
  session.ports.cues.Purge();
  Arm_Capture(session);
  control.Raise(EventId::RestartRecognitionActivity);
}

void InitializeSound(Session& session) {
  const std::string& cue = session.settings.Play_this_file_on_Initialization;
  if (!cue.empty()) session.ports.cues.Play(cue, CueMode::Loop);
}

void Terminate_Session(Session& session) {
  Run_Told(session, Termination_Problems, [&] { End_Session(session); });
}

}  // namespace quillspeech
