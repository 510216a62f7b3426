// The port for message boxes.
#pragma once

#include <string>

namespace quillspeech {

enum class BoxButtons { OK, YesNo };
enum class BoxIcon { None, Stop, Information };
enum class BoxAnswer { OK, Yes, No };

struct MessageBox {
  std::string title;
  std::string text;
  BoxButtons buttons = BoxButtons::OK;
  BoxIcon icon = BoxIcon::None;
};

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows the box and waits for the answer: OK for an OK box, Yes or No for the other.
  virtual BoxAnswer Show(const MessageBox& box) = 0;
};

}  // namespace quillspeech
