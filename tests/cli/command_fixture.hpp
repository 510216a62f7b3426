// The program in a folder of its own: sounds and files in, exit status and texts out.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.hpp"
#include "cli/word_record.hpp"
#include "datafiles/records.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

// Words of two tones between pauses. The built-in engine spells the first "oadbtrvgpunmle" and the
// second "fthjjsAkgH".
inline Sound Low_Word() {
  return Silence(Bytes(3000)) + Tone(500_Hz, Amplitude(90), Bytes(6000)) +
         Tone(300_Hz, Amplitude(60), Bytes(3000)) + Silence(Bytes(9000));
}
inline Sound High_Word() {
  return Silence(Bytes(3000)) + Tone(3000_Hz, Amplitude(90), Bytes(6000)) +
         Tone(1500_Hz, Amplitude(60), Bytes(3000)) + Silence(Bytes(9000));
}
inline constexpr const char* Low_Pattern = "oadbtrvgpunmle";
inline constexpr const char* High_Pattern = "fthjjsAkgH";

class CommandTest : public testing::Test, protected TemporaryFolder {
 protected:
  using Json = nlohmann::ordered_json;

  std::string Put_Sound(const std::string& name, const Sound& sound) const {
    return Put(name, Wave().Data(sound));
  }
  std::string Put_Language(const std::string& name, const std::vector<Record>& records) const {
    return Put(name, Language_File(records));
  }
  // Record `number` of a language file in the folder.
  datafiles::SayRecord Language_Record(const std::string& name, std::size_t number) const {
    const auto bytes = Content(name);
    datafiles::SayRecord record;
    const std::size_t start = (number - 1) * datafiles::SayRecord::Record_Bytes;
    EXPECT_GE(bytes.size(), start + datafiles::SayRecord::Record_Bytes);
    if (bytes.size() >= start + datafiles::SayRecord::Record_Bytes) {
      std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(start),
                  datafiles::SayRecord::Record_Bytes, record.Bytes().begin());
    }
    return record;
  }

  // Runs the program; its texts are then in `out` and `err`.
  int Run(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out_stream;
    std::ostringstream err_stream;
    cli::Console console{in, out_stream, err_stream};
    console.colour = colour;
    console.out_is_terminal = out_is_terminal;
    console.err_is_terminal = err_is_terminal;
    console.interrupted = &interrupted;
    const int status = cli::Run_Command_Line(arguments, console);
    out = out_stream.str();
    err = err_stream.str();
    return status;
  }
  std::vector<Json> Json_Lines() const {
    std::vector<Json> lines;
    std::istringstream text(out);
    for (std::string line; std::getline(text, line);) lines.push_back(Json::parse(line));
    return lines;
  }
  // The one line of JSON of a run over one sound.
  Json Recognize_As_Json(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"recognize", "--json"});
    Run(arguments);
    const auto lines = Json_Lines();
    EXPECT_EQ(lines.size(), 1U) << err;
    return lines.empty() ? Json() : lines.front();
  }

  std::string out;
  std::string err;
  bool colour = false;
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  std::atomic<bool> interrupted = false;
};

inline std::vector<std::string> Keys(const nlohmann::ordered_json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

}  // namespace quillspeech::tests
