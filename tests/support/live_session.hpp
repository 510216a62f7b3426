// A session that listens on the virtual clock.
#pragma once

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "analysis/capture_scheduler.hpp"
#include "analysis/recovery.hpp"
#include "audio/echo.hpp"
#include "audio/live_capture.hpp"
#include "platform/headless/data_file.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_card.hpp"
#include "platform/headless/sound_cues.hpp"
#include "session/session.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

using namespace std::chrono_literals;
using Calls = std::vector<std::string>;

// A simulated sound card answers. No operation of an upper floor is filled in, and no timer has a
// tick.
struct LiveGround {
  headless::EventLoop events;
  headless::SoundCard card{events};
  headless::MessageBoxes boxes;
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::DataFileStore data_files;
  headless::Dialogs dialogs;
  headless::FormViews views;
  Session session{Ports{events, boxes, host, cues, shell, riff_files, card.Input(), card.Output(),
                        data_files, dialogs, views}};

  LiveGround() {
    session.settings.Enable_Artificial_Intelligence = "NO";
    session.settings.Show_Audio_Graph = "NO";
    session.settings.Voice_Processing_Delay = 1'500;  // 150 ms
  }

  bool Is_On(FormTimer timer) { return events.Is_Enabled(timer); }
  // How often the card was called so.
  std::int64_t Times(const std::string& call) const {
    return std::count(card.calls.begin(), card.calls.end(), call);
  }
};

// The hidden window's timers run, and calls that go up are noted.
struct LiveSession : LiveGround {
  Calls calls;  // operations called, in order

  LiveSession() {
    Operations& operations = session.operations;
    operations.Stop_Recording = Stop_Recording;
    operations.Close_Recorder = Close_Recorder;
    operations.Play_Echo = Play_Echo;
    operations.Stop_And_Recover = [this](Session& s) {
      calls.emplace_back("Stop_And_Recover");
      Stop_And_Recover(s);
    };
    operations.Show_Status_Image = [this](Session&, int image) {
      calls.push_back("Show_Status_Image " + std::to_string(image));
    };
    events.On_Tick(FormTimer::Timer1, [this] { Timer1_Timer(session); });
    events.On_Tick(FormTimer::Timer3, [this] { Timer3_Timer(session); });
    events.On_Tick(FormTimer::Timer5, [this] { Timer5_Timer(session); });
  }

  // As a stop of the session does: the recorder stopped, the timers off.
  void Stop() {
    session.settings.Stop_everything_now = "YES";
    Stop_Recording(session);
    for (const FormTimer timer : {FormTimer::Timer5, FormTimer::Timer3, FormTimer::Timer1}) {
      events.Enable(timer, false);
    }
  }
  void Stop_At(std::chrono::milliseconds moment) {
    events.At(moment, [this] { Stop(); });
  }

  std::int64_t Image_Times(int image) const {
    return std::count(calls.begin(), calls.end(), "Show_Status_Image " + std::to_string(image));
  }
  bool Is_Done() const { return (session.sample.Wave_Header.flags & Header_Done) != 0; }

  // Whether this is the one box that was shown.
  bool Showed(const std::string& text, const std::string& title, BoxIcon icon) const {
    if (boxes.shown.size() != 1) return false;
    const MessageBox& box = boxes.shown.front().box;
    return box.text == text && box.title == title && box.icon == icon &&
           box.buttons == BoxButtons::OK;
  }
};

}  // namespace quillspeech::tests
