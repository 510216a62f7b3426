// The windows of the Language Editor: what they hold, and where.
#pragma once

#include <memory>

#include "platform/form.hpp"

namespace quillspeech {

std::unique_ptr<Form> Make_Database_Form();
std::unique_ptr<Form> Make_DataDisplay_Form();
std::unique_ptr<Form> Make_FeaturesDisplay_Form();

}  // namespace quillspeech
