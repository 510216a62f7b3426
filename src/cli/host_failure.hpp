// What a scripted host is told when a request, or the control by itself, fails.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "base/host_text.hpp"

namespace quillspeech::cli {

// A request that is refused, and why. The number is 0, or one that hosts of controls know.
class RefusedRequest : public std::runtime_error {
 public:
  explicit RefusedRequest(const std::string& text, int number = 0)
      : std::runtime_error(text), number_(number) {}
  int Number() const noexcept { return number_; }

 private:
  int number_;
};

// {"number", "text"} of the exception being handled. Call it in a catch block only.
nlohmann::ordered_json Current_Failure_Json();

}  // namespace quillspeech::cli
