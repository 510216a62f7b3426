// What a row of the member table is made of. A row names a member and the function that is its
// behaviour; the type of the member is that of the function:
//
//   Get<f>   Value f(const MemberUse&), or a getter of Control
//   Let<f>   SetResult f(const MemberUse&, Value), or a setter of Control, which is announced
//   Call<f>  void f(Session&), void f(Control&), or a procedure of Control
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/control.hpp"
#include "core/conversions.hpp"
#include "core/member_table.hpp"

namespace quillspeech::member_rows {

template <class Value>
MemberValue As_Value(Value value) {
  return MemberValue(std::in_place_type<Value>, std::move(value));
}

template <auto behaviour>
constexpr Member Get(std::string_view name, std::int32_t id, std::string_view help = {}) {
  Member row{.name = name, .access = Access::Get, .id = id, .help = help};
  if constexpr (std::is_invocable_v<decltype(behaviour), Control&>) {
    row.type = Type_For<std::invoke_result_t<decltype(behaviour), Control&>>();
    row.needs_control = true;
    row.get = [](const MemberUse& use) {
      return As_Value(std::invoke(behaviour, *use.instance.control));
    };
  } else {
    row.type = Type_For<std::invoke_result_t<decltype(behaviour), const MemberUse&>>();
    row.get = [](const MemberUse& use) { return As_Value(behaviour(use)); };
  }
  return row;
}

// A get of a setting that answers something else than what was set.
template <auto behaviour>
constexpr Member Own_Get(std::string_view name, std::int32_t id, std::string_view help = {}) {
  Member row = Get<behaviour>(name, id, help);
  row.answers_what_was_set = false;
  return row;
}

// The value that a let takes.
template <class Behaviour>
struct Taken;
template <class Value>
struct Taken<SetResult (*)(const MemberUse&, Value)> {
  using Type = std::remove_cvref_t<Value>;
  static constexpr bool By_Control = false;
};
template <class Value>
struct Taken<void (Control::*)(Value)> {
  using Type = std::remove_cvref_t<Value>;
  static constexpr bool By_Control = true;
};

template <auto behaviour>
constexpr Member Let(std::string_view name, std::int32_t id, std::string_view help = {}) {
  using Behaviour = Taken<std::remove_const_t<decltype(behaviour)>>;
  using Value = typename Behaviour::Type;
  Member row{
      .name = name, .access = Access::Let, .id = id, .type = Type_For<Value>(), .help = help};
  row.needs_control = Behaviour::By_Control;
  row.let = [](const MemberUse& use, const MemberValue& value) {
    if constexpr (Behaviour::By_Control) {
      std::invoke(behaviour, *use.instance.control, Converted<Value>(value));
      use.Announce();
      return SetResult::Done;
    } else {
      return behaviour(use, Converted<Value>(value));
    }
  };
  return row;
}

// A let that answers what is no number with a box. The box may have its own spelling of the name.
template <auto behaviour>
constexpr Member Tested_Let(std::string_view name, std::int32_t id, std::string_view spelled = {}) {
  Member row = Let<behaviour>(name, id);
  row.name_in_refusal = spelled.empty() ? name : spelled;
  return row;
}

// The let of a result, of the type of its get.
constexpr Member Dropped(std::string_view name, std::int32_t id) {
  return {.name = name, .access = Access::Let, .id = id};
}

template <auto behaviour>
constexpr Member Call(std::string_view name, std::int32_t id, std::string_view help = {}) {
  Member row{.name = name, .access = Access::Call, .id = id, .help = help, .needs_control = true};
  row.call = [](Control& control) {
    if constexpr (std::is_invocable_v<decltype(behaviour), Session&>) {
      std::invoke(behaviour, control.session);
    } else {
      std::invoke(behaviour, control);
    }
  };
  return row;
}

// A help text stands at one row of its member and holds for both; so does the type of a result.
template <std::size_t count>
constexpr std::array<Member, count> With_Shared_Columns(std::array<Member, count> rows) {
  for (Member& row : rows) {
    for (const Member& other : rows) {
      if (other.id != row.id) continue;
      if (row.help.empty()) row.help = other.help;
      if (row.type == MemberType::None) row.type = other.type;
    }
  }
  return rows;
}

}  // namespace quillspeech::member_rows
