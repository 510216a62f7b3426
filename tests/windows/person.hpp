// A person at the editor's real windows: sees what they show, and acts by messages of the mouse and
// the keyboard.
#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "platform/form.hpp"
#include "tests/support/editor_steps.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::tests {

// Works on another thread than that of the windows, and waits ten seconds at most for what is to
// come. Where something else comes she throws a std::runtime_error that tells what she sees.
class Person {
 public:
  // At the windows of the calling thread.
  Person();
  ~Person();
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  // The step with its boxes, to the end of what it does.
  void Do(const EditorStep& step);
  void Do(const std::vector<EditorStep>& steps);
  // A box that comes up by itself.
  void Answer(const SessionBox& box);
  // What the step looks at.
  std::string Seen(const EditorStep& step);
  // Closes whatever is open.
  void Leave();

 private:
  void Act(const EditorStep& step);
  void Click(HWND window) const;
  void Choose(const Form& layout, const std::string& menu);
  void Choose_By_Letter(const FormMenu& menu);
  void Type(HWND field, const std::string& text) const;
  void Select(HWND combo, int index);
  void Press_Key(HWND window, WPARAM key) const;
  void Press_Button(HWND box, const std::string& caption) const;
  void Type_And_Press(HWND box, HWND field, const SessionBox& wanted, bool replaces);

  // Until all that was posted has been dealt with, or waits behind a box or a window.
  void Settle();
  HWND Front() const;  // what takes input; null: nothing
  HWND Await_Window(const std::string& name) const;
  HWND Await_Box(SessionBox::Kind kind) const;
  HWND Part(const EditorStep& step) const;
  HWND Field(const EditorStep& step) const;
  SessionBox Box_Seen(HWND box, const SessionBox& wanted) const;

  DWORD thread_ = GetCurrentThreadId();
  HANDLE settled_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  TestWindow marker_;
};

}  // namespace quillspeech::tests
