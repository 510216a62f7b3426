// The port for what asks a person for a text or a file, on real windows.
#pragma once

#include <string>

#include "platform/dialogs.hpp"
#include "platform/windows/form_view.hpp"

namespace quillspeech::windows {

class Dialogs final : public quillspeech::Dialogs {
 public:
  // The views outlive it.
  explicit Dialogs(FormViews& views) : views_(views) {}

  std::string Ask_Text(const InputBox& box) override;
  std::string Ask_File(const FileDialog& dialog) override;

 private:
  FormViews& views_;
};

}  // namespace quillspeech::windows
