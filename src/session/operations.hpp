// Calls that go up a floor. The floor that owns the operation fills it in; until then it does
// nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace quillspeech {

struct Session;

struct Operations {
  using Procedure = std::function<void(Session&)>;
  static void Nothing(Session&) {}

  // analysis
  Procedure Stop_And_Recover = Nothing;

  // audio
  Procedure Stop_Recording = Nothing;
  Procedure Close_Recorder = Nothing;
  std::function<void(Session&, std::int64_t, std::int64_t)> Play_Echo =
      [](Session&, std::int64_t, std::int64_t) {};  // first and last byte in the store

  // recognition
  Procedure Add_Engine_String_To_Language = Nothing;

  // presentation
  std::function<void(Session&, int)> Show_Status_Image = [](Session&, int) {
  };  // 1 listening, 2 busy
  Procedure Draw_Audio_Graph = Nothing;
  std::function<void(Session&, std::string_view)> Print_On_Graph = [](Session&, std::string_view) {
  };
  Procedure Unload_Graph = Nothing;
  Procedure Unload_StatusBar = Nothing;
  Procedure Show_Splash = Nothing;  // modally: the chooser of the editors
  Procedure Show_Help = Nothing;    // modally
  Procedure Unload_Help = Nothing;
  Procedure Show_ComingSplash = Nothing;  // modally: the notice of upgrades to come

  // editors
  Procedure Load_Database = Nothing;  // the Language Editor's window, not yet shown
  std::function<void(Session&, bool)> Show_Database = [](Session&, bool) {};  // true: modally
  Procedure Unload_Database = Nothing;
  // the Vocabulary and Engine Editor; true: modally
  std::function<void(Session&, bool)> Show_DatabaseVE = [](Session&, bool) {};

  // hosts: a WAV file has just been read into the store; its analysis follows, and is not yet
  // marked as under way
  Procedure Wave_File_Was_Read = Nothing;
};

}  // namespace quillspeech
