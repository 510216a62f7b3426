// The command `listen` on the virtual clock, with the bundled speech.
#pragma once

#include <string>
#include <vector>

#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {

class ListenTest : public CommandTest {
 protected:
  // A bundled utterance of the word.
  static std::string Sample_Of(const std::string& word) {
    return std::string(QUILLSPEECH_SAMPLES) + "/test/" + word + "_en-us_150_50.wav";
  }
  // The bundled words.
  std::vector<std::string> Bundled_Words() const {
    const std::string samples = QUILLSPEECH_SAMPLES;
    const std::string language = Path("words.SAY");
    std::filesystem::copy_file(samples + "/demo.SAY", language,
                               std::filesystem::copy_options::overwrite_existing);
    return {"--language",          language, "--engine",
            samples + "/demo.EGN", "--set",  "Sample_processing_resolution=400"};
  }
  // Listens on the virtual clock.
  int Listen(const std::vector<std::string>& options, const std::string& input = "") {
    std::vector<std::string> arguments = {"listen", "--clock", "virtual"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return Run(arguments, input);
  }
  int Listen_To_Words(const std::vector<std::string>& words, std::vector<std::string> options) {
    for (const std::string& word : words) {
      options.insert(options.end(), {"--microphone", word});
    }
    const auto bundled = Bundled_Words();
    options.insert(options.end(), bundled.begin(), bundled.end());
    return Listen(options);
  }
  // Each event of the JSON lines as its name and its argument; the one for the status is left out.
  std::vector<std::string> Events() const {
    std::vector<std::string> events;
    for (const Json& line : Json_Lines()) {
      if (!line.contains("event")) continue;
      const std::string name = line["event"];
      if (name == "PropertyStatusBetweenDetectionToCoversion") continue;
      const Json argument = line.value("TheBestPercentageWord", Json());
      events.push_back(argument.is_null() ? name : name + " " + argument.get<std::string>());
    }
    return events;
  }
  // The JSON line of the first event of that name.
  Json First(const std::string& event) const {
    for (const Json& line : Json_Lines()) {
      if (line.value("event", "") == event) return line;
    }
    return {};
  }
};

}  // namespace quillspeech::tests
