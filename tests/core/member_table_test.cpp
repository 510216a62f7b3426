#include "core/member_table.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace quillspeech {
namespace {

// The interface as hosts were built against it.
struct Entry {
  std::string_view name;
  Access access;
  std::int32_t id;
};
const std::vector<Entry> Interface = {
    {"Enabled", Access::Get, -514},
    {"Enabled", Access::Let, -514},
    {"Refresh", Access::Call, 0x6003004E},
    {"hWnd", Access::Get, -515},
    {"AboutBox", Access::Call, -552},
    {"Platinum_Word_Sixth_Best", Access::Let, 0x6803004D},
    {"Platinum_Word_Fifth_Best", Access::Let, 0x6803004C},
    {"Platinum_Word_Fourth_Best", Access::Let, 0x6803004B},
    {"Platinum_Word_Third_Best", Access::Let, 0x6803004A},
    {"Platinum_Word_Second_Best", Access::Let, 0x68030049},
    {"Platinum_Word_Best", Access::Let, 0x68030048},
    {"Platinum_Word_Seventh_Best", Access::Let, 0x68030047},
    {"Platinum_Word_Seventh_Best", Access::Get, 0x68030047},
    {"Platinum_Word_Sixth_Best", Access::Get, 0x6803004D},
    {"Platinum_Word_Fifth_Best", Access::Get, 0x6803004C},
    {"Platinum_Word_Fourth_Best", Access::Get, 0x6803004B},
    {"Platinum_Word_Third_Best", Access::Get, 0x6803004A},
    {"Platinum_Word_Second_Best", Access::Get, 0x68030049},
    {"Direct_Add", Access::Let, 0x68030046},
    {"Direct_Add", Access::Get, 0x68030046},
    {"Platinum_Words", Access::Let, 0x68030045},
    {"Platinum_Words", Access::Get, 0x68030045},
    {"Platinum_Word_Best", Access::Get, 0x68030048},
    {"Sample_Overlap_Bytes", Access::Get, 0x68030044},
    {"Sample_Overlap_Bytes", Access::Let, 0x68030044},
    {"Filter_Pass_Value", Access::Get, 0x68030043},
    {"Filter_Pass_Value", Access::Let, 0x68030043},
    {"Filter_Slot_Data_Weight", Access::Let, 0x68030042},
    {"Filter_Slot_Data_Weight", Access::Get, 0x68030042},
    {"Filter_Slot_Data", Access::Let, 0x68030041},
    {"Filter_Slot_Data", Access::Get, 0x68030041},
    {"Filter_Filled_Slots", Access::Let, 0x68030040},
    {"Filter_Filled_Slots", Access::Get, 0x68030040},
    {"Engine_Category_Code", Access::Let, 0x6803003F},
    {"Engine_Category_Code", Access::Get, 0x6803003F},
    {"Noise_Word_No_CutOff", Access::Get, 0x6803003E},
    {"Noise_Word_No_CutOff", Access::Let, 0x6803003E},
    {"Noise_Sensitivity", Access::Get, 0x6803003D},
    {"Noise_Sensitivity", Access::Let, 0x6803003D},
    {"Engine_Category_Weight", Access::Let, 0x6803003C},
    {"Engine_Category_Weight", Access::Get, 0x6803003C},
    {"Restart", Access::Call, 0x6003004F},
    {"Words_I_Check", Access::Let, 0x6803003B},
    {"Words_I_Check", Access::Get, 0x6803003B},
    {"Keep_Engine_Frequency_Input_Flow", Access::Get, 0x6803003A},
    {"Keep_Engine_Frequency_Input_Flow", Access::Let, 0x6803003A},
    {"Always_Restart_on_Error", Access::Get, 0x68030039},
    {"Always_Restart_on_Error", Access::Let, 0x68030039},
    {"Voice_Capture_Delay", Access::Get, 0x68030038},
    {"Voice_Capture_Delay", Access::Let, 0x68030038},
    {"Voice_Word_Matched", Access::Let, 0x68030037},
    {"Voice_Word_Matched", Access::Get, 0x68030037},
    {"Voice_Words_Matched_Count", Access::Let, 0x68030036},
    {"Voice_Words_Matched_Count", Access::Get, 0x68030036},
    {"Engine_Explode_Limit", Access::Get, 0x68030035},
    {"Engine_Explode_Limit", Access::Let, 0x68030035},
    {"Consider_this_Engine_for_Recognition", Access::Get, 0x68030034},
    {"Consider_this_Engine_for_Recognition", Access::Let, 0x68030034},
    {"Engine_Category", Access::Let, 0x68030033},
    {"Engine_Category", Access::Get, 0x68030033},
    {"I_want_Status_Animation", Access::Get, 0x68030032},
    {"I_want_Status_Animation", Access::Let, 0x68030032},
    {"Words_to_Scan", Access::Get, 0x68030031},
    {"Words_to_Scan", Access::Let, 0x68030031},
    {"Words_I_Want", Access::Get, 0x68030030},
    {"Words_I_Want", Access::Let, 0x68030030},
    {"Explode_out_all_Engine", Access::Get, 0x6803002F},
    {"Explode_out_all_Engine", Access::Let, 0x6803002F},
    {"Operation_Status", Access::Let, 0x6803002E},
    {"Operation_Status", Access::Get, 0x6803002E},
    {"Enable_Speech_Engine", Access::Get, 0x6803002D},
    {"Enable_Speech_Engine", Access::Let, 0x6803002D},
    {"Voice_Words_Explode_Count", Access::Let, 0x6803002C},
    {"Voice_Words_Explode_Count", Access::Get, 0x6803002C},
    {"Voice_Word", Access::Let, 0x6803002B},
    {"Voice_Word", Access::Get, 0x6803002B},
    {"Voice_Magic_Elements", Access::Let, 0x6803002A},
    {"Voice_Magic_Elements", Access::Get, 0x6803002A},
    {"SHOW_LANGUAGE_EDITOR", Access::Call, 0x60030050},
    {"SHOW_ENGINE_EDITOR", Access::Call, 0x60030051},
    {"Platinum_Word_Font", Access::Let, 0x68030029},
    {"Platinum_Word_Font", Access::Get, 0x68030029},
    {"Show_this_Image_for_Stop", Access::Get, 0x68030028},
    {"Show_this_Image_for_Stop", Access::Let, 0x68030028},
    {"Show_this_Image_for_Start", Access::Get, 0x68030027},
    {"Show_this_Image_for_Start", Access::Let, 0x68030027},
    {"Notify_if_no_language_match", Access::Get, 0x68030026},
    {"Notify_if_no_language_match", Access::Let, 0x68030026},
    {"Voice_Processing_Delay", Access::Get, 0x68030025},
    {"Voice_Processing_Delay", Access::Let, 0x68030025},
    {"Enable_Artificial_Intelligence", Access::Get, 0x68030024},
    {"Enable_Artificial_Intelligence", Access::Let, 0x68030024},
    {"Add_To_Language", Access::Get, 0x68030023},
    {"Add_To_Language", Access::Let, 0x68030023},
    {"Consider_this_Lang_File_to_Add", Access::Get, 0x68030022},
    {"Consider_this_Lang_File_to_Add", Access::Let, 0x68030022},
    {"Consider_this_Lang_File_to_match", Access::Get, 0x68030021},
    {"Consider_this_Lang_File_to_match", Access::Let, 0x68030021},
    {"Platinum_Word_Percentage", Access::Let, 0x68030020},
    {"Platinum_Word_Percentage", Access::Get, 0x68030020},
    {"InitializeSound", Access::Call, 0x60030052},
    {"Play_this_file_on_Initialization", Access::Get, 0x6803001F},
    {"Play_this_file_on_Initialization", Access::Let, 0x6803001F},
    {"Play_this_file_for_Stop", Access::Get, 0x6803001E},
    {"Play_this_file_for_Stop", Access::Let, 0x6803001E},
    {"Play_this_file_for_Start", Access::Get, 0x6803001D},
    {"Play_this_file_for_Start", Access::Let, 0x6803001D},
    {"Set_Recording_Frequency", Access::Get, 0x6803001C},
    {"Set_Recording_Frequency", Access::Let, 0x6803001C},
    {"Keep_Digital_Signal_Processing_level", Access::Get, 0x6803001B},
    {"Keep_Digital_Signal_Processing_level", Access::Let, 0x6803001B},
    {"On_speech_show_activities", Access::Get, 0x6803001A},
    {"On_speech_show_activities", Access::Let, 0x6803001A},
    {"Stop_Real_Action", Access::Call, 0x60030053},
    {"Start_Real_Action", Access::Call, 0x60030054},
    {"Audio_Data", Access::Let, 0x68030019},
    {"Audio_Data", Access::Get, 0x68030019},
    {"Platinum_Words_Available", Access::Let, 0x68030018},
    {"Platinum_Words_Available", Access::Get, 0x68030018},
    {"Current_Processings_Available", Access::Let, 0x68030017},
    {"Current_Processings_Available", Access::Get, 0x68030017},
    {"This_speech_sample_process_end_only", Access::Get, 0x68030016},
    {"This_speech_sample_process_middle_only", Access::Get, 0x68030015},
    {"This_speech_sample_process_Start_only", Access::Get, 0x68030014},
    {"This_speech_sample_process_end_only", Access::Let, 0x68030016},
    {"This_speech_sample_process_middle_only", Access::Let, 0x68030015},
    {"This_speech_sample_process_Start_only", Access::Let, 0x68030014},
    {"No_of_Processings", Access::Let, 0x68030013},
    {"No_of_Processings", Access::Get, 0x68030013},
    {"Send_of_no", Access::Get, 0x68030012},
    {"Send_of_no", Access::Let, 0x68030012},
    {"Send_words_one_by_one", Access::Get, 0x68030011},
    {"Send_words_one_by_one", Access::Let, 0x68030011},
    {"Current_Vyanjana_no_Processed", Access::Let, 0x68030010},
    {"Current_Vyanjana_no_Processed", Access::Get, 0x68030010},
    {"Stop_everything_now", Access::Get, 0x6803000F},
    {"Stop_everything_now", Access::Let, 0x6803000F},
    {"Sample_processing_resolution", Access::Get, 0x6803000E},
    {"Sample_processing_resolution", Access::Let, 0x6803000E},
    {"Memory_Clean", Access::Get, 0x6803000D},
    {"Memory_Clean", Access::Let, 0x6803000D},
    {"Open_this_Wave_File", Access::Get, 0x6803000C},
    {"Open_this_Wave_File", Access::Let, 0x6803000C},
    {"Open_Specified_Wave_File_And_Process", Access::Call, 0x60030055},
    {"Current_TooDeepWord_no_Timelength", Access::Let, 0x6803000B},
    {"Current_TooDeepWord_no_Timelength", Access::Get, 0x6803000B},
    {"Current_TooDeepWord_no_Processed", Access::Let, 0x6803000A},
    {"Current_TooDeepWord_no_Processed", Access::Get, 0x6803000A},
    {"Current_DeepWord_no_Timelength", Access::Let, 0x68030009},
    {"Current_DeepWord_no_Timelength", Access::Get, 0x68030009},
    {"Current_DeepWord_no_Processed", Access::Let, 0x68030008},
    {"Current_DeepWord_no_Processed", Access::Get, 0x68030008},
    {"Current_Word_no_Timelength", Access::Let, 0x68030007},
    {"Current_Word_no_Timelength", Access::Get, 0x68030007},
    {"Current_Word_no_Processed", Access::Let, 0x68030006},
    {"Current_Word_no_Processed", Access::Get, 0x68030006},
    {"Probable_no_of_words_recognized", Access::Let, 0x68030005},
    {"Probable_no_of_words_recognized", Access::Get, 0x68030005},
    {"This_Audio_Process", Access::Get, 0x68030004},
    {"This_Audio_Process", Access::Let, 0x68030004},
    {"Play_File", Access::Get, 0x68030003},
    {"Play_File", Access::Let, 0x68030003},
    {"Speech_sampling_time_in_ms", Access::Get, 0x68030002},
    {"Speech_sampling_time_in_ms", Access::Let, 0x68030002},
    {"Show_Audio_Graph", Access::Get, 0x68030001},
    {"Show_Audio_Graph", Access::Let, 0x68030001},
    {"Speech_echo_feature", Access::Get, 0x68030000},
    {"Speech_echo_feature", Access::Let, 0x68030000},
};

const std::map<std::string_view, std::string_view> Help_Texts = {
    {"Keep_Engine_Frequency_Input_Flow", "Use the filter \"FILTER ALL\""},
    {"Enabled", "Enables/Disables  Quillspeech"},
    {"hWnd", "Windows handle of Quillspeech"},
    {"Filter_Pass_Value", "Advanced filter processing value"},
    {"Always_Restart_on_Error", "Controversial but works , any how place this to \"NO\""},
    {"Engine_Explode_Limit", "Reserved"},
    {"Explode_out_all_Engine", "Reserved "},
    {"Consider_this_Engine_for_Recognition",
     "If you have to use your custom charcters then prepare your own Engine File (Not "
     "Recommended)"},
    {"I_want_Status_Animation",
     "Animation for status is not recommended though available as it consumes time device your own "
     "interface instead"},
    {"Enable_Speech_Engine",
     "Takes \"YES\"/\"NO\" just in case you do not want to use the this second stage file scanning "
     "and aviod time waste as the earlier stages seem to complete your job"},
    {"Enable_Artificial_Intelligence",
     "Takes \"YES\"/\"NO\" just in case you do not want to use the SAY file scanning or the last "
     "stage  and aviod time waste as the earlier stages seem to complete your job"},
    {"Add_To_Language", "Specifing a \"YES\" displays the Language Editor after processing"},
    {"Consider_this_Lang_File_to_Add", "Location of your SAY File"},
    {"Consider_this_Lang_File_to_match", "Location of your SAY file"},
    {"InitializeSound", "This instuction plays the specified intializtion  file in loop "},
    {"Keep_Digital_Signal_Processing_level", "Keep this level to 128"},
    {"Memory_Clean", "Use Memory Cleanning \"YES\"/NO\""},
};

const std::set<std::string_view> Numbers_Of_16_Bits = {"Direct_Add",
                                                       "Engine_Category",
                                                       "Engine_Category_Weight",
                                                       "Filter_Pass_Value",
                                                       "Noise_Sensitivity",
                                                       "Noise_Word_No_CutOff",
                                                       "Platinum_Word_Percentage",
                                                       "Sample_Overlap_Bytes",
                                                       "Sample_processing_resolution",
                                                       "Words_I_Check"};

const std::set<std::string_view> Numbers_Of_32_Bits = {"Audio_Data",
                                                       "Current_DeepWord_no_Processed",
                                                       "Current_DeepWord_no_Timelength",
                                                       "Current_Processings_Available",
                                                       "Current_TooDeepWord_no_Processed",
                                                       "Current_TooDeepWord_no_Timelength",
                                                       "Current_Vyanjana_no_Processed",
                                                       "Current_Word_no_Processed",
                                                       "Current_Word_no_Timelength",
                                                       "Engine_Explode_Limit",
                                                       "Filter_Filled_Slots",
                                                       "Filter_Slot_Data_Weight",
                                                       "No_of_Processings",
                                                       "Platinum_Words_Available",
                                                       "Probable_no_of_words_recognized",
                                                       "Send_of_no",
                                                       "Set_Recording_Frequency",
                                                       "Speech_sampling_time_in_ms",
                                                       "Voice_Capture_Delay",
                                                       "Voice_Processing_Delay",
                                                       "Voice_Words_Explode_Count",
                                                       "Voice_Words_Matched_Count",
                                                       "Words_to_Scan",
                                                       "hWnd"};

MemberType Expected_Type(const Entry& entry) {
  if (entry.access == Access::Call) return MemberType::None;
  if (entry.name == "Enabled") return MemberType::Boolean;
  if (Numbers_Of_16_Bits.contains(entry.name)) return MemberType::Number16;
  if (Numbers_Of_32_Bits.contains(entry.name)) return MemberType::Number32;
  return MemberType::Text;
}

std::int64_t Count_Of(Access access) {
  return std::ranges::count(Member_Table(), access, &Member::access);
}

TEST(MemberTable, It_has_the_168_members_in_the_order_of_the_interface) {
  ASSERT_EQ(Interface.size(), 168U);
  ASSERT_EQ(Member_Table().size(), Interface.size());
  for (std::size_t i = 0; i < Interface.size(); ++i) {
    EXPECT_EQ(Member_Table()[i].name, Interface[i].name) << i;
    EXPECT_EQ(Member_Table()[i].access, Interface[i].access) << Interface[i].name;
    EXPECT_EQ(Member_Table()[i].id, Interface[i].id) << Interface[i].name;
  }
}

TEST(MemberTable, It_has_80_gets_79_lets_and_9_calls) {
  EXPECT_EQ(Count_Of(Access::Get), 80);
  EXPECT_EQ(Count_Of(Access::Let), 79);
  EXPECT_EQ(Count_Of(Access::Call), 9);
}

TEST(MemberTable, Each_member_has_the_type_that_hosts_know) {
  for (std::size_t i = 0; i < Interface.size(); ++i) {
    EXPECT_EQ(Member_Table()[i].type, Expected_Type(Interface[i])) << Interface[i].name;
  }
}

TEST(MemberTable, Each_member_has_its_help_text_or_none) {
  for (const Member& member : Member_Table()) {
    const auto help = Help_Texts.find(member.name);
    EXPECT_EQ(member.help, help == Help_Texts.end() ? "" : help->second) << member.name;
  }
}

TEST(MemberTable, Ids_are_those_of_a_property_a_method_or_a_standard_member) {
  std::map<std::string_view, std::int32_t> ids;
  std::set<std::int32_t> properties;
  for (const Member& member : Member_Table()) {
    ids.emplace(member.name, member.id);
    EXPECT_EQ(ids[member.name], member.id) << member.name;
    const auto kind = static_cast<std::uint32_t>(member.id) >> 16;
    const auto expected = member.id < 0                   ? 0xFFFFU
                          : member.access == Access::Call ? 0x6003U
                                                          : 0x6803U;
    EXPECT_EQ(kind, expected) << member.name;
    if (kind == 0x6803) properties.insert(member.id);
  }
  // No gap: 0x68030000 to 0x6803004D.
  EXPECT_EQ(properties.size(), 0x4EU);
  EXPECT_EQ(*properties.begin(), 0x68030000);
  EXPECT_EQ(*properties.rbegin(), 0x6803004D);
}

TEST(MemberTable, Every_property_but_the_window_handle_has_a_get_and_a_let) {
  for (const Member& member : Member_Table()) {
    if (member.access == Access::Call || member.name == "hWnd") continue;
    EXPECT_NE(Find_Member(member.name, Access::Get), nullptr) << member.name;
    EXPECT_NE(Find_Member(member.name, Access::Let), nullptr) << member.name;
  }
  EXPECT_EQ(Find_Member("hWnd", Access::Let), nullptr);
}

TEST(MemberTable, A_member_is_found_by_its_exact_name_and_access) {
  const Member* member = Find_Member("Noise_Sensitivity", Access::Let);
  ASSERT_NE(member, nullptr);
  EXPECT_EQ(member->name, "Noise_Sensitivity");
  EXPECT_EQ(member->access, Access::Let);
  EXPECT_EQ(Find_Member("noise_sensitivity", Access::Let), nullptr);
  EXPECT_EQ(Find_Member("Noise_Sensitivity", Access::Call), nullptr);
  EXPECT_EQ(Find_Member("", Access::Get), nullptr);
}

}  // namespace
}  // namespace quillspeech
