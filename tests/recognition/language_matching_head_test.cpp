#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <vector>

#include "tests/recognition/language_matching_fixture.hpp"

namespace quillspeech {
namespace {

using tests::LanguageMatching;
using tests::Record;
using tests::Words;

TEST_F(LanguageMatching, Pending_events_run_once_and_a_stop_among_them_is_obeyed) {
  test.events.At_Yield = [this] { session.settings.Stop_everything_now = "YES"; };
  results.No_Language_Match = True;
  Match("s");
  EXPECT_EQ(test.events.yields, 1);
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_EQ(results.No_Language_Match, False);
}

TEST_F(LanguageMatching, The_report_of_the_last_scan_is_withdrawn_before_the_events_run) {
  std::int64_t seen = True;
  test.events.At_Yield = [&] { seen = results.No_Language_Match; };
  results.No_Language_Match = True;
  Match("s");
  EXPECT_EQ(seen, False);
}

TEST_F(LanguageMatching, A_string_that_the_events_or_the_unloading_changed_is_matched) {
  Put({Record().Word("old").Pattern("o"), Record().Word("new").Pattern("n")});
  test.events.At_Yield = [this] { session.filter.Current_Voice_Word = "n"; };
  Match("o");
  EXPECT_EQ(Entered(), Words{"new"});
  test.events.At_Yield = {};
  session.flags.Language_Editor_Loaded = True;
  session.operations.Unload_Database = [](Session& s) { s.filter.Current_Voice_Word = "n"; };
  Match("o");
  EXPECT_EQ(Entered(), (Words{"new", "new"}));
}

TEST_F(LanguageMatching, A_loaded_Language_Editor_is_unloaded_before_the_file_is_opened) {
  int unloads = 0;
  session.operations.Unload_Database = [&](Session& unloading) {
    ++unloads;
    EXPECT_EQ(test.data_files.opens, 0);
    unloading.flags.Language_Editor_Loaded = False;
  };
  Match("s");
  EXPECT_EQ(unloads, 0);
  test.data_files.opens = 0;
  session.flags.Language_Editor_Loaded = True;
  Match("s");
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(test.data_files.opens, 1);
}

TEST_F(LanguageMatching,
       A_stopped_call_leaves_the_Language_Editor_and_one_without_a_word_unloads_it) {
  int unloads = 0;
  session.operations.Unload_Database = [&](Session&) { ++unloads; };
  session.flags.Language_Editor_Loaded = True;
  session.settings.Stop_everything_now = "YES";
  Match("s");
  EXPECT_EQ(unloads, 0);
  session.settings.Stop_everything_now = "NO";
  session.flags.File_Run_Active = 1;
  Match("s");
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(test.data_files.opens, 0);
}

TEST_F(LanguageMatching, A_file_run_without_a_word_yet_has_nothing_to_match) {
  struct Case {
    int first_entry;
    int file_run;
    int opens;
  };
  for (const Case c : {Case{0, 1, 0}, {-1, 1, 0}, {1, 1, 1}, {0, 0, 1}, {1, 0, 1}}) {
    test.data_files.opens = 0;
    session.words.Word_Count_Log[0] = c.first_entry;
    session.flags.File_Run_Active = c.file_run;
    Match("s");
    EXPECT_EQ(test.data_files.opens, c.opens) << c.first_entry << ' ' << c.file_run;
    EXPECT_EQ(results.No_Language_Match, c.opens ? True : False);
  }
}

TEST_F(LanguageMatching, Without_a_file_name_the_user_is_asked_for_one_and_no_event_follows) {
  session.settings.Consider_this_Lang_File_to_match = "";
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text, "Please specify your language files location");
  EXPECT_EQ(box.title, "Quillspeech Info");
  EXPECT_EQ(box.icon, BoxIcon::Information);
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(results.No_Language_Match, False);
  EXPECT_EQ(test.data_files.opens, 0);
}

TEST_F(LanguageMatching, A_scan_that_does_not_begin_leaves_the_last_match) {
  struct Case {
    const char* reason;
    std::function<void(Session&)> set;
  };
  const std::vector<Case> cases = {
      {"stopped", [](Session& s) { s.settings.Stop_everything_now = "YES"; }},
      {"no word yet", [](Session& s) { s.flags.File_Run_Active = 1; }},
      {"no file name", [](Session& s) { s.settings.Consider_this_Lang_File_to_match = ""; }}};
  for (const Case& c : cases) {
    tests::TestSession fresh;
    fresh.session.results.Matched_Record_No = 4;
    fresh.session.results.Language_Matched = 1;
    fresh.session.flags.Operation_Status = "Processing...";
    c.set(fresh.session);
    Match_Language(fresh.session);
    EXPECT_EQ(fresh.session.results.Matched_Record_No, 4) << c.reason;
    EXPECT_EQ(fresh.session.results.Language_Matched, 1) << c.reason;
    EXPECT_EQ(fresh.session.flags.Operation_Status, "Processing...") << c.reason;
    EXPECT_EQ(fresh.data_files.opens, 0) << c.reason;
  }
}

}  // namespace
}  // namespace quillspeech
