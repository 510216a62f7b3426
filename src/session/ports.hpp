// The platform as one session sees it. Whoever makes the session keeps the ports alive for it.
#pragma once

#include "platform/data_file.hpp"
#include "platform/dialogs.hpp"
#include "platform/event_loop.hpp"
#include "platform/form_view.hpp"
#include "platform/host_program.hpp"
#include "platform/message_boxes.hpp"
#include "platform/riff_file.hpp"
#include "platform/shell.hpp"
#include "platform/sound_cues.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

struct Ports {
  EventLoop& events;
  MessageBoxes& boxes;
  HostProgram& host;
  SoundCues& cues;
  Shell& shell;
  RiffFiles& riff_files;
  WaveInput& wave_input;
  WaveOutput& wave_output;
  DataFileStore& data_files;
  Dialogs& dialogs;
  FormViews& views;
};

}  // namespace quillspeech
