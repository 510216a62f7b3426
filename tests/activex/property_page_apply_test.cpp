// What an apply without edits does to a control: every member of the page is set to what it has.
#include "tests/activex/property_page_fixture.hpp"
#include "tests/activex/system_watch.hpp"

namespace quillspeech::activex::tests {
namespace {

class PropertyPageApply : public PropertyPageTest {
 protected:
  void Apply_Unedited(REFCLSID page_class) {
    Make(page_class);
    Activate_On(*control);
    EXPECT_EQ(page->IsPageDirty(), S_FALSE);
    EXPECT_EQ(page->Apply(), S_OK);
  }
};

TEST_F(PropertyPageApply, Of_the_interesting_settings_sounds_the_file_to_play) {
  SystemWatch watch;
  Let("Play_File", "C:\\Cue.WAV");
  watch.sounded.clear();
  Apply_Unedited(CLSID_InterestingSettings);
  EXPECT_EQ(watch.sounded, std::vector<std::wstring>{L"C:\\Cue.WAV"});
}

TEST_F(PropertyPageApply, Of_the_technical_settings_counts_the_sampling_time_as_set) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  Let("Speech_sampling_time_in_ms", "3000");
  session().flags.Settings_Ready_Count = 0;
  session().flags.Sampling_Time_Set = 0;
  Apply_Unedited(CLSID_WindowsTechnicalSettings);
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  EXPECT_EQ(session().flags.Sampling_Time_Set, 1);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "3000");
}

TEST_F(PropertyPageApply, Of_the_technical_settings_clamps_the_sampling_time_at_run_time) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  Let("Speech_sampling_time_in_ms", "3000");
  container.ambients[DISPID_AMBIENT_USERMODE] = true;
  session().flags.Settings_Ready_Count = 0;
  BoxCloser closer(L"Quillspeech Info.", [] {});
  Apply_Unedited(CLSID_WindowsTechnicalSettings);
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(session().flags.Settings_Ready_Count, 0);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "4000");
}

TEST_F(PropertyPageApply, Of_the_engine_department_counts_the_wanted_word_as_set) {
  Let("Words_I_Want", "six");
  session().flags.Settings_Ready_Count = 0;
  Apply_Unedited(CLSID_EngineDepartment);
  EXPECT_EQ(session().flags.Settings_Ready_Count, 1);
  EXPECT_EQ(Get("Words_I_Want"), "six");
}

}  // namespace
}  // namespace quillspeech::activex::tests
