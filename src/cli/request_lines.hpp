// Cuts what comes in into lines. A line that is too long to be kept is known by that alone.
#pragma once

#include <cstddef>
#include <deque>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

namespace quillspeech::cli {

struct RequestLine {
  std::string text;  // without its end; empty when it was too long
  bool is_too_long = false;
};

class RequestLines {
 public:
  static constexpr std::size_t Most_Bytes = 4 << 20;  // of a line

  void Add(std::string_view bytes);
  // No more bytes come: what has no end yet is a line, too.
  void Close();

  // The next whole line, if there is one.
  std::optional<RequestLine> Next();

 private:
  void End_Line();

  RequestLine open_;  // the line whose end has not come
  std::deque<RequestLine> whole_;
};

// Reads until a line is whole; nothing at the end of the input.
std::optional<RequestLine> Next_Line(std::istream& in, RequestLines& lines);

}  // namespace quillspeech::cli
