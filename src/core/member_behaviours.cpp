#include "core/member_behaviours.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "audio/live_capture.hpp"
#include "base/text.hpp"
#include "core/results_view.hpp"
#include "session/session.hpp"

namespace quillspeech::member_behaviours {

namespace view = results_view;

// Results.

std::string Platinum_Words(const MemberUse& use) {
  auto word = Result<view::Platinum_Words>(use);
  use.Announce();
  return word;
}

// Announced without a name.
std::string Voice_Word(const MemberUse& use) {
  auto word = Result<view::Voice_Word>(use);
  use.instance.Property_Changed({});
  return word;
}

std::int16_t Category(const MemberUse& use) {
  return view::Engine_Category(use.session.slice.Engine_Category.Raw());
}

std::string Category_Code(const MemberUse& use) {
  return view::Engine_Category_Code(use.session.filter, use.session.slice.Engine_Category.Raw());
}

std::int32_t Zero(const MemberUse&) { return 0; }

// Switches.

std::string Yes_Always(const MemberUse&) { return "YES"; }

SetResult Set_Input_Flow(const MemberUse& use, const std::string& text) {
  const bool known = text == "Pass All" || text == "Filter Same";
  use.session.settings.Keep_Engine_Frequency_Input_Flow = known ? text : "Filter All";
  return Announced(use);
}

// Only the level moves: the property's text stays what the last load stored.
SetResult Set_Processing_Level(const MemberUse& use, const std::string& text) {
  use.session.settings.Digital_Signal_Processing_Level = text == "Top"      ? 256
                                                         : text == "Up"     ? 128
                                                         : text == "Middle" ? 100
                                                                            : 80;
  return Announced(use);
}

SetResult Set_Memory_Clean(const MemberUse& use, const std::string& text) {
  if (text == "YES" || text == "NO") {
    use.session.settings.Memory_Clean = text;
    use.Announce();
    if (text == "YES") use.session.results.Platinum_Words_Available = 0;
  }
  return Announced(use);
}

// Only a stop, a restart or a file run switches the flag off again.
SetResult Set_Show_Activities(const MemberUse& use, const std::string& text) {
  if (text != "YES") return SetResult::Done;
  use.session.flags.Show_Activities = 1;
  return Announced(use);
}

// Numbers.

SetResult Set_Words_To_Scan(const MemberUse& use, std::int32_t last) {
  use.session.settings.Words_to_Scan_Start = 1;
  use.session.settings.Words_to_Scan = last;
  return Announced(use);
}

SetResult Set_Direct_Add(const MemberUse& use, std::int16_t record) {
  use.session.settings.Direct_Add_Enabled = record < 1 ? "NO" : "YES";
  use.session.settings.Direct_Add = record;
  return Announced(use);
}

namespace {

constexpr std::int32_t Default_Frequency = 22050;

SetResult Clamp_Sampling_Time(const MemberUse& use, std::int32_t milliseconds,
                              std::string_view text) {
  use.session.settings.Speech_sampling_time_in_ms = milliseconds;
  Show_Box(use.session, text, "Quillspeech Info.", BoxIcon::Information);
  return SetResult::Replaced;
}

}  // namespace

SetResult Set_Frequency(const MemberUse& use, std::int32_t frequency) {
  constexpr std::array<std::int32_t, 5> Known = {5500, 8000, 11025, 22050, 44100};
  const bool known = std::find(Known.begin(), Known.end(), frequency) != Known.end();
  use.session.settings.Set_Recording_Frequency = known ? frequency : Default_Frequency;
  return Announced(use);
}

// A clamped time is stored and no more: the sample length and the start gate stay as they were.
SetResult Set_Sampling_Time(const MemberUse& use, std::int32_t milliseconds) {
  Settings& settings = use.session.settings;
  use.session.flags.Sampling_Time_Set = 1;
  settings.Speech_sampling_time_in_ms = milliseconds;
  if (milliseconds > 60'000 && use.instance.User_Mode) {
    return Clamp_Sampling_Time(use, 60'000, "Maximum recommended sample time is 60000 ms.");
  }
  if (milliseconds < 4'000 && use.instance.User_Mode) {
    return Clamp_Sampling_Time(use, 4'000, "Invalid sample time. Assigning default 4000 ms");
  }
  if (settings.Set_Recording_Frequency <= 0) settings.Set_Recording_Frequency = Default_Frequency;
  use.session.sample.Samples_Per_Capture = Promised_Samples(settings);
  ++use.session.flags.Settings_Ready_Count;
  return Announced(use);
}

// Texts.

std::string Word_Wanted(const MemberUse& use) { return use.session.settings.Words_I_Want[1]; }

// Counts toward the start gate whatever the text is.
SetResult Set_Word_Wanted(const MemberUse& use, const std::string& text) {
  use.session.settings.Words_I_Want[1] = Trimmed(text);
  ++use.session.flags.Settings_Ready_Count;
  return Announced(use);
}

namespace {

// A name that ends as it should is stored without an announcement, so it is not marked for saving.
// One of blanks is not empty: the extension alone is left of it.
SetResult Store_With_Extension(const MemberUse& use, std::string& field, std::string_view text,
                               std::string_view extension) {
  field = Trimmed(text);
  if (field.ends_with(extension)) return SetResult::Done;
  field += extension;
  return Announced(use);
}

}  // namespace

SetResult Set_Engine_File(const MemberUse& use, const std::string& text) {
  std::string& field = use.session.settings.Consider_this_Engine_for_Recognition;
  if (!text.empty()) return Store_With_Extension(use, field, text, ".EGN");
  field.clear();
  return SetResult::Done;
}

SetResult Set_Language_File_To_Match(const MemberUse& use, const std::string& text) {
  if (text.empty() && use.instance.User_Mode) return SetResult::Done;
  return Store_With_Extension(use, use.session.settings.Consider_this_Lang_File_to_match, text,
                              ".SAY");
}

SetResult Set_Language_File_To_Add(const MemberUse& use, const std::string& text) {
  if (text.empty() && use.instance.User_Mode) {
    Show_Box(use.session, "Invalid FileName for Language to add", "Quillspeech User Error",
             BoxIcon::Stop);
    return SetResult::Refused;
  }
  return Store_With_Extension(use, use.session.settings.Consider_this_Lang_File_to_Add, text,
                              ".SAY");
}

std::string Played_File(const MemberUse& use) { return Trimmed(use.instance.Play_File); }

// The let is the command that plays the file, untrimmed as it came.
SetResult Set_Played_File(const MemberUse& use, const std::string& text) {
  use.instance.Play_File = Trimmed(text);
  use.session.ports.cues.Play(text, CueMode::Once);
  return Announced(use);
}

}  // namespace quillspeech::member_behaviours
