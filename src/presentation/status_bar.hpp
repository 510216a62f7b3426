// The window StatusBar: a picture that tells listening from busy.
#pragma once

#include <string>

#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

class StatusBar {
 public:
  // Outlives neither the session nor its ports.
  explicit StatusBar(Session& session);

  Form& Window() { return window_; }

  // 1: listening, 2: busy. Nothing unless I_want_Status_Animation is "YES" and the host is a design
  // environment. No failure of the window or of a picture file goes out; such a file leaves the
  // picture that is on view. A file is read when it comes on view, not at every call.
  void Show_Status_Image(int mode);

 private:
  void Take_Picture(int mode);
  void Take_Picture_Of(std::string_view image);  // of another image of the window
  void Take_Picture_From(const std::string& file);

  Session& session_;
  Form window_;
  std::string file_on_view_;  // empty: none
};

// Makes the window and fills in the operations that show and unload it. It lives as long as the
// session's operations.
void Connect_Status_Bar(Session& session);

}  // namespace quillspeech
