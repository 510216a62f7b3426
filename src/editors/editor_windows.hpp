// What the editors' windows have in common.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "base/run_time_failure.hpp"
#include "platform/form.hpp"

namespace quillspeech {

// What a click on a control or a menu entry of an editor's window does.
template <class Editor>
struct ClickCommand {
  std::string_view control;
  void (*run)(Editor& editor);
};

// A table of them.
template <class Editor>
using ClickCommands = std::span<const ClickCommand<Editor>>;

// The window; failure 5 before it is made.
inline Form& Made(const std::unique_ptr<Form>& window) {
  if (!window) Fail(Failure::Invalid_Call);
  return *window;
}

}  // namespace quillspeech
