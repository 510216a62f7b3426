// A language file made from nothing, byte for byte.
#include <algorithm>
#include <cstddef>

#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

// One record as it must lie in the file.
struct RecordBytes {
  RecordBytes() { Text(4236, 20, ""); }
  RecordBytes& Text(std::size_t offset, std::size_t width, const std::string& text) {
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(offset), width, std::uint8_t{' '});
    std::copy(text.begin(), text.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    return *this;
  }
  RecordBytes& Number(std::size_t offset, int width, int value) {
    for (int i = 0; i < width; ++i, value >>= 8) {
      bytes[offset + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value & 0xFF);
    }
    return *this;
  }
  std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(8476);
};

RecordBytes Expected(int number, const std::string& word, int rating) {
  RecordBytes record;
  record.Number(0, 4, number).Text(4, 30, "Acme");
  record.Text(134, 40, word).Number(4134, 1, rating).Number(4234, 2, 1).Text(4236, 20, "Arial");
  record.Number(4316, 2, 3).Number(4318, 4, 70'000);
  record.Text(5476, 100, "fth*s").Number(4256, 2, 80).Number(5474, 2, 1);
  record.Text(4322, 20, "th").Number(5322, 1, 2).Number(5372, 2, 300).Number(5472, 2, 1);
  return record;
}

struct LanguageEditorSession : LanguageEditorTest {
  LanguageEditorSession() {
    Open_Nothing();
    Choose("Opmu", "made.say");
  }
  void Confirm(const std::string& button) {
    boxes.answers = {BoxAnswer::Yes};
    Click(button);
  }
  void Enter(const std::string& control, const std::string& text) {
    ASSERT_TRUE(Window().Type(control, text)) << control;
  }
  void Make_The_First_Record() {
    Confirm("Command9");
    Choose("mnuLCrht", "Acme");
    ASSERT_TRUE(Window().Select("Combo1", 0));
    Enter("TextDiv", "3");
    Enter("Text2", "70000");
    Enter("Combo5", "hello");
    Enter("Combo10", "90");
    Confirm("Command14");
    Enter("Combo2", "fth*s");
    Enter("Combo3", "80");
    Confirm("Command16");
    Enter("Combo7", "2");
    Enter("Combo6", "th");
    Enter("Combo9", "300");
    Confirm("Command15");
  }
  void Make_The_Second_From_A_Copy() {
    Choose("mnuSCopy");
    Confirm("Command9");
    Choose("mnuSpaste");
    ASSERT_TRUE(Window().Select("Combo5", 0));
    dialogs.texts = {"hallo", "70"};
    Click("Command13");
  }
  std::vector<std::uint8_t> Made() { return data_files.files.at("made.say"); }
};

TEST_F(LanguageEditorSession, Makes_a_file_whose_bytes_are_those_of_the_format) {
  Make_The_First_Record();
  EXPECT_EQ(Made(), Expected(1, "hello", 90).bytes);
  Make_The_Second_From_A_Copy();
  std::vector<std::uint8_t> both = Expected(1, "hello", 90).bytes;
  const std::vector<std::uint8_t> second = Expected(2, "hallo", 70).bytes;
  both.insert(both.end(), second.begin(), second.end());
  EXPECT_EQ(Made(), both);
}

TEST_F(LanguageEditorSession, Moves_and_searches_leave_the_bytes) {
  Make_The_First_Record();
  Make_The_Second_From_A_Copy();
  const auto before = Made();
  Choose("mnuPrevious");
  EXPECT_EQ(Lines("Combo5"), Texts{"hello"});
  Choose("mnuFindName", "hallo");
  EXPECT_EQ(Current(), 2);
  Choose("mnuNumber", "1");
  Choose("mnuPatternFind", "fth*s");
  EXPECT_EQ(Current(), 1);
  Choose("VC");
  Choose("mnuView");
  Choose("mnuTWord");
  EXPECT_EQ(Made(), before);
}

TEST_F(LanguageEditorSession, A_record_that_is_cut_keeps_its_ratings_and_what_is_no_entry) {
  Make_The_First_Record();
  Make_The_Second_From_A_Copy();
  Choose("mnuSCut");
  RecordBytes cut;
  cut.Number(0, 4, 2).Text(4, 30, "Acme").Number(4134, 1, 70).Number(4256, 2, 80);
  const auto made = Made();
  EXPECT_EQ(std::vector<std::uint8_t>(made.begin() + 8476, made.end()), cut.bytes);
}

}  // namespace
}  // namespace quillspeech::tests
