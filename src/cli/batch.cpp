#include "cli/batch.hpp"

namespace quillspeech::cli {

void Complain(const Digest& digest, std::ostream& err) {
  for (const std::string& complaint : digest.complaints) {
    err << "quillspeech: " << digest.file << ": " << complaint << "\n";
  }
  for (const std::string& note : digest.notes) {
    err << "quillspeech: note: " << digest.file << ": " << note << "\n";
  }
}

}  // namespace quillspeech::cli
