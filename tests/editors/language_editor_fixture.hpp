// The Language Editor on files in memory, driven as by a person.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "editors/language_editor.hpp"
#include "tests/editors/editor_fixture.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech::tests {

struct LanguageEditorTest : EditorTest {
  static constexpr auto File = "my.SAY";

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

  Form& Window() override { return editor.Database(); }
  const std::vector<std::string>& Lines(const std::string& list) { return Window()[list].items; }
  const std::vector<std::string>& Browser_Lines() { return editor.DataDisplay()["Combo1"].items; }
  std::int64_t Current() { return editor.Record().RecordNo(); }

  datafiles::SayRecord On_Disk(std::int64_t number = 1) {
    return Language_Record(data_files, File, number);
  }
  std::size_t Bytes_On_Disk() { return data_files.files.at(File).size(); }
  std::string Word_On_Disk(std::int64_t number = 1) { return Trimmed(On_Disk(number).Words(1)); }

  LanguageEditor editor{session};
};

inline std::vector<Record> Three_Records() {
  return {Record().Word("one", 10).Pattern("o*", 11),
          Record().Word("two", 20).Word("deux", 21).Pattern("t?w", 22),
          Record().Word("three", 30).Pattern("th[a-c]", 33).Pattern("o*", 34)};
}

}  // namespace quillspeech::tests
