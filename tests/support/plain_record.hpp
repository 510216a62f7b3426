// The record of a control as the containers of old know it, in plain texts, and a bag for it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/conversions.hpp"
#include "core/persistence.hpp"

namespace quillspeech::tests {

using TypedRecord = std::map<std::string, MemberValue, std::less<>>;

// Keeps what it is given, and notes what it is asked.
struct KeepingBag final : PropertyBag {
  MemberValue ReadProperty(std::string_view key, const MemberValue& unless_kept) override {
    reads.emplace_back(key, unless_kept);
    const auto value = kept.find(key);
    return value == kept.end() ? unless_kept : value->second;
  }
  void WriteProperty(std::string_view key, const MemberValue& value,
                     const MemberValue& unless_kept) override {
    writes.emplace_back(key, unless_kept);
    if (value != unless_kept) kept[std::string(key)] = value;
  }

  TypedRecord kept;
  std::vector<std::pair<std::string, MemberValue>> reads;  // with their defaults
  std::vector<std::pair<std::string, MemberValue>> writes;
};

using PlainRecord = std::map<std::string, std::string>;

inline PlainRecord In_Plain_Texts(const KeepingBag& bag) {
  PlainRecord record;
  for (const auto& [key, value] : bag.kept) record[key] = To_Text(value);
  return record;
}

enum class Kind { Text, N16, N32, Byte };

struct PlainKey {
  const char* key;
  Kind kind;
  const char* on_read;
  const char* on_write;
  const char* at_start;  // null: left alone
};

inline const std::vector<PlainKey> Plain_Keys = {
    {"Stop_everything_now", Kind::Text, "NO", "NO", "NO"},
    {"Add_to_Language", Kind::Text, "NO", "NO", "NO"},
    {"Always_Restart_on_Error", Kind::Text, "NO", "NO", "NO"},
    {"Consider_this_Engine_for_Recognition", Kind::Text, "", "", ""},
    {"Consider_this_Lang_File_to_Add", Kind::Text, "User.SAY", "User.SAY", "UserTemp.SAY"},
    {"Consider_this_Lang_File_to_match", Kind::Text, "User.SAY", "User.SAY", "UserTemp.SAY"},
    {"Current_Processings_Available", Kind::N32, "0", "0", "0"},
    {"Current_Vyanjana_no_Processed", Kind::N32, "0", "0", "0"},
    {"Current_Word_no_Processed", Kind::N16, "0", "0", "0"},
    {"Direct_Add", Kind::Text, "0", "1", "0"},
    {"Enable_Artificial_Intelligence", Kind::Text, "YES", "YES", "YES"},
    {"Enable_Speech_Engine", Kind::Text, "YES", "YES", "YES"},
    {"Engine_Category", Kind::N16, "0", "0", "0"},
    {"Engine_Category_Weight", Kind::N16, "0", "0", "0"},
    {"Engine_Explode_Limit", Kind::N32, "10", "10", "10"},
    {"Explode_out_all_Engine", Kind::Text, "YES", "YES", "YES"},
    {"Filter_Filled_Slots", Kind::N16, "0", "0", "0"},
    {"Filter_Pass_Value", Kind::N16, "1", "1", "1"},
    {"Filter_Slot_Data", Kind::Text, "", "", nullptr},
    {"Filter_Slot_Data_Weight", Kind::N16, "0", "0", nullptr},
    {"I_want_Status_Animation", Kind::Text, "NO", "NO", "NO"},
    {"Keep_Digital_Signal_Processing_level", Kind::Text, "Up", "Up", nullptr},
    {"Keep_Engine_Frequency_Input_Flow", Kind::Text, "Filter All", "Filter All", "Filter All"},
    {"Memory_Clean", Kind::Text, "YES", "YES", "YES"},
    {"No_of_Processings", Kind::N32, "0", "0", "0"},
    {"Noise_Sensitivity", Kind::N16, "3", "3", "3"},
    {"Noise_Word_No_CutOff", Kind::Byte, "4", "4", "4"},
    {"Notify_if_no_language_match", Kind::Text, "NO", "NO", "NO"},
    {"Open_this_Wave_File", Kind::Text, "", "", ""},
    {"Operation_Status", Kind::Text, "", "", ""},
    {"Platinum_Words", Kind::Text, "", "", ""},
    {"Platinum_Word_Best", Kind::Text, "", "", ""},
    {"Platinum_Word_Fifth_Best", Kind::Text, "", "", ""},
    {"Platinum_Word_Font", Kind::Text, "Arial", "", "MS Sans Serif"},
    {"Platinum_Word_Fourth_Best", Kind::Text, "", "", ""},
    {"Platinum_Word_Percentage", Kind::N16, "0", "0", nullptr},
    {"Platinum_Word_Second_Best", Kind::Text, "", "", nullptr},
    {"Platinum_Word_Seventh_Best", Kind::Text, "", "", nullptr},
    {"Platinum_Word_Sixth_Best", Kind::Text, "", "", nullptr},
    {"Platinum_Word_Third_Best", Kind::Text, "", "", nullptr},
    {"Platinum_Words_Available", Kind::N32, "0", "0", "0"},
    {"Play_File", Kind::Text, "", "", ""},
    {"Play_this_file_for_Start", Kind::Text, "", "", "start.wav"},
    {"Play_this_file_for_Stop", Kind::Text, "", "", "stop.wav"},
    {"Play_this_file_on_Initialization", Kind::Text, "", "", "backon.wav"},
    {"Probable_no_of_words_recognized", Kind::N32, "0", "0", "0"},
    {"Sample_Overlap_Bytes", Kind::N16, "0", "0", "0"},
    {"Sample_processing_resolution", Kind::N32, "500", "500", "500"},
    {"Send_of_no", Kind::N32, "0", "0", "0"},
    {"Send_words_one_by_one", Kind::Text, "YES", "YES", "YES"},
    {"Set_Recording_Frequency", Kind::N32, "22050", "22050", "22050"},
    {"Show_Audio_Graph", Kind::Text, "YES", "YES", "YES"},
    {"Show_this_Image_for_Start", Kind::Text, "", "", ""},
    {"Show_this_Image_for_Stop", Kind::Text, "", "", ""},
    {"Speech_echo_feature", Kind::Text, "NO", "NO", "NO"},
    {"Speech_sampling_time_in_ms", Kind::N32, "7000", "7000", "7000"},
    {"This_Audio_Process", Kind::Text, "YES", "YES", "YES"},
    {"This_speech_sample_process_end_only", Kind::Text, "NO", "NO", "NO"},
    {"This_speech_sample_process_middle_only", Kind::Text, "NO", "NO", "NO"},
    {"This_speech_sample_process_Start_only", Kind::Text, "NO", "NO", "NO"},
    {"Voice_Capture_Delay", Kind::N32, "5", "5", "5"},
    {"Voice_Magic_Elements", Kind::Text, "", "", ""},
    {"Voice_Processing_Delay", Kind::N32, "15000", "15000", "15000"},
    {"Voice_Word", Kind::Text, "", "", ""},
    {"Voice_Word_Matched", Kind::Text, "", "", ""},
    {"Voice_Words_Explode_Count", Kind::N32, "0", "0", "0"},
    {"Voice_Words_Matched_Count", Kind::N32, "0", "0", "0"},
    {"Words_I_Check", Kind::Byte, "0", "0", "0"},
    {"Words_I_Want", Kind::Text, "*", "*", "*"},
    {"Words_to_Scan", Kind::N32, "1", "1", "1"},
};

}  // namespace quillspeech::tests
