// A host that is fed lines and whose lines are looked at, on the virtual clock.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {

using Lines = std::vector<std::string>;

class HostTest : public CommandTest {
 protected:
  // Feeds the lines to a host and gives what it tells. The window with which a new control greets
  // is closed at once.
  const std::vector<Json>& Host(const Lines& requests, const Lines& options = {}) {
    return Host_Input(Input_Of(requests), options);
  }
  static std::string Input_Of(const Lines& requests) {
    std::string input;
    for (const std::string& request : requests) {
      input += request + "\n";
      if (request.find(R"("do":"new")") != std::string::npos) input += Close_Help + "\n";
    }
    return input;
  }
  const std::vector<Json>& Host_Input(const std::string& input, const Lines& options = {}) {
    Lines arguments = {"host"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    status = Run(arguments, input);
    told = Json_Lines();
    return told;
  }

  // The reply with that id; null when there is none.
  Json Reply(const Json& id) const {
    for (const Json& line : told) {
      if (line.contains("id") && line["id"] == id) return line;
    }
    return nullptr;
  }
  Json Value(const Json& id) const {
    const Json reply = Reply(id);
    return reply.contains("value") ? reply["value"] : Json("no value: " + reply.dump());
  }
  int Error_Number(const Json& id) const {
    const Json reply = Reply(id);
    return reply.contains("error") ? reply["error"]["number"].get<int>() : -1;
  }
  // All notifications that begin with that key, in order, as they came.
  std::vector<Json> Told(const std::string& key) const {
    std::vector<Json> lines;
    std::ranges::copy_if(told, std::back_inserter(lines), [&](const Json& line) {
      return !line.empty() && line.items().begin().key() == key;
    });
    return lines;
  }
  // The events by name, but for the one that comes with every tick.
  Lines Events() const {
    Lines names;
    for (const Json& line : Told("event")) {
      if (line["event"] != "PropertyStatusBetweenDetectionToCoversion") {
        names.push_back(line["event"].get<std::string>());
      }
    }
    return names;
  }
  // The line on which it stands first; as many as there are lines when nowhere.
  std::size_t Place_Of(const Json& part) const {
    const auto holds = [&](const Json& line) {
      return std::ranges::all_of(part.items(), [&](const auto& item) {
        return line.contains(item.key()) && line[item.key()] == item.value();
      });
    };
    return static_cast<std::size_t>(std::ranges::find_if(told, holds) - told.begin());
  }

  inline static const std::string Close_Help = R"({"do":"close","on":"Help"})";

  std::vector<Json> told;
  int status = -1;
};

inline std::string Quoted(const std::string& text) { return nlohmann::json(text).dump(); }

}  // namespace quillspeech::tests
