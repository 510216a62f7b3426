// What a scripted host is told when a request, or the control by itself, fails.
#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

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

inline constexpr int Host_Type_Mismatch = 13;
inline constexpr int No_Such_Member = 438;

// The name that hosts of controls have for the number: "Subscript out of range".
const char* Host_Text(int number) noexcept;

// {"number", "text"} of the exception being handled. Call it in a catch block only.
nlohmann::ordered_json Current_Failure_Json();

}  // namespace quillspeech::cli
