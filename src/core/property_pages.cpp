#include "core/property_pages.hpp"

#include <array>
#include <utility>

#include "core/property_page_layout.hpp"
#include "presentation/help_page.hpp"

namespace quillspeech {
namespace {

constexpr PageBox Unbound(std::string_view name) { return {name, false}; }

constexpr auto Starting_Keys = std::to_array<PageBox>({
    {"Memory_Clean"},
    {"Stop_everything_now"},
    {"Send_words_one_by_one"},
    {"On_speech_show_activities"},
});

constexpr auto Interesting_Settings = std::to_array<PageBox>({
    {"Speech_echo_feature"},
    {"Show_Audio_Graph"},
    {"Show_this_Image_for_Start"},
    {"Show_this_Image_for_Stop"},
    {"Operation_Status"},
    {"Play_File"},
    {"Play_this_file_for_Start"},
    {"Play_this_file_for_Stop"},
    {"Play_this_file_on_Initialization"},
    {"I_want_Status_Animation"},
});

constexpr auto Windows_Technical_Settings = std::to_array<PageBox>({
    {"Audio_Data"},
    {"Sample_Overlap_Bytes"},
    {"Speech_sampling_time_in_ms"},
    {"This_Audio_Process"},
    {"Probable_no_of_words_recognized"},
    {"Current_Word_no_Processed"},
    {"Current_Word_no_Timelength"},
    {"Sample_processing_resolution"},
    {"Current_Vyanjana_no_Processed"},
    {"No_of_Processings"},
    {"This_speech_sample_process_Start_only"},
    {"This_speech_sample_process_middle_only"},
    {"This_speech_sample_process_end_only"},
    {"Current_Processings_Available"},
    {"Keep_Digital_Signal_Processing_level"},
    {"Set_Recording_Frequency"},
    {"Voice_Processing_Delay"},
    {"Voice_Capture_Delay"},
    {"Noise_Sensitivity"},
    {"Noise_Word_No_CutOff"},
});

constexpr auto Engine_Department = std::to_array<PageBox>({
    {"Voice_Magic_Elements"},
    {"Voice_Words_Explode_Count"},
    {"Enable_Speech_Engine"},
    {"Explode_out_all_Engine"},
    {"Words_I_Want"},
    {"Words_to_Scan"},
    {"Consider_this_Engine_for_Recognition"},
    {"Engine_Explode_Limit"},
    {"Voice_Words_Matched_Count"},
    Unbound("Voice_Word"),
    {"Voice_Word_Matched"},
    {"Keep_Engine_Frequency_Input_Flow"},
    {"Words_I_Check"},
    Unbound("Engine_Category"),
    {"Engine_Category_Weight"},
    {"Engine_Category_Code"},
    {"Filter_Filled_Slots"},
    Unbound("Filter_Slot_Data"),
    {"Filter_Slot_Data_Weight"},
    {"Filter_Pass_Value"},
});

constexpr auto Language_Department = std::to_array<PageBox>({
    {"Send_of_no"},
    {"Platinum_Words_Available"},
    Unbound("Platinum_Word"),
    {"Platinum_Word_Percentage"},
    {"Consider_this_Lang_File_to_match"},
    {"Consider_this_Lang_File_to_Add"},
    {"Add_To_Language"},
    {"Enable_Artificial_Intelligence"},
    {"Notify_if_no_language_match"},
    {"Platinum_Word_Font"},
    {"Platinum_Word_Best"},
    {"Direct_Add"},
    {"Platinum_Word_Second_Best"},
    {"Platinum_Word_Third_Best"},
    {"Platinum_Word_Fourth_Best"},
    {"Platinum_Word_Fifth_Best"},
    {"Platinum_Word_Sixth_Best"},
    {"Platinum_Word_Seventh_Best"},
});

constexpr auto Wave_Audio_Department = std::to_array<PageBox>({
    {"Current_DeepWord_no_Processed"},
    {"Current_DeepWord_no_Timelength"},
    {"Current_TooDeepWord_no_Processed"},
    {"Current_TooDeepWord_no_Timelength"},
    {"Open_this_Wave_File"},
});

constexpr auto Error_Department = std::to_array<PageBox>({{"Always_Restart_on_Error"}});

// Some captions carry blanks of their own.
constexpr std::array<PropertyPage, Property_Page_Count> Pages{{
    {"StartingKeys", "Starting Keys", Starting_Keys},
    {"InterestingSettings", "Interesting  Settings", Interesting_Settings},
    {"WindowsTechnicalSettings", "Windows Technical  Settings", Windows_Technical_Settings},
    {"EngineDepartment", "Engine Department", Engine_Department},
    {"LanguageDepartment", "Language Department ", Language_Department},
    {"WaveAudioDepartment", "MS Wave Audio ", Wave_Audio_Department},
    {"ErrorDepartment", "Error Department", Error_Department},
    {"SoundCardSettings", "Sound Card Settings", {}, false},
}};

std::string Box_Named(std::string_view member) { return "txt" + std::string(member); }

}  // namespace

std::span<const PropertyPage, Property_Page_Count> Property_Pages() { return Pages; }

std::vector<std::string_view> Bound_Members(const PropertyPage& page) {
  std::vector<std::string_view> members;
  for (const PageBox& box : page.boxes) {
    if (box.is_bound) members.push_back(box.name);
  }
  return members;
}

PageForm::PageForm(const PropertyPage& page, Session& session,
                   std::function<std::intptr_t()> window)
    : page_(page), form_(std::string(page.name), std::string(page.caption), Page_Size(page)) {
  Lay_Out_Page(page, form_);
  for (const PageBox& box : page.boxes) {
    form_.On(Box_Named(box.name), FormEvent::Change, [this] {
      is_changed_ = true;
      if (At_Change) At_Change();
    });
  }
  if (!page.has_help) return;
  form_.On("Command1", FormEvent::Click,
           [&session, window = std::move(window)] { Show_Help_File(session, window()); });
}

void PageForm::PropertyPage_SelectionChanged(MemberSource& control) {
  for (const std::string_view member : Bound_Members(page_)) {
    form_.Set_Text(Box_Named(member), control.Get(member));
  }
  is_changed_ = false;
}

void PageForm::PropertyPage_ApplyChanges(MemberSource& control) {
  for (const std::string_view member : Bound_Members(page_)) {
    control.Let(member, form_[Box_Named(member)].text);
  }
  is_changed_ = false;
}

}  // namespace quillspeech
