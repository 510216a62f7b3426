// Hears what the program asks the system to open and to sound, in the place of the system.
#pragma once

#include <string>
#include <vector>

#include "platform/windows/windows_api.hpp"
//
#include <mmsystem.h>
#include <shellapi.h>

namespace quillspeech::activex::tests {

// Where the linker keeps the functions that the program imports.
extern "C" decltype(&::ShellExecuteW) imported_shell_execute asm("__imp__ShellExecuteW@24");
extern "C" decltype(&::sndPlaySoundW) imported_play_sound asm("__imp__sndPlaySoundW@8");

// Puts one function in the place of another while it lives.
template <class Function>
class Replacement {
 public:
  Replacement(Function& place, Function with) : place_(place), own_(place) { Put(with); }
  ~Replacement() { Put(own_); }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

 private:
  void Put(Function function) {
    DWORD protection = 0;
    VirtualProtect(&place_, sizeof place_, PAGE_READWRITE, &protection);
    place_ = function;
    VirtualProtect(&place_, sizeof place_, protection, &protection);
  }

  Function& place_;
  const Function own_;
};

// One at a time. Nothing opens and nothing sounds, though the program is told so.
class SystemWatch {
 public:
  SystemWatch() { Only() = this; }
  ~SystemWatch() { Only() = nullptr; }

  std::vector<std::wstring> opened;
  HWND in_the_name_of = nullptr;  // of the last one
  std::vector<std::wstring> sounded;

 private:
  static SystemWatch*& Only() {
    static SystemWatch* only = nullptr;
    return only;
  }
  static HINSTANCE WINAPI Open(HWND window, LPCWSTR, LPCWSTR document, LPCWSTR, LPCWSTR, int) {
    constexpr std::intptr_t Well = 42;
    Only()->opened.push_back(document);
    Only()->in_the_name_of = window;
    return reinterpret_cast<HINSTANCE>(Well);
  }
  static BOOL WINAPI Sound(LPCWSTR name, UINT) {
    Only()->sounded.push_back(name);
    return TRUE;
  }

  Replacement<decltype(&::ShellExecuteW)> shell_{imported_shell_execute, Open};
  Replacement<decltype(&::sndPlaySoundW)> player_{imported_play_sound, Sound};
};

}  // namespace quillspeech::activex::tests
