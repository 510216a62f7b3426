// A control in a container that tells everything that happens to it as JSON, one object a line.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "cli/live_session.hpp"
#include "core/control.hpp"

namespace quillspeech::cli {

// Large: keep it on the heap.
class HostControl final : private Container, private MessageBoxes, private Dialogs {
 public:
  using Json = nlohmann::ordered_json;

  // Makes the session and initialises the first control; its settings are those of a process in
  // which none was ever made or loaded. Throws FileError when a microphone's file cannot be read.
  HostControl(const LiveOptions& options, std::ostream& out);
  ~HostControl() override;
  HostControl(const HostControl&) = delete;
  HostControl& operator=(const HostControl&) = delete;

  // Writes one line, at once.
  void Tell(const Json& line);
  bool Is_Heard() const { return out_.good(); }  // false once a line was lost

  LiveSession& Live() { return *live_; }
  const Control& Last_Control() const { return *control_; }  // ended or not
  std::shared_ptr<Control> Living_Control() const;           // refused once it is ended
  std::shared_ptr<Control> Some_Control();                   // another one when it is ended
  void End();
  // Waits for something to be due and runs it. A failure in there is told: it has nobody else to go
  // to, and the control goes on.
  void Wait_For_Events();

  bool user_mode = true;
  // For what asks next, in Windows-1252; nothing cancels.
  std::deque<std::optional<std::string>> answers;
  // Lets something happen while a window is shown modally; false when it is to close. Set by
  // whoever serves the requests.
  std::function<bool()> Wait_In_Window = [] { return false; };

 private:
  struct Echo {
    std::int64_t first;
    std::int64_t last;
    bool told = false;
  };

  bool User_Mode() const override { return user_mode; }
  void Raise(const ControlEvent& event) override;
  void Property_Changed(std::string_view name) override;
  void Face_Changed(const Face& face) override;
  void Pump_Failed(int number) override;
  BoxAnswer Show(const MessageBox& box) override;
  std::string Ask_Text(const InputBox& box) override;
  std::string Ask_File(const FileDialog& dialog) override;

  void Watch_Echo();
  void Tell_Echo(Echo& echo, std::int64_t bytes);
  std::optional<std::string> Next_Answer();
  std::int64_t Milliseconds() const;

  std::ostream& out_;
  std::unique_ptr<LiveSession> live_;
  Echo* echo_ = nullptr;  // the one that is under way
  Json face_;             // as it was told last
  std::shared_ptr<Control> control_;
};

}  // namespace quillspeech::cli
