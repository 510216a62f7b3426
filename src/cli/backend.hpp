// The ports of the system that the program is built for, under names that do not tell which.
#pragma once

#ifdef _WIN32
#include "cli/windows/files_by_name.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/sound_devices.hpp"
#else
#include "platform/linux/data_file.hpp"
#include "platform/linux/event_loop.hpp"
#include "platform/linux/port_audio.hpp"
#include "platform/linux/riff_file.hpp"
#include "platform/linux/sound_cues.hpp"
#endif

namespace quillspeech::cli::backend {

#ifdef _WIN32
using windows::EventLoop;
using windows::SoundDevice;
#else
using linux::DataFileStore;
using linux::EventLoop;
using linux::RiffFiles;
using linux::SoundCues;
using linux::SoundDevice;
#endif

}  // namespace quillspeech::cli::backend
