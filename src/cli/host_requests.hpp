// The requests of a scripted host: one line of JSON in, what it asks for done, one line out.
#pragma once

#include <chrono>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "cli/host_control.hpp"

namespace quillspeech::cli {

class HostRequests {
 public:
  using Json = nlohmann::ordered_json;
  // Lets that much time pass and then calls Time_Has_Passed.
  using PassTime = std::function<void(std::chrono::milliseconds)>;

  HostRequests(HostControl& control, PassTime pass_time)
      : host(control), pass_time_(std::move(pass_time)) {}

  // Serves the line and answers it, whatever it holds; a blank one not at all. A run is answered
  // when its time has passed. May be called again from inside, by what waits in there.
  void Serve(const std::string& line);
  // Answers a line that was too long to be kept.
  void Refuse_Long_Line();

  // Whether a run is under way: no other line is to be served before its end.
  bool Is_Running() const { return run_.has_value(); }
  void Time_Has_Passed();

  void Begin_Run(std::chrono::milliseconds time);

  HostControl& host;

 private:
  struct PendingRun {
    std::optional<Json> id;
  };

  PassTime pass_time_;
  std::optional<PendingRun> run_;
  int waiting_ = 0;  // requests that are being carried out, one inside another
};

}  // namespace quillspeech::cli
