// The windows of the Vocabulary and Engine Editor: what they hold, and where.
#pragma once

#include <memory>

#include "platform/form.hpp"

namespace quillspeech {

std::unique_ptr<Form> Make_DatabaseVE_Form();

// Its ground above the list is free for a heading.
std::unique_ptr<Form> Make_DataDisplayVE_Form();

}  // namespace quillspeech
