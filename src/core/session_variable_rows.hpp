// How a row of the session's variables reads its variable. For session_variables.cpp alone.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "base/checked.hpp"
#include "core/session_variables.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::session_variables {

// The one record of that type that a control sees.
template <class Record>
const Record& Record_Of(const Control& control) {
  const Session& session = control.session;
  if constexpr (std::is_same_v<Record, Settings>) return session.settings;
  if constexpr (std::is_same_v<Record, Flags>) return session.flags;
  if constexpr (std::is_same_v<Record, Recorder>) return session.recorder;
  if constexpr (std::is_same_v<Record, Sample>) return session.sample;
  if constexpr (std::is_same_v<Record, WaveHeader>) return session.sample.Wave_Header;
  if constexpr (std::is_same_v<Record, WordTables>) return session.words;
  if constexpr (std::is_same_v<Record, WordScanTables>) return session.words.scan;
  if constexpr (std::is_same_v<Record, Slice>) return session.slice;
  if constexpr (std::is_same_v<Record, Filter>) return session.filter;
  if constexpr (std::is_same_v<Record, Results>) return session.results;
  if constexpr (std::is_same_v<Record, OpenDataFile>) return session.data;
  if constexpr (std::is_same_v<Record, Control>) return control;
}

template <class Record, class Type>
const Type& Field_Of(const Control& control, Type Record::*field) {
  return Record_Of<Record>(control).*field;
}

template <class Pointer>
struct FieldType;
template <class Record, class Field>
struct FieldType<Field Record::*> {
  using Type = Field;
};

template <class Type>
concept Table = !std::same_as<Type, std::string> && requires(const Type& table) {
  table[std::int64_t{0}];
};

template <class Value>
VariableValue As_Value(const Value& value) {
  if constexpr (std::is_convertible_v<Value, std::string_view>) {
    return std::string(value);
  } else if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, double>) {
    return value;
  } else {
    return std::int64_t{value};
  }
}

template <auto field>
constexpr SessionVariable Variable(std::string_view name) {
  using Type = typename FieldType<decltype(field)>::Type;
  if constexpr (Table<Type>) {
    return {name, true, [](const Control& control, std::int64_t index) {
              return As_Value(Field_Of(control, field)[index]);
            }};
  } else {
    return {name, false, [](const Control& control, std::int64_t) {
              return As_Value(Field_Of(control, field));
            }};
  }
}

// The seven places are variables of their own, too.
template <int place>
constexpr SessionVariable Best_Word_Index(std::string_view name) {
  return {name, false, [](const Control& control, std::int64_t) {
            return As_Value(control.session.results.Best_Word_Index[place]);
          }};
}

template <FormTimer timer>
constexpr SessionVariable Form_Timer_Is_On(std::string_view name) {
  return {name, false, [](const Control& control, std::int64_t) {
            return As_Value(control.session.ports.events.Is_Enabled(timer));
          }};
}

// What the control knows as true or false is 0 or -1, as in the session.
template <bool Control::*latch>
constexpr SessionVariable Latch(std::string_view name) {
  return {name, false, [](const Control& control, std::int64_t) {
            return As_Value(control.*latch ? True : False);
          }};
}

template <class Type, Type (datafiles::SayRecord::*field)() const>
constexpr SessionVariable Say_Field(std::string_view name) {
  return {name, false, [](const Control& control, std::int64_t) {
            return As_Value((control.session.data.SayRecord.*field)());
          }};
}

template <class Type, Type (datafiles::SayRecord::*table)(std::int64_t) const>
constexpr SessionVariable Say_Table(std::string_view name) {
  return {name, true, [](const Control& control, std::int64_t index) {
            return As_Value((control.session.data.SayRecord.*table)(index));
          }};
}

}  // namespace quillspeech::session_variables
