// What the small windows hold, and where.
#pragma once

#include <string_view>

#include "platform/form.hpp"

namespace quillspeech {

inline constexpr FormSize Help_Size{6000, 3870};
inline constexpr FormSize Splash_Size{5400, 3600};
inline constexpr FormSize ComingSplash_Size{6600, 3900};

// The labels of ComingSplash: its heading, then its four lines.
inline constexpr std::string_view ComingSplash_Labels[] = {"Label1", "Label2", "Label3", "Label4",
                                                           "Label5"};

void Lay_Out_Help(Form& form);
void Lay_Out_Splash(Form& form);
void Lay_Out_ComingSplash(Form& form);

}  // namespace quillspeech
