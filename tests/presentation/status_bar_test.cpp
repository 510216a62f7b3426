#include "presentation/status_bar.hpp"

#include <algorithm>

#include "base/run_time_failure.hpp"
#include "presentation/status_pictures.hpp"
#include "tests/presentation/picture_builder.hpp"
#include "tests/presentation/window_fixture.hpp"

namespace quillspeech::tests {
namespace {

constexpr int Listening = 1;
constexpr int Busy = 2;

struct StatusSession : WindowSession {
  StatusSession() {
    Connect_Status_Bar(session);
    session.settings.I_want_Status_Animation = "YES";
    host.path = "C:\\tools\\VB6.EXE";
    Put("ear.gif", Gif_Bytes());
    Put("wheel.bmp", Bitmap_Bytes());
    Put("letter.txt", "Nothing to be seen here, but enough of it to be a picture by length.");
  }

  void Put(const std::string& path, const std::string& bytes) {
    riff_files.files[path].assign(bytes.begin(), bytes.end());
  }
  void Show(int mode) { operations.Show_Status_Image(session, mode); }
  Form& Window() const { return *On_Show("StatusBar"); }
  const FormControl& Image() const { return Window()["Image1"]; }
};

struct StatusWindow : testing::Test, StatusSession {};

TEST_F(StatusWindow, Is_shown_without_a_wait_and_only_once) {
  Show(Listening);
  Show(Busy);
  Show(Listening);
  EXPECT_EQ(views.shown, (std::vector<headless::FormViews::Shown>{{"StatusBar", Modality::None}}));
}

TEST_F(StatusWindow, Is_not_shown_in_a_compiled_host_whatever_the_setting_says) {
  host.path = "C:\\programs\\hears.exe";
  Show(Listening);
  Show(Busy);
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(StatusWindow, Is_shown_in_each_of_the_five_design_environments) {
  for (const char* const name : {"vb.exe", "VB32.EXE", "vb5.exe", "Vb5cce.exe", "VB6.EXE"}) {
    StatusSession test;
    test.host.path = std::string("D:\\") + name;
    test.Show(Busy);
    EXPECT_EQ(test.views.shown.size(), 1U) << name;
  }
}

TEST_F(StatusWindow, Is_not_shown_unless_the_setting_is_YES) {
  for (const char* const text : {"NO", "", "yes", "YES "}) {
    session.settings.I_want_Status_Animation = text;
    Show(Listening);
    EXPECT_TRUE(views.shown.empty()) << text;
  }
}

TEST_F(StatusWindow, Tells_listening_from_busy_by_two_pictures_of_its_own) {
  Show(Listening);
  EXPECT_EQ(Image().drawing, Listening_Picture());
  Show(Busy);
  EXPECT_EQ(Image().drawing, Busy_Picture());
  Show(Listening);
  EXPECT_EQ(Image().drawing, Listening_Picture());
  EXPECT_NE(Listening_Picture(), Busy_Picture());
}

TEST_F(StatusWindow, Keeps_its_own_pictures_out_of_sight) {
  Show(Busy);
  EXPECT_EQ(Window()["Image2"].drawing, Busy_Picture());
  EXPECT_EQ(Window()["Image3"].drawing, Listening_Picture());
  EXPECT_FALSE(Window()["Image2"].visible);
  EXPECT_FALSE(Window()["Image3"].visible);
  EXPECT_TRUE(Image().visible);
}

TEST_F(StatusWindow, Shows_the_file_that_is_named_for_either_state) {
  session.settings.Show_this_Image_for_Start = "ear.gif";
  session.settings.Show_this_Image_for_Stop = "wheel.bmp";
  Show(Listening);
  EXPECT_EQ(Image().picture, Gif_Bytes());
  Show(Busy);
  EXPECT_EQ(Image().picture, Bitmap_Bytes());
}

TEST_F(StatusWindow, Reads_a_file_only_when_it_comes_on_view) {
  session.settings.Show_this_Image_for_Start = "ear.gif";
  for (int times = 0; times < 5; ++times) Show(Listening);
  EXPECT_EQ(riff_files.opens, 1);
  Show(Busy);
  Show(Listening);
  EXPECT_EQ(riff_files.opens, 2);
  Window().Click("Image1");
  Show(Listening);
  EXPECT_EQ(riff_files.opens, 3);
  EXPECT_EQ(Image().picture, Gif_Bytes());
}

TEST_F(StatusWindow, Shows_its_own_picture_again_after_that_of_a_file) {
  session.settings.Show_this_Image_for_Start = "ear.gif";
  Show(Listening);
  Show(Busy);
  EXPECT_EQ(Image().picture, "");
  EXPECT_EQ(Image().drawing, Busy_Picture());
}

TEST_F(StatusWindow, Keeps_its_picture_when_the_file_is_none) {
  for (const char* const file : {"none.gif", "letter.txt", " "}) {
    session.settings.Show_this_Image_for_Stop.clear();
    Show(Busy);
    session.settings.Show_this_Image_for_Start = file;
    Show(Listening);
    EXPECT_EQ(Image().drawing, Busy_Picture()) << file;
    EXPECT_EQ(Image().picture, "") << file;
    session.settings.Show_this_Image_for_Stop = "wheel.bmp";
    Show(Busy);
    Show(Listening);
    EXPECT_EQ(Image().picture, Bitmap_Bytes()) << file;
  }
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(session.trace.failures.empty());
}

TEST_F(StatusWindow, Goes_on_when_a_file_cannot_be_read_to_its_end) {
  riff_files.failing_reads = {1, 2, 3};
  session.settings.Show_this_Image_for_Start = "ear.gif";
  EXPECT_NO_THROW(Show(Listening));
  EXPECT_EQ(Image().drawing, Listening_Picture());
  EXPECT_EQ(riff_files.open_files, 0);
}

TEST_F(StatusWindow, Takes_its_picture_although_it_could_not_be_shown) {
  session.settings.Show_this_Image_for_Stop = "wheel.bmp";
  views.At_Showing = [](const Form&, bool, Modality) { Fail(Failure::Out_Of_Memory); };
  EXPECT_NO_THROW(Show(Busy));
  views.At_Showing = nullptr;
  EXPECT_EQ(Image().picture, Bitmap_Bytes());
}

TEST_F(StatusWindow, Stays_away_behind_the_end_of_a_session) {
  session.flags.Windows_Stay_Away = true;
  Show(Busy);
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(StatusWindow, Goes_with_a_click_and_comes_back_with_the_next_state) {
  Show(Busy);
  Window().Click("Image1");
  EXPECT_EQ(On_Show("StatusBar"), nullptr);
  Show(Listening);
  ASSERT_NE(On_Show("StatusBar"), nullptr);
  EXPECT_EQ(Image().drawing, Listening_Picture());
}

TEST_F(StatusWindow, Begins_with_its_own_picture_when_it_comes_back) {
  session.settings.Show_this_Image_for_Stop = "wheel.bmp";
  Show(Busy);
  Window().Close();
  session.settings.Show_this_Image_for_Start = "none.gif";
  Show(Listening);
  EXPECT_EQ(Image().picture, "");
  EXPECT_EQ(Image().drawing, Listening_Picture());
}

TEST_F(StatusWindow, Stays_as_it_is_in_a_state_that_it_does_not_know) {
  Show(Busy);
  for (const int mode : {0, 3, -1}) Show(mode);
  EXPECT_EQ(Image().drawing, Busy_Picture());
}

TEST_F(StatusWindow, Goes_when_it_is_unloaded_also_when_it_was_never_shown) {
  operations.Unload_StatusBar(session);
  Show(Busy);
  operations.Unload_StatusBar(session);
  EXPECT_EQ(On_Show("StatusBar"), nullptr);
}

TEST_F(StatusWindow, Has_its_picture_within_the_window) {
  Show(Busy);
  const FormPlace& place = Image().place;
  EXPECT_GT(place.left, 0);
  EXPECT_GT(place.top, 0);
  EXPECT_LT(place.left + place.width, Window().Size().width);
  EXPECT_LT(place.top + place.height, Window().Size().height);
}

TEST(StatusPictures, Lie_within_their_scale) {
  for (const FormDrawing& picture : {Listening_Picture(), Busy_Picture()}) {
    for (const DrawingOperation& one : picture.operations) {
      EXPECT_TRUE(std::ranges::all_of(one.points, [&](const DrawingPoint& point) {
        return point.x - one.radius >= 0 && point.x + one.radius <= 100 &&
               point.y - one.radius >= 0 && point.y + one.radius <= 100;
      }));
    }
  }
}

}  // namespace
}  // namespace quillspeech::tests
