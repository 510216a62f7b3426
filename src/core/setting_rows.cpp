// The rows of the settings.
#include <algorithm>
#include <array>
#include <cstdint>

#include "base/checked.hpp"
#include "base/rounding.hpp"
#include "base/text.hpp"
#include "core/settings_table.hpp"

namespace quillspeech {

namespace {

// Getters.

template <std::string Settings::*field>
std::string Text_Of(Session& session, ControlInstance&) {
  return Trimmed(session.settings.*field);
}

template <std::string Settings::*field>
std::string Untrimmed_Text_Of(Session& session, ControlInstance&) {
  return session.settings.*field;
}

template <auto field>
std::string Number_Of(Session& session, ControlInstance&) {
  return std::to_string((session.settings.*field).Raw());
}

std::string Yes_Always(Session&, ControlInstance&) { return "YES"; }

std::string Words_I_Want_Of(Session& session, ControlInstance&) {
  return session.settings.Words_I_Want[1];
}

std::string Play_File_Of(Session&, ControlInstance& instance) {
  return Trimmed(instance.Play_File);
}

// Switches.

// Any text but the two leaves the value as it was.
template <std::string Settings::*field>
SetResult Keep_Unless_Yes_Or_No(const SetCall& call) {
  if (call.text == "YES" || call.text == "NO") call.session.settings.*field = call.text;
  call.Announce();
  return SetResult::Done;
}

template <std::string Settings::*field>
SetResult Yes_Unless_No(const SetCall& call) {
  call.session.settings.*field = call.text == "NO" ? "NO" : "YES";
  call.Announce();
  return SetResult::Done;
}

template <std::string Settings::*field>
SetResult No_Unless_Yes(const SetCall& call) {
  call.session.settings.*field = call.text == "YES" ? "YES" : "NO";
  call.Announce();
  return SetResult::Done;
}

SetResult Set_Input_Flow(const SetCall& call) {
  const bool known = call.text == "Pass All" || call.text == "Filter Same";
  call.session.settings.Keep_Engine_Frequency_Input_Flow = known ? call.text : "Filter All";
  call.Announce();
  return SetResult::Done;
}

// Only the level moves: the property's text stays what the last load stored.
SetResult Set_Processing_Level(const SetCall& call) {
  call.session.settings.Digital_Signal_Processing_Level = call.text == "Top"      ? 256
                                                          : call.text == "Up"     ? 128
                                                          : call.text == "Middle" ? 100
                                                                                  : 80;
  call.Announce();
  return SetResult::Done;
}

SetResult Set_Memory_Clean(const SetCall& call) {
  if (call.text == "YES" || call.text == "NO") {
    call.session.settings.Memory_Clean = call.text;
    call.Announce();
    if (call.text == "YES") call.session.results.Platinum_Words_Available = 0;
  }
  call.Announce();
  return SetResult::Done;
}

// Only a stop, a restart or a file run switches the flag off again.
SetResult Set_Show_Activities(const SetCall& call) {
  if (call.text != "YES") return SetResult::Done;
  call.session.flags.Show_Activities = 1;
  call.Announce();
  return SetResult::Done;
}

// Numbers.

double Number_In(std::string_view text) {
  const auto number = Text_To_Number(text);
  if (!number) Fail(Failure::Type_Mismatch);
  return *number;
}

std::int64_t Number_16_In(std::string_view text) { return Round_To_16(Number_In(text)); }
std::int64_t Number_32_In(std::string_view text) { return Round_To_32(Number_In(text)); }

enum class Change { Announced, Silent };

// The member's own width first, then the width of what is stored.
template <auto field, auto number_in, Change change>
SetResult Store_Number(const SetCall& call) {
  call.session.settings.*field = number_in(call.text);
  if (change == Change::Announced) call.Announce();
  return SetResult::Done;
}

template <auto field, auto number_in, Change change = Change::Announced>
SetResult Store_Tested_Number(const SetCall& call) {
  if (Text_To_Number(call.text)) return Store_Number<field, number_in, change>(call);
  // One message has its own spelling of the name.
  const std::string_view spelled =
      call.name == "Voice_Processing_Delay" ? "Voice_processing_Delay" : call.name;
  Show_Box(call.session, "Incorrect Settings for " + std::string(spelled) + " ",
           "Quillspeech Settings");
  return SetResult::Refused;
}

template <auto field>
constexpr auto Plain_16 = Store_Number<field, Number_16_In, Change::Announced>;
template <auto field, Change change = Change::Announced>
constexpr auto Tested_16 = Store_Tested_Number<field, Number_16_In, change>;
template <auto field, Change change = Change::Announced>
constexpr auto Tested_32 = Store_Tested_Number<field, Number_32_In, change>;

SetResult Set_Words_To_Scan(const SetCall& call) {
  const auto last = Number_32_In(call.text);
  call.session.settings.Words_to_Scan_Start = 1;
  call.session.settings.Words_to_Scan = last;
  call.Announce();
  return SetResult::Done;
}

SetResult Set_Direct_Add(const SetCall& call) {
  const auto record = Number_16_In(call.text);
  call.session.settings.Direct_Add_Enabled = record < 1 ? "NO" : "YES";
  call.session.settings.Direct_Add = record;
  call.Announce();
  return SetResult::Done;
}

constexpr std::int64_t Default_Frequency = 22050;

SetResult Set_Frequency(const SetCall& call) {
  constexpr std::array<std::int64_t, 5> Known = {5500, 8000, 11025, 22050, 44100};
  const auto frequency = Number_32_In(call.text);
  const bool known = std::find(Known.begin(), Known.end(), frequency) != Known.end();
  call.session.settings.Set_Recording_Frequency = known ? frequency : Default_Frequency;
  call.Announce();
  return SetResult::Done;
}

SetResult Clamp_Sampling_Time(const SetCall& call, std::int64_t milliseconds,
                              std::string_view text) {
  call.session.settings.Speech_sampling_time_in_ms = milliseconds;
  Show_Box(call.session, text, "Quillspeech Info.", BoxIcon::Information);
  return SetResult::Replaced;
}

// A clamped time is stored and no more: the sample length and the start gate stay as they were.
SetResult Set_Sampling_Time(const SetCall& call) {
  Settings& settings = call.session.settings;
  const auto milliseconds = Number_32_In(call.text);
  call.session.flags.Sampling_Time_Set = 1;
  settings.Speech_sampling_time_in_ms = milliseconds;
  if (milliseconds > 60'000 && call.instance.User_Mode) {
    return Clamp_Sampling_Time(call, 60'000, "Maximum recommended sample time is 60000 ms.");
  }
  if (milliseconds < 4'000 && call.instance.User_Mode) {
    return Clamp_Sampling_Time(call, 4'000, "Invalid sample time. Assigning default 4000 ms");
  }
  if (settings.Set_Recording_Frequency <= 0) settings.Set_Recording_Frequency = Default_Frequency;
  const Checked32 product = settings.Speech_sampling_time_in_ms * settings.Set_Recording_Frequency;
  call.session.sample.Samples_Per_Capture = Rounded_Quotient(product, 1000);
  ++call.session.flags.Settings_Ready_Count;
  call.Announce();
  return SetResult::Done;
}

// Texts.

// Counts toward the start gate whatever the text is.
SetResult Set_Words_I_Want(const SetCall& call) {
  call.session.settings.Words_I_Want[1] = Trimmed(call.text);
  ++call.session.flags.Settings_Ready_Count;
  call.Announce();
  return SetResult::Done;
}

template <std::string Settings::*field>
SetResult Store_Trimmed(const SetCall& call) {
  call.session.settings.*field = Trimmed(call.text);
  call.Announce();
  return SetResult::Done;
}

// A name that ends as it should is stored without an announcement, so it is not marked for saving.
SetResult Store_With_Extension(const SetCall& call, std::string& field,
                               std::string_view extension) {
  field = Trimmed(call.text);
  if (field.ends_with(extension)) return SetResult::Done;
  field += extension;
  call.Announce();
  return SetResult::Done;
}

SetResult Set_Engine_File(const SetCall& call) {
  std::string& field = call.session.settings.Consider_this_Engine_for_Recognition;
  if (!Trim(call.text).empty()) return Store_With_Extension(call, field, ".EGN");
  field.clear();
  return SetResult::Done;
}

SetResult Set_Language_File_To_Match(const SetCall& call) {
  if (Trim(call.text).empty() && call.instance.User_Mode) return SetResult::Done;
  return Store_With_Extension(call, call.session.settings.Consider_this_Lang_File_to_match, ".SAY");
}

SetResult Set_Language_File_To_Add(const SetCall& call) {
  if (Trim(call.text).empty() && call.instance.User_Mode) {
    Show_Box(call.session, "Invalid FileName for Language to add", "Quillspeech User Error",
             BoxIcon::Stop);
    return SetResult::Refused;
  }
  return Store_With_Extension(call, call.session.settings.Consider_this_Lang_File_to_Add, ".SAY");
}

// The set is the command that plays the file.
SetResult Set_Play_File(const SetCall& call) {
  call.instance.Play_File = Trimmed(call.text);
  call.session.ports.cues.Play(std::string(call.text), CueMode::Once);
  call.Announce();
  return SetResult::Done;
}

// The table.

using S = Settings;

template <std::string Settings::*field>
constexpr Member Switch_That_Keeps(std::string_view name) {
  return {name, Text_Of<field>, Keep_Unless_Yes_Or_No<field>};
}
template <std::string Settings::*field>
constexpr Member File_Name(std::string_view name) {
  return {name, Text_Of<field>, Store_Trimmed<field>};
}

constexpr auto Setting_Rows = std::to_array<Member>({
    // Switches.
    {"Stop_everything_now", Untrimmed_Text_Of<&S::Stop_everything_now>,
     Keep_Unless_Yes_Or_No<&S::Stop_everything_now>},
    Switch_That_Keeps<&S::Send_words_one_by_one>("Send_words_one_by_one"),
    Switch_That_Keeps<&S::This_Audio_Process>("This_Audio_Process"),
    Switch_That_Keeps<&S::Show_Audio_Graph>("Show_Audio_Graph"),
    Switch_That_Keeps<&S::Speech_echo_feature>("Speech_echo_feature"),
    Switch_That_Keeps<&S::This_speech_sample_process_Start_only>(
        "This_speech_sample_process_Start_only"),
    Switch_That_Keeps<&S::This_speech_sample_process_middle_only>(
        "This_speech_sample_process_middle_only"),
    Switch_That_Keeps<&S::This_speech_sample_process_end_only>(
        "This_speech_sample_process_end_only"),
    {"Always_Restart_on_Error", Text_Of<&S::Always_Restart_on_Error>,
     Yes_Unless_No<&S::Always_Restart_on_Error>},
    {"I_want_Status_Animation", Text_Of<&S::I_want_Status_Animation>,
     Yes_Unless_No<&S::I_want_Status_Animation>},
    {"Enable_Speech_Engine", Text_Of<&S::Enable_Speech_Engine>,
     Yes_Unless_No<&S::Enable_Speech_Engine>},
    {"Explode_out_all_Engine", Text_Of<&S::Explode_out_all_Engine>,
     No_Unless_Yes<&S::Explode_out_all_Engine>},
    {"Notify_if_no_language_match", Text_Of<&S::Notify_if_no_language_match>,
     No_Unless_Yes<&S::Notify_if_no_language_match>},
    {"Enable_Artificial_Intelligence", Text_Of<&S::Enable_Artificial_Intelligence>,
     No_Unless_Yes<&S::Enable_Artificial_Intelligence>},
    {"Add_To_Language", Text_Of<&S::Add_To_Language>, No_Unless_Yes<&S::Add_To_Language>},
    {"Keep_Engine_Frequency_Input_Flow", Text_Of<&S::Keep_Engine_Frequency_Input_Flow>,
     Set_Input_Flow},
    {"Keep_Digital_Signal_Processing_level", Text_Of<&S::Keep_Digital_Signal_Processing_level>,
     Set_Processing_Level},
    {"Memory_Clean", Text_Of<&S::Memory_Clean>, Set_Memory_Clean},
    {"On_speech_show_activities", Yes_Always, Set_Show_Activities},

    // Numbers.
    {"Sample_Overlap_Bytes", Number_Of<&S::Sample_Overlap_Bytes>,
     Plain_16<&S::Sample_Overlap_Bytes>},
    {"Noise_Sensitivity", Number_Of<&S::Noise_Sensitivity>, Plain_16<&S::Noise_Sensitivity>},
    {"Filter_Pass_Value", Number_Of<&S::Filter_Pass_Value>,
     Tested_16<&S::Filter_Pass_Value, Change::Silent>},
    {"Noise_Word_No_CutOff", Number_Of<&S::Noise_Word_No_CutOff>,
     Tested_16<&S::Noise_Word_No_CutOff>},
    {"Voice_Capture_Delay", Number_Of<&S::Voice_Capture_Delay>, Tested_32<&S::Voice_Capture_Delay>},
    {"Engine_Explode_Limit", Number_Of<&S::Engine_Explode_Limit>,
     Tested_32<&S::Engine_Explode_Limit, Change::Silent>},
    {"Voice_Processing_Delay", Number_Of<&S::Voice_Processing_Delay>,
     Tested_32<&S::Voice_Processing_Delay>},
    {"Send_of_no", Number_Of<&S::Send_of_no>, Tested_32<&S::Send_of_no>},
    {"Sample_processing_resolution", Number_Of<&S::Sample_processing_resolution>,
     Tested_16<&S::Sample_processing_resolution>},
    {"Words_to_Scan", Number_Of<&S::Words_to_Scan>, Set_Words_To_Scan},
    {"Direct_Add", Number_Of<&S::Direct_Add>, Set_Direct_Add},
    {"Set_Recording_Frequency", Number_Of<&S::Set_Recording_Frequency>, Set_Frequency},
    {"Speech_sampling_time_in_ms", Number_Of<&S::Speech_sampling_time_in_ms>, Set_Sampling_Time},

    // Texts and file names.
    {"Words_I_Want", Words_I_Want_Of, Set_Words_I_Want},
    {"Consider_this_Engine_for_Recognition", Text_Of<&S::Consider_this_Engine_for_Recognition>,
     Set_Engine_File},
    {"Consider_this_Lang_File_to_Add", Text_Of<&S::Consider_this_Lang_File_to_Add>,
     Set_Language_File_To_Add},
    {"Consider_this_Lang_File_to_match", Text_Of<&S::Consider_this_Lang_File_to_match>,
     Set_Language_File_To_Match},
    {"Open_this_Wave_File", Untrimmed_Text_Of<&S::Open_this_Wave_File>,
     Store_Trimmed<&S::Open_this_Wave_File>},
    File_Name<&S::Show_this_Image_for_Start>("Show_this_Image_for_Start"),
    File_Name<&S::Show_this_Image_for_Stop>("Show_this_Image_for_Stop"),
    File_Name<&S::Play_this_file_for_Start>("Play_this_file_for_Start"),
    File_Name<&S::Play_this_file_for_Stop>("Play_this_file_for_Stop"),
    File_Name<&S::Play_this_file_on_Initialization>("Play_this_file_on_Initialization"),
    {"Play_File", Play_File_Of, Set_Play_File},
});

}  // namespace

std::span<const Member> Setting_Members() { return Setting_Rows; }

}  // namespace quillspeech
