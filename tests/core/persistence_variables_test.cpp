// Which variable each key of the record belongs to.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <variant>
#include <vector>

#include "core/persistence.hpp"
#include "tests/core/persistence_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

using Variable = std::variant<std::string*, Checked16*, Checked32*, CheckedByte*, std::uint8_t*>;

struct Row {
  std::string key;
  Variable variable;
};

// Where the keys whose variable is an element of a table find it.
struct Places {
  std::int64_t early_send;  // Send_of_no as the keys before it meet it
  std::int64_t late_send;   // and those after it
  std::int64_t wanted_word;
};

// The variables by their keys.
std::vector<Row> Rows(Session& session, ControlInstance& instance, const Places& at) {
  Settings& s = session.settings;
  Filter& f = session.filter;
  Results& r = session.results;
  WordTables& w = session.words;
  return {
      {"Stop_everything_now", &s.Stop_everything_now},
      {"Add_to_Language", &s.Add_To_Language},
      {"Always_Restart_on_Error", &s.Always_Restart_on_Error},
      {"Consider_this_Engine_for_Recognition", &s.Consider_this_Engine_for_Recognition},
      {"Consider_this_Lang_File_to_Add", &s.Consider_this_Lang_File_to_Add},
      {"Consider_this_Lang_File_to_match", &s.Consider_this_Lang_File_to_match},
      {"Current_Processings_Available", &w.Current_Processings_Available},
      {"Current_Vyanjana_no_Processed", &w.Current_Vyanjana_no_Processed},
      {"Current_Word_no_Processed", &w.Current_Word_no_Processed},
      {"Direct_Add", &s.Direct_Add_Enabled},
      {"Enable_Artificial_Intelligence", &s.Enable_Artificial_Intelligence},
      {"Enable_Speech_Engine", &s.Enable_Speech_Engine},
      {"Engine_Category", &session.slice.Engine_Category},
      {"Engine_Category_Weight", &f.Engine_Category_Weight},
      {"Engine_Explode_Limit", &s.Engine_Explode_Limit},
      {"Explode_out_all_Engine", &s.Explode_out_all_Engine},
      {"Filter_Filled_Slots", &f.Filter_Filled_Slots},
      {"Filter_Pass_Value", &s.Filter_Pass_Value},
      {"Filter_Slot_Data", &f.Filter_Slot_Table[at.early_send]},
      {"Filter_Slot_Data_Weight", &f.Filter_Weight_Table[at.early_send]},
      {"I_want_Status_Animation", &s.I_want_Status_Animation},
      {"Keep_Digital_Signal_Processing_level", &s.Keep_Digital_Signal_Processing_level},
      {"Keep_Engine_Frequency_Input_Flow", &s.Keep_Engine_Frequency_Input_Flow},
      {"Memory_Clean", &s.Memory_Clean},
      {"No_of_Processings", &w.No_of_Processings},
      {"Noise_Sensitivity", &s.Noise_Sensitivity},
      {"Noise_Word_No_CutOff", &s.Noise_Word_No_CutOff},
      {"Notify_if_no_language_match", &s.Notify_if_no_language_match},
      {"Open_this_Wave_File", &s.Open_this_Wave_File},
      {"Operation_Status", &session.flags.Operation_Status},
      {"Platinum_Words", &r.Platinum_Word_Table[1]},
      {"Platinum_Word_Best", &r.Platinum_Best_Table[1]},
      {"Platinum_Word_Fifth_Best", &r.Platinum_Best_Table[5]},
      {"Platinum_Word_Font", &r.Platinum_Word_Font},
      {"Platinum_Word_Fourth_Best", &r.Platinum_Best_Table[4]},
      {"Platinum_Word_Percentage", &r.Platinum_Score_Table[at.early_send]},
      {"Platinum_Word_Second_Best", &r.Platinum_Best_Table[2]},
      {"Platinum_Word_Seventh_Best", &r.Platinum_Best_Table[7]},
      {"Platinum_Word_Sixth_Best", &r.Platinum_Best_Table[6]},
      {"Platinum_Word_Third_Best", &r.Platinum_Best_Table[3]},
      {"Platinum_Words_Available", &r.Platinum_Words_Available},
      {"Play_File", &instance.Play_File},
      {"Play_this_file_for_Start", &s.Play_this_file_for_Start},
      {"Play_this_file_for_Stop", &s.Play_this_file_for_Stop},
      {"Play_this_file_on_Initialization", &s.Play_this_file_on_Initialization},
      {"Probable_no_of_words_recognized", &w.Probable_no_of_words_recognized},
      {"Sample_Overlap_Bytes", &s.Sample_Overlap_Bytes},
      {"Sample_processing_resolution", &s.Sample_processing_resolution},
      {"Send_of_no", &s.Send_of_no},
      {"Send_words_one_by_one", &s.Send_words_one_by_one},
      {"Set_Recording_Frequency", &s.Set_Recording_Frequency},
      {"Show_Audio_Graph", &s.Show_Audio_Graph},
      {"Show_this_Image_for_Start", &s.Show_this_Image_for_Start},
      {"Show_this_Image_for_Stop", &s.Show_this_Image_for_Stop},
      {"Speech_echo_feature", &s.Speech_echo_feature},
      {"Speech_sampling_time_in_ms", &s.Speech_sampling_time_in_ms},
      {"This_Audio_Process", &s.This_Audio_Process},
      {"This_speech_sample_process_end_only", &s.This_speech_sample_process_end_only},
      {"This_speech_sample_process_middle_only", &s.This_speech_sample_process_middle_only},
      {"This_speech_sample_process_Start_only", &s.This_speech_sample_process_Start_only},
      {"Voice_Capture_Delay", &s.Voice_Capture_Delay},
      {"Voice_Magic_Elements", &f.Voice_Magic_Elements},
      {"Voice_Processing_Delay", &s.Voice_Processing_Delay},
      {"Voice_Word", &f.Voice_Word_Table[1]},
      {"Voice_Word_Matched", &f.Voice_Word_Matched_Table[at.late_send]},
      {"Voice_Words_Explode_Count", &f.Voice_Words_Explode_Count},
      {"Voice_Words_Matched_Count", &f.Voice_Words_Matched_Count},
      {"Words_I_Check", &f.Word_Check_Flags[at.late_send]},
      {"Words_I_Want", &s.Words_I_Want[at.wanted_word]},
      {"Words_to_Scan", &s.Words_to_Scan},
  };
}

bool Is_Text(const Variable& variable) { return std::holds_alternative<std::string*>(variable); }

std::int64_t Number_In(const Variable& variable) {
  return std::visit(
      [](auto* field) -> std::int64_t {
        if constexpr (std::is_same_v<decltype(field), std::string*>) {
          return -1;
        } else {
          return *field;
        }
      },
      variable);
}

// As the record keeps it.
MemberValue Value_In(const Variable& variable) {
  if (Is_Text(variable)) return *std::get<std::string*>(variable);
  if (std::holds_alternative<Checked32*>(variable)) {
    return static_cast<std::int32_t>(Number_In(variable));
  }
  return static_cast<std::int16_t>(Number_In(variable));
}

// A value of its own for each row: "text 5", or 5. None is a default of the record.
constexpr int First_Value = 21;

MemberValue Own_Value(const Row& row, int number) {
  if (Is_Text(row.variable)) return "text " + std::to_string(number);
  if (std::holds_alternative<Checked32*>(row.variable)) return std::int32_t{number};
  return static_cast<std::int16_t>(number);
}

void Set(const Row& row, int number) {
  std::visit(
      [&](auto* field) {
        if constexpr (std::is_same_v<decltype(field), std::string*>) {
          *field = "text " + std::to_string(number);
        } else {
          *field = static_cast<std::uint8_t>(number);
        }
      },
      row.variable);
}

// All kinds of numbers, from the least to the greatest.
std::pair<std::int64_t, std::int64_t> Range(const Variable& variable) {
  if (std::holds_alternative<Checked32*>(variable)) return {INT32_MIN, INT32_MAX};
  if (std::holds_alternative<Checked16*>(variable)) return {INT16_MIN, INT16_MAX};
  return {0, UINT8_MAX};
}

class PersistenceVariables : public tests::PersistenceTest {
 protected:
  std::vector<Row> Variables(const Places& at) { return Rows(session, control->instance, at); }
};

TEST_F(PersistenceVariables, A_load_stores_each_key_in_its_own_variable) {
  constexpr int Send_Before = 4;
  session.settings.Send_of_no = Send_Before;
  int send = 0;
  int number = First_Value;
  for (const Row& row : Variables({Send_Before, 0, 1})) {
    if (row.key == "Send_of_no") send = number;
    bag.kept[row.key] = Own_Value(row, number++);
  }
  ASSERT_EQ(bag.kept.size(), 70U);
  Load();
  for (const Row& row : Variables({Send_Before, send, 1})) {
    const MemberValue expected = row.key == "Direct_Add"     ? std::string("NO")
                                 : row.key == "Words_I_Want" ? std::string("*")
                                                             : bag.kept.at(row.key);
    EXPECT_EQ(Value_In(row.variable), expected) << row.key;
  }
}

TEST_F(PersistenceVariables, A_save_takes_each_key_from_its_own_variable) {
  // What Send_of_no and Current_Word_no_Processed will hold is known by their places in the list.
  int send = 0;
  int word = 0;
  int number = First_Value;
  for (const Row& row : Variables({0, 0, 0})) {
    if (row.key == "Send_of_no") send = number;
    if (row.key == "Current_Word_no_Processed") word = number;
    ++number;
  }
  number = First_Value;
  for (const Row& row : Variables({send, send, word})) Set(row, number++);
  const auto saved = Saved().kept;
  EXPECT_EQ(saved.size(), 70U);
  number = First_Value;
  for (const Row& row : Variables({send, send, word})) {
    const auto kept = saved.find(row.key);
    ASSERT_NE(kept, saved.end()) << row.key;
    EXPECT_EQ(kept->second, Own_Value(row, number++)) << row.key;
  }
}

// Each number alone in the record: for its own sake, no capture is longer than 32 bits count.
TEST_F(PersistenceVariables, Each_number_holds_its_least_and_its_greatest_value) {
  int numbers = 0;
  for (const Row& row : Variables({0, 0, 1})) {
    if (Is_Text(row.variable)) continue;
    ++numbers;
    const auto [least, greatest] = Range(row.variable);
    for (const std::int64_t value : {least, greatest}) {
      bag.kept = {{"Speech_sampling_time_in_ms", std::int32_t{0}},
                  {"Set_Recording_Frequency", std::int32_t{0}}};
      session.settings.Send_of_no = 0;
      // Send_of_no is stored as well, but it finds no element then.
      const int failure = row.key == "Send_of_no" ? 9 : 0;
      EXPECT_EQ(Failure_Of([&] { Load(row.key, std::to_string(value)); }), failure) << row.key;
      EXPECT_EQ(Number_In(row.variable), value) << row.key;
    }
  }
  EXPECT_EQ(numbers, 26);
}

TEST_F(PersistenceVariables, Each_number_refuses_one_less_and_one_more_and_stays_as_it_was) {
  for (const Row& row : Variables({0, 0, 1})) {
    if (Is_Text(row.variable)) continue;
    const auto [least, greatest] = Range(row.variable);
    for (const std::int64_t value : {least - 1, greatest + 1}) {
      bag.kept.clear();
      session.settings.Send_of_no = 0;
      const std::int64_t before = Number_In(row.variable);
      EXPECT_EQ(Failure_Of([&] { Load(row.key, std::to_string(value)); }), 6) << row.key;
      EXPECT_EQ(Number_In(row.variable), before) << row.key;
    }
  }
}

TEST_F(PersistenceVariables, Each_number_refuses_what_is_none) {
  for (const Row& row : Variables({0, 0, 1})) {
    if (Is_Text(row.variable)) continue;
    for (const char* text : {"many", "", "  ", "True"}) {
      bag.kept.clear();
      EXPECT_EQ(Failure_Of([&] { Load(row.key, std::string(text)); }), 13) << row.key << text;
    }
  }
}

}  // namespace
}  // namespace quillspeech
