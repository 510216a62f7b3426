#include "cli/listen_report.hpp"

#include <chrono>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>

#include "base/text.hpp"
#include "cli/box_json.hpp"
#include "cli/report_text.hpp"
#include "core/results_view.hpp"

namespace quillspeech::cli {
namespace {

using Json = nlohmann::ordered_json;

std::int64_t Milliseconds(EventLoop::Time time) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}

bool Is_Result(EventId id) {
  return id == EventId::SpokenWordConvertedToText ||
         id == EventId::SpokenWordConvertedToPatternOnly;
}

class TextReport final : public ListenReport {
 public:
  TextReport(const Session& session, Console& console) : session_(session), console_(console) {}

  void Event(const ControlEvent& event, EventLoop::Time at) override {
    std::string text(Row_Of(event.id).name);
    if (event.id == EventId::PropertyStatusBetweenDetectionToCoversion) {
      const std::string status = To_Utf8(results_view::Operation_Status(session_.flags));
      if (status == last_status_) return;
      last_status_ = status;
      text += "  " + status;
    } else if (const auto* argument = std::get_if<std::string>(&event.argument)) {
      text += "  " + To_Utf8(*argument);
    } else if (const auto* number = std::get_if<std::int16_t>(&event.argument)) {
      text += "  " + std::to_string(*number);
    }
    std::string lines = Line(at, Is_Result(event.id) ? Ink::Bold : Ink::Plain, text);
    if (event.id == EventId::SpokenWordConvertedToText) lines += Words();
    console_.out << lines << std::flush;
  }

  void Box(const MessageBox& box, BoxAnswer answer, EventLoop::Time at) override {
    console_.out << Line(at, Ink::Red, "box  " + Box_Line(box, answer)) << std::flush;
  }

 private:
  std::string Line(EventLoop::Time at, Ink ink, const std::string& text) const {
    char time[32];
    const auto ms = Milliseconds(at);
    std::snprintf(time, sizeof time, "%6lld.%03d", static_cast<long long>(ms / 1'000),
                  static_cast<int>(ms % 1'000));
    return Inked(time, Ink::Dim, console_.colour) + "  " + Inked(text, ink, console_.colour) + "\n";
  }
  std::string Words() const {
    std::string lines;
    for (const auto& line : Ranked_Lines(Ranked_Words(session_.results), console_.colour)) {
      lines += std::string(14, ' ') + line + "\n";
    }
    return lines;
  }

  const Session& session_;
  Console& console_;
  std::string last_status_;
};

class JsonReport final : public ListenReport {
 public:
  JsonReport(const Session& session, Console& console) : session_(session), console_(console) {}

  void Event(const ControlEvent& event, EventLoop::Time at) override {
    const EventRow& row = Row_Of(event.id);
    Json line = {{"event", row.name}, {"at_ms", Milliseconds(at)}};
    if (const auto* text = std::get_if<std::string>(&event.argument)) {
      line[std::string(row.argument)] = To_Utf8(*text);
    } else if (const auto* number = std::get_if<std::int16_t>(&event.argument)) {
      line[std::string(row.argument)] = *number;
    }
    if (Is_Result(event.id)) Add_Result(line);
    Print(line);
  }

  void Box(const MessageBox& box, BoxAnswer answer, EventLoop::Time at) override {
    Print({{"box", Box_Json(box, answer)}, {"at_ms", Milliseconds(at)}});
  }

 private:
  void Add_Result(Json& line) const {
    Json words = Json::array();
    for (const RankedWord& word : Ranked_Words(session_.results)) {
      words.push_back({{"word", word.word}, {"percentage", word.percentage}});
    }
    line["words"] = std::move(words);
    line["pattern"] = Pattern_Of(session_);
  }
  void Print(const Json& line) { console_.out << line.dump() << std::endl; }

  const Session& session_;
  Console& console_;
};

}  // namespace

std::unique_ptr<ListenReport> Make_Text_Report(const Session& session, Console& console) {
  return std::make_unique<TextReport>(session, console);
}

std::unique_ptr<ListenReport> Make_Json_Report(const Session& session, Console& console) {
  return std::make_unique<JsonReport>(session, console);
}

}  // namespace quillspeech::cli
