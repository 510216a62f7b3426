// Engine and vocabulary files edited through a scripted host, down to their bytes on the disk.
#include "tests/cli/host_fixture.hpp"
#include "tests/support/data_file_bytes.hpp"

namespace quillspeech::tests {
namespace {

class HostDataEditors : public HostTest {
 protected:
  static std::string Answer(const Lines& answers) {
    return R"({"do":"answer","with":)" + nlohmann::json(answers).dump() + "}";
  }
  static std::string Menu(const std::string& entry) {
    return R"({"do":"menu","on":"DatabaseVE.)" + entry + R"("})";
  }
  static std::string Click(const std::string& button) {
    return R"({"do":"click","on":"DatabaseVE.)" + button + R"("})";
  }
  static std::string Read(int id, const std::string& on) {
    return R"({"id":)" + std::to_string(id) + R"(,"do":"read","on":")" + on + R"("})";
  }

  // The lines on the window that the chooser of editors leads to, which is then closed.
  void Edit(const Lines& lines) { Edit_In("C:\\host.exe", lines); }
  void Edit_In(const std::string& program, const Lines& lines) {
    Lines all = {R"({"do":"program","path":)" + Quoted(program) + "}", R"({"do":"new"})",
                 R"({"do":"press","on":"Command4"})", R"({"do":"click","on":"Splash.Command3"})"};
    all.insert(all.end(), lines.begin(), lines.end());
    all.emplace_back(R"({"do":"close","on":"DatabaseVE"})");
    all.emplace_back(R"({"do":"close","on":"ComingSplash"})");
    Host(all);
    EXPECT_EQ(status, 0);
    for (const Json& line : told) EXPECT_FALSE(line.contains("error")) << line;
  }
  // The texts of all boxes so far.
  Lines Boxes() const {
    Lines texts;
    for (const Json& line : Told("box")) texts.push_back(line["box"]["text"].get<std::string>());
    return texts;
  }
};

TEST_F(HostDataEditors, An_engine_file_is_made_entry_by_entry) {
  const std::string name = Path("new.EGN");
  Edit({Answer({name, "_", " aa ", "zz", "x", "Yes"}), Menu("mnuEFoef"), Menu("mnu02(1)"),
        Menu("mnu24(2)"), Menu("mnu45Abv(15)"), Menu("mnu3040(1)"), Menu("mnuEFsef")});
  EXPECT_EQ(Content("new.EGN"),
            Engine_Record_Bytes(1, {{0, "_"}, {4, "aa"}, {60, "zz"}, {31, "x"}}));
  EXPECT_EQ(Boxes(), Lines{"Are you ready to save this engine record in file  " + name});
}

TEST_F(HostDataEditors, An_engine_file_that_is_not_chosen_opens_nothing_and_tells_nothing) {
  Edit({Answer(Lines{""}), Click("Command3"), Menu("mnuEFsef")});
  EXPECT_EQ(Told("file_dialog").at(0)["file_dialog"]["name"], "*.EGN");
  ASSERT_EQ(Boxes().size(), 1U);
  EXPECT_EQ(Boxes()[0].substr(0, 40), "You have'nt opened a Engine file yet. Pl");
}

TEST_F(HostDataEditors, A_change_of_an_engine_file_leaves_all_other_bytes) {
  const std::string longest = "abcdefghijklmnopqrst";
  Groups groups = {{0, "a"}, {16, "old"}, {60, "z"}, {61, "kept"}, {100, "kept too"}};
  const std::string name =
      Put("engine.EGN",
          Joined({Engine_Record_Bytes(1, groups), Engine_Record_Bytes(2, {{5, "behind"}})}));
  Edit({Answer({name, longest + "uvw", "Yes"}), Click("Command3"), Menu("mnu1523(1)"),
        Menu("mnuEFsef")});
  groups[1].second = longest;
  EXPECT_EQ(Content("engine.EGN"),
            Joined({Engine_Record_Bytes(1, groups), Engine_Record_Bytes(2, {{5, "behind"}})}));
}

TEST_F(HostDataEditors, An_engine_record_goes_to_the_number_that_it_holds) {
  const std::string name = Put("engine.EGN", Engine_Record_Bytes(2, {{0, "a"}}));
  Edit({Answer({name, "b", "Yes"}), Click("Command3"), Menu("mnu02(1)"), Menu("mnuEFsef")});
  EXPECT_EQ(Content("engine.EGN"),
            Joined({Engine_Record_Bytes(2, {{0, "a"}}), Engine_Record_Bytes(2, {{0, "b"}})}));
}

TEST_F(HostDataEditors, The_default_engine_reaches_a_file_by_saving) {
  Edit({Answer({Path("new.EGN"), "No", "Yes"}), Menu("mnuEFoef"), Click("Command4"),
        Menu("mnuEFsef"), Menu("mnuEFsef")});
  Groups groups;
  for (int category = 0; category <= 60; ++category) {
    groups.emplace_back(category, category == 0    ? "_"
                                  : category == 1  ? "dbtrvgp"
                                  : category <= 5  ? "dbtrvgpunmle"
                                  : category <= 7  ? "oa"
                                  : category <= 13 ? "aAA"
                                  : category <= 22 ? "AkgH"
                                  : category <= 25 ? "AkgHfthjj"
                                  : category <= 30 ? "AkgHfthjjs"
                                  : category <= 49 ? "fthjjs"
                                                   : "s");
  }
  EXPECT_EQ(Content("new.EGN"), Engine_Record_Bytes(1, groups));
  EXPECT_EQ(Boxes().size(), 2U);
}

class HostVocabularyEditor : public HostDataEditors {
 protected:
  HostVocabularyEditor() {
    file = Put("curves.SAY", Joined({Vocabulary_Record_Bytes(1, "rise", {7, 1, 2.5, 128}, 3),
                                     Vocabulary_Record_Bytes(2, "fall", {0, 30, 20}, 2)}));
  }
  std::string file;
};

TEST_F(HostVocabularyEditor, Moves_and_lists_leave_every_byte) {
  const FileBytes before = Content("curves.SAY");
  Edit({Answer({file, "2", "rise"}), Click("Command1"), Click("NextHit"), Click("NextHit"),
        Menu("mnuPrevious"), Menu("mnuView"), Menu("VC"), Menu("mnuNumber"), Menu("mnuFindName"),
        Click("Command2"), Menu("mnuCopy")});
  EXPECT_EQ(Content("curves.SAY"), before);
  EXPECT_EQ(Boxes(), Lines{"No More Records"});
}

TEST_F(HostVocabularyEditor, A_curve_is_cut_pasted_and_renamed) {
  Edit({Answer({file, "Yes", "Yes", "  new name "}), Menu("Opmu"), Menu("mnuCut"), Menu("mnuPaste"),
        Menu("mnuRename"), Read(1, "DatabaseVE"), Read(2, "DatabaseVE.Text1"),
        Read(3, "DatabaseVE.Label3")});
  EXPECT_EQ(Content("curves.SAY"),
            Joined({Vocabulary_Record_Bytes(1, "", {}, 0),
                    Vocabulary_Record_Bytes(2, "fall", {0, 30, 20}, 2),
                    Vocabulary_Record_Bytes(3, "new name", {7, 1, 2.5, 128}, 3)}));
  EXPECT_EQ(Value(1)["caption"], "Quillspeech Vocabulary Database.Rec No: 3new name");
  EXPECT_EQ(Value(2)["text"], "new name");
  EXPECT_EQ(Value(3)["caption"], "3");
}

TEST_F(HostVocabularyEditor, A_deleted_curve_keeps_its_place) {
  Edit({Answer({file}), Click("Command1"), Click("NextHit"), Menu("mnuDelete")});
  EXPECT_EQ(Content("curves.SAY"), Joined({Vocabulary_Record_Bytes(1, "rise", {7, 1, 2.5, 128}, 3),
                                           Vocabulary_Record_Bytes(2, "", {}, 0)}));
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(HostVocabularyEditor, A_new_file_begins_with_record_1) {
  Edit({Answer({Path("new.say"), "first", "Yes"}), Menu("Opmu"), Menu("mnuRename"), Menu("mnuNext"),
        Menu("mnuPaste")});
  // Nothing was copied, and the paste goes behind the record that the rename has made.
  EXPECT_EQ(Content("new.say"), Joined({Vocabulary_Record_Bytes(1, "first", {}, 0),
                                        Vocabulary_Record_Bytes(2, "", {}, 0)}));
  EXPECT_EQ(Boxes(), Lines({"No More Records", "Add data in Memory to file ?"}));
}

TEST_F(HostVocabularyEditor, The_graph_tells_its_circles_on_their_scale) {
  Edit({Answer({file}), Click("Command1"), Read(1, "DatabaseVE.Picture1"), Click("Command2"),
        Read(2, "DatabaseVE.Picture1")});
  const Json drawing = Value(1)["drawing"];
  EXPECT_EQ(drawing["scale"].dump(), "[0.0,50.0,128.0,0.0]");
  ASSERT_EQ(drawing["operations"].size(), 3U);
  const char* const centres[] = {"[[1.0,1.0]]", "[[2.5,2.0]]", "[[128.0,3.0]]"};
  for (std::size_t i = 0; i < 3; ++i) {
    const Json& circle = drawing["operations"][i];
    EXPECT_EQ(circle["draw"], "circle");
    EXPECT_EQ(circle["points"].dump(), centres[i]);
    EXPECT_EQ(circle["radius"], 1);
    EXPECT_EQ(circle["colour"].get<std::string>().substr(3), "ff00") << circle;
  }
  EXPECT_TRUE(Value(2)["drawing"]["operations"].empty());
  EXPECT_EQ(Value(2)["drawing"]["scale"], drawing["scale"]);
}

TEST_F(HostVocabularyEditor, In_a_design_environment_a_line_of_the_list_leads_to_its_record) {
  Edit_In("C:\\tools\\vb6.exe", {Answer({file}), Click("Command1"), R"({"id":1,"do":"windows"})",
                                 Read(2, "DataDisplayVE.Combo1"),
                                 R"({"do":"select","on":"DataDisplayVE.Combo1","index":1})",
                                 Read(3, "DatabaseVE.Text1")});
  ASSERT_EQ(Value(1).size(), 2U);
  EXPECT_EQ(Value(1)[1]["name"], "DataDisplayVE");
  EXPECT_EQ(Value(1)[1]["caption"], "Quillspeech Vocabulary Engine  Editor :  Database Display");
  EXPECT_EQ(Value(1)[1]["modal"], false);
  EXPECT_EQ(Value(2)["items"].get<Lines>(),
            Lines({" 1           rise( 3 )", " 2           fall( 2 )"}));
  EXPECT_EQ(Value(3)["text"], "fall");
}

TEST_F(HostVocabularyEditor, What_needs_a_file_is_refused_before_one_is_open) {
  Host({R"({"do":"new"})", R"({"do":"press","on":"Command4"})",
        R"({"do":"click","on":"Splash.Command3"})",
        R"({"id":1,"do":"menu","on":"DatabaseVE.mnuNext"})",
        R"({"id":2,"do":"menu","on":"DatabaseVE.mnuPaste"})",
        R"({"id":3,"do":"menu","on":"DatabaseVE.mnuNumber"})"});
  for (const int id : {1, 2, 3}) EXPECT_EQ(Error_Number(id), 0) << id;
}

TEST_F(HostVocabularyEditor, A_damaged_count_fails_with_the_number_of_an_index) {
  Put("bad.SAY", Vocabulary_Record_Bytes(1, "bad", {}, 1201));
  Host({R"({"do":"new"})", R"({"do":"press","on":"Command4"})",
        R"({"do":"click","on":"Splash.Command3"})", Answer({Path("bad.SAY")}),
        R"({"id":1,"do":"click","on":"DatabaseVE.Command1"})", R"({"id":2,"do":"windows"})"});
  EXPECT_EQ(Error_Number(1), 9);
  EXPECT_EQ(Value(2)[0]["name"], "DatabaseVE");
}

}  // namespace
}  // namespace quillspeech::tests
