#include "cli/listen.hpp"

#include <CLI/CLI.hpp>
#include <chrono>
#include <utility>

#include "cli/exit_status.hpp"
#include "cli/listen_report.hpp"
#include "cli/listener.hpp"
#include "cli/live_boxes.hpp"
#include "cli/live_session.hpp"
#include "core/operations.hpp"

namespace quillspeech::cli {

CLI::App& Add_Listen_Command(CLI::App& app, ListenOptions& options) {
  CLI::App& command = *app.add_subcommand("listen", "Hear words from a microphone, live");
  Add_Session_Options(command, options.run, LanguageNeed::Optional);
  Add_Settings_File_Option(command, options.run);
  command
      .add_flag("--save", options.save, "Save the control into the file of --settings at the end")
      ->needs("--settings");
  Add_Live_Options(command, options.live, options.duration);
  command.add_flag("--json", options.json, "Print one JSON object an event, each on a line");
  command.add_flag("--yes", options.yes, "Answer every question of the recogniser with Yes");
  command.footer(
      "Ctrl-C ends it. Examples:\n"
      "  quillspeech listen --language words.SAY\n"
      "  quillspeech listen --language words.SAY --device pulse --set Noise_Sensitivity=8\n"
      "  quillspeech listen --clock virtual --microphone one.wav --microphone two.wav@3.5\n");
  return command;
}

namespace {

constexpr int Standard_Input = 0;

// The box of a capture that finds no device.
bool Tells_Of_No_Device(const MessageBox& box) {
  return box.text == "ACCESS DENIED.Please install your Sound Card properly";
}

// On the virtual clock nobody interrupts: what the microphone hears is followed to its end.
std::optional<EventLoop::Time> Time_To_Listen(const ListenOptions& options,
                                              const LiveSession& live) {
  if (options.duration) return *options.duration;
  if (!live.Virtual_Clock()) return std::nullopt;
  const std::chrono::milliseconds capture(live.session->settings.Speech_sampling_time_in_ms);
  return live.Clips_End() + 2 * capture;
}

// The record, as a container loads it, then what the command line says.
void Set_Up(const RunOptions& options, Control& control) {
  if (options.record) {
    JsonBag record = options.record->record;
    Load_Settings(options.settings_file, record, control.session, control.instance);
  }
  Apply_Options(options, control.session);
}

// That a run without a language looks for no words is no setting to be kept.
void Save(const RunOptions& options, Control& control) {
  if (options.language.empty() && !options.record->names_language) {
    Settings& settings = control.session.settings;
    settings.Enable_Artificial_Intelligence =
        options.record->settings.Enable_Artificial_Intelligence;
  }
  Save_Settings_File(options.settings_file, control);
}

// The cue of the stop, which the program's end would cut; another interrupt still does.
void Hear_Cue_Out(const LiveSession& live, const Console& console) {
  constexpr EventLoop::Time Patience = std::chrono::seconds(5);
  TimedLoop& events = live.Events();
  const bool was_interrupted = console.Is_Interrupted();
  const EventLoop::Time latest = events.Now() + Patience;
  const auto look = events.Make_Timer(std::chrono::milliseconds(20), [] {});
  look->Enable(true);
  while (live.Is_Cue_Sounding() && events.Now() < latest &&
         console.Is_Interrupted() == was_interrupted) {
    events.Wait_For_Events();
  }
}

}  // namespace

int Listen(const ListenOptions& options, Console& console) {
  if (!Check_Options(options.run, console.err)) return Exit_Wrong_Usage;
  console.interrupt_is_an_end = true;
  console.take_interrupts();
  LiveBoxes boxes(console, options.yes);
  const LiveSession live(options.live, boxes);
  Session& session = *live.session;
  Prepare_Session(session);
  const auto report =
      options.json ? Make_Json_Report(session, console) : Make_Text_Report(session, console);
  Listener listener(session, live.Events(), console);
  Set_Up(options.run, listener.Control());
  if (live.Real_Clock()) boxes.Ask_On(*live.Real_Clock(), Standard_Input);
  boxes.Is_Over = [&] { return listener.Is_Over(); };
  boxes.Tell = [&](const MessageBox& box, BoxAnswer answer) {
    report->Box(box, answer, listener.Since_Start());
    if (Tells_Of_No_Device(box)) listener.Give_Up();
  };
  const bool went_well = listener.Run(*report, Time_To_Listen(options, live));
  boxes.Tell = nullptr;
  boxes.Is_Over = [] { return true; };
  if (options.save) Save(options.run, listener.Control());
  Hear_Cue_Out(live, console);
  return went_well ? Exit_Done : Exit_File_Failed;
}

}  // namespace quillspeech::cli
