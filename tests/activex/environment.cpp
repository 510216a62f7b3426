// The tests stand in for the file of the control: they are its module, with its resources.
#include <gtest/gtest.h>

#include "activex/com.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {
namespace {

class ControlModule final : public ::testing::Environment {
 public:
  void SetUp() override {
    ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
    Module::Of_This_File().Begin(::GetModuleHandleW(nullptr));
  }
  void TearDown() override {
    EXPECT_EQ(Module::Of_This_File().Objects(), 0) << "objects that nobody let go of";
    Module::Of_This_File().End();
    ::OleUninitialize();
  }
};

const auto* const environment = ::testing::AddGlobalTestEnvironment(new ControlModule);

}  // namespace
}  // namespace quillspeech::activex
