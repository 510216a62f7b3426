// The Language Editor on files in memory, driven as by a person.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "editors/language_editor.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

struct LanguageEditorTest : testing::Test, TestSession {
  static constexpr auto File = "my.SAY";
  using Texts = std::vector<std::string>;

  // The window on a file of these records; the record matched last is on display.
  void Open(const std::vector<Record>& records, int matched = 0) {
    Put_Language_File(data_files, File, records);
    session.settings.Consider_this_Lang_File_to_Add = File;
    session.results.Matched_Record_No = matched;
    editor.Load();
  }
  void Open_Nothing() {
    session.settings.Consider_this_Lang_File_to_Add.clear();
    editor.Load();
    boxes.shown.clear();
  }
  void In_A_Design_Environment() { host.path = "C:\\VB6.EXE"; }

  Form& Window() { return editor.Database(); }
  std::string Text(const std::string& control) { return Window()[control].text; }
  const std::vector<std::string>& Lines(const std::string& list) { return Window()[list].items; }
  const std::vector<std::string>& Browser_Lines() { return editor.DataDisplay()["Combo1"].items; }
  std::int64_t Current() { return editor.Record().RecordNo(); }

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

  datafiles::SayRecord On_Disk(std::int64_t number = 1) {
    return Language_Record(data_files, File, number);
  }
  std::size_t Bytes_On_Disk() { return data_files.files.at(File).size(); }
  std::string Word_On_Disk(std::int64_t number = 1) { return Trimmed(On_Disk(number).Words(1)); }

  // Every box so far as "title|text".
  Texts Told() const {
    Texts told;
    for (const auto& one : boxes.shown) told.push_back(one.box.title + "|" + one.box.text);
    return told;
  }

  LanguageEditor editor{session};
};

inline std::vector<Record> Three_Records() {
  return {Record().Word("one", 10).Pattern("o*", 11),
          Record().Word("two", 20).Word("deux", 21).Pattern("t?w", 22),
          Record().Word("three", 30).Pattern("th[a-c]", 33).Pattern("o*", 34)};
}

}  // namespace quillspeech::tests
