#include "editors/language_entry_lists.hpp"

#include "base/rounding.hpp"
#include "base/spelled_number.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;

void Store_Word_Rating(SayRecord& record, std::int64_t element, std::string_view text) {
  record.WordRatings(element, Number_In<std::uint8_t>(text));
}

// Any text will do: it counts by the number that it begins with.
void Replace_Word_Rating(SayRecord& record, std::int64_t element, std::string_view text) {
  record.WordRatings(element, Narrow<std::uint8_t>(Round_To_32(Numeric_Value(text))));
}

void Store_Word(SayRecord& record, std::int64_t element, std::string_view text) {
  record.Words(element, text);
}

void Store_Pattern(SayRecord& record, std::int64_t element, std::string_view text) {
  record.LikeProtocols(element, text);
}

void Store_Pattern_Rating(SayRecord& record, std::int64_t element, std::string_view text) {
  record.LikeRatings(element, Number_In<std::int16_t>(text));
}

void Store_Slot(SayRecord& record, std::int64_t element, std::string_view text) {
  record.SlotNumbers(element, Number_In<std::uint8_t>(text));
}

void Store_Code(SayRecord& record, std::int64_t element, std::string_view text) {
  record.EngineCodes(element, text);
}

void Store_Weight(SayRecord& record, std::int64_t element, std::string_view text) {
  record.EngineCodeWeights(element, Number_In<std::int16_t>(text));
}

constexpr EntryField Word_Fields[] = {
    {"Combo5", Store_Word, Store_Word,
     [](SayRecord& record, std::int64_t n) { record.Words(n, record.Words(n + 1)); },
     "Edit Entry Word", "Enter the new word to replace this:  "},
    {"Combo10", Store_Word_Rating, Replace_Word_Rating,
     [](SayRecord& record, std::int64_t n) { record.WordRatings(n, record.WordRatings(n + 1)); },
     "Edit Entry Rating", "Enter the rating for the current entry ", false},
};

constexpr EntryField Pattern_Fields[] = {
    {"Combo2", Store_Pattern, Store_Pattern,
     [](SayRecord& record, std::int64_t n) {
       record.LikeProtocols(n, record.LikeProtocols(n + 1));
     },
     "Edit Entry", "Enter the new string compare protocol to replace this:  "},
    {"Combo3", Store_Pattern_Rating, Store_Pattern_Rating,
     [](SayRecord& record, std::int64_t n) { record.LikeRatings(n, record.LikeRatings(n + 1)); },
     "Edit Entry", "Enter the new string compare protocol percentage rating:  "},
};

constexpr EntryField Differentiator_Fields[] = {
    {"Combo7", Store_Slot, Store_Slot,
     [](SayRecord& record, std::int64_t n) { record.SlotNumbers(n, record.SlotNumbers(n + 1)); },
     "Edit Entry", "Enter the New Slot No to replace this:  "},
    {"Combo6", Store_Code, Store_Code,
     [](SayRecord& record, std::int64_t n) { record.EngineCodes(n, record.EngineCodes(n + 1)); },
     "Edit Entry", "Enter the New Engine Code to replace this:  "},
    {"Combo9", Store_Weight, Store_Weight,
     [](SayRecord& record, std::int64_t n) {
       record.EngineCodeWeights(n, record.EngineCodeWeights(n + 1));
     },
     "Edit Entry", "Enter the New Engine Code Weight to replace this:  "},
};

constexpr EntryList Words{&LanguageEditor::Word_Counter, &SayRecord::WordCount,
                          &SayRecord::WordCount, Word_Fields, 1};
constexpr EntryList Patterns{&LanguageEditor::Like_Counter, &SayRecord::LikeCount,
                             &SayRecord::LikeCount, Pattern_Fields, 1};
constexpr EntryList Differentiators{&LanguageEditor::Differentiator_Counter,
                                    &SayRecord::DifferentiatorCount,
                                    &SayRecord::DifferentiatorCount, Differentiator_Fields, 3};

}  // namespace

const EntryList& Word_List() { return Words; }
const EntryList& Pattern_List() { return Patterns; }
const EntryList& Differentiator_List() { return Differentiators; }

}  // namespace quillspeech
