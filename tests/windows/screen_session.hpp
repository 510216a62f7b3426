// A session whose windows, dialogs and boxes are real ones; the rest is without devices.
#pragma once

#include "platform/headless/data_file.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "platform/windows/dialogs.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/form_view.hpp"
#include "platform/windows/message_boxes.hpp"
#include "session/session.hpp"

namespace quillspeech::tests {

// No operation of an upper floor is filled in.
struct ScreenSession {
  explicit ScreenSession(int dots_per_inch = 96) : views(events, dots_per_inch) {}

  windows::EventLoop events;
  windows::FormViews views;
  windows::Dialogs dialogs{views};
  windows::MessageBoxes boxes{[this] { return views.Modal_Window(); }};
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::NoWaveInput wave_input;
  headless::WaveOutput wave_output;
  headless::DataFileStore data_files;
  Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, views}};
};

}  // namespace quillspeech::tests
