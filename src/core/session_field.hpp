// A variable of the session by a pointer to its field alone: Field<&Settings::Send_of_no>(session).
#pragma once

#include <type_traits>

#include "session/session.hpp"

namespace quillspeech {

// The one record of that type.
template <class Record>
constexpr auto& Part(Session& session) {
  if constexpr (std::is_same_v<Record, Settings>) {
    return session.settings;
  } else if constexpr (std::is_same_v<Record, Flags>) {
    return session.flags;
  } else if constexpr (std::is_same_v<Record, WordTables>) {
    return session.words;
  } else if constexpr (std::is_same_v<Record, Slice>) {
    return session.slice;
  } else if constexpr (std::is_same_v<Record, Filter>) {
    return session.filter;
  } else {
    static_assert(std::is_same_v<Record, Results>);
    return session.results;
  }
}

template <class Type, class Record>
constexpr Type& Field_Of(Session& session, Type Record::*field) {
  return Part<Record>(session).*field;
}

template <auto field>
constexpr auto& Field(Session& session) {
  return Field_Of(session, field);
}

}  // namespace quillspeech
