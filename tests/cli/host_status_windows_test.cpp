// The audio graph and the status window, as a scripted host sees them.
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostStatusWindows : public HostTest {
 protected:
  static std::string Program(const std::string& path) {
    return R"({"do":"program","path":)" + Quoted(path) + "}";
  }
  static std::string Let(const std::string& member, const std::string& value) {
    return R"({"do":"let","member":")" + member + R"(","value":)" + Quoted(value) + "}";
  }
  // Words are matched with, and added to, a file of the test's own.
  Lines New_Control(const std::string& program) const {
    const std::string language = Put_Language("words.SAY", {Record().Word("low").Pattern("oa*")});
    return {Program(program), R"({"do":"new"})", Let("Consider_this_Lang_File_to_match", language),
            Let("Consider_this_Lang_File_to_Add", language)};
  }
  // In that program, analyses a file of two words with these settings and does the rest.
  void Analyse(const std::string& program, const Lines& rest, const Lines& settings = {}) {
    const std::string wave = Put_Sound("two.wav", Low_Word() + High_Word());
    Lines lines = New_Control(program);
    lines.push_back(Let("Open_this_Wave_File", wave));
    lines.insert(lines.end(), settings.begin(), settings.end());
    lines.emplace_back(R"({"do":"call","member":"Open_Specified_Wave_File_And_Process"})");
    lines.insert(lines.end(), rest.begin(), rest.end());
    Host(lines);
  }
  // In that program, listens to silence with these settings and does the rest.
  void Listen(const std::string& program, const Lines& settings, const Lines& rest) {
    Lines lines = New_Control(program);
    lines.push_back(Let("I_want_Status_Animation", "YES"));
    lines.insert(lines.end(), settings.begin(), settings.end());
    lines.emplace_back(R"({"do":"call","member":"Start_Real_Action"})");
    lines.emplace_back(R"({"do":"run","ms":1000})");
    lines.insert(lines.end(), rest.begin(), rest.end());
    Host(lines);
  }
  bool Was_Shown(const std::string& name) const {
    return std::ranges::any_of(Told("window"), [&](const Json& line) {
      return line["window"]["name"] == name && line["window"]["shown"] == true;
    });
  }

  inline static const std::string Environment = "C:\\tools\\VB6.EXE";
  inline static const std::string Read_Graph = R"({"id":1,"do":"read","on":"Graph"})";
  inline static const std::string Read_Image = R"({"id":1,"do":"read","on":"StatusBar.Image1"})";
};

TEST_F(HostStatusWindows, The_graph_of_a_file_can_be_read_operation_by_operation) {
  Analyse(Environment, {Read_Graph, R"({"id":2,"do":"peek","name":"Decimated_Count"})",
                        R"({"id":3,"do":"peek","name":"Word_Start","index":1})",
                        R"({"id":4,"do":"peek","name":"Word_End","index":1})"});
  ASSERT_TRUE(Was_Shown("Graph"));
  const Json graph = Value(1);
  EXPECT_EQ(graph["caption"],
            "Quillspeech\u00AEAudio Graph Version 1.2.400\u00A9Corvane Studio Works");
  const Json scale = graph["drawing"]["scale"];
  EXPECT_EQ(scale[0], 0);
  EXPECT_EQ(scale[1], 128);
  EXPECT_EQ(scale[3], -128);
  const Json operations = graph["drawing"]["operations"];
  ASSERT_GE(operations.size(), 2U);
  EXPECT_EQ(operations[0]["draw"], "box");
  EXPECT_EQ(operations[0]["colour"], "#ff0000");
  EXPECT_EQ(operations[0]["filled"], true);
  EXPECT_EQ(operations[0]["points"][0][0].get<double>(), Value(3).get<double>() / 25);
  EXPECT_EQ(operations[0]["points"][1][0].get<double>(), Value(4).get<double>() / 25);
}

TEST_F(HostStatusWindows, The_line_of_the_graph_has_a_point_for_each_step_of_the_scale) {
  Analyse(Environment, {Read_Graph});
  const Json drawing = Value(1)["drawing"];
  const auto& operations = drawing["operations"];
  const auto line =
      std::ranges::find_if(operations, [](const Json& one) { return one["draw"] == "lines"; });
  ASSERT_NE(line, operations.end());
  const Json points = (*line)["points"];
  EXPECT_EQ(points[0], Json::array({0.0, 128.0}));
  EXPECT_EQ(points.back()[0], drawing["scale"][2]);
  EXPECT_EQ(static_cast<double>(points.size()), drawing["scale"][2].get<double>() + 1);
  EXPECT_EQ((*line)["colour"], "#000000");
}

// Loud enough to be a word of the scan, and with hardly a byte that is loud for a slice.
TEST_F(HostStatusWindows, A_slice_of_noise_is_told_on_the_graph) {
  const Sound hum = Tone(500_Hz, Amplitude(25), Bytes(6000));
  const std::string wave = Put_Sound("hum.wav", Silence(Bytes(3000)) + hum + Silence(Bytes(9000)));
  Analyse(Environment, {Read_Graph, R"({"id":2,"do":"peek","name":"Graph_Point_Count"})"},
          {Let("Open_this_Wave_File", wave),
           R"({"do":"let","member":"Sample_processing_resolution","value":2000})"});
  const Json text = Value(1)["drawing"]["operations"].back();
  EXPECT_EQ(text["draw"], "text");
  EXPECT_EQ(text["text"], "Noise Found on 1 0 0");
  EXPECT_EQ(text["points"][0][0].get<double>(), Value(2).get<double>() / 2);
  EXPECT_EQ(text["points"][0][1], 128.0);
  EXPECT_EQ(text["font"]["name"], "Small Fonts");
}

// The boxes stay those of the sample; the scale is the long word's own.
TEST_F(HostStatusWindows, The_graph_of_a_long_word_lies_over_that_of_the_sample) {
  const Sound word = Tone(500_Hz, Amplitude(90), Bytes(20'000));
  const std::string wave =
      Put_Sound("long.wav", Silence(Bytes(9000)) + word + Silence(Bytes(271'000)));
  Analyse(Environment,
          {Read_Graph, R"({"id":2,"do":"peek","name":"Word_Start","index":1})",
           R"({"id":3,"do":"peek","name":"Word_End","index":1})"},
          {Let("Open_this_Wave_File", wave)});
  const Json drawing = Value(1)["drawing"];
  const double length = Value(3).get<double>() - Value(2).get<double>();
  EXPECT_GE(length, 15'000);
  EXPECT_NEAR(drawing["scale"][2].get<double>(), length / 25, 2);
  EXPECT_EQ(drawing["operations"][0]["points"][0][0].get<double>(), Value(2).get<double>() / 25);
}

TEST_F(HostStatusWindows, The_graph_keeps_the_number_of_its_points_behind_the_run) {
  Analyse(Environment, {Read_Graph, R"({"id":2,"do":"peek","name":"Graph_Point_Count"})"});
  EXPECT_EQ(Value(1)["drawing"]["scale"][2].get<double>(), Value(2).get<double>());
}

TEST_F(HostStatusWindows, No_graph_is_drawn_in_a_compiled_host) {
  Analyse("C:\\programs\\hears.exe", {Read_Graph});
  EXPECT_FALSE(Was_Shown("Graph"));
  EXPECT_EQ(Error_Number(1), 0);
}

TEST_F(HostStatusWindows, No_graph_is_drawn_when_it_is_not_wanted) {
  Analyse(Environment, {Read_Graph}, {Let("Show_Audio_Graph", "NO")});
  EXPECT_FALSE(Was_Shown("Graph"));
}

TEST_F(HostStatusWindows, The_status_window_shows_only_in_a_design_environment) {
  Listen(Environment, {}, {});
  EXPECT_TRUE(Was_Shown("StatusBar"));
  Listen("C:\\programs\\hears.exe", {}, {});
  EXPECT_FALSE(Was_Shown("StatusBar"));
}

TEST_F(HostStatusWindows, The_status_window_shows_its_own_picture_of_listening) {
  Listen(Environment, {}, {Read_Image, R"({"id":2,"do":"read","on":"StatusBar.Image3"})"});
  EXPECT_GT(Value(1)["drawing"]["operations"].size(), 5U);
  EXPECT_EQ(Value(1)["drawing"], Value(2)["drawing"]);
  EXPECT_FALSE(Value(1).contains("picture_bytes"));
}

TEST_F(HostStatusWindows, The_status_window_shows_the_file_of_a_picture) {
  std::string bitmap = "BM" + std::string(68, '\0');
  bitmap[14] = 40;
  const std::string file = Put_Text("ear.bmp", bitmap);
  Listen(Environment, {Let("Show_this_Image_for_Start", file)}, {Read_Image});
  EXPECT_EQ(Value(1)["picture_bytes"], 70);
}

TEST_F(HostStatusWindows, A_file_that_is_not_there_leaves_the_picture) {
  Listen(Environment, {Let("Show_this_Image_for_Start", Path("none.bmp"))}, {Read_Image});
  EXPECT_FALSE(Value(1).contains("picture_bytes"));
  EXPECT_GT(Value(1)["drawing"]["operations"].size(), 5U);
  EXPECT_TRUE(Told("box").empty());
  EXPECT_TRUE(Told("failure").empty());
}

TEST_F(HostStatusWindows, A_click_on_the_picture_closes_the_window) {
  Listen(Environment, {},
         {R"({"id":1,"do":"click","on":"StatusBar.Image1"})", R"({"id":2,"do":"windows"})"});
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Value(2), Json::array());
}

TEST_F(HostStatusWindows, The_end_of_the_control_unloads_both) {
  Analyse(Environment, {R"({"do":"end"})", R"({"id":1,"do":"windows"})"});
  EXPECT_EQ(Value(1), Json::array());
  EXPECT_EQ(Told("window").back().dump(),
            R"({"window":{"name":"Graph","shown":false,"modal":false}})");
}

}  // namespace
}  // namespace quillspeech::tests
