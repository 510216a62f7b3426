// The Engine Editor on files in memory, driven as by a person.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "editors/engine_editor.hpp"
#include "tests/editors/editor_fixture.hpp"
#include "tests/support/record_builder.hpp"

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

struct EngineEditorTest : EditorTest {
  static constexpr auto File = "my.EGN";

  EngineEditorTest() { editor.Load(); }

  // Opens an engine file of these groups from the menu.
  void Open(const Groups& groups) {
    Put_Engine_File(data_files, File, groups);
    Choose("mnuEFoef", File);
  }

  Form& Window() override { return editor.DatabaseVE(); }
  Texts Captions() {
    Texts captions;
    for (const std::string& entry : Entries_In_Order()) captions.push_back(Caption(entry));
    return captions;
  }

  void Save(BoxAnswer answer = BoxAnswer::Yes) { Answer("mnuEFsef", answer); }

  datafiles::EgnRecord On_Disk(const std::string& name = File, int number = 1) {
    datafiles::EgnRecord record;
    RecordFile file;
    file.Open(data_files, name, datafiles::EgnRecord::Record_Bytes);
    file.Read(number, record.Bytes());
    return record;
  }
  std::string Slot_On_Disk(int element) { return Trimmed(On_Disk().EngineSlots(element)); }

  VocabularyAndEngineEditor editor{session};
};

}  // namespace quillspeech::tests
