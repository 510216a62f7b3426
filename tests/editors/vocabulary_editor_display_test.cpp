// What the window and the list show of the records, and the way through them.
#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "tests/editors/vocabulary_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct VocabularyDisplay : VocabularyEditorTest {
  // The centres of the circles, as far as the graph has circles.
  std::vector<DrawingPoint> Centres() {
    std::vector<DrawingPoint> centres;
    for (const DrawingOperation& one : Graph().operations) {
      if (one.kind == DrawingKind::Circle) centres.push_back(one.points.at(0));
    }
    return centres;
  }
  using Points = std::vector<DrawingPoint>;
};

TEST_F(VocabularyDisplay, The_caption_tells_the_number_and_the_name_of_the_record) {
  Open(Three_Curves());
  Choose("mnuNext");
  EXPECT_EQ(Window().Caption(), "Quillspeech Vocabulary Database.Rec No: 2two");
  EXPECT_EQ(Text("Text1"), "two");
  EXPECT_EQ(Text("Label3"), "2");
}

TEST_F(VocabularyDisplay, Names_show_without_the_blanks_behind_them_and_end_at_a_zero) {
  struct Case {
    std::string name;
    const char* shown;
  };
  for (const Case& one :
       {Case{"  a b ", "  a b"}, Case{"", ""}, Case{"abcdefghijklmnopqrst", "abcdefghijklmnopqrst"},
        Case{std::string("a\0b", 3), "a"}, Case{"\xE9t\xE9", "\xE9t\xE9"}}) {
    Open({Curve(one.name, {})});
    EXPECT_EQ(Text("Text1"), one.shown);
    EXPECT_EQ(Window().Caption(),
              std::string("Quillspeech Vocabulary Database.Rec No: 1") + one.shown);
  }
}

TEST_F(VocabularyDisplay, The_display_leaves_the_bytes_of_a_name) {
  const auto file = Vocabulary_File({Curve("  a b ", {}), Curve(std::string("a\0b", 3), {})});
  data_files.files[File] = file;
  Open_File(File);
  Choose("mnuNext");
  Choose("mnuPrevious");
  EXPECT_EQ(Bytes_On_Disk(), file);
}

TEST_F(VocabularyDisplay, Each_value_is_a_circle_above_the_one_before_it) {
  Open({Curve("curve", {10, 127.5, 0})});
  EXPECT_EQ(Centres(), (Points{{10, 1}, {127.5, 2}, {0, 3}}));
  EXPECT_EQ(Graph().operations.size(), 3U);
  for (const DrawingOperation& circle : Graph().operations) EXPECT_EQ(circle.radius, 1);
}

TEST_F(VocabularyDisplay, The_graph_runs_from_0_to_128_across_and_from_0_to_50_upwards) {
  editor.Load();
  const DrawingScale expected{.left = 0, .top = 50, .right = 128, .bottom = 0};
  EXPECT_EQ(Graph().scale, expected);
  Open(Three_Curves());
  EXPECT_EQ(Graph().scale, expected);
}

TEST_F(VocabularyDisplay, Values_beyond_the_scale_are_drawn_there) {
  constexpr double Largest = std::numeric_limits<double>::max();
  Open({Curve("wild", {-5, 129, 1e300, -Largest})});
  EXPECT_EQ(Centres(), (Points{{-5, 1}, {129, 2}, {1e300, 3}, {-Largest, 4}}));
}

TEST_F(VocabularyDisplay, Values_that_are_no_numbers_are_drawn_as_they_are) {
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  Open({Curve("odd", {std::numeric_limits<double>::quiet_NaN(), Infinity, -Infinity, 5})});
  const Points centres = Centres();
  ASSERT_EQ(centres.size(), 4U);
  EXPECT_TRUE(std::isnan(centres[0].x));
  EXPECT_EQ(centres[0].y, 1);
  EXPECT_EQ(centres[1], (DrawingPoint{Infinity, 2}));
  EXPECT_EQ(centres[2], (DrawingPoint{-Infinity, 3}));
  EXPECT_EQ(centres[3], (DrawingPoint{5, 4}));
}

TEST_F(VocabularyDisplay, Value_0_and_those_above_the_count_are_not_drawn) {
  VocRecord record = Curve("curve", {10, 20, 30});
  record.VocabularySamples(0, 99);
  record.VocabularySampleCount(2);
  Open({record});
  EXPECT_EQ(Centres(), (Points{{10, 1}, {20, 2}}));
}

TEST_F(VocabularyDisplay, All_1200_values_of_a_full_record_are_drawn) {
  VocRecord record;
  record.VocabularySamples(1200, 64);
  record.VocabularySampleCount(1200);
  Open({record});
  ASSERT_EQ(Centres().size(), 1200U);
  EXPECT_EQ(Centres().back(), (DrawingPoint{64, 1200}));
}

TEST_F(VocabularyDisplay, A_count_above_1200_fails_at_the_first_value_that_is_not_there) {
  VocRecord record;
  record.VocabularySampleCount(1201);
  Open(Three_Curves());
  data_files.files[File] = Vocabulary_File({Curve("good", {}), record});
  EXPECT_EQ(Failure_Of([this] { Window().Choose_Menu("mnuNext"); }), 9);
  EXPECT_EQ(Text("Label3"), "1201");
  EXPECT_EQ(Centres().size(), 1200U);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyDisplay, Circles_are_green_with_some_red_in_another_colour_each_time) {
  Open({Curve("curve", {10, 20})});
  std::set<FormColour> colours;
  for (int display = 0; display < 20; ++display) {
    Choose("mnuView");
    const auto& circles = Graph().operations;
    ASSERT_EQ(circles.size(), 2U);
    EXPECT_EQ(circles[0].colour, circles[1].colour);
    EXPECT_EQ(circles[0].colour & 0xFFFF00, 0x00FF00U);
    EXPECT_GE(circles[0].colour & 0xFF, 1U);
    colours.insert(circles[0].colour);
  }
  EXPECT_GT(colours.size(), 10U);
}

TEST_F(VocabularyDisplay, Clear_empties_the_graph_and_nothing_else) {
  Open(Three_Curves());
  const int writes = data_files.writes;
  Click("Command2");
  EXPECT_TRUE(Graph().operations.empty());
  EXPECT_EQ(Text("Text1"), "one");
  EXPECT_EQ(Text("Label3"), "1");
  EXPECT_EQ(data_files.writes, writes);
  EXPECT_EQ(On_Disk().VocabularySampleCount(), 1);
}

TEST_F(VocabularyDisplay, Next_goes_on_to_the_last_record_and_says_so_there) {
  for (const auto next : {"mnuNext", "NextHit"}) {
    Open(Three_Curves());
    Do(next);
    Do(next);
    EXPECT_EQ(Text("Text1"), "three") << next;
    EXPECT_TRUE(boxes.shown.empty()) << next;
    Do(next);
    EXPECT_EQ(Text("Text1"), "three") << next;
    EXPECT_EQ(Told(), Texts{"Quillspeech|No More Records"}) << next;
    boxes.shown.clear();
  }
}

TEST_F(VocabularyDisplay, Previous_goes_back_to_record_1_and_says_so_there) {
  for (const auto previous : {"mnuPrevious", "PreHit"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "3");
    Do(previous);
    Do(previous);
    EXPECT_EQ(Text("Text1"), "one") << previous;
    EXPECT_TRUE(boxes.shown.empty()) << previous;
    Do(previous);
    EXPECT_EQ(Text("Text1"), "one") << previous;
    EXPECT_EQ(Told(), Texts{"Quillspeech| Start of File"}) << previous;
    boxes.shown.clear();
  }
}

TEST_F(VocabularyDisplay, Each_move_writes_the_record_that_it_leaves) {
  for (const auto move : {"mnuNext", "NextHit", "mnuPrevious", "PreHit"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "2");
    editor.Vocabulary().VocabularyName("changed");
    Do(move);
    EXPECT_EQ(Name_On_Disk(2), "changed") << move;
    EXPECT_EQ(Name_On_Disk(1), "one") << move;
    EXPECT_EQ(Name_On_Disk(3), "three") << move;
  }
}

TEST_F(VocabularyDisplay, A_move_that_cannot_write_stays_where_it_is) {
  for (const auto move : {"mnuNext", "NextHit", "mnuPrevious", "PreHit"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "2");
    data_files.write_faults = {{data_files.writes + 1, {Failure::Disk_Full, 0}}};
    EXPECT_EQ(Failure_Of([&] { Do(move); }), 61) << move;
    EXPECT_EQ(Text("Text1"), "two") << move;
    EXPECT_EQ(Current(), 2) << move;
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyDisplay, A_move_that_cannot_read_stays_where_it_is) {
  for (const auto move : {"mnuNext", "mnuPrevious"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "2");
    data_files.read_faults = {{data_files.reads + 1, Failure::Device_Failure}};
    EXPECT_EQ(Failure_Of([&] { Do(move); }), 57) << move;
    EXPECT_EQ(Text("Text1"), "two") << move;
    EXPECT_EQ(Current(), 2) << move;
  }
}

TEST_F(VocabularyDisplay, A_record_that_a_move_writes_behind_the_last_one_is_counted) {
  Open({Curve("one", {})});
  editor.Vocabulary().RecordNo(3);
  Choose("mnuNext");
  Choose("mnuNumber", "3");
  EXPECT_EQ(Text("Text1"), "one");
  EXPECT_EQ(Told(), Texts{"Quillspeech|No More Records"});
}

TEST_F(VocabularyDisplay, A_record_is_written_to_the_number_that_it_holds) {
  Open(Three_Curves());
  editor.Vocabulary().RecordNo(3);
  Choose("mnuNext");
  EXPECT_EQ(Name_On_Disk(3), "one");
  EXPECT_EQ(Told(), Texts{"Quillspeech|No More Records"});
}

TEST_F(VocabularyDisplay, The_list_has_a_line_of_number_name_and_count_for_each_record) {
  Open(Three_Curves());
  Choose("mnuView");
  EXPECT_EQ(Lines(),
            (Texts{" 1           one( 1 )", " 2           two( 2 )", " 3           three( 3 )"}));
}

TEST_F(VocabularyDisplay, Listing_keeps_the_record_on_display_and_writes_nothing) {
  for (const auto list : {"mnuView", "VC"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "2");
    const int writes = data_files.writes;
    Choose(list);
    EXPECT_EQ(Text("Text1"), "two") << list;
    EXPECT_EQ(Current(), 2) << list;
    EXPECT_EQ(data_files.writes, writes) << list;
  }
}

TEST_F(VocabularyDisplay, The_list_of_the_current_entry_names_the_last_record) {
  Open(Three_Curves());
  Choose("VC");
  EXPECT_EQ(Lines(), Texts{" 3           three( 3 )"});
  EXPECT_EQ(Text("Text1"), "one");
}

TEST_F(VocabularyDisplay, Listing_drops_what_was_changed_and_not_written) {
  Open(Three_Curves());
  editor.Vocabulary().VocabularyName("changed");
  Choose("VC");
  EXPECT_EQ(Text("Text1"), "one");
}

TEST_F(VocabularyDisplay, The_list_of_an_empty_file_has_its_heading_alone) {
  for (const auto list : {"mnuView", "VC"}) {
    Open({});
    editor.DataDisplayVE().Add_Item("Combo1", "stale");
    Choose(list);
    EXPECT_TRUE(Lines().empty()) << list;
    EXPECT_EQ(editor.DataDisplayVE().Ground().operations.size(), 1U) << list;
    EXPECT_EQ(Current(), 1) << list;
  }
}

TEST_F(VocabularyDisplay, A_list_that_fails_leaves_the_record_in_the_buffer_and_on_display) {
  for (const auto list : {"mnuView", "VC"}) {
    Open(Three_Curves());
    Choose("mnuNumber", "2");
    data_files.read_faults = {{data_files.reads + 1, Failure::Device_Failure}};
    EXPECT_EQ(Failure_Of([&] { Window().Choose_Menu(list); }), 57) << list;
    EXPECT_EQ(Current(), 2) << list;
    EXPECT_EQ(Trim(editor.Vocabulary().VocabularyName()), "two") << list;
    EXPECT_EQ(Text("Text1"), "two") << list;
  }
}

TEST_F(VocabularyDisplay, A_record_without_a_proper_number_stays_in_the_buffer_after_a_list) {
  for (const std::int32_t number : {0, -1}) {
    Open(Three_Curves());
    editor.Vocabulary().RecordNo(number);
    EXPECT_EQ(Failure_Of([this] { Window().Choose_Menu("mnuView"); }), 63) << number;
    EXPECT_EQ(Lines().size(), 3U) << number;
    EXPECT_EQ(Current(), number);
    EXPECT_EQ(Trim(editor.Vocabulary().VocabularyName()), "one") << number;
    EXPECT_EQ(Text("Text1"), "one") << number;
  }
}

TEST_F(VocabularyDisplay, The_list_bears_its_heading) {
  Open(Three_Curves());
  const FormDrawing& ground = editor.DataDisplayVE().Ground();
  ASSERT_EQ(ground.operations.size(), 1U);
  EXPECT_EQ(ground.operations[0].text, "     RefNo    Name");
  Choose("mnuView");
  EXPECT_EQ(ground.operations.size(), 1U);
}

TEST_F(VocabularyDisplay, A_click_on_a_line_shows_its_record) {
  Open(Three_Curves());
  ASSERT_TRUE(editor.DataDisplayVE().Select("Combo1", 2));
  EXPECT_EQ(Text("Text1"), "three");
  EXPECT_EQ(Current(), 3);
}

TEST_F(VocabularyDisplay, A_line_of_a_record_that_the_file_does_not_count_does_nothing) {
  for (const std::int32_t number : {0, -1, 4, 9}) {
    Open(Three_Curves());
    data_files.files[File][9634 * 2] = static_cast<std::uint8_t>(number);
    if (number < 0) std::fill_n(data_files.files[File].begin() + 9634 * 2, 4, std::uint8_t{255});
    Choose("mnuView");
    ASSERT_EQ(Lines().at(2), " " + std::to_string(number) + "           three( 3 )");
    ASSERT_TRUE(editor.DataDisplayVE().Select("Combo1", 2));
    EXPECT_EQ(Text("Text1"), "one") << number;
    EXPECT_EQ(Current(), 1) << number;
  }
}

}  // namespace
}  // namespace quillspeech::tests
