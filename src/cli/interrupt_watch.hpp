// Ctrl-C, turned into a flag, and a standard input that it can end: InterruptWatch and
// InterruptibleInput, each as this system has it.
#pragma once

#ifdef _WIN32
#include "cli/windows/interrupt_watch.hpp"
#else
#include "cli/linux/interrupt_watch.hpp"
#endif
