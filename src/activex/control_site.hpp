// The place that the container gives a control: its client site and what hangs on it.
#pragma once

#include <string>

#include "activex/com.hpp"

namespace quillspeech::activex {

class ControlSite {
 public:
  void Set(IOleClientSite* site) {
    site_ = ComPtr<IOleClientSite>(site);
    flags_ = 0;
  }
  const ComPtr<IOleClientSite>& Get() const { return site_; }
  explicit operator bool() const { return static_cast<bool>(site_); }

  // Another interface of the site; null when it has none.
  template <class Interface>
  ComPtr<Interface> As() const {
    return site_.template As<Interface>();
  }

  // The container's word on how controls are to be. Without it, they are in use and alive.
  bool User_Mode() const;
  bool UI_Dead() const;
  // The name that the container has for the control; empty when it has none.
  std::wstring Display_Name() const;
  // What a handshake says of the same properties, as QACONTAINER_...: it holds where the container
  // does not know them by name. A container that sets no flag says nothing.
  void Set_Flags(DWORD flags) { flags_ = flags; }

  void Tell_Focus(bool got) const;
  // Whether the container has made use of the key message.
  bool Takes_Key(MSG& message) const;

 private:
  // False when the container does not know it as that type.
  bool Ambient(DISPID ambient, VARTYPE type, VARIANT& value) const;

  ComPtr<IOleClientSite> site_;
  DWORD flags_ = 0;
};

}  // namespace quillspeech::activex
