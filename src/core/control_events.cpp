#include "core/control_events.hpp"

#include <array>
#include <cstddef>

namespace quillspeech {
namespace {

constexpr auto Rows = std::to_array<EventRow>({
    {EventId::Click, "Click", EventArgument::None, "",
     "Event for Clicking on Component User Interface"},
    {EventId::RestartRecognitionActivity, "RestartRecognitionActivity", EventArgument::None, "",
     ""},
    {EventId::StartRecognitionActivity, "StartRecognitionActivity", EventArgument::None, "", ""},
    {EventId::StopRecognitionActivity, "StopRecognitionActivity", EventArgument::None, "", ""},
    {EventId::SpokenWordConvertedToText, "SpokenWordConvertedToText", EventArgument::Text,
     "TheBestPercentageWord", ""},
    {EventId::SpokenWordConvertedToPatternOnly, "SpokenWordConvertedToPatternOnly",
     EventArgument::Text, "TheBasicPattern", ""},
    {EventId::SpokenWordDetected, "SpokenWordDetected", EventArgument::Number16, "NumberofWords",
     ""},
    {EventId::PropertyStatusBetweenDetectionToCoversion,
     "PropertyStatusBetweenDetectionToCoversion", EventArgument::None, "", ""},
    {EventId::NoMatchFoundinFile, "NoMatchFoundinFile", EventArgument::None, "", ""},
});

}  // namespace

std::span<const EventRow> Event_Rows() { return Rows; }

const EventRow& Row_Of(EventId id) { return Rows[static_cast<std::size_t>(id) - 1]; }

}  // namespace quillspeech
