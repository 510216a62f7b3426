// How the parts of a control object reach the control that they speak for.
#pragma once

#include <memory>

namespace quillspeech {
class Control;
}

namespace quillspeech::activex {

class ControlAccess {
 public:
  // Null once the control is terminated, or when it was never made: calls then answer
  // RPC_E_DISCONNECTED. Whoever calls the control holds the pointer until the call has returned.
  virtual std::shared_ptr<Control> Living() = 0;

 protected:
  ~ControlAccess() = default;
};

}  // namespace quillspeech::activex
