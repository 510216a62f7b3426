// The place that the container gives a control: its client site and what hangs on it.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

class ControlSite {
 public:
  void Set(IOleClientSite* site) { site_ = ComPtr<IOleClientSite>(site); }
  const ComPtr<IOleClientSite>& Get() const { return site_; }
  explicit operator bool() const { return static_cast<bool>(site_); }

  // Another interface of the site; null when it has none.
  template <class Interface>
  ComPtr<Interface> As() const {
    return site_.template As<Interface>();
  }

  // The container's word on how controls are to be. One that it does not know is as given here; so
  // are all of them when there is no container.
  bool Ambient_Truth(DISPID ambient, bool unless_told) const;
  bool User_Mode() const { return Ambient_Truth(DISPID_AMBIENT_USERMODE, true); }
  bool UI_Dead() const { return Ambient_Truth(DISPID_AMBIENT_UIDEAD, false); }

  void Tell_Focus(bool got) const;
  // Whether the container has made use of the key message.
  bool Takes_Key(MSG& message) const;

 private:
  ComPtr<IOleClientSite> site_;
};

}  // namespace quillspeech::activex
