#include "cli/report_json.hpp"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/box_json.hpp"
#include "core/results_view.hpp"

namespace quillspeech::cli {

namespace {

using Json = nlohmann::ordered_json;
namespace view = results_view;

// Null where the getter fails, as it does when Send_of_no lies outside a table.
template <class Getter>
Json Answer(Getter getter) {
  try {
    return getter();
  } catch (const RunTimeFailure&) {
    return nullptr;
  }
}

std::int32_t Or_Zero(const DynamicTable<std::int32_t>& table, std::int64_t index) {
  return index < table.Count() ? table[index] : 0;
}

// Every word that stands in the entry tables.
Json Words_Json(const WordTables& words) {
  Json list = Json::array();
  for (std::int64_t entry = 0; entry < words.Word_Entry_Number.Count; ++entry) {
    const std::int64_t number = words.Word_Entry_Number[entry];
    if (number == 0) continue;
    list.push_back({{"number", number},
                    {"start", Or_Zero(words.Word_Start, number)},
                    {"end", Or_Zero(words.Word_End, number)},
                    {"length", words.Word_Entry_Length[entry].Raw()}});
  }
  return list;
}

}  // namespace

Json Slices_Json(const std::vector<SliceTrace>& slices) {
  Json list = Json::array();
  for (const SliceTrace& slice : slices) {
    Json one = {{"word", slice.word},   {"deep", slice.deep}, {"too_deep", slice.too_deep},
                {"first", slice.first}, {"last", slice.last}, {"category", nullptr}};
    if (slice.category) one["category"] = *slice.category;
    list.push_back(std::move(one));
  }
  return list;
}

namespace {

Json Slots_Json(const Filter& filter) {
  Json list = Json::array();
  const auto last =
      std::min<std::int64_t>(filter.Filter_Filled_Slots, filter.Filter_Slot_Table.Count - 1);
  for (std::int64_t slot = 1; slot <= last; ++slot) {
    list.push_back({{"text", To_Utf8(filter.Filter_Slot_Table[slot])},
                    {"weight", filter.Filter_Weight_Table[slot].Raw()}});
  }
  return list;
}

Json Platinum_Words_Json(const Results& results) {
  Json list = Json::array();
  const auto last = std::min<std::int64_t>(results.Platinum_Words_Available,
                                           results.Platinum_Word_Table.Count - 1);
  for (std::int64_t entry = 1; entry <= last; ++entry) {
    list.push_back({{"word", To_Utf8(Trim(results.Platinum_Word_Table[entry]))},
                    {"percentage", results.Platinum_Score_Table[entry].Raw()}});
  }
  return list;
}

Json Platinum_Best_Json(const Results& results) {
  Json list = Json::array();
  for (std::int64_t place = 1; place <= 7; ++place) {
    list.push_back(To_Utf8(view::Platinum_Best(results, place)));
  }
  return list;
}

Json Boxes_Json(const std::vector<headless::MessageBoxes::Shown>& boxes) {
  Json list = Json::array();
  for (const auto& [box, answer] : boxes) list.push_back(Box_Json(box, answer));
  return list;
}

}  // namespace

std::string Report_Json(const RecognitionRun& run, Slices slices) {
  const Session& session = run.Asked_Session();
  const Results& results = session.results;
  const Filter& filter = session.filter;
  const WordTables& words = session.words;
  Json report;
  report["file"] = run.File();
  report["Operation_Status"] = To_Utf8(view::Operation_Status(session.flags));
  report["Probable_no_of_words_recognized"] = words.Probable_no_of_words_recognized.Raw();
  report["words"] = Words_Json(words);
  if (slices == Slices::Listed) report["slices"] = Slices_Json(session.trace.slices);
  report["Voice_Magic_Elements"] = To_Utf8(view::Voice_Magic_Elements(filter));
  report["Voice_Word"] = Answer(
      [&]() -> Json { return To_Utf8(view::Voice_Word(filter, session.settings.Send_of_no)); });
  report["Filter_Filled_Slots"] = filter.Filter_Filled_Slots.Raw();
  report["slots"] = Slots_Json(filter);
  report["Platinum_Words_Available"] = results.Platinum_Words_Available.Raw();
  report["Platinum_Words"] = Platinum_Words_Json(results);
  report["Platinum_Best"] = Platinum_Best_Json(results);
  report["Platinum_Word_Font"] = To_Utf8(view::Platinum_Word_Font(results));
  report["No_Language_Match"] = results.No_Language_Match != False;
  report["boxes"] = Boxes_Json(run.Boxes());
  report["failures"] = session.trace.failures;
  // A file name is as the system has it and need not be UTF-8.
  return report.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace quillspeech::cli
