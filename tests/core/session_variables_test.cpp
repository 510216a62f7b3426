// Looking into a session by the names of its variables.
#include "core/session_variables.hpp"

#include <gtest/gtest.h>

#include <set>

#include "base/text.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {
namespace {

struct SessionVariables : testing::Test, ControlTest {
  VariableValue Peek(std::string_view name, std::int64_t index = 0) const {
    const SessionVariable* const variable = Find_Variable(name);
    return variable ? variable->read(*control, index) : VariableValue(std::string("not there"));
  }
};

TEST_F(SessionVariables, Each_name_stands_once) {
  std::set<std::string_view> names;
  for (const SessionVariable& variable : Session_Variables()) names.insert(variable.name);
  EXPECT_EQ(names.size(), Session_Variables().size());
}

TEST_F(SessionVariables, Every_variable_can_be_read_and_every_table_checks_its_bounds) {
  for (const SessionVariable& variable : Session_Variables()) {
    if (!variable.is_table) {
      EXPECT_EQ(Failure_Of([&] { variable.read(*control, 0); }), 0) << variable.name;
      continue;
    }
    for (const std::int64_t index : {std::int64_t{-1}, std::int64_t{1} << 40}) {
      EXPECT_EQ(Failure_Of([&] { variable.read(*control, index); }), 9) << variable.name;
    }
  }
}

TEST_F(SessionVariables, A_name_is_compared_exactly) {
  EXPECT_NE(Find_Variable("Session_Alive"), nullptr);
  EXPECT_EQ(Find_Variable("session_alive"), nullptr);
  EXPECT_EQ(Find_Variable(""), nullptr);
}

TEST_F(SessionVariables, They_are_those_of_the_session) {
  session.settings.Noise_Sensitivity = 11;
  session.flags.Session_Alive = True;
  session.flags.Operation_Status = "Finish";
  session.recorder.Capture_Seconds = 3;
  session.sample.Wave_Header.bytes_recorded = 77;
  session.words.Word_Start.Resize(5);
  session.words.Word_Start.Put(5, 1'234);
  session.words.scan.Forward_Hit_Count = 50;
  session.slice.Magnitude_dB[7] = 1.5;
  session.filter.Voice_Word_Table[1] = "abc";
  session.results.Best_Word_Index[7] = 12;
  const std::vector<std::pair<std::pair<const char*, int>, VariableValue>> expected = {
      {{"Noise_Sensitivity", 0}, std::int64_t{11}},
      {{"Session_Alive", 0}, std::int64_t{-1}},
      {{"Operation_Status", 0}, std::string("Finish")},
      {{"Capture_Seconds", 0}, std::int64_t{3}},
      {{"Wave_Header_Bytes_Recorded", 0}, std::int64_t{77}},
      {{"Word_Start", 5}, std::int64_t{1'234}},
      {{"Forward_Hit_Count", 0}, std::int64_t{50}},
      {{"Magnitude_dB", 7}, 1.5},
      {{"Voice_Word_Table", 1}, std::string("abc")},
      {{"Best_Word_Index", 7}, std::int64_t{12}},
      {{"Best_Word_Index_7", 0}, std::int64_t{12}},
      {{"Main_File_Number", 0}, std::int64_t{0}},
  };
  for (const auto& [place, value] : expected) {
    EXPECT_EQ(Peek(place.first, place.second), value) << place.first;
  }
}

TEST_F(SessionVariables, The_wave_format_and_the_wave_header_are_read_as_a_whole) {
  session.sample.Wave_Format = {1, 2, 22'050, 44'100, 3, 8};
  session.sample.Wave_Header = {nullptr, 100, 90, 7, 3, 5};
  EXPECT_EQ(Peek("Wave_Format"), VariableValue(VariableFields{{"format_tag", 1},
                                                              {"channels", 2},
                                                              {"samples_per_second", 22'050},
                                                              {"average_bytes_per_second", 44'100},
                                                              {"block_alignment", 3},
                                                              {"bits_per_sample", 8}}));
  EXPECT_EQ(Peek("Wave_Header"), VariableValue(VariableFields{{"buffer_length", 100},
                                                              {"bytes_recorded", 90},
                                                              {"user_data", 7},
                                                              {"flags", 3},
                                                              {"loop_count", 5}}));
}

TEST_F(SessionVariables, The_current_language_record_is_read_by_its_fields) {
  auto& record = session.data.SayRecord;
  record.RecordNo(70'000);
  record.Words(100, "low");
  record.WordRatings(1, 255);
  record.WordCount(2);
  record.WordFont("Arial");
  record.LikeRatings(30, -5);
  record.LikeProtocols(30, "oa*");
  record.LikeCount(4);
  record.EngineCodes(50, "AkgH");
  record.SlotNumbers(50, 200);
  record.EngineCodeWeights(50, -6);
  record.DifferentiatorCount(7);
  const std::vector<std::pair<std::pair<const char*, int>, VariableValue>> expected = {
      {{"SayRecord.RecordNo", 0}, std::int64_t{70'000}},
      {{"SayRecord.Words", 100}, Fixed("low", 40)},
      {{"SayRecord.WordRatings", 1}, std::int64_t{255}},
      {{"SayRecord.WordCount", 0}, std::int64_t{2}},
      {{"SayRecord.WordFont", 0}, Fixed("Arial", 20)},
      {{"SayRecord.LikeRatings", 30}, std::int64_t{-5}},
      {{"SayRecord.LikeProtocols", 30}, Fixed("oa*", 100)},
      {{"SayRecord.LikeCount", 0}, std::int64_t{4}},
      {{"SayRecord.EngineCodes", 50}, Fixed("AkgH", 20)},
      {{"SayRecord.SlotNumbers", 50}, std::int64_t{200}},
      {{"SayRecord.EngineCodeWeights", 50}, std::int64_t{-6}},
      {{"SayRecord.DifferentiatorCount", 0}, std::int64_t{7}},
  };
  for (const auto& [place, value] : expected) {
    EXPECT_EQ(Peek(place.first, place.second), value) << place.first;
  }
}

TEST_F(SessionVariables, Timers_tell_whether_they_are_on) {
  EXPECT_EQ(Peek("Timer1"), VariableValue(false));
  control->Command1_Click();
  EXPECT_EQ(Peek("Timer1"), VariableValue(true));
  EXPECT_EQ(Peek("Form1.Timer5"), VariableValue(true));
  EXPECT_EQ(Peek("Form1.Timer3"), VariableValue(false));
}

TEST_F(SessionVariables, The_latches_and_the_sound_file_are_those_of_the_control) {
  control->Detected_Event_Raised = true;
  control->instance.Play_File = "x.wav";
  EXPECT_EQ(Peek("Detected_Event_Raised"), VariableValue(std::int64_t{-1}));
  EXPECT_EQ(Peek("Text_Event_Raised"), VariableValue(std::int64_t{0}));
  EXPECT_EQ(Peek("Pattern_Event_Raised"), VariableValue(std::int64_t{0}));
  EXPECT_EQ(Peek("Play_File"), VariableValue(std::string("x.wav")));
}

}  // namespace
}  // namespace quillspeech::tests
