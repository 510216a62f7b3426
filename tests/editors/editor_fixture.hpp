// A person at the window of an editor, whose files lie in memory.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/form.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

struct EditorTest : testing::Test, TestSession {
  using Texts = std::vector<std::string>;

  virtual Form& Window() = 0;

  void In_A_Design_Environment() { host.path = "C:\\VB6.EXE"; }

  std::string Text(const std::string& control) { return Window()[control].text; }
  const std::string& Caption(const std::string& menu) { return Window().Menu(menu).caption; }

  void Choose(const std::string& menu) { ASSERT_TRUE(Window().Choose_Menu(menu)) << menu; }
  void Choose(const std::string& menu, const std::string& answer) {
    dialogs.texts = {answer};
    Choose(menu);
  }
  void Answer(const std::string& menu, BoxAnswer answer) {
    boxes.answers = {answer};
    Choose(menu);
  }
  void Click(const std::string& button) { ASSERT_TRUE(Window().Click(button)) << button; }

  // Every box so far as "title|text".
  Texts Told() const {
    Texts told;
    for (const auto& one : boxes.shown) told.push_back(one.box.title + "|" + one.box.text);
    return told;
  }
};

}  // namespace quillspeech::tests
