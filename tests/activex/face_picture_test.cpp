#include "activex/face_picture.hpp"

#include <gtest/gtest.h>

#include "base/run_time_failure.hpp"

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

// The index of a new drawing object in the process's table of them: it grows with what is left
// behind.
int Next_Drawing_Object() {
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  const int index = LOWORD(reinterpret_cast<std::uintptr_t>(brush));
  DeleteObject(brush);
  return index;
}

TEST_F(FacePictureTest, A_metafile_that_fails_leaves_nothing_behind) {
  STGMEDIUM medium = {};
  const int before = Next_Drawing_Object();
  for (int i = 0; i < 200; ++i) EXPECT_THROW(picture.Give_Metafile(medium), RunTimeFailure);
  EXPECT_LE(Next_Drawing_Object(), before + 20);
}

}  // namespace
}  // namespace quillspeech::activex::tests
