// What a window and its parts show, as JSON in UTF-8.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/form.hpp"

namespace quillspeech::cli {

nlohmann::ordered_json Form_Json(const Form& form);
nlohmann::ordered_json Control_Json(const FormControl& control);
nlohmann::ordered_json Menu_Json(const FormMenu& menu);

}  // namespace quillspeech::cli
