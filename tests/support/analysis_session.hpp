// A session whose analysis is watched: slices are kept and calls that go up are noted.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "analysis/recovery.hpp"
#include "tests/support/sample_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

struct AnalysisSession : TestSession {
  AnalysisSession() {
    session.trace.Keep_Slices = true;
    session.settings.Enable_Artificial_Intelligence = "NO";
    Operations& operations = session.operations;
    operations.Stop_And_Recover = [this](Session& s) {
      calls.emplace_back("Stop_And_Recover");
      Stop_And_Recover(s);
    };
    operations.Stop_Recording = Noted("Stop_Recording");
    operations.Close_Recorder = Noted("Close_Recorder");
    operations.Add_Engine_String_To_Language = Noted("Add_Engine_String_To_Language");
    operations.Draw_Audio_Graph = Noted("Draw_Audio_Graph");
    operations.Unload_Graph = Noted("Unload_Graph");
    operations.Unload_StatusBar = Noted("Unload_StatusBar");
    operations.Load_Database = Noted("Load_Database");
    operations.Unload_Database = Noted("Unload_Database");
    operations.Wave_File_Was_Read = Noted("Wave_File_Was_Read");
    operations.Play_Echo = [this](Session&, std::int64_t first, std::int64_t last) {
      calls.push_back("Play_Echo " + std::to_string(first) + " " + std::to_string(last));
    };
    operations.Show_Status_Image = [this](Session&, int mode) {
      calls.push_back("Show_Status_Image " + std::to_string(mode));
    };
    operations.Print_On_Graph = [this](Session&, std::string_view text) {
      calls.push_back("Print " + std::string(text));
    };
    operations.Show_Database = [this](Session&, bool modal) {
      calls.emplace_back(modal ? "Show_Database modally" : "Show_Database");
    };
  }

  std::vector<std::string> calls;  // operations called, in order

  std::int64_t Times(const std::string& call) const {
    std::int64_t times = 0;
    for (const std::string& made : calls) times += made == call ? 1 : 0;
    return times;
  }

  // First and last byte of each slice, as the caller passed them.
  using Bounds = std::vector<std::pair<std::int32_t, std::int32_t>>;
  Bounds Slices() const {
    Bounds bounds;
    for (const SliceTrace& slice : session.trace.slices) {
      bounds.emplace_back(slice.first, slice.last);
    }
    return bounds;
  }

  bool Is_On(FormTimer timer) { return events.Is_Enabled(timer); }

 private:
  Operations::Procedure Noted(const std::string& name) {
    return [this, name](Session&) { calls.push_back(name); };
  }
};

}  // namespace quillspeech::tests
