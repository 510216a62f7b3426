// The Language Editor on a file in memory, as a person works with it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.hpp"
#include "editors/language_editor.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

struct LanguageEntries : testing::Test, TestSession {
  static constexpr auto File = "my.SAY";

  void Open(const std::vector<Record>& records) {
    Put_Language_File(data_files, File, records);
    session.settings.Consider_this_Lang_File_to_Add = File;
    editor.Load();
  }
  void Open_Nothing() {
    session.settings.Consider_this_Lang_File_to_Add.clear();
    editor.Load();
    boxes.shown.clear();
  }

  Form& Window() { return editor.Database(); }
  std::string Shown(const std::string& control) { return Window()[control].text; }

  void Enter(const std::vector<std::pair<std::string, std::string>>& texts) {
    for (const auto& [control, text] : texts) Window().Type(control, text);
  }
  // A click whose question, if there is one, is answered with Yes.
  void Click(const std::string& button) { Click(button, BoxAnswer::Yes); }
  void Click(const std::string& button, BoxAnswer answer) {
    boxes.shown.clear();
    boxes.answers = {answer};
    ASSERT_TRUE(Window().Click(button));
    boxes.answers.clear();
  }
  void Choose(const std::string& list, int element) {
    ASSERT_TRUE(Window().Select(list, element - 1));
  }

  datafiles::SayRecord On_Disk(std::int64_t number = 1) {
    return Language_Record(data_files, File, number);
  }
  std::size_t Records_On_Disk() {
    return data_files.files.at(File).size() / datafiles::SayRecord::Record_Bytes;
  }

  // The boxes of the last click, questions too.
  std::vector<std::string> Told() const {
    std::vector<std::string> texts;
    for (const auto& one : boxes.shown) texts.push_back(one.box.text);
    return texts;
  }

  LanguageEditor editor{session};
};

inline Record With_Words(int count) {
  Record record;
  for (int i = 1; i <= count; ++i) record.Word("word" + std::to_string(i), i);
  return record;
}

inline Record With_Patterns(int count) {
  Record record;
  for (int i = 1; i <= count; ++i) record.Pattern("p" + std::to_string(i) + "*", i);
  return record;
}

inline Record With_Differentiators(int count) {
  Record record;
  for (int i = 1; i <= count; ++i) record.Differentiator("c" + std::to_string(i), i, 100 + i);
  return record;
}

// The texts of the first `count` elements, without the blanks behind them.
using Element = std::string_view (datafiles::SayRecord::*)(std::int64_t) const;
inline std::vector<std::string> Texts_Of(const datafiles::SayRecord& record, Element element,
                                         int count) {
  std::vector<std::string> texts;
  for (int i = 1; i <= count; ++i) texts.push_back(Trimmed((record.*element)(i)));
  return texts;
}

}  // namespace quillspeech::tests
