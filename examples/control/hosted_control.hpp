// The control in a window: AtlAxWin of atl.dll is the container, as it is for many programs.
#pragma once

#include <windows.h>

#include <memory>

#include "event_sink.hpp"
#include "late_binding.hpp"

namespace example {

class HostedControl {
 public:
  // In a child window of the parent. CallFailed when the control is not registered.
  HostedControl(HWND parent, EventHandler handler);
  ~HostedControl();
  HostedControl(const HostedControl&) = delete;
  HostedControl& operator=(const HostedControl&) = delete;

  HWND Window() const { return window_; }
  const LateBound& Members() const { return *members_; }

  // The control's size never changes: 3336 by 1884 twips, 1,440 of which are an inch.
  static SIZE Size(int dots_per_inch);

 private:
  HMODULE atl_;
  HWND window_ = nullptr;
  IUnknown* container_ = nullptr;  // atl.dll's
  std::unique_ptr<LateBound> members_;
  std::unique_ptr<EventConnection> events_;
};

}  // namespace example
