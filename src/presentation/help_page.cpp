#include "presentation/help_page.hpp"

#include "base/text.hpp"

namespace quillspeech {

// The system fills a buffer of blanks; when it cannot, the blanks stay, and nothing of them is left
// before the folder's name.
void Show_Help_File(Session& session, std::intptr_t window) {
  constexpr std::size_t Buffer_Length = 255;
  std::string folder(Buffer_Length, ' ');
  const std::string answer = session.ports.shell.Windows_Directory();
  if (!answer.empty()) folder = Strip_At_Nul(answer);
  session.ports.shell.Open(Trimmed(folder) + "\\Quillspeech\\help.htm", window);
}

std::string Strip_At_Nul(std::string_view text) {
  return std::string(text.substr(0, text.find('\0')));
}

}  // namespace quillspeech
