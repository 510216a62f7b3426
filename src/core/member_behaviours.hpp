// What the members do. A get answers a value; a let takes one that has its type already, stores it
// and announces the change, unless it says otherwise.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/checked.hpp"
#include "base/text.hpp"
#include "core/member_table.hpp"
#include "core/results_view.hpp"
#include "core/session_field.hpp"

namespace quillspeech::member_behaviours {

// Gets of a variable.

template <auto field>
std::string Text(const MemberUse& use) {
  return Trimmed(Field<field>(use.session));
}
template <auto field>
std::string Untrimmed_Text(const MemberUse& use) {
  return Field<field>(use.session);
}
template <auto field>
std::int16_t Number16(const MemberUse& use) {
  return Narrow<std::int16_t>(Field<field>(use.session));
}
template <auto field>
std::int32_t Number32(const MemberUse& use) {
  return Narrow<std::int32_t>(Field<field>(use.session));
}

// Gets of a result: a function over its record, or over that and Send_of_no.

template <class Answer, class Record>
Answer Ask(Session& session, Answer (*getter)(const Record&)) {
  return getter(Part<Record>(session));
}
template <class Answer, class Record>
Answer Ask(Session& session, Answer (*getter)(const Record&, std::int64_t)) {
  return getter(Part<Record>(session), session.settings.Send_of_no);
}
template <auto getter>
auto Result(const MemberUse& use) {
  return Ask(use.session, getter);
}

template <int place>
std::string Best(const MemberUse& use) {
  return results_view::Platinum_Best(use.session.results, place);
}
// The gets of these two tell the container of a change.
std::string Platinum_Words(const MemberUse& use);
std::string Voice_Word(const MemberUse& use);
std::int16_t Category(const MemberUse& use);
std::string Category_Code(const MemberUse& use);
std::int32_t Zero(const MemberUse& use);

// Gets of settings that are no plain variable.

std::string Yes_Always(const MemberUse& use);
std::string Word_Wanted(const MemberUse& use);
std::string Played_File(const MemberUse& use);

// Lets of switches: any other text keeps the value, means "YES", or means "NO".

inline SetResult Announced(const MemberUse& use) {
  use.Announce();
  return SetResult::Done;
}
template <auto field>
SetResult Keep_Unless_Yes_Or_No(const MemberUse& use, const std::string& text) {
  if (text == "YES" || text == "NO") Field<field>(use.session) = text;
  return Announced(use);
}
template <auto field>
SetResult Yes_Unless_No(const MemberUse& use, const std::string& text) {
  Field<field>(use.session) = text == "NO" ? "NO" : "YES";
  return Announced(use);
}
template <auto field>
SetResult No_Unless_Yes(const MemberUse& use, const std::string& text) {
  Field<field>(use.session) = text == "YES" ? "YES" : "NO";
  return Announced(use);
}
SetResult Set_Input_Flow(const MemberUse& use, const std::string& text);
SetResult Set_Processing_Level(const MemberUse& use, const std::string& text);
SetResult Set_Memory_Clean(const MemberUse& use, const std::string& text);
SetResult Set_Show_Activities(const MemberUse& use, const std::string& text);

// Lets of numbers; the variable may be of another width than the member (failure 6).

template <auto field, class Number>
SetResult Store_Silently(const MemberUse& use, Number number) {
  Field<field>(use.session) = number;
  return SetResult::Done;
}
template <auto field, class Number>
SetResult Store(const MemberUse& use, Number number) {
  Field<field>(use.session) = number;
  return Announced(use);
}
SetResult Set_Words_To_Scan(const MemberUse& use, std::int32_t last);
SetResult Set_Direct_Add(const MemberUse& use, std::int16_t record);
SetResult Set_Frequency(const MemberUse& use, std::int32_t frequency);
SetResult Set_Sampling_Time(const MemberUse& use, std::int32_t milliseconds);

// Lets of texts and file names.

template <auto field>
SetResult Store_Trimmed(const MemberUse& use, const std::string& text) {
  Field<field>(use.session) = Trimmed(text);
  return Announced(use);
}
SetResult Set_Word_Wanted(const MemberUse& use, const std::string& text);
SetResult Set_Engine_File(const MemberUse& use, const std::string& text);
SetResult Set_Language_File_To_Match(const MemberUse& use, const std::string& text);
SetResult Set_Language_File_To_Add(const MemberUse& use, const std::string& text);
SetResult Set_Played_File(const MemberUse& use, const std::string& text);

}  // namespace quillspeech::member_behaviours
