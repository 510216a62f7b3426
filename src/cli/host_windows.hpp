// The control's windows as a scripted host hears of them: which one is shown, and which goes.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "session/operations.hpp"

namespace quillspeech::cli {

class HostWindows {
 public:
  using Told = std::function<void(const std::string& name, bool shown, bool modal)>;
  explicit HostWindows(Told told) : told_(std::move(told)) {}

  // Puts itself in front of the operations that show and unload windows. Outlives their use.
  void Watch(Operations& operations);

 private:
  void Watch_Modal(Operations::Procedure& show, const std::string& name);
  void Watch_Unload(Operations::Procedure& unload, const std::string& name);
  void Note_Shown(const std::string& name);
  void Note_Gone(const std::string& name);

  Told told_;
  std::set<std::string> shown_;  // and not modal
};

}  // namespace quillspeech::cli
