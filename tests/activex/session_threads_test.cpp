// One session, and several threads that want it.
#include <atomic>
#include <thread>

#include "tests/activex/ole_fixture.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::activex::tests {
namespace {

using namespace std::chrono_literals;
using quillspeech::tests::Run_Host_While;

HRESULT Control_Of_Another_Thread(const std::function<void(IUnknown&)>& use) {
  HRESULT code = S_OK;
  std::thread([&] {
    OleInitialize(nullptr);
    {
      ComPtr<IUnknown> made;
      code = Make_Control(nullptr, IID_IUnknown, made.Receive_Void());
      if (made) use(*made);
    }
    OleUninitialize();
  }).join();
  return code;
}

class SessionThreads : public OleTest {
 protected:
  windows::EventLoop& events() { return Module::Of_This_File().Events(); }
  // A reference to a control of a thread that has ended.
  static IUnknown* Left_Behind() {
    IUnknown* left = nullptr;
    EXPECT_EQ(Control_Of_Another_Thread([&](IUnknown& made) {
                made.AddRef();
                left = &made;
              }),
              S_OK);
    return left;
  }
};

TEST_F(SessionThreads, It_stays_with_the_thread_on_which_a_box_is_still_up) {
  HRESULT elsewhere = S_OK;
  session().flags.Settings_Ready_Count = 0;
  BoxCloser closer(L"Quillspeech Start", [&] {
    control = nullptr;
    elsewhere = Control_Of_Another_Thread([](IUnknown&) {});
  });
  Call("Start_Real_Action");
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(elsewhere, RPC_E_WRONG_THREAD);
}

TEST_F(SessionThreads, What_a_control_had_under_way_ends_with_its_thread) {
  control = nullptr;
  IUnknown* left = nullptr;
  Control_Of_Another_Thread([&](IUnknown& made) {
    made.AddRef();
    left = &made;
    session().flags.Session_Alive = True;
    events().Enable(FormTimer::Timer5, true);
  });
  control = New_Control();
  EXPECT_EQ(session().flags.Session_Alive, False);
  EXPECT_FALSE(events().Form_Timer(FormTimer::Timer5).Is_Enabled());
  EXPECT_TRUE(Module::Of_This_File().Activations().Frames().empty());
  left->Release();
  control = nullptr;
  terminations = 1;
}

TEST_F(SessionThreads, A_window_that_went_with_its_thread_can_be_shown_anew) {
  control = nullptr;
  Form form("Form1", "A form", {3000, 1500});
  IUnknown* left = nullptr;
  Control_Of_Another_Thread([&](IUnknown& made) {
    made.AddRef();
    left = &made;
    Module::Of_This_File().Views().Show(form, Modality::None);
  });
  control = New_Control();
  windows::FormViews& views = Module::Of_This_File().Views();
  EXPECT_EQ(views.Window_Of(form), 0);
  views.Show(form, Modality::None);
  EXPECT_TRUE(IsWindow(reinterpret_cast<HWND>(views.Window_Of(form))));
  form.Unload();
  left->Release();
  control = nullptr;
  terminations = 1;
}

TEST_F(SessionThreads, A_control_that_an_ended_thread_has_left_behind_refuses_nobody) {
  control = nullptr;
  IUnknown* const left = Left_Behind();
  control = New_Control();
  EXPECT_TRUE(control);
  control = nullptr;
  EXPECT_TRUE(events().Is_Resting());
  left->Release();
  terminations = 1;
}

TEST_F(SessionThreads,
       Letting_go_of_what_an_ended_thread_left_behind_keeps_the_timers_of_the_living) {
  control = nullptr;
  IUnknown* const left = Left_Behind();
  control = New_Control();
  left->Release();
  EXPECT_FALSE(events().Is_Resting());
  int ticks = 0;
  const auto timer = events().Make_Timer(5ms, [&] { ++ticks; });
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return ticks < 2; }));
  control = nullptr;
  EXPECT_TRUE(events().Is_Resting());
  terminations = 1;
}

TEST_F(SessionThreads, Of_two_that_ask_at_once_one_has_it_and_the_other_is_refused) {
  control = nullptr;
  std::atomic<int> living = 0;
  std::atomic<int> wrong = 0;
  std::atomic<int> made = 0;
  const auto ask = [&] {
    OleInitialize(nullptr);
    for (int times = 0; times < 300; ++times) {
      ComPtr<IUnknown> one;
      const HRESULT code = Make_Control(nullptr, IID_IUnknown, one.Receive_Void());
      if (code == RPC_E_WRONG_THREAD) continue;
      if (code != S_OK || ++living != 1) ++wrong;
      const DWORD owner = GetWindowThreadProcessId(events().Window(), nullptr);
      if (owner != GetCurrentThreadId() || events().Is_Resting()) ++wrong;
      ++made;
      --living;
    }
    OleUninitialize();
  };
  std::thread one(ask);
  std::thread other(ask);
  one.join();
  other.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_GT(made, 0);
  terminations = 1;
}

}  // namespace
}  // namespace quillspeech::activex::tests
