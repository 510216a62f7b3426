// One instance of the control: its face, its buttons, its event pump and its life in a container.
// Everything else is the session's, which all instances share.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/control_events.hpp"
#include "core/settings_table.hpp"
#include "platform/event_loop.hpp"
#include "session/session.hpp"

namespace quillspeech {

// The texts that the control shows. A view draws them; the words "first text" and "caption" of a
// new control are the values here.
struct Face {
  std::string Label1 = "Status Update";
  std::string Text1 = "Spoken Word :";
  std::string Text2 = "Pattern :";
  std::uint32_t Text_Colour = 0;  // of Text1 and Text2, 0x00BBGGRR, set at each paint
};

// What surrounds one control.
class Container {
 public:
  virtual ~Container() = default;

  virtual bool User_Mode() const = 0;  // false in design mode
  // On the loop's thread. The handler may call any member, and end the control.
  virtual void Raise(const ControlEvent& event) = 0;
  virtual void Property_Changed(std::string_view name) = 0;
  virtual void Face_Changed(const Face& face) = 0;
};

class Control : public std::enable_shared_from_this<Control> {
 public:
  // Initialises the instance; the container and the session outlive it or its termination.
  static std::shared_ptr<Control> Make(Session& session, Container& container);
  ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // Life in the container.
  void UserControl_Show();
  void UserControl_Paint();
  void UserControl_Terminate();  // once; afterwards nothing reaches the container any more

  // The face.
  void Command1_Click();  // start
  void Command2_Click();  // stop
  void Command3_Click();  // restart
  void Command4_Click();  // the editors
  void Frame1_Click() { Raise(EventId::Click); }
  void Frame2_Click() { Raise(EventId::Click); }
  void Label1_Click() { Raise(EventId::Click); }

  // The event pump, every 50 ms while Timer1 is on.
  void Timer1_Timer();
  Timer& Timer1() { return *timer1_; }

  // Members that are calls.
  void AboutBox();
  void SHOW_LANGUAGE_EDITOR();
  void SHOW_ENGINE_EDITOR();

  void Raise(EventId id, decltype(ControlEvent::argument) argument = {});
  void Set_Label1(std::string_view caption);

  Session& session;
  ControlInstance instance;
  Face face;
  bool Text_Event_Raised = false;
  bool Detected_Event_Raised = false;
  bool Pattern_Event_Raised = false;

 private:
  Control(Session& shared, Container& container);

  bool In_User_Mode() const;

  Container* container_;  // null once the control is terminated
  std::unique_ptr<Timer> timer1_;
};

}  // namespace quillspeech
