// The three lists of a record as their commands see them: the controls to enter them by, and the
// arrays to store them in.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "editors/language_editor.hpp"

namespace quillspeech {

// One array of a list with its entry field. Elements count from 1. A text that is to become a
// number is failure 13 when it is none and 6 when it does not fit; an element beyond its array
// is 9.
struct EntryField {
  using Store = void (*)(datafiles::SayRecord& record, std::int64_t element, std::string_view text);

  std::string_view control;
  Store store;    // what was entered
  Store replace;  // the answer to the prompt of Edit
  void (*take_next)(datafiles::SayRecord& record, std::int64_t element);  // from the one behind it
  std::string_view title;
  std::string_view prompt;  // the present value follows
  bool is_needed = true;    // an empty answer changes nothing
};

struct EntryList {
  Checked16 LanguageEditor::*counter;
  std::int16_t (datafiles::SayRecord::*count)() const;
  void (datafiles::SayRecord::*set_count)(std::int16_t count);
  std::span<const EntryField> fields;  // in step
  std::size_t chosen_fields;           // the first so many must have a chosen entry
};

const EntryList& Word_List();
const EntryList& Pattern_List();
const EntryList& Differentiator_List();

}  // namespace quillspeech
