// The settings: one variable for each property that is no pure result, with the values of a new
// control.
#pragma once

#include <string>

#include "base/bounded_table.hpp"
#include "base/checked.hpp"

namespace quillspeech {

struct Settings {
  // What is analysed and how. YES/NO settings hold exactly "YES" or "NO".
  std::string Stop_everything_now = "NO";
  std::string This_Audio_Process = "YES";
  std::string Send_words_one_by_one = "YES";
  std::string This_speech_sample_process_Start_only = "NO";
  std::string This_speech_sample_process_middle_only = "NO";
  std::string This_speech_sample_process_end_only = "NO";
  std::string Memory_Clean = "YES";
  std::string Keep_Digital_Signal_Processing_level;  // the text; the level stands beside it
  Checked16 Digital_Signal_Processing_Level = 128;   // lags and bins; 0 is "never chosen"
  Checked16 Noise_Sensitivity = 3;                   // distance from silence; 0 means 2
  CheckedByte Noise_Word_No_CutOff = 4;              // words below it are analysed; 0 means 4
  Checked32 Sample_processing_resolution = 500;      // bytes a slice; 0: a word is one slice
  Checked16 Sample_Overlap_Bytes = 0;                // bytes a slice reaches back; 0 means 300

  // Capture.
  Checked32 Speech_sampling_time_in_ms = 7000;
  Checked32 Set_Recording_Frequency = 22050;
  Checked32 Voice_Capture_Delay = 5;         // ms
  Checked32 Voice_Processing_Delay = 15000;  // yields
  std::string Speech_echo_feature = "NO";
  std::string Open_this_Wave_File;

  // Engine and filter.
  std::string Consider_this_Engine_for_Recognition;  // empty: the built-in table
  std::string Enable_Speech_Engine = "YES";
  std::string Enable_Artificial_Intelligence = "YES";
  std::string Keep_Engine_Frequency_Input_Flow = "Filter All";
  Checked16 Filter_Pass_Value = 1;
  std::string Explode_out_all_Engine = "YES";
  Checked32 Engine_Explode_Limit = 10;
  BoundedTable<std::string, 100> Words_I_Want;  // element 1 is the property
  Checked32 Words_to_Scan_Start;                // 0 until Words_to_Scan is set
  Checked32 Words_to_Scan = 1;

  // Language.
  std::string Consider_this_Lang_File_to_match = "UserTemp.SAY";
  std::string Consider_this_Lang_File_to_Add = "UserTemp.SAY";
  std::string Add_To_Language = "NO";
  std::string Notify_if_no_language_match = "NO";
  Checked32 Direct_Add;  // record number
  std::string Direct_Add_Enabled = "NO";

  // What is shown and heard.
  std::string Show_Audio_Graph = "YES";
  std::string I_want_Status_Animation = "NO";
  std::string Show_this_Image_for_Start;
  std::string Show_this_Image_for_Stop;
  std::string Play_this_file_for_Start = "start.wav";
  std::string Play_this_file_for_Stop = "stop.wav";
  std::string Play_this_file_on_Initialization = "backon.wav";
  std::string Always_Restart_on_Error = "NO";

  Checked32 Send_of_no;  // the host's index into the result tables

  Settings() { Words_I_Want[1].assign(1, '*'); }
};

}  // namespace quillspeech
