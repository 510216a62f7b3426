// Requests on the virtual clock: each is served when everything that is due has been done, and time
// stands still but for the runs.
#pragma once

#include <istream>

#include "cli/host_requests.hpp"
#include "cli/request_lines.hpp"

namespace quillspeech::cli {

class RequestsOnVirtualClock {
 public:
  // Both outlive it. From now on a wait of the control's loop that has nothing due serves the next
  // line, also one that stands deep in the control.
  RequestsOnVirtualClock(HostControl& host, std::istream& in);
  ~RequestsOnVirtualClock();
  RequestsOnVirtualClock(const RequestsOnVirtualClock&) = delete;
  RequestsOnVirtualClock& operator=(const RequestsOnVirtualClock&) = delete;

  // Ends the control, as the end of the input does.
  void End();
  bool Have_Ended() const { return ended_; }

 private:
  void Serve_Next();
  bool Wait_In_Window();

  headless::EventLoop& events_;
  std::istream& in_;
  RequestLines lines_;
  HostRequests requests_;
  bool ended_ = false;
};

}  // namespace quillspeech::cli
