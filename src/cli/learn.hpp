// The command `learn`: sounds become patterns of a word in a language file.
#pragma once

#include <cstdint>
#include <string>

#include "cli/console.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

struct LearnOptions {
  RunOptions run;
  std::string word;  // UTF-8
  int rating = 100;
  int pattern_rating = 100;
  std::int64_t record = 0;  // 0: the one that has the word, or a new one
};

CLI::App& Add_Learn_Command(CLI::App& app, LearnOptions& options);

// Gives an ExitStatus. The record is written once, whole, after all sounds were heard and all
// checks made; when no pattern is to be added the file stays as it was, or stays missing.
int Learn_Word(LearnOptions options, Console& console);

}  // namespace quillspeech::cli
