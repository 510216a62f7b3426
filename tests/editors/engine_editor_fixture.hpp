// The Engine Editor on files in memory, driven as by a person.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "editors/engine_editor.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

// The 61 entries as a person finds them, in the order of the engine elements.
inline std::vector<std::string> Entries_In_Order() {
  const std::vector<std::pair<std::string, int>> groups = {
      {"02", 3},   {"24", 2},   {"46", 2},    {"69", 3},   {"915", 6},
      {"1523", 8}, {"2330", 7}, {"3040", 10}, {"4045", 5}, {"45Abv", 15}};
  std::vector<std::string> entries;
  for (const auto& [group, count] : groups) {
    for (int k = 1; k <= count; ++k) {
      entries.push_back("mnu" + group + "(" + std::to_string(k) + ")");
    }
  }
  return entries;
}

struct EngineEditorTest : testing::Test, TestSession {
  static constexpr auto File = "my.EGN";
  using Texts = std::vector<std::string>;

  EngineEditorTest() { editor.Load(); }

  // Opens an engine file of these groups from the menu.
  void Open(const Groups& groups) {
    Put_Engine_File(data_files, File, groups);
    Choose("mnuEFoef", File);
  }

  Form& Window() { return editor.DatabaseVE(); }
  const std::string& Caption(const std::string& menu) { return Window().Menu(menu).caption; }
  Texts Captions() {
    Texts captions;
    for (const std::string& entry : Entries_In_Order()) captions.push_back(Caption(entry));
    return captions;
  }

  void Choose(const std::string& menu) { ASSERT_TRUE(Window().Choose_Menu(menu)) << menu; }
  void Choose(const std::string& menu, const std::string& answer) {
    dialogs.texts = {answer};
    Choose(menu);
  }
  void Click(const std::string& button) { ASSERT_TRUE(Window().Click(button)) << button; }
  void Save(BoxAnswer answer = BoxAnswer::Yes) {
    boxes.answers = {answer};
    Choose("mnuEFsef");
  }

  datafiles::EgnRecord On_Disk(const std::string& name = File, int number = 1) {
    datafiles::EgnRecord record;
    RecordFile file;
    file.Open(data_files, name, datafiles::EgnRecord::Record_Bytes);
    file.Read(number, record.Bytes());
    return record;
  }
  std::string Slot_On_Disk(int element) { return Trimmed(On_Disk().EngineSlots(element)); }

  // Every box so far as "title|text".
  Texts Told() const {
    Texts told;
    for (const auto& one : boxes.shown) told.push_back(one.box.title + "|" + one.box.text);
    return told;
  }

  VocabularyAndEngineEditor editor{session};
};

}  // namespace quillspeech::tests
