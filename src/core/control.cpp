#include "core/control.hpp"

#include <array>
#include <chrono>
#include <utility>

#include "core/session_operations.hpp"
#include "recognition/engine_table.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr std::chrono::milliseconds Pump_Interval{50};

// Errors of these windows are nobody's.
void Show_Window(Session& session, const Operations::Procedure& show) {
  Run_Silently_Trapped(session, [&] { show(session); });
}

}  // namespace

std::shared_ptr<Control> Control::Make(Session& session, Container& container) {
  std::shared_ptr<Control> control(new Control(session, container));
  control->UserControl_Initialize();
  return control;
}

Control::Control(Session& shared, Container& container) : session(shared), container_(&container) {
  timer1_ = session.ports.events.Make_Timer(Pump_Interval, [this] { Run_Tick(); });
  instance.Property_Changed = [this](std::string_view name) {
    if (container_) container_->Property_Changed(name);
  };
  instance.control = this;
}

// Nothing may leave a destructor.
Control::~Control() {
  Ends_Well(session, [this] { UserControl_Terminate(); });
}

// Also while another instance's session runs: the flag and the table are shared.
void Control::UserControl_Initialize() {
  Load_Default_Engine_Table(session);
  session.flags.Session_Started = 0;
  session.flags.Windows_Stay_Away = false;
}

void Control::UserControl_Show() {
  const auto self = shared_from_this();
  Set_Label1(In_User_Mode() ? "Sleeping" : "Status Update");
}

void Control::UserControl_Paint() {
  const auto self = shared_from_this();
  Show(&Face::Text_Colour, In_User_Mode() ? Pure_Green : Light_Grey);
}

void Control::UserControl_Terminate() {
  if (Is_Terminated()) return;
  container_ = nullptr;
  Enable_Timer1(false);
  Terminate_Session(session);  // where the last pointer to this control may go
}

void Control::Command1_Click() {
  const auto self = shared_from_this();
  if (!In_User_Mode()) return Enable_Timer1(false);
  // Before the start, so that the pump runs even when the settings are incomplete.
  Enable_Timer1(true);
  Start_Real_Action(*this);
}

void Control::Command2_Click() {
  const auto self = shared_from_this();
  if (!In_User_Mode()) return Enable_Timer1(false);
  if (session.flags.Session_Alive != False) Stop_Real_Action(*this);
}

void Control::Command3_Click() {
  const auto self = shared_from_this();
  if (!In_User_Mode() || session.flags.Session_Alive != True) return Enable_Timer1(false);
  Restart(*this);
}

void Control::Command4_Click() {
  const auto self = shared_from_this();
  if (!In_User_Mode()) return;
  if (session.flags.Session_Alive == True) {
    Enable_Timer1(false);
    Stop_Real_Action(*this);
  }
  Settings& settings = session.settings;
  for (std::string* file :
       {&settings.Consider_this_Lang_File_to_Add, &settings.Consider_this_Lang_File_to_match}) {
    if (!file->empty()) continue;
    *file = "User.SAY";
    Set_Label1("Unspecified Languge File to Add|Match");
  }
  Show_Window(session, session.operations.Show_Splash);
}

bool Control::Click_On(std::string_view child) {
  using Handler = void (Control::*)();
  constexpr auto Handlers = std::to_array<std::pair<std::string_view, Handler>>({
      {"Frame1", &Control::Frame1_Click},
      {"Command4", &Control::Command4_Click},
      {"Command3", &Control::Command3_Click},
      {"Command2", &Control::Command2_Click},
      {"Command1", &Control::Command1_Click},
      {"Frame2", &Control::Frame2_Click},
      {"Label1", &Control::Label1_Click},
  });
  for (const auto& [name, handler] : Handlers) {
    if (name != child) continue;
    (this->*handler)();
    return true;
  }
  return child == "Text1" || child == "Text2";
}

void Control::Type_Into(std::string_view child, std::string_view text) {
  if (child == "Text1") Show(&Face::Text1, std::string(text));
  if (child == "Text2") Show(&Face::Text2, std::string(text));
}

void Control::AboutBox() { Show_Window(session, session.operations.Show_Help); }
void Control::SHOW_LANGUAGE_EDITOR() { Show_Window(session, session.operations.Show_Splash); }
void Control::SHOW_ENGINE_EDITOR() { Show_Window(session, session.operations.Show_Splash); }

void Control::Refresh() {
  if (container_) container_->Repaint();
}

void Control::Set_Enabled(bool enabled) {
  const auto self = shared_from_this();
  enabled_ = enabled;
  if (container_) container_->Enabled_Changed(enabled);
}

std::int32_t Control::hWnd() const { return container_ ? container_->Window_Handle() : 0; }

void Control::Raise(EventId id, decltype(ControlEvent::argument) argument) {
  const auto self = shared_from_this();
  if (container_) container_->Raise({id, std::move(argument)});
}

void Control::Set_Label1(std::string_view caption) { Show(&Face::Label1, std::string(caption)); }

void Control::Enable_Timer1(bool on) { timer1_->Enable(on && !Is_Terminated()); }

bool Control::In_User_Mode() {
  if (container_) instance.User_Mode = container_->User_Mode();
  return instance.User_Mode;
}

}  // namespace quillspeech
