// Requests on the real clock: each is served as it comes, at whatever yield that is.
#pragma once

#include <memory>

#include "cli/host_requests.hpp"
#include "cli/live_input.hpp"
#include "cli/request_lines.hpp"

namespace quillspeech::cli {

class RequestsOnRealClock {
 public:
  // Reads the descriptor, which stays open; it and the host outlive this.
  RequestsOnRealClock(HostControl& host, int input);
  ~RequestsOnRealClock();
  RequestsOnRealClock(const RequestsOnRealClock&) = delete;
  RequestsOnRealClock& operator=(const RequestsOnRealClock&) = delete;

  // Ends the control, as the end of the input does. What was read and not served is dropped.
  void End();
  bool Have_Ended() const { return ended_; }

 private:
  void Read();
  void Close();
  bool Serve_One();  // false: there is no line to serve now
  void Serve_All();
  bool Wait_In_Window();
  void End_When_Done();
  void Pass_Time(std::chrono::milliseconds time);

  backend::EventLoop& events_;
  LiveInput input_;
  bool is_open_ = true;
  RequestLines lines_;
  HostRequests requests_;
  std::unique_ptr<Timer> run_;   // on until the time of a run has passed
  std::unique_ptr<Timer> rest_;  // on while lines wait for a modal showing to return
  bool ended_ = false;
};

}  // namespace quillspeech::cli
