// What each request of a scripted host does, and how it is answered.
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

using HostRequests = HostTest;

TEST_F(HostRequests, A_new_control_has_its_first_values) {
  Host({R"({"id":1,"do":"new"})", R"({"id":2,"do":"get","member":"Noise_Sensitivity"})",
        R"({"id":3,"do":"get","member":"Consider_this_Lang_File_to_match"})"});
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Reply(2).dump(), R"({"id":2,"ok":true,"value":3})");
  EXPECT_EQ(Value(3), "UserTemp.SAY");
}

TEST_F(HostRequests, Before_it_is_made_or_loaded_a_control_is_not_ready) {
  Host({R"({"id":1,"do":"peek","name":"Settings_Ready_Count"})",
        R"({"id":2,"do":"peek","name":"Noise_Sensitivity"})",
        R"({"do":"call","member":"Start_Real_Action"})", R"({"do":"new"})",
        R"({"id":3,"do":"peek","name":"Settings_Ready_Count"})"});
  EXPECT_EQ(Value(1), 0);
  EXPECT_EQ(Value(2), 0);
  EXPECT_EQ(Told("box").size(), 1U);
  EXPECT_EQ(Value(3), 2);
}

TEST_F(HostRequests, A_load_takes_what_the_bag_holds_and_the_defaults_for_the_rest) {
  Host({R"({"id":1,"do":"load","bag":{"Noise_Sensitivity":7,"Play_this_file_for_Start":"é.wav"}})",
        R"({"id":2,"do":"get","member":"Noise_Sensitivity"})",
        R"({"id":3,"do":"get","member":"Play_this_file_for_Start"})",
        R"({"id":4,"do":"get","member":"Consider_this_Lang_File_to_match"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Value(2), 7);
  EXPECT_EQ(Value(3), "é.wav");
  EXPECT_EQ(Value(4), "User.SAY");
}

TEST_F(HostRequests, A_save_answers_the_keys_that_differ_from_their_defaults) {
  Host({R"({"do":"load","bag":{}})", R"({"id":1,"do":"save"})",
        R"({"do":"let","member":"Noise_Sensitivity","value":9})", R"({"id":2,"do":"save"})"});
  const Json first = Reply(1)["bag"];
  EXPECT_FALSE(first.contains("Noise_Sensitivity"));
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Reply(2)["bag"]["Noise_Sensitivity"], 9);
  EXPECT_EQ(Reply(2)["bag"].size(), first.size() + 1);
}

TEST_F(HostRequests, What_was_saved_can_be_loaded) {
  Host({R"({"do":"new"})", R"({"do":"let","member":"Filter_Pass_Value","value":4})",
        R"({"id":1,"do":"save"})"});
  const Json bag = Reply(1)["bag"];
  Host({R"({"do":"load","bag":)" + bag.dump() + "}", R"({"id":2,"do":"save"})"});
  EXPECT_EQ(Reply(2)["bag"], bag);
}

TEST_F(HostRequests, A_let_takes_numbers_texts_and_fractions_as_hosts_do) {
  const std::vector<std::pair<std::string, int>> values = {
      {"5", 5}, {R"("6")", 6}, {"2.5", 2}, {"3.5", 4}, {"true", -1}};
  for (const auto& [value, stored] : values) {
    Host({R"({"do":"new"})",
          R"({"do":"let","member":"Sample_Overlap_Bytes","value":)" + value + "}",
          R"({"id":1,"do":"get","member":"Sample_Overlap_Bytes"})"});
    EXPECT_EQ(Value(1), stored) << value;
  }
}

TEST_F(HostRequests, A_value_for_a_result_is_dropped) {
  Host({R"({"do":"new"})", R"({"id":1,"do":"let","member":"Voice_Word","value":"x"})",
        R"({"id":2,"do":"get","member":"Voice_Word"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Value(2), "");
}

TEST_F(HostRequests, A_call_runs_the_member_and_a_press_its_button) {
  Host({R"({"do":"new"})", R"({"id":1,"do":"call","member":"Start_Real_Action"})",
        R"({"id":2,"do":"press","on":"Command2"})", R"({"id":3,"do":"press","on":"Label1"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Events(), Lines({"StartRecognitionActivity", "StopRecognitionActivity", "Click"}));
}

TEST_F(HostRequests, A_run_lets_just_so_much_time_pass) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"id":1,"do":"run","ms":99})", R"({"id":2,"do":"run","ms":1})",
        R"({"id":3,"do":"run","ms":0})"});
  std::vector<int> ticks;
  for (const Json& event : Told("event")) ticks.push_back(event["at_ms"].get<int>());
  EXPECT_EQ(ticks, std::vector<int>({0, 50, 100}));
  EXPECT_LT(Place_Of({{"at_ms", 50}}), Place_Of({{"id", 1}}));
  EXPECT_LT(Place_Of({{"id", 1}}), Place_Of({{"at_ms", 100}}));
  EXPECT_LT(Place_Of({{"at_ms", 100}}), Place_Of({{"id", 2}}));
  EXPECT_EQ(Reply(3).dump(), R"({"id":3,"ok":true})");
}

TEST_F(HostRequests, In_design_mode_the_buttons_do_nothing) {
  Host({R"({"do":"new"})", R"({"id":1,"do":"mode","user":false})",
        R"({"do":"press","on":"Command1"})", R"({"do":"mode","user":true})",
        R"({"do":"press","on":"Command1"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Events(), Lines({"StartRecognitionActivity"}));
}

TEST_F(HostRequests, The_program_decides_whether_it_is_a_design_environment) {
  const std::string wave = Put_Sound("low.wav", Low_Word());
  const std::vector<std::pair<std::string, int>> programs = {
      {R"("C:\\Tools\\VB6.EXE")", -1}, {R"("C:\\shop.exe")", 0}, {"null", 0}};
  for (const auto& [path, answer] : programs) {
    Host({R"({"do":"new"})", R"({"id":1,"do":"program","path":)" + path + "}",
          R"({"do":"let","member":"Open_this_Wave_File","value":)" + Quoted(wave) + "}",
          R"({"do":"let","member":"Enable_Artificial_Intelligence","value":"NO"})",
          R"({"do":"call","member":"Open_Specified_Wave_File_And_Process"})",
          R"({"id":2,"do":"peek","name":"Design_Environment_Tested"})",
          R"({"id":3,"do":"peek","name":"Design_Environment_Result"})"});
    EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
    EXPECT_EQ(Value(2), -1) << path;
    EXPECT_EQ(Value(3), answer) << path;
  }
}

TEST_F(HostRequests, A_peek_reads_variables_and_elements_of_tables) {
  Host({R"({"do":"new"})", R"({"id":1,"do":"peek","name":"Words_I_Want","index":1})",
        R"({"id":2,"do":"peek","name":"Engine_Table","index":14})",
        R"({"id":3,"do":"peek","name":"Session_Alive"})",
        R"({"id":4,"do":"peek","name":"Timer1"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true,"value":"*"})");
  EXPECT_EQ(Value(2), "AkgH");
  EXPECT_EQ(Value(3), 0);
  EXPECT_EQ(Value(4), false);
}

TEST_F(HostRequests, A_whole_number_may_be_written_with_a_fraction_of_0) {
  Host({R"({"do":"new"})", R"({"id":1,"do":"run","ms":100.0})",
        R"({"id":2,"do":"peek","name":"Words_I_Want","index":1e0})",
        R"({"id":3,"do":"faults","wave_in_open":4.0})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Value(2), "*");
  EXPECT_EQ(Reply(3).dump(), R"({"id":3,"ok":true})");
}

TEST_F(HostRequests, A_peek_at_a_record_is_an_object) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"do":"run","ms":500})", R"({"id":1,"do":"peek","name":"Wave_Format"})",
        R"({"id":2,"do":"peek","name":"SayRecord.WordFont"})",
        R"({"id":3,"do":"peek","name":"SayRecord.SlotNumbers","index":1})"});
  EXPECT_EQ(Value(1).dump(),
            R"({"format_tag":1,"channels":1,"samples_per_second":22050,)"
            R"("average_bytes_per_second":22050,"block_alignment":1,"bits_per_sample":8})");
  EXPECT_EQ(Value(2).get<std::string>().size(), 20U);
  EXPECT_EQ(Value(3), 0);
}

TEST_F(HostRequests, A_load_passes_over_keys_that_no_control_keeps) {
  Host({R"({"id":1,"do":"load","bag":{"Noise_Sensitivity":7,"Nothing":null}})",
        R"({"id":2,"do":"get","member":"Noise_Sensitivity"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Value(2), 7);
}

TEST_F(HostRequests, New_and_load_also_settle_a_control_that_lives_and_its_session_goes_on) {
  for (const char* const again : {R"({"do":"new"})", R"({"do":"load","bag":{}})"}) {
    Host({R"({"do":"new"})", R"({"do":"let","member":"Noise_Sensitivity","value":8})",
          R"({"do":"call","member":"Start_Real_Action"})", R"({"do":"run","ms":500})", again,
          R"({"id":1,"do":"get","member":"Noise_Sensitivity"})",
          R"({"id":2,"do":"peek","name":"Recording_Active"})",
          R"({"id":3,"do":"peek","name":"Session_Alive"})",
          R"({"id":4,"do":"peek","name":"Settings_Ready_Count"})"});
    EXPECT_EQ(Value(1), 3) << again;
    EXPECT_EQ(Value(2), 1) << again;
    EXPECT_EQ(Value(3), -1) << again;
    EXPECT_EQ(Value(4), 2) << again;
    EXPECT_EQ(Events(), Lines({"StartRecognitionActivity"})) << again;
  }
}

TEST_F(HostRequests, A_clip_is_heard_from_the_moment_on_at_which_it_is_played) {
  const std::string wave = Put_Sound("loud.wav", Level(200, Bytes(22'050)));
  Host({R"({"do":"new"})", R"({"do":"let","member":"Voice_Processing_Delay","value":1})",
        R"({"do":"call","member":"Start_Real_Action"})", R"({"do":"run","ms":1100})",
        R"({"id":1,"do":"play","file":)" + Quoted(wave) + "}", R"({"do":"run","ms":10})",
        R"({"id":2,"do":"peek","name":"Speech_Sample_Bytes","index":22000})",
        R"({"id":3,"do":"peek","name":"Speech_Sample_Bytes","index":22100})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Value(2), 128);
  EXPECT_EQ(Value(3), 200);
}

TEST_F(HostRequests, A_fault_makes_the_card_answer_so_until_a_0_clears_it) {
  const std::string start = R"({"do":"call","member":"Start_Real_Action"})";
  const std::string stop = R"({"do":"call","member":"Stop_Real_Action"})";
  Host({R"({"do":"new"})", R"({"id":1,"do":"faults","wave_in_get_dev_caps":2})", start,
        R"({"do":"run","ms":200})", stop, R"({"do":"faults","wave_in_get_dev_caps":0})", start,
        R"({"do":"run","ms":200})", R"({"id":2,"do":"peek","name":"Recording_Active"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  ASSERT_EQ(Told("box").size(), 1U);
  EXPECT_EQ(Told("box")[0]["box"]["text"], "ACCESS DENIED.Please install your Sound Card properly");
  EXPECT_EQ(Value(2), 1);
}

TEST_F(HostRequests, After_its_end_a_control_is_made_anew_on_the_same_session) {
  Host({R"({"do":"new"})", R"({"do":"let","member":"Noise_Sensitivity","value":8})",
        R"({"id":1,"do":"end"})", R"({"id":2,"do":"get","member":"Noise_Sensitivity"})",
        R"({"id":3,"do":"peek","name":"Noise_Sensitivity"})", R"({"id":4,"do":"end"})",
        R"({"id":5,"do":"load","bag":{}})", R"({"id":6,"do":"get","member":"Noise_Sensitivity"})",
        R"({"do":"press","on":"Command1"})"});
  EXPECT_EQ(Reply(1).dump(), R"({"id":1,"ok":true})");
  EXPECT_EQ(Error_Number(2), 0);
  EXPECT_EQ(Value(3), 8);
  EXPECT_EQ(Error_Number(4), 0);
  EXPECT_EQ(Reply(5).dump(), R"({"id":5,"ok":true})");
  EXPECT_EQ(Value(6), 3);
  EXPECT_EQ(Events(), Lines({"StartRecognitionActivity"}));
}

TEST_F(HostRequests, A_request_without_an_id_is_answered_without_one) {
  Host({R"({"do":"peek","name":"Session_Alive"})", R"({"id":"a","do":"mode","user":true})"});
  EXPECT_EQ(told[0].dump(), R"({"ok":true,"value":0})");
  EXPECT_EQ(told[1].dump(), R"({"id":"a","ok":true})");
}

TEST_F(HostRequests, A_clip_of_the_command_line_is_heard_at_its_time) {
  const std::string wave = Put_Sound("loud.wav", Level(200, Bytes(22'050)));
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"do":"run","ms":700})",
        R"({"id":1,"do":"peek","name":"Speech_Sample_Bytes","index":8000})",
        R"({"id":2,"do":"peek","name":"Speech_Sample_Bytes","index":9000})"},
       {"--microphone", wave + "@0.5"});
  EXPECT_EQ(Value(1), 128);
  EXPECT_EQ(Value(2), 200);
}

TEST_F(HostRequests, An_empty_input_ends_the_host_at_once) {
  Host({});
  EXPECT_EQ(status, 0);
  EXPECT_EQ(out, "{\"sound\":{\"name\":\"\",\"flags\":64}}\n");
}

}  // namespace
}  // namespace quillspeech::tests
