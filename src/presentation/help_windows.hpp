// The small windows between a developer and the rest: Help, which greets each new control; Splash,
// the chooser that leads to the editors; ComingSplash, a notice of upgrades to come.
#pragma once

#include <cstdint>

#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

class HelpWindows {
 public:
  // Outlives neither the session nor its ports.
  explicit HelpWindows(Session& session);

  Form& Help() { return help_; }
  Form& Splash() { return splash_; }
  Form& ComingSplash() { return coming_splash_; }

 private:
  void Help_Command3_Click();
  void Help_KeyPress(unsigned char key);
  void Splash_Command2_Click();
  void Splash_Command3_Click();
  void Splash_KeyPress(unsigned char key);

  Session& session_;
  Form help_;
  Form splash_;
  Form coming_splash_;
};

// Makes the windows and fills in the operations that show and unload them. They live as long as the
// session's operations.
void Connect_Help_Windows(Session& session);

}  // namespace quillspeech
