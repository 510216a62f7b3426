#include "analysis/recovery.hpp"

namespace quillspeech {

namespace {

void Rearm_Capture(Session& session) {
  session.data.Main_File_Number.Close();
  session.operations.Stop_Recording(session);
  session.flags.Analysis_Running = 0;
  session.ports.events.Enable(FormTimer::Timer3, false);
  session.ports.events.Enable(FormTimer::Timer5, true);
}

void Unload_Windows(Session& session) {
  session.operations.Unload_Graph(session);
  session.operations.Unload_StatusBar(session);
  session.operations.Unload_Database(session);
}

void Play_Stop_Cue(Session& session) {
  session.ports.cues.Purge();
  const std::string& cue = session.settings.Play_this_file_for_Stop;
  if (!cue.empty()) session.ports.cues.Play(cue, CueMode::Once);
}

void Come_To_Rest(Session& session) {
  Flags& flags = session.flags;
  flags.Windows_Stay_Away = true;
  Reset_Results(session);
  flags.Operation_Status = "Sleeping";
  session.settings.Stop_everything_now = "YES";
  session.operations.Stop_Recording(session);
  flags.Stopped_Marker = 1;
  flags.Show_Activities = 0;
  session.ports.events.Enable(FormTimer::Timer5, false);
  session.ports.events.Enable(FormTimer::Timer3, false);
  flags.Stopped_Text = "YES";
  if (flags.Session_Started == 0) session.operations.Close_Recorder(session);
  flags.Stopped_Marker = 1;
  session.data.Main_File_Number.Close();
  Unload_Windows(session);
  session.ports.events.Enable(FormTimer::Timer5, false);  // the Language Editor starts it again
  Play_Stop_Cue(session);
}

}  // namespace

void Stop_And_Recover(Session& session) {
  const std::string& restart = session.settings.Always_Restart_on_Error;
  if (restart.empty() || restart == "NO") {
    Come_To_Rest(session);
  } else {
    Rearm_Capture(session);
  }
}

}  // namespace quillspeech
