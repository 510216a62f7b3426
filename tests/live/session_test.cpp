// A session on real devices.
#include "session/session.hpp"
#include "analysis/captured_sample.hpp"
#include "audio/echo.hpp"
#include "audio/live_capture.hpp"
#include "platform/headless/data_file.hpp"
#include "platform/headless/dialogs.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "tests/live/device_fixture.hpp"
#include "tests/support/sample_builder.hpp"

namespace quillspeech::tests {
namespace {

// No timer has a tick but those of the tests.
class SessionOnDevices : public DeviceTest {
 protected:
  SessionOnDevices() {
    session.operations.Stop_Recording = Stop_Recording;
    session.operations.Play_Echo = Play_Echo;
    session.settings.Play_this_file_for_Start = "";
    session.settings.Digital_Signal_Processing_Level = 100;
    session.settings.Speech_sampling_time_in_ms = 500;
    session.settings.Set_Recording_Frequency = 22'050;
  }
  ~SessionOnDevices() override { Stop_Recording(session); }

  // Of a capture that filled its buffer.
  void Expect_Full(std::uint32_t bytes) const {
    const WaveHeader& header = session.sample.Wave_Header;
    EXPECT_EQ(header.flags & Header_Done, Header_Done);
    EXPECT_EQ(header.buffer_length, bytes);
    EXPECT_EQ(header.bytes_recorded, bytes);
  }

  headless::MessageBoxes boxes;
  headless::HostProgram host;
  SoundCues cues = Default_Cues();
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::DataFileStore data_files;
  headless::Dialogs dialogs;
  headless::FormViews views;
  std::unique_ptr<quillspeech::WaveInput> input = Default_Input();
  Output output = Default_Output();
  Session session{Ports{events, boxes, host, cues, shell, riff_files, *input, output, data_files,
                        dialogs, views}};
};

TEST_F(SessionOnDevices, A_capture_fills_by_itself_and_is_stopped_afterwards) {
  Start_Recording(session);
  Expect_Full(11'125);
  EXPECT_EQ(session.recorder.Recording_Active, 1);
  EXPECT_EQ(session.recorder.Recording_Stopped, 0);
  Stop_Recording(session);
  EXPECT_EQ(session.recorder.Last_Recorded_Index, 11'124);
  EXPECT_EQ(session.recorder.Recording_Active, 0);
  EXPECT_EQ(session.recorder.Recording_Stopped, 1);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SessionOnDevices, A_start_amid_a_recording_records_anew_at_another_frequency) {
  session.settings.Speech_sampling_time_in_ms = 60'000;
  int starts = 0;
  std::unique_ptr<Timer> again;
  again = events.Make_Timer(300ms, [&] {
    again->Enable(false);
    ++starts;
    session.settings.Speech_sampling_time_in_ms = 1'000;
    session.settings.Set_Recording_Frequency = 11'025;
    Start_Recording(session);
  });
  again->Enable(true);
  const EventLoop::Time begun = events.Now();
  Start_Recording(session);
  EXPECT_EQ(starts, 1);
  EXPECT_LT(events.Now() - begun, 20s);
  EXPECT_EQ(session.sample.Wave_Format, Mono_11025);
  Expect_Full(11'125);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SessionOnDevices, A_word_is_echoed_before_it_is_analysed) {
  InputEar ear(Default_Input());
  bool is_heard = false;
  const auto listening = events.Make_Timer(20ms, [&] {
    ear.Listen();
    is_heard |= ear.Crossings() > 250 && ear.Crossings() < 350;  // 300 in a block of the word
  });
  listening->Enable(true);
  ASSERT_TRUE(Await([&] { return ear.Blocks() > 0; }));
  session.settings.Speech_echo_feature = "YES";
  session.settings.Enable_Artificial_Intelligence = "NO";
  session.settings.Set_Recording_Frequency = 22'050;
  session.flags.Session_Started = 1;
  session.sample.Wave_Format = Mono_22050;
  Put_Capture(session, Silence(Bytes(11'000)) + Tone(3000_Hz, Amplitude(90), Bytes(11'000)) +
                           Silence(Bytes(11'000)));
  bool was_heard_before = false;
  session.operations.Play_Echo = [&](Session& s, std::int64_t first, std::int64_t last) {
    Play_Echo(s, first, last);
    was_heard_before = is_heard;
  };
  Process_Captured_Sample(session);
  EXPECT_TRUE(was_heard_before);
  EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace quillspeech::tests
