// What the programs have in common that host the control and tell what happens.
#pragma once

#include <functional>
#include <string>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// A line of its own, seen at once.
void Tell(const std::wstring& what, const std::wstring& argument = L"");

// From the message loop that runs then: while the control records, that is its own.
void Do_After(UINT milliseconds, std::function<void()> action);

// Without looking after it more often than messages come.
void Wait_For(const bool& is_done);

// Runs it with the program's arguments, in OLE's apartment. Gives its status, or 1 after an
// exception, which is told.
int Run_Host(int (*run)(int count, wchar_t** arguments));

}  // namespace quillspeech::tests
