// The bytes of an engine file: loaded into the engine table.
#include "fuzz/fuzz_target.hpp"
#include "recognition/engine_table.hpp"
#include "tests/support/test_session.hpp"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech;
  using fuzz::Require;
  tests::TestSession test;
  int recoveries = 0;
  test.session.operations.Stop_And_Recover = [&](Session&) { ++recoveries; };
  test.session.settings.Consider_this_Engine_for_Recognition = "groups.EGN";
  test.data_files.files["groups.EGN"].assign(data, data + size);
  Load_Engine(test.session);
  Require(recoveries == 0, "any file of that name can be loaded");
  Require(test.boxes.shown.empty(), "without a message");
  Require(test.data_files.open_files == 0, "and is closed then");
  const auto& file = test.data_files.files["groups.EGN"];
  Require(file == fuzz::FileBytes(data, data + size), "loading leaves the file as it is");
  for (int category = 0; category < 100; ++category) {
    Require(test.session.filter.Engine_Table[category].size() == 20, "a group has 20 characters");
  }
  return 0;
}
