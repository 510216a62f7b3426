// Hears the events of a control.
#pragma once

#include <windows.h>
//
#include <ocidl.h>

#include <functional>
#include <string>

namespace example {

// Called with an event's name and its argument as text; empty when it has none.
using EventHandler = std::function<void(const std::wstring& name, const std::wstring& argument)>;

// Connected as long as it lives.
class EventConnection {
 public:
  // To the control's default source of events, which IProvideClassInfo2 names.
  EventConnection(IUnknown& control, EventHandler handler);
  ~EventConnection();
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;

  bool Is_Connected() const { return point_ != nullptr; }

 private:
  IConnectionPoint* point_ = nullptr;
  IDispatch* sink_ = nullptr;
  DWORD cookie_ = 0;
};

}  // namespace example
