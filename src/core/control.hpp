// One instance of the control: its face, its buttons, its event pump and its life in a container.
// Everything else is the session's, which all instances share.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/control_events.hpp"
#include "core/control_face.hpp"
#include "core/member_table.hpp"
#include "platform/event_loop.hpp"
#include "session/session.hpp"

namespace quillspeech {

// What surrounds one control.
class Container {
 public:
  virtual ~Container() = default;

  virtual bool User_Mode() const = 0;  // false in design mode
  // On the loop's thread. The handler may call any member, and end the control.
  virtual void Raise(const ControlEvent& event) = 0;
  virtual void Property_Changed(std::string_view name) = 0;
  virtual void Face_Changed(const Face& face) = 0;  // only when it did
  // A tick of the event pump was ended by a failure, mostly one of the host's own handler. Code
  // that has yielded to that tick goes on all the same. Not to fail itself. A container may leave
  // it: a handler's failure is the host's own to tell, and what is left, lack of memory mostly,
  // would come back every 50 ms.
  virtual void Pump_Failed(int /*number*/) {}

  // The window around the face. A container without one leaves these.
  virtual void Enabled_Changed(bool) {}
  virtual std::int32_t Window_Handle() const { return 0; }
  virtual void Repaint() {}
};

// Its members may be called from inside its events; the instance stays in memory until the call
// that stands deepest has returned, even when a handler terminates it and lets go of it.
class Control : public std::enable_shared_from_this<Control> {
 public:
  // Initialises the instance. The session outlives it; the container outlives its termination.
  static std::shared_ptr<Control> Make(Session& session, Container& container);
  ~Control();  // terminates it, unless that was done
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // Life in the container. UserControl_Resize is the face's.
  void UserControl_Initialize();
  void UserControl_Show();
  void UserControl_Paint();
  void UserControl_Terminate();  // once; afterwards nothing reaches the container any more
  bool Is_Terminated() const { return container_ == nullptr; }

  // The face.
  void Command1_Click();  // start
  void Command2_Click();  // stop
  void Command3_Click();  // restart
  void Command4_Click();  // the editors
  void Frame1_Click() { Raise(EventId::Click); }
  void Frame2_Click() { Raise(EventId::Click); }
  void Label1_Click() { Raise(EventId::Click); }
  // A person's click on the child control of that name; the text boxes do nothing then. False when
  // nothing of that name can be clicked.
  bool Click_On(std::string_view child);
  // What a person has made of the text in Text1 or Text2 stays until a result takes its place.
  void Type_Into(std::string_view child, std::string_view text);

  // The event pump, every 50 ms while Timer1 is on. Traps no failure; the timer's tick does.
  void Timer1_Timer();
  Timer& Timer1() { return *timer1_; }
  bool Is_Timer1_On() const { return timer1_->Is_Enabled(); }
  void Enable_Timer1(bool on);  // that of a terminated control stays off

  // Members that are calls.
  void AboutBox();
  void SHOW_LANGUAGE_EDITOR();
  void SHOW_ENGINE_EDITOR();
  void Refresh();

  // Members that pass to the container. Their rows announce them (core/member_table.hpp).
  bool Enabled() const { return enabled_; }
  void Set_Enabled(bool enabled);
  std::int32_t hWnd() const;  // 0: there is no window

  bool In_User_Mode();  // asks the container; the last answer holds once it is gone

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

  template <class Value>
  void Show(Value Face::*part, const Value& value);

  void Run_Tick();

  // Steps of the pump.
  void Raise_Status_Event();
  void Show_Status();
  void Raise_Text_Event();
  void Raise_Pattern_Event();
  void Raise_Detected_Event();
  void Show_Pattern();
  void Show_Best_Word();
  void Raise_No_Match();

  Container* container_;  // null once the control is terminated
  std::unique_ptr<Timer> timer1_;
  bool enabled_ = true;
};

// Defined here because both the face and the pump show things.
template <class Value>
void Control::Show(Value Face::*part, const Value& value) {
  if (face.*part == value) return;
  const auto self = shared_from_this();
  face.*part = value;
  if (container_) container_->Face_Changed(face);
}

}  // namespace quillspeech
