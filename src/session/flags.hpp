// The flags that keep the stages of a session apart.
#pragma once

#include <cstdint>
#include <string>

#include "base/checked.hpp"

namespace quillspeech {

struct Flags {
  Checked16 Session_Started;           // 1 from a start until the stop
  Checked16 Session_Alive;             // True from a start until the stop; a restart leaves it
  Checked16 Capture_Busy;              // 1: the pump must not start
  Checked16 Analysis_Running;          // 1: the next recording is held back
  Checked16 Show_Activities;           // 1 once the host asked for activities
  std::uint8_t Stop_Sample_Flag = 0;   // 1: skip the remaining words of this sample
  Checked16 File_Run_Active;           // 1: work runs outside a live session
  Checked16 Settings_Ready_Count = 2;  // a session starts from 2 on
  Checked16 Stopped_Marker;            // written only
  std::string Stopped_Text;            // written only
  std::string Operation_Status;        // names the stage that wrote it last
  Checked16 Sampling_Time_Set;         // written only
  Checked16 Language_Editor_Loaded;    // True while the Language Editor's window is loaded

  // From the rest or a control's end until there is work again or a new control: an analysis that
  // is still on the stack brings up no window that nobody would close.
  bool Windows_Stay_Away = false;

  // The answer of Is_Design_Environment, asked once.
  std::int16_t Design_Environment_Tested = False;
  std::int16_t Design_Environment_Result = False;
};

}  // namespace quillspeech
