// What a host hears of the control: nine events, with their ids and names.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace quillspeech {

enum class EventId {
  Click = 1,
  RestartRecognitionActivity,
  StartRecognitionActivity,
  StopRecognitionActivity,
  SpokenWordConvertedToText,
  SpokenWordConvertedToPatternOnly,
  SpokenWordDetected,
  PropertyStatusBetweenDetectionToCoversion,
  NoMatchFoundinFile,
};

struct ControlEvent {
  EventId id;
  std::variant<std::monostate, std::string, std::int16_t> argument;  // as its row says
};

enum class EventArgument { None, Text, Number16 };

struct EventRow {
  EventId id;
  std::string_view name;
  EventArgument kind;
  std::string_view argument;  // its name; empty when there is none
  std::string_view help;
};

// In the order of the ids, from 1.
std::span<const EventRow> Event_Rows();
const EventRow& Row_Of(EventId id);

}  // namespace quillspeech
