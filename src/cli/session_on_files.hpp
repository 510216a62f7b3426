// A session that reads and writes the files of this system, and has no screen and no devices.
#pragma once

#include "cli/backend.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "session/session.hpp"

namespace quillspeech::cli {

// Large: keep it on the heap.
struct SessionOnFiles {
  headless::EventLoop events;
  headless::MessageBoxes boxes;
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  backend::RiffFiles riff_files;
  headless::NoWaveInput wave_input;
  headless::WaveOutput wave_output;
  backend::DataFileStore data_files;
  headless::Dialogs dialogs;
  headless::FormViews views;
  Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, views}};
};

}  // namespace quillspeech::cli
