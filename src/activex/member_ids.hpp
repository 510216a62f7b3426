// Members as hosts ask for them: by name in any case of letters, and by id.
#pragma once

#include <string_view>

#include "activex/com.hpp"
#include "core/member_table.hpp"

namespace quillspeech::activex {

// DISPID_UNKNOWN when there is none.
DISPID Id_Of_Member(std::string_view name);

// Null when the member has no such access, or when there is none.
const Member* Member_With_Id(DISPID id, Access access);

}  // namespace quillspeech::activex
