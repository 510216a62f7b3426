// A control in a process of its own, and the bag of its container.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "core/persistence.hpp"
#include "tests/support/plain_record.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {

// A control in a process that has initialised and loaded nothing.
class PersistenceTest : public testing::Test, protected ControlTest {
 protected:
  PersistenceTest() { Forget_Settings(session); }

  void Initialise() { UserControl_InitProperties(*control); }
  void Load() { UserControl_ReadProperties(*control, bag); }
  void Load(const std::string& key, MemberValue value) {
    bag.kept[key] = std::move(value);
    Load();
  }
  KeepingBag Saved() {
    KeepingBag saved;
    UserControl_WriteProperties(*control, saved);
    return saved;
  }

  KeepingBag bag;
};

}  // namespace quillspeech::tests
