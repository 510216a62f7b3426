// Settings that are set and read by name on a session without a control.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_failure.hpp"
#include "core/settings_table.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::tests {

using Changes = std::vector<std::string>;

// A session, an instance of the control, and the changes that it announced.
class SettingsTable : public ::testing::Test {
 protected:
  SettingsTable() {
    instance.Property_Changed = [this](std::string_view name) { changes.emplace_back(name); };
  }
  SetResult Set(std::string_view name, std::string_view text) {
    return Set_Setting(session, instance, name, text);
  }
  std::string Get(std::string_view name) { return Get_Setting(session, instance, name).value(); }
  int Failure_Of_Set(std::string_view name, std::string_view text) {
    try {
      Set(name, text);
    } catch (const RunTimeFailure& failure) {
      return failure.Number();
    }
    return 0;
  }
  int Failure_Of_Get(std::string_view name) {
    try {
      Get(name);
    } catch (const RunTimeFailure& failure) {
      return failure.Number();
    }
    return 0;
  }
  const MessageBox& Only_Box() {
    EXPECT_EQ(test.boxes.shown.size(), 1U);
    return test.boxes.shown.at(0).box;
  }

  TestSession test;
  Session& session = test.session;
  ControlInstance instance;
  std::vector<std::string> changes;
};

}  // namespace quillspeech::tests
