#include "tests/hosts/host_thread.hpp"

#include <ole2.h>
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <map>
#include <utility>

#include "examples/control/late_binding.hpp"
#include "tests/hosts/atl_host.hpp"

namespace quillspeech::tests {
namespace {

std::map<UINT_PTR, std::function<void()>>& Waiting() {
  static std::map<UINT_PTR, std::function<void()>> actions;
  return actions;
}

void CALLBACK Come_Due(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  const auto action = Waiting().extract(id);
  if (action) action.mapped()();
}

}  // namespace

void Tell(const std::wstring& what, const std::wstring& argument) {
  std::printf("%ls %ls\n", what.c_str(), argument.c_str());
  std::fflush(stdout);
}

void Do_After(UINT milliseconds, std::function<void()> action) {
  Waiting()[SetTimer(nullptr, 0, milliseconds, Come_Due)] = std::move(action);
}

void Wait_For(const bool& is_done) {
  while (!is_done) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
    Handle_Messages();
  }
}

int Run_Host(int (*run)(int count, wchar_t** arguments)) {
  int count = 0;
  wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  OleInitialize(nullptr);
  int status = 1;
  try {
    status = run(count, arguments);
  } catch (const example::CallFailed& failure) {
    std::printf("failed: %ls\n", failure.description.c_str());
  } catch (const std::exception& failure) {
    std::printf("failed: %s\n", failure.what());
  }
  OleUninitialize();
  return status;
}

}  // namespace quillspeech::tests
