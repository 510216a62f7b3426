// A window that hosts the control by its ProgID, as a program that uses Microsoft's ATL does.
#pragma once

#include <atomic>
#include <string>
#include <thread>

#include "activex/com.hpp"

namespace quillspeech::tests {

// Closes what the control shows modally, such as the greeting of a new one: every window at the top
// of this thread, but for the given one.
class PersonWhoCloses {
 public:
  explicit PersonWhoCloses(HWND but);
  ~PersonWhoCloses();
  PersonWhoCloses(const PersonWhoCloses&) = delete;
  PersonWhoCloses& operator=(const PersonWhoCloses&) = delete;

 private:
  std::atomic<bool> done_ = false;
  std::thread thread_;
};

class AtlHost {
 public:
  // The version as in the names of the files: "" for atl.dll, "110" for atl110.dll. Throws a
  // std::runtime_error when the control does not come up.
  explicit AtlHost(const std::string& version);
  ~AtlHost();
  AtlHost(const AtlHost&) = delete;
  AtlHost& operator=(const AtlHost&) = delete;

  HWND Frame() const { return frame_; }  // at the top
  HWND Site() const { return site_; }    // in it; its child is the control's window
  activex::ComPtr<IDispatch> Control() const { return control_; }
  HWND Control_Window() const;
  // What was given out goes, then the windows.
  void Close();

 private:
  HWND frame_ = nullptr;
  HWND site_ = nullptr;
  activex::ComPtr<IDispatch> control_;
};

// Handles the messages that wait.
void Handle_Messages();
// Runs the thread's messages for so long; waits in the queue.
void Run_Messages(DWORD milliseconds);
// Until it is true, or for so long. Answers whether it came to be true.
template <class Condition>
bool Run_Until(DWORD milliseconds, Condition&& condition) {
  const DWORD begun = GetTickCount();
  while (!condition()) {
    if (GetTickCount() - begun >= milliseconds) return false;
    Run_Messages(10);
  }
  return true;
}

}  // namespace quillspeech::tests
