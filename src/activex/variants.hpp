// Between what hosts send and the values of members.
#pragma once

#include <string>
#include <string_view>

#include "activex/com.hpp"
#include "core/member_value.hpp"

namespace quillspeech::activex {

// A text given to a caller, who frees it. Failure 7 without memory.
BSTR Given_Text(std::string_view windows_1252);
// A BSTR may be null: it is empty then. NULs inside it are characters as any other.
std::string Taken_Text(BSTR text);

// The value as a member of that type takes it, by the rules of core/conversions.hpp for texts,
// Booleans and whole numbers and by those of the system (English, half to the even neighbour) for
// other numbers, money and dates. By-ref values are looked up, and objects asked for their default
// property. Empty is the type's zero.
//
// Failure 13: an array, an object without a value, an error code, a text that is no number, a
// pointer to nowhere, a type that no VARIANT has. 6: the number does not fit. 94: Null.
MemberValue Value_Of(const VARIANT& from, MemberType type);

// An argument that the caller has left out.
bool Is_Missing(const VARIANT& argument);

// Gives the value to a caller; `to` holds nothing yet.
void Give_Value(const MemberValue& value, VARIANT& to);

}  // namespace quillspeech::activex
