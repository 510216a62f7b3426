#include "activex/shown_mode.hpp"

#include "core/control.hpp"

namespace quillspeech::activex {

void ShownMode::Appear() {
  mode_ = site_.User_Mode();
  if (const auto control = access_.Living()) control->UserControl_Show();
}

void ShownMode::Follow() {
  if (!mode_ || Is_Outdated()) Appear();
}

}  // namespace quillspeech::activex
