// A language file made from nothing in the Language Editor, by requests.
#include <optional>

#include "base/text.hpp"
#include "tests/cli/host_fixture.hpp"
#include "tests/support/editor_session.hpp"

namespace quillspeech::tests {
namespace {

class HostEditorSession : public HostTest {
 protected:
  // What is typed into the boxes and which buttons are pressed there: it comes before what brings
  // them up. Messages take no answer.
  static void Add_Answers(const EditorStep& step, Lines& lines) {
    Json answers = Json::array();
    for (const SessionBox& box : step.boxes) {
      if (box.kind == SessionBox::Kind::Message) continue;
      answers.push_back(box.answer ? Json(*box.answer) : Json());
    }
    if (!answers.empty()) lines.push_back(Json{{"do", "answer"}, {"with", answers}}.dump());
  }

  static Json Request_Of(const EditorStep& step) {
    using Act = EditorStep::Act;
    switch (step.act) {
      case Act::Click:
        return {{"do", "click"}};
      case Act::Choose:
        return {{"do", "menu"}};
      case Act::Type:
        return {{"do", "type"}, {"text", step.text}};
      case Act::Select:
        return {{"do", "select"}, {"index", step.index}};
      case Act::Enter:
        return {{"do", "key"}, {"key", "Enter"}};
      case Act::Close:
        return {{"do", "close"}};
      case Act::Look:
        return {{"do", "read"}};
    }
    return {};
  }

  // The number of a request is that of its step.
  void Perform() {
    Lines lines = {
        R"({"do":"new"})",
        R"({"do":"let","member":"Consider_this_Lang_File_to_Add","value":)" + Quoted(first) + "}",
        R"({"do":"call","member":"SHOW_LANGUAGE_EDITOR"})"};
    for (std::size_t i = 0; i < steps.size(); ++i) {
      Add_Answers(steps[i], lines);
      Json request = Request_Of(steps[i]);
      request["id"] = i;
      request["on"] = steps[i].On();
      lines.push_back(request.dump());
    }
    lines.emplace_back(R"({"id":"end","do":"windows"})");
    Host(lines);
  }

  // What a reading shows that a person can see.
  std::string Seen(const Json& id) const {
    const Json value = Value(id);
    for (const char* const part : {"text", "caption"}) {
      if (value.contains(part)) return value[part];
    }
    return value.dump();
  }

  Lines Boxes_Told() const {
    Lines boxes;
    for (const Json& line : told) {
      if (line.contains("box")) boxes.push_back(Text_Of(Box_Of(line["box"])));
      if (line.contains("input")) boxes.push_back(Text_Of(Input_Of_Person(line["input"])));
      if (line.contains("file_dialog")) boxes.push_back(Text_Of(File_Of(line["file_dialog"])));
    }
    return boxes;
  }
  Lines Boxes_Expected() const {
    Lines boxes;
    for (const EditorStep& step : steps) {
      for (const SessionBox& box : step.boxes) boxes.push_back(Text_Of(box));
    }
    return boxes;
  }

  std::string first = Path("first.SAY");
  std::string made = Path("greetings.say");
  std::vector<EditorStep> steps = Editor_Session(first, made);

 private:
  static SessionBox Box_Of(const Json& box) {
    const auto kind =
        box["buttons"] == "OK" ? SessionBox::Kind::Message : SessionBox::Kind::Question;
    return {kind, box["title"], box["text"], "", box["answer"].get<std::string>()};
  }
  static std::optional<std::string> Answer_Of(const Json& box) {
    if (box["answer"].is_null()) return std::nullopt;
    return box["answer"].get<std::string>();
  }
  static SessionBox Input_Of_Person(const Json& box) {
    return {SessionBox::Kind::Input, box["title"], box["prompt"], box["text"], Answer_Of(box)};
  }
  static SessionBox File_Of(const Json& box) {
    return {SessionBox::Kind::File, box["title"], box["pattern"], "", Answer_Of(box)};
  }
};

TEST_F(HostEditorSession, Makes_a_language_file_whose_bytes_are_those_of_the_format) {
  Perform();
  for (std::size_t i = 0; i < steps.size(); ++i) {
    EXPECT_EQ(Reply(i)["ok"], true) << steps[i].On() << " " << Reply(i);
    if (steps[i].act == EditorStep::Act::Look) {
      EXPECT_EQ(Seen(i), To_Utf8(steps[i].text)) << "step " << i << ", " << steps[i].On();
    }
  }
  EXPECT_EQ(Boxes_Told(), Boxes_Expected());
  EXPECT_EQ(Value("end"), Json::array());
  EXPECT_TRUE(Content("first.SAY").empty());
  EXPECT_TRUE(Exists("first.SAY"));
  EXPECT_EQ(Difference_From_Editor_Session(Content("greetings.say")), "");
}

}  // namespace
}  // namespace quillspeech::tests
