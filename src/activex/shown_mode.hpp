// The mode in which a control was shown last: that of its use, or of its design.
#pragma once

#include <optional>

#include "activex/control_access.hpp"
#include "activex/control_site.hpp"

namespace quillspeech::activex {

class ShownMode {
 public:
  ShownMode(ControlAccess& access, const ControlSite& site) : access_(access), site_(site) {}

  // The control becomes visible.
  void Appear();
  // It is drawn, or is visible all the time: the same where its mode is another one than last time.
  void Follow();
  // It was shown, and would look different now.
  bool Is_Outdated() const { return mode_ && *mode_ != site_.User_Mode(); }

 private:
  ControlAccess& access_;
  const ControlSite& site_;
  std::optional<bool> mode_;  // nothing: it was never shown
};

}  // namespace quillspeech::activex
