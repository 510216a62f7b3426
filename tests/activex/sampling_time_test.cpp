// The sampling time that a host sets on a control that runs or is being designed.
#include <tuple>

#include "tests/activex/ole_fixture.hpp"
#include "tests/activex/simple_object.hpp"

namespace quillspeech::activex::tests {
namespace {

using quillspeech::tests::SimpleObject;

// The words in a box of the system's.
std::string Words_In(const wchar_t* title) {
  constexpr int Words_Of_Box = 0xFFFF;
  wchar_t words[300] = {};
  GetDlgItemTextW(FindWindowW(nullptr, title), Words_Of_Box, words, 300);
  return windows::Narrow(words);
}

class SamplingTime : public OleTest {
 protected:
  SamplingTime() {
    sink.At_Changed = [this](DISPID id) {
      changed.push_back(id);
      return S_OK;
    };
    EXPECT_EQ(Point()->Advise(static_cast<IDispatch*>(&sink), &cookie), S_OK);
    Place();
    session().flags.Settings_Ready_Count = 0;
  }
  ~SamplingTime() override {
    EXPECT_EQ(Point()->Unadvise(cookie), S_OK);
    Forget_Settings(session());
  }
  ComPtr<IConnectionPoint> Point() {
    ComPtr<IConnectionPoint> point;
    const auto points = As<IConnectionPointContainer>();
    EXPECT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, point.Receive()), S_OK);
    return point;
  }
  void Set_User_Mode(bool on) { container.ambients[DISPID_AMBIENT_USERMODE] = on; }

  SimpleObject sink;
  DWORD cookie = 0;
  std::vector<DISPID> changed;
};

TEST_F(SamplingTime, Beyond_its_limits_at_run_time_it_is_clamped_with_one_box_and_no_more) {
  Set_User_Mode(true);
  for (const auto& [set, stored, words] :
       {std::tuple("3000", "4000", "Invalid sample time. Assigning default 4000 ms"),
        std::tuple("3999", "4000", "Invalid sample time. Assigning default 4000 ms"),
        std::tuple("60001", "60000", "Maximum recommended sample time is 60000 ms."),
        std::tuple("70000", "60000", "Maximum recommended sample time is 60000 ms.")}) {
    std::string told;
    BoxCloser closer(L"Quillspeech Info.", [&] { told = Words_In(L"Quillspeech Info."); });
    EXPECT_EQ(Let("Speech_sampling_time_in_ms", set), S_OK);
    EXPECT_EQ(closer.closed, 1) << set;
    EXPECT_EQ(told, words);
    EXPECT_EQ(Get("Speech_sampling_time_in_ms"), stored);
  }
  EXPECT_TRUE(changed.empty());
  EXPECT_EQ(session().flags.Settings_Ready_Count, 0);
}

TEST_F(SamplingTime, Within_its_limits_at_run_time_it_is_taken_and_told) {
  Set_User_Mode(true);
  for (const auto* time : {"4000", "60000"}) {
    EXPECT_EQ(Let("Speech_sampling_time_in_ms", time), S_OK);
    EXPECT_EQ(Get("Speech_sampling_time_in_ms"), time);
  }
  EXPECT_EQ(changed, (std::vector<DISPID>{0x68030002, 0x68030002}));
  EXPECT_EQ(session().flags.Settings_Ready_Count, 2);
}

TEST_F(SamplingTime, A_control_that_got_only_a_clamped_one_and_a_wanted_word_cannot_start) {
  Set_User_Mode(true);
  BoxCloser closer(L"Quillspeech Info.", [] {});
  Let("Speech_sampling_time_in_ms", "3000");
  Let("Words_I_Want", "six");
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  std::string told;
  BoxCloser refusal(L"Quillspeech Start", [&] { told = Words_In(L"Quillspeech Start"); });
  EXPECT_EQ(Call("Start_Real_Action"), S_OK);
  EXPECT_EQ(refusal.closed, 1);
  EXPECT_EQ(told,
            "Incomplete Settings. ACCESS DENIED  ( Please check Speech Sampling time and Words I "
            "Want )");
  EXPECT_EQ(session().flags.Session_Started, 0);
}

TEST_F(SamplingTime, In_design_mode_any_is_taken_and_stays_at_run_time_until_it_is_set_anew) {
  Set_User_Mode(false);
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", "3000"), S_OK);
  Set_User_Mode(true);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "3000");
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  BoxCloser closer(L"Quillspeech Info.", [] {});
  EXPECT_EQ(Let("Speech_sampling_time_in_ms", "3000"), S_OK);
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "4000");
}

}  // namespace
}  // namespace quillspeech::activex::tests
