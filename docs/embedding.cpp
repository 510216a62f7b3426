// Recognises one WAV file: embedding SOUND.wav [LANGUAGE.SAY [ENGINE.EGN]]
#include <iostream>
#include <memory>

#include "audio/padding.hpp"
#include "core/operations.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "platform/linux/data_file.hpp"
#include "platform/linux/riff_file.hpp"
#include "session/session.hpp"

namespace qs = quillspeech;

int main(int count, char** arguments) {
  if (count < 2) return 2;
  qs::headless::EventLoop events;
  qs::headless::MessageBoxes boxes;  // keeps what the control would show
  qs::headless::HostProgram host;
  qs::headless::SoundCues cues;
  qs::headless::Shell shell;
  qs::headless::NoWaveInput wave_input;
  qs::headless::WaveOutput wave_output;
  qs::linux::RiffFiles riff_files;
  qs::linux::DataFileStore data_files;
  qs::headless::Dialogs dialogs;
  qs::headless::FormViews views;
  const auto session =
      std::make_unique<qs::Session>(qs::Ports{events, boxes, host, cues, shell, riff_files,
                                              wave_input, wave_output, data_files, dialogs, views});
  qs::Prepare_Session(*session);

  // Each setting has the name and the initial value that it has in the control.
  qs::Settings& settings = session->settings;
  settings.Open_this_Wave_File = arguments[1];
  settings.Enable_Artificial_Intelligence = count > 2 ? "YES" : "NO";
  if (count > 2) settings.Consider_this_Lang_File_to_match = arguments[2];
  if (count > 3) settings.Consider_this_Engine_for_Recognition = arguments[3];
  settings.Sample_processing_resolution = 400;  // bytes a slice
  session->operations.Wave_File_Was_Read = [](qs::Session& run) {
    qs::Pad_With_Silence(run.sample, 7000);  // ms
  };

  qs::Open_Specified_Wave_File_And_Process(*session);

  for (const auto& shown : boxes.shown) std::cerr << shown.box.text << "\n";
  std::cout << session->filter.Voice_Word_Table[1];
  for (int place = 1; place <= 7; ++place) {
    std::cout << " " << session->results.Platinum_Best_Table[place];
  }
  std::cout << "\n";
  return session->trace.failures.empty() && boxes.shown.empty() ? 0 : 1;
}
