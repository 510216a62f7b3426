// The Vocabulary Editor on files in memory, driven as by a person.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "editors/vocabulary_editor.hpp"
#include "tests/editors/editor_fixture.hpp"
#include "tests/support/vocabulary_builder.hpp"

namespace quillspeech::tests {

struct VocabularyEditorTest : EditorTest {
  using VocRecord = datafiles::VocRecord;
  static constexpr auto File = "my.SAY";

  // The window, with the file of these records opened in it.
  void Open(const std::vector<VocRecord>& records) {
    data_files.files[File] = Vocabulary_File(records);
    Open_File(File);
  }
  void Open_File(const std::string& name) {
    editor.Load();
    dialogs.files = {name};
    Click("Command1");
  }

  Form& Window() override { return editor.DatabaseVE(); }
  const FormDrawing& Graph() { return Window()["Picture1"].drawing; }
  const Texts& Lines() { return editor.DataDisplayVE()["Combo1"].items; }
  // The number of the record in the buffer.
  std::int64_t Current() { return editor.Vocabulary().RecordNo(); }

  // A menu entry or a button.
  void Do(const std::string& name) {
    if (Window().Find_Menu(name)) return Choose(name);
    Click(name);
  }

  const std::vector<std::uint8_t>& Bytes_On_Disk() { return data_files.files.at(File); }
  VocRecord On_Disk(int number = 1) { return Vocabulary_Record(Bytes_On_Disk(), number); }
  std::string Name_On_Disk(int number = 1) { return Trimmed(On_Disk(number).VocabularyName()); }

  VocabularyAndEngineEditor editor{session};
};

inline std::vector<datafiles::VocRecord> Three_Curves() {
  return {Curve("one", {10}), Curve("two", {20, 21}), Curve("three", {30, 31, 32})};
}

inline constexpr auto Refused_Name =
    "Quillspeech Vocabulary Editor Info.|You did not enter a file name or the name is not valid, "
    "verify and try again";

}  // namespace quillspeech::tests
