// How one control comes by its settings and gives them to its container, for all of the interfaces
// that persist.
#pragma once

#include "activex/change_notices.hpp"
#include "activex/com.hpp"
#include "activex/control_access.hpp"
#include "core/persistence.hpp"

namespace quillspeech::activex {

// A control that has ended answers RPC_E_DISCONNECTED. A run-time failure is the code of its number
// (errors.hpp), without an error object.
class ControlRecord {
 public:
  ControlRecord(ControlAccess& access, ChangeNotices& notices)
      : access_(access), notices_(notices) {}

  // A new control, once: E_UNEXPECTED afterwards.
  HRESULT Initialise();
  bool Has_Begun() const { return has_begun_; }  // initialised or loaded
  HRESULT Load(PropertyBag& bag);
  HRESULT Save(PropertyBag& bag);
  // The most bytes that a save into a stream takes now.
  HRESULT Most_Bytes(std::uint64_t& bytes);

  // Whether settings were changed since they were loaded or saved last.
  bool Is_Dirty() const { return is_dirty_; }
  void Touch() { is_dirty_ = true; }
  // A save is done. One by which the container has the record safe, and not a mere copy of it,
  // leaves nothing to save, and whoever wants to know is told.
  void Is_Saved(bool clear_dirty);

 private:
  ControlAccess& access_;
  ChangeNotices& notices_;
  bool is_dirty_ = false;
  bool has_begun_ = false;
};

// The class of the control, as IPersist gives it.
HRESULT Give_Class(CLSID* id);

}  // namespace quillspeech::activex
