#include "cli/request_lines.hpp"

#include <utility>

namespace quillspeech::cli {

void RequestLines::Add(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto end = bytes.find('\n');
    const auto part = bytes.substr(0, end);
    if (open_.text.size() + part.size() > Most_Bytes) open_ = {{}, true};
    if (!open_.is_too_long) open_.text += part;
    if (end == std::string_view::npos) return;
    End_Line();
    bytes.remove_prefix(end + 1);
  }
}

void RequestLines::Close() {
  if (open_.is_too_long || !open_.text.empty()) End_Line();
}

void RequestLines::End_Line() { whole_.push_back(std::exchange(open_, {})); }

std::optional<RequestLine> RequestLines::Next() {
  if (whole_.empty()) return std::nullopt;
  RequestLine line = std::move(whole_.front());
  whole_.pop_front();
  return line;
}

std::optional<RequestLine> Next_Line(std::istream& in, RequestLines& lines) {
  constexpr std::size_t Most_At_Once = 4096;
  for (;;) {
    if (auto line = lines.Next()) return line;
    std::string bytes;
    auto* const source = in.rdbuf();
    int byte = source->sbumpc();
    if (byte == std::istream::traits_type::eof()) {
      lines.Close();
      return lines.Next();
    }
    // No further than the end of the line, for which somebody may wait.
    for (;; byte = source->sbumpc()) {
      if (byte == std::istream::traits_type::eof()) break;
      bytes += static_cast<char>(byte);
      if (byte == '\n' || bytes.size() == Most_At_Once) break;
    }
    lines.Add(bytes);
  }
}

}  // namespace quillspeech::cli
