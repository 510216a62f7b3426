// The record, and a control that is new.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/conversions.hpp"
#include "core/persistence.hpp"
#include "tests/core/persistence_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::KeepingBag;
using tests::Kind;
using tests::Plain_Keys;
using tests::PlainRecord;

MemberValue Text(const char* text) { return std::string(text); }

class Persistence : public tests::PersistenceTest {};

// The keys.

TEST_F(Persistence, A_save_writes_the_70_keys_in_their_order_each_with_its_default) {
  const auto writes = Saved().writes;
  ASSERT_EQ(Plain_Keys.size(), 70U);
  ASSERT_EQ(writes.size(), 70U);
  for (std::size_t i = 0; i < writes.size(); ++i) {
    EXPECT_EQ(writes[i].first, Plain_Keys[i].key);
    EXPECT_EQ(To_Text(writes[i].second), Plain_Keys[i].on_write) << writes[i].first;
  }
}

TEST_F(Persistence, A_load_reads_71_times_with_the_stop_again_behind_the_sampling_time) {
  Load();
  ASSERT_EQ(bag.reads.size(), 71U);
  std::size_t read = 0;
  for (const auto& key : Plain_Keys) {
    EXPECT_EQ(bag.reads[read].first, key.key);
    EXPECT_EQ(To_Text(bag.reads[read].second), key.on_read) << key.key;
    ++read;
    if (key.key != std::string("Speech_sampling_time_in_ms")) continue;
    EXPECT_EQ(bag.reads[read].first, "Stop_everything_now");
    EXPECT_EQ(bag.reads[read].second, Text("NO"));
    ++read;
  }
}

TEST_F(Persistence, Defaults_have_the_type_of_their_key_but_for_the_numbers_of_Direct_Add) {
  const auto writes = Saved().writes;
  Load();
  for (std::size_t i = 0; i < Plain_Keys.size(); ++i) {
    const auto& [key, kind, on_read, on_write, at_start] = Plain_Keys[i];
    const auto type = std::string("Direct_Add") == key ? MemberType::Number16
                      : kind == Kind::Text             ? MemberType::Text
                      : kind == Kind::N32              ? MemberType::Number32
                                                       : MemberType::Number16;
    EXPECT_EQ(Type_Of(writes[i].second), type) << key;
    EXPECT_EQ(Type_Of(bag.reads[i < 56 ? i : i + 1].second), type) << key;
  }
}

// A new control.

TEST_F(Persistence, A_process_without_a_control_has_zero_values) {
  for (const RecordKey& key : Record_Keys()) {
    const auto value = key.current(session, control->instance);
    EXPECT_TRUE(To_Text(value).empty() || To_Text(value) == "0") << key.key;
  }
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 0);
  EXPECT_EQ(session.settings.Direct_Add, 0);
  EXPECT_EQ(session.settings.Words_I_Want[1], "");
  EXPECT_EQ(session.settings.Words_to_Scan_Start, 0);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 0);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 0);
}

TEST_F(Persistence, Settings_are_forgotten_whatever_Send_of_no_was) {
  session.settings.Send_of_no = 100000;
  EXPECT_EQ(Failure_Of([&] { Forget_Settings(session); }), 0);
  EXPECT_EQ(session.settings.Send_of_no, 0);
}

TEST_F(Persistence, A_new_control_has_the_values_of_the_initialisation) {
  Initialise();
  for (std::size_t i = 0; i < Plain_Keys.size(); ++i) {
    if (!Plain_Keys[i].at_start) continue;
    const auto value = To_Text(Record_Keys()[i].current(session, control->instance));
    const std::string key = Plain_Keys[i].key;
    if (key == "Direct_Add") {
      EXPECT_EQ(value, "NO");
    } else if (key == "Words_I_Want") {
      EXPECT_EQ(session.settings.Words_I_Want[1], "*");
    } else {
      EXPECT_EQ(value, Plain_Keys[i].at_start) << key;
    }
  }
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 128);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
}

TEST_F(Persistence, An_initialisation_leaves_what_is_not_set_alone) {
  const auto set = [&](const char* key, MemberValue value) {
    for (const RecordKey& row : Record_Keys()) {
      if (row.key == key) row.store(session, control->instance, value);
    }
  };
  for (const auto& key : Plain_Keys) {
    if (!key.at_start) set(key.key, Text("7"));
  }
  Initialise();
  int left = 0;
  for (const auto& key : Plain_Keys) {
    if (key.at_start) continue;
    ++left;
    for (const RecordKey& row : Record_Keys()) {
      if (row.key == key.key) {
        EXPECT_EQ(To_Text(row.current(session, control->instance)), "7") << key.key;
      }
    }
  }
  EXPECT_EQ(left, 8);
}

TEST_F(Persistence, A_new_control_fills_the_engine_table_and_then_shows_the_help) {
  session.filter.Engine_Table[1] = "other";
  std::string first_group;
  session.operations.Show_Help = [&](Session& s) { first_group = s.filter.Engine_Table[1]; };
  Initialise();
  EXPECT_EQ(first_group, "dbtrvgp");
}

TEST_F(Persistence, A_failure_of_the_initialisation_ends_it_without_a_message) {
  session.operations.Show_Help = [](Session&) { Fail(Failure::Overflow); };
  EXPECT_EQ(Failure_Of([&] { Initialise(); }), 0);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(session.settings.Noise_Sensitivity, 3);
}

TEST_F(Persistence, A_control_that_the_help_window_outlives_is_no_harm) {
  session.operations.Show_Help = [&](Session&) {
    control->UserControl_Terminate();
    control.reset();
  };
  UserControl_InitProperties(*control);
  EXPECT_EQ(control, nullptr);
}

TEST_F(Persistence, A_session_of_a_batch_has_the_values_of_a_new_control) {
  Initialise();
  tests::TestSession batch;
  ControlInstance nobody;
  KeepingBag of_batch;
  UserControl_WriteProperties(batch.session, nobody, of_batch);
  EXPECT_EQ(of_batch.kept, Saved().kept);
  EXPECT_EQ(batch.session.settings.Digital_Signal_Processing_Level, 128);
  EXPECT_EQ(batch.session.sample.Samples_Per_Capture, 154350);
}

TEST_F(Persistence, A_new_control_saved_at_once_stores_what_differs_from_the_save_defaults) {
  Initialise();
  EXPECT_EQ(In_Plain_Texts(Saved()),
            (PlainRecord{{"Consider_this_Lang_File_to_Add", "UserTemp.SAY"},
                         {"Consider_this_Lang_File_to_match", "UserTemp.SAY"},
                         {"Direct_Add", "NO"},
                         {"Keep_Digital_Signal_Processing_level", ""},
                         {"Platinum_Word_Font", "MS Sans Serif"},
                         {"Play_this_file_for_Start", "start.wav"},
                         {"Play_this_file_for_Stop", "stop.wav"},
                         {"Play_this_file_on_Initialization", "backon.wav"},
                         {"Words_I_Want", ""}}));
}

}  // namespace
}  // namespace quillspeech
