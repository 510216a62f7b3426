// A session on ports without devices, for tests.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/headless/data_file.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "session/session.hpp"

namespace quillspeech::tests {

// The ports and a session on them: `TestSession test; test.session.settings...; test.boxes.shown`.
// No operation of an upper floor is filled in; a test that needs one sets it.
struct TestSession {
  headless::EventLoop events;
  headless::MessageBoxes boxes;
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::NoWaveInput wave_input;
  headless::WaveOutput wave_output;
  headless::DataFileStore data_files;
  headless::Dialogs dialogs;
  headless::FormViews views;
  Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, views}};
};

}  // namespace quillspeech::tests
