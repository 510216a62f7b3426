// The record of everything that the stages share. One for each run; no stage keeps state elsewhere.
#pragma once

#include <string>
#include <string_view>

#include "platform/message_boxes.hpp"
#include "session/filter.hpp"
#include "session/flags.hpp"
#include "session/open_data_file.hpp"
#include "session/operations.hpp"
#include "session/ports.hpp"
#include "session/recorder.hpp"
#include "session/results.hpp"
#include "session/sample.hpp"
#include "session/settings.hpp"
#include "session/slice.hpp"
#include "session/trace.hpp"
#include "session/word_tables.hpp"

namespace quillspeech {

// With the values of a new control, but for the engine table: it is empty until the session is
// prepared or an engine is loaded. Some 240 KB before any sound, most of it tables of texts: mind
// small stacks.
struct Session {
  explicit Session(const Ports& platform);
  // Leaves the loop's five timers off and without a tick: the loop may outlive the session.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Ports ports;
  Operations operations;
  Settings settings;
  Flags flags;
  Recorder recorder;
  Sample sample;
  WordTables words;
  Slice slice;
  Filter filter;
  Results results;
  OpenDataFile data;
  Trace trace;
};

// Whether Stop_everything_now is "YES": every stage leaves at its next look.
bool Is_Stopped(const Session& session);

// Clears the results of the last sample, and File_Run_Active with them.
void Reset_Results(Session& session);

// True (-1) when the host program is a design environment. Asked once, then remembered.
std::int16_t Is_Design_Environment(Session& session);

// Shows a message box of the session's platform.
BoxAnswer Show_Box(Session& session, std::string_view text, std::string_view title,
                   BoxIcon icon = BoxIcon::None, BoxButtons buttons = BoxButtons::OK);

// Asks by an input box or the file dialog of the session's platform; empty when cancelled.
std::string Ask_Text(Session& session, std::string_view prompt, std::string_view title,
                     std::string_view text = {});
std::string Ask_File(Session& session, std::string_view title, std::string_view pattern,
                     std::string_view name = {});

}  // namespace quillspeech
