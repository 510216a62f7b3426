#include "core/operations.hpp"

#include <cstdint>

#include "analysis/capture_scheduler.hpp"
#include "analysis/file_analysis.hpp"
#include "analysis/recovery.hpp"
#include "audio/echo.hpp"
#include "audio/live_capture.hpp"
#include "audio/wave_reader.hpp"
#include "editors/database_ve.hpp"
#include "editors/language_editor.hpp"
#include "presentation/graph_window.hpp"
#include "presentation/help_windows.hpp"
#include "presentation/status_bar.hpp"
#include "recognition/adding.hpp"
#include "recognition/engine_table.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

bool Is_Any_Timer_On(EventLoop& events) {
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer2, FormTimer::Timer3,
                                FormTimer::Timer4, FormTimer::Timer5}) {
    if (events.Is_Enabled(timer)) return true;
  }
  return false;
}

void Lift_Stop(Session& session) {
  session.settings.Stop_everything_now = "NO";
  session.flags.Stopped_Marker = 0;
  session.flags.Stopped_Text = "NO";
  session.flags.Windows_Stay_Away = false;
}

// The other two timers do nothing.
void Connect_Timers(Session& session) {
  EventLoop& events = session.ports.events;
  events.On_Tick(FormTimer::Timer1, [&session] { Timer1_Timer(session); });
  events.On_Tick(FormTimer::Timer3, [&session] { Timer3_Timer(session); });
  events.On_Tick(FormTimer::Timer5, [&session] { Timer5_Timer(session); });
}

void Process_Wave_File(Session& session) {
  Lift_Stop(session);  // even when a live session then refuses the file
  session.flags.Show_Activities = 0;
  if (!Open_Wave_File(session, session.settings.Open_this_Wave_File)) return;
  if (Is_Any_Timer_On(session.ports.events)) return;
  session.operations.Wave_File_Was_Read(session);
  session.flags.File_Run_Active = 1;
  Run_File_Analysis(session);
}

}  // namespace

void Prepare_Session(Session& session) {
  Operations& operations = session.operations;
  operations.Stop_And_Recover = Stop_And_Recover;
  operations.Stop_Recording = Stop_Recording;
  operations.Close_Recorder = Close_Recorder;
  operations.Play_Echo = Play_Echo;
  operations.Add_Engine_String_To_Language = Add_Engine_String_To_Language;
  Connect_Help_Windows(session);
  Connect_Status_Bar(session);
  Connect_Graph_Window(session);
  Connect_Language_Editor(session);
  Connect_Vocabulary_And_Engine_Editor(session);
  Connect_Timers(session);
  Load_Default_Engine_Table(session);
}

void Clear_For_Capture(Session& session) {
  Reset_Results(session);  // the file run ends with them
  Lift_Stop(session);
  session.flags.Session_Started = 1;
  session.flags.Capture_Busy = 0;
}

void Arm_Capture(Session& session) {
  session.ports.events.Enable(FormTimer::Timer5, true);
  session.ports.events.Enable(FormTimer::Timer3, false);
}

void Begin_Session(Session& session) {
  constexpr std::int64_t Default_Frequency = 22050;
  Clear_For_Capture(session);
  session.flags.Operation_Status = "Sleeping";
  if (session.settings.Set_Recording_Frequency < 1) {
    session.settings.Set_Recording_Frequency = Default_Frequency;
  }
  Arm_Capture(session);
  session.flags.Session_Alive = True;
}

void Open_Specified_Wave_File_And_Process(Session& session) {
  Run_Silently_Trapped(session, [&] { Process_Wave_File(session); });
}

}  // namespace quillspeech
