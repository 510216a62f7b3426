// What becomes of the session when controls go and hosts quit.
#include <atomic>
#include <thread>

#include "core/control_face.hpp"
#include "tests/activex/ole_fixture.hpp"
#include "tests/activex/simple_object.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::activex::tests {
namespace {

using namespace std::chrono_literals;
using quillspeech::tests::Run_Host_While;

// Pumps as a host does.
void Run_Host_For(windows::EventLoop::Time time) {
  const auto end = std::chrono::steady_clock::now() + time;
  MSG message;
  while (std::chrono::steady_clock::now() < end) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    Sleep(1);
  }
}

class SessionLife : public OleTest {
 protected:
  ~SessionLife() override {
    Forms_Timer(FormTimer::Timer1).Enable(false);
    Forms_Timer(FormTimer::Timer1).Set_Interval(1s);
    session().flags.Analysis_Running = 0;
    session().recorder.Recording_Active = 0;
  }

  windows::EventLoop& events() { return Module::Of_This_File().Events(); }
  Timer& Forms_Timer(FormTimer timer) { return events().Form_Timer(timer); }
  // The capture clock, which a stop leaves running, counting fast and beginning nothing.
  void Run_Capture_Clock() {
    session().flags.Analysis_Running = 1;
    Forms_Timer(FormTimer::Timer1).Set_Interval(5ms);
    Forms_Timer(FormTimer::Timer1).Enable(true);
  }
  std::int64_t Seconds() { return session().recorder.Capture_Seconds; }

  // A tick in which a recording is waited for, as a device's that never fills its buffer.
  std::unique_ptr<Timer> Recording_In_A_Tick() {
    return events().Make_Timer(1ms, [this] {
      if (std::exchange(records_, true)) return;
      session().recorder.Recording_Active = 1;
      session().recorder.Recording_Stopped = 0;
      session().recorder.Buffer_Given_Up = false;
      while (!session().recorder.Buffer_Given_Up) events().Wait_For_Events();
      has_recorded_ = true;
    });
  }

  bool records_ = false;
  bool has_recorded_ = false;
};

TEST_F(SessionLife, Without_a_control_its_timers_stand_still_and_stay_on) {
  control = nullptr;
  Run_Capture_Clock();
  const std::int64_t before = Seconds();
  Run_Host_For(60ms);
  EXPECT_EQ(Seconds(), before);
  EXPECT_TRUE(Forms_Timer(FormTimer::Timer1).Is_Enabled());
  control = New_Control();
  EXPECT_TRUE(Run_Host_While([&] { return Seconds() < before + 2; }));
  terminations = 0;
}

TEST_F(SessionLife, It_goes_over_to_another_thread_while_its_first_one_pumps) {
  control = nullptr;
  Run_Capture_Clock();
  const std::int64_t before = Seconds();
  std::atomic<bool> is_over = false;
  std::thread other([&] {
    OleInitialize(nullptr);
    {
      const auto there = New_Control();
      EXPECT_TRUE(Run_Host_While([&] { return Seconds() < before + 5; }));
    }
    OleUninitialize();
    is_over = true;
  });
  while (!is_over) Run_Host_For(5ms);
  other.join();
  const std::int64_t after = Seconds();
  Run_Host_For(50ms);
  EXPECT_EQ(Seconds(), after);
  terminations = 1;
}

TEST_F(SessionLife, The_last_release_within_a_recording_ends_it_and_then_the_loop_rests) {
  const auto tick = Recording_In_A_Tick();
  tick->Enable(true);
  const auto release = events().Make_Timer(20ms, [this] {
    if (!records_ || !control) return;
    control = nullptr;
    EXPECT_FALSE(Module::Of_This_File().Can_Unload());
    EXPECT_FALSE(events().Is_Resting());
  });
  release->Enable(true);
  EXPECT_TRUE(Run_Host_While([this] { return !has_recorded_; }));
  EXPECT_EQ(terminations, 1);
  EXPECT_TRUE(events().Is_Resting());
  EXPECT_TRUE(Module::Of_This_File().Can_Unload());
}

TEST_F(SessionLife, A_host_that_quits_within_a_recording_ends_it_and_can_start_again) {
  session().flags.Session_Started = 1;
  session().flags.Session_Alive = -1;
  session().settings.Stop_everything_now = "NO";
  const auto tick = Recording_In_A_Tick();
  tick->Enable(true);
  const auto quit = events().Make_Timer(20ms, [this] {
    if (records_) PostQuitMessage(3);
  });
  quit->Enable(true);
  events().Wait_For_Events();
  while (!has_recorded_) events().Wait_For_Events();
  quit->Enable(false);
  EXPECT_TRUE(events().Is_Quitting());
  EXPECT_EQ(session().flags.Session_Started, 0);
  EXPECT_EQ(session().flags.Session_Alive, 0);
  EXPECT_EQ(session().flags.Operation_Status, "Sleeping");
  MSG message;
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3u);
  events().Run_Pending_Events();
  EXPECT_FALSE(events().Is_Quitting());
  session().flags.Settings_Ready_Count = 2;
  Call("Start_Real_Action");
  EXPECT_EQ(session().flags.Session_Started, 1);
  Call("Stop_Real_Action");
}

TEST_F(SessionLife, A_control_that_is_asked_for_by_an_unknown_name_leaves_it_alone) {
  session().flags.Session_Started = 1;
  void* object = this;
  EXPECT_EQ(Make_Control(nullptr, IID_IMarshal, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(terminations, 0);
  EXPECT_EQ(session().flags.Session_Started, 1);
}

TEST_F(SessionLife, A_container_that_reads_what_has_changed_is_told_once) {
  quillspeech::tests::SimpleObject sink;
  const auto points = As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive()), S_OK);
  DWORD cookie = 0;
  ASSERT_EQ(point->Advise(static_cast<IDispatch*>(&sink), &cookie), S_OK);
  int told = 0;
  sink.At_Changed = [&](DISPID) {
    ++told;
    Get("Platinum_Words");
    Get("Voice_Word");
    return S_OK;
  };
  Get("Platinum_Words");
  EXPECT_EQ(told, 2);  // of either, once
  Get("Voice_Word");
  EXPECT_EQ(told, 4);
  EXPECT_EQ(point->Unadvise(cookie), S_OK);
}

// The window of the control with that name.
HWND Window_Of(HWND face, std::string_view name) {
  std::wstring text;
  for (const ChildControl& child : Child_Controls()) {
    if (child.name == name) text = windows::Wide(child.text);
  }
  HWND found = nullptr;
  while ((found = FindWindowExW(face, found, nullptr, nullptr)) != nullptr) {
    std::array<wchar_t, 100> own{};
    GetWindowTextW(found, own.data(), static_cast<int>(own.size()));
    if (text == own.data()) return found;
    if (const HWND inside = Window_Of(found, name)) return inside;
  }
  return nullptr;
}

TEST_F(SessionLife, A_click_on_start_with_incomplete_settings_shows_a_box_and_starts_the_pump) {
  Place();
  Activate();
  EventSink sink;
  sink.Connect(*control);
  session().flags.Settings_Ready_Count = 0;
  container.Expect_UI_Activation();
  container.Expect({"OnFocus got", "Frame.EnableModeless none", "OnFocus lost"});
  BoxCloser closer(L"Quillspeech Start", [&] { container.Expect({"Frame.EnableModeless"}); });
  const HWND button = Window_Of(Window(), "Command1");
  ASSERT_TRUE(button);
  SendMessageW(button, BM_CLICK, 0, 0);
  EXPECT_EQ(closer.closed, 1);
  sink.heard.clear();
  const auto begun = events().Now();
  EXPECT_TRUE(Run_Host_While([&] { return sink.heard.size() < 6; }));
  EXPECT_GE(events().Now() - begun, 200ms);
  EXPECT_LE(events().Now() - begun, 600ms);
  for (const EventId id : sink.heard) {
    EXPECT_EQ(id, EventId::PropertyStatusBetweenDetectionToCoversion);
  }
  sink.Disconnect();
  container.Expect_UI_Deactivation();
  Deactivate();
}

}  // namespace
}  // namespace quillspeech::activex::tests
