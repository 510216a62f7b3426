#include "presentation/help_windows.hpp"

#include <functional>
#include <memory>

#include "presentation/help_page.hpp"
#include "presentation/help_window_layout.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

// Space and Enter press the button that has the focus; what the button does is then done as by a
// click.
bool Presses_Focused_Button(Form& form, unsigned char key) {
  const FormControl* const focused = form.Find(form.Focused());
  if (!focused || focused->kind != FormControlKind::Button) return false;
  return (key == Key_Enter || key == ' ') && form.Click(focused->name);
}

// Errors of a window that the chooser leads to are nobody's.
void Show_Editor(Session& session, const std::function<void(Session&, bool)>& show) {
  Run_Silently_Trapped(session, [&] { show(session, Is_Design_Environment(session) == False); });
}

}  // namespace

HelpWindows::HelpWindows(Session& session)
    : session_(session),
      help_("Help", "About Quillspeech", Help_Size),
      splash_("Splash", "Quillspeech", Splash_Size),
      coming_splash_("ComingSplash", "Quillspeech", ComingSplash_Size) {
  Lay_Out_Help(help_);
  Lay_Out_Splash(splash_);
  Lay_Out_ComingSplash(coming_splash_);

  help_.On("Command3", FormEvent::Click, [this] { Help_Command3_Click(); });
  for (const auto control : {"Command5", "Image1", "Label5"}) {
    help_.On(control, FormEvent::Click, [this] { help_.Unload(); });
  }
  help_.On_Key_Press(Form::Itself, [this](unsigned char key) { Help_KeyPress(key); });

  splash_.On("Command2", FormEvent::Click, [this] { Splash_Command2_Click(); });
  splash_.On(Form::Itself, FormEvent::Click, [this] { Splash_Command2_Click(); });
  splash_.On("Command3", FormEvent::Click, [this] { Splash_Command3_Click(); });
  splash_.On_Key_Press(Form::Itself, [this](unsigned char key) { Splash_KeyPress(key); });

  const auto unload = [this] { coming_splash_.Unload(); };
  coming_splash_.On(Form::Itself, FormEvent::Click, unload);
  for (const auto label : ComingSplash_Labels) coming_splash_.On(label, FormEvent::Click, unload);
  coming_splash_.On_Key_Press(Form::Itself, [unload](unsigned char) { unload(); });
}

void HelpWindows::Help_Command3_Click() {
  Show_Help_File(session_, session_.ports.views.Window_Of(help_));
}

// The window goes with every key, also with the one that has launched the page.
void HelpWindows::Help_KeyPress(unsigned char key) {
  Presses_Focused_Button(help_, key);
  help_.Unload();
}

void HelpWindows::Splash_Command2_Click() {
  splash_.Unload();
  session_.flags.File_Run_Active = 1;
  Show_Editor(session_, session_.operations.Show_Database);
}

void HelpWindows::Splash_Command3_Click() {
  splash_.Unload();
  Show_Editor(session_, session_.operations.Show_DatabaseVE);
}

// Both buttons unload the window before anything else.
void HelpWindows::Splash_KeyPress(unsigned char key) {
  if (!Presses_Focused_Button(splash_, key)) splash_.Unload();
}

void Connect_Help_Windows(Session& session) {
  const auto windows = std::make_shared<HelpWindows>(session);
  const auto show = [windows](Form& (HelpWindows::*form)()) {
    return [windows, form](Session& shown) {
      shown.ports.views.Show((*windows.*form)(), Modality::Modal);
    };
  };
  session.operations.Show_Help = show(&HelpWindows::Help);
  session.operations.Show_Splash = show(&HelpWindows::Splash);
  session.operations.Show_ComingSplash = show(&HelpWindows::ComingSplash);
  session.operations.Unload_Help = [windows](Session&) { windows->Help().Unload(); };
}

}  // namespace quillspeech
