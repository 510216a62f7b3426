// The control's windows as a scripted host hears of them: which one is shown, and which goes.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/headless/form_view.hpp"
#include "session/operations.hpp"

namespace quillspeech::cli {

class HostWindows {
 public:
  using Told = std::function<void(const std::string& name, bool shown, bool modal)>;
  explicit HostWindows(Told told) : told_(std::move(told)) {}

  // Hears of every form.
  void Watch(headless::FormViews& views);
  // Puts itself in front of the operations that show and unload the two windows that are no forms
  // yet. Outlives their use.
  void Watch(Operations& operations);

 private:
  void Watch_Unload(Operations::Procedure& unload, const std::string& name);
  void Note_Shown(const std::string& name);
  void Note_Gone(const std::string& name);

  Told told_;
  std::set<std::string> shown_;  // of the two
};

}  // namespace quillspeech::cli
