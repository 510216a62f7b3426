#include "activex/face_picture.hpp"

#include <gtest/gtest.h>

#include "base/run_time_failure.hpp"
#include "tests/windows/drawing_objects.hpp"

namespace quillspeech::activex::tests {
namespace {

struct FailingAccess final : ControlAccess {
  std::shared_ptr<Control> Living() override { Fail(Failure::Out_Of_Memory); }
};

struct FacePictureTest : testing::Test {
  FailingAccess access;
  ControlSite site;
  ShownMode shown{access, site};
  Form face{"Form1", "", {3336, 1884}};
  FacePicture picture{access, shown, face};
};

TEST_F(FacePictureTest, A_drawing_that_fails_is_over) {
  EXPECT_THROW(picture.Draw(nullptr, {}), RunTimeFailure);
  EXPECT_FALSE(picture.Is_Drawing());
}

TEST_F(FacePictureTest, A_metafile_that_fails_leaves_nothing_behind) {
  STGMEDIUM medium = {};
  const int before = quillspeech::tests::Drawing_Objects();
  for (int i = 0; i < 200; ++i) EXPECT_THROW(picture.Give_Metafile(medium), RunTimeFailure);
  EXPECT_LE(quillspeech::tests::Drawing_Objects(), before + 10);
}

}  // namespace
}  // namespace quillspeech::activex::tests
