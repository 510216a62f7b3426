#include "platform/windows/form_place.hpp"

#include "platform/windows/form_layout.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

using windows::Height_Of;
using windows::Width_Of;

RECT Desktop() {
  RECT desktop{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &desktop, 0);
  return desktop;
}

bool Have_Common_Points(const RECT& one, const RECT& other) {
  RECT common{};
  return IntersectRect(&common, &one, &other) != FALSE;
}

void Expect_Place(const std::vector<RECT>& taken, const RECT& place, const RECT& wanted) {
  const auto found = windows::Place_Beside(place, taken, Desktop());
  ASSERT_TRUE(found);
  EXPECT_TRUE(EqualRect(&*found, &wanted)) << found->left << ", " << found->top;
}

TEST(FormPlace, Stays_where_nothing_lies) {
  Expect_Place({}, {100, 100, 200, 150}, {100, 100, 200, 150});
  Expect_Place({{200, 100, 300, 150}}, {100, 100, 200, 150}, {100, 100, 200, 150});
}

TEST(FormPlace, Is_below_what_it_would_cover_then_on_the_right_above_and_on_the_left) {
  const RECT desk = Desktop();
  const RECT place{300, 300, 400, 350};
  const RECT covered{290, 290, 410, 360};
  const RECT lowest{290, 290, 410, desk.bottom};
  const RECT low_to_the_right{290, 290, desk.right, desk.bottom};
  const RECT all_but_the_left{290, desk.top, desk.right, desk.bottom};
  Expect_Place({covered}, place, {300, 360, 400, 410});
  Expect_Place({lowest}, place, {410, 300, 510, 350});
  Expect_Place({low_to_the_right}, place, {300, 240, 400, 290});
  Expect_Place({all_but_the_left}, place, {190, 300, 290, 350});
}

TEST(FormPlace, Is_beside_all_that_is_taken) {
  Expect_Place({{300, 300, 400, 350}, {250, 350, 450, 500}}, {300, 300, 400, 350},
               {400, 300, 500, 350});
}

TEST(FormPlace, Is_nowhere_when_all_is_taken) {
  EXPECT_FALSE(windows::Place_Beside({300, 300, 400, 350}, {Desktop()}, Desktop()));
}

TEST(FormPlace, Is_on_the_screen_that_is_meant) {
  const RECT second_screen{-1600, 0, 0, 1200};
  const RECT taken{-900, 400, -700, 1100};
  const auto found = windows::Place_Beside({-850, 700, -750, 900}, {taken}, second_screen);
  const RECT wanted{-700, 700, -600, 900};  // there is no room below
  ASSERT_TRUE(found);
  EXPECT_TRUE(EqualRect(&*found, &wanted)) << found->left << ", " << found->top;
  const RECT corner = windows::Place_In_Corner({0, 0, 100, 50}, second_screen);
  const RECT right_and_low{-100, 1150, 0, 1200};
  EXPECT_TRUE(EqualRect(&corner, &right_and_low)) << corner.left << ", " << corner.top;
}

struct FormsSideBySide : FormScreen {
  RECT Place() const { return Place_On_Screen(Window()); }
  RECT Place_Of_Other() const {
    return Place_On_Screen(reinterpret_cast<HWND>(views.Window_Of(other)));
  }

  Form other{"Form2", "Another form", FormSize{6000, 3000}};
};

TEST_F(FormsSideBySide, One_that_is_not_modal_leaves_the_one_that_is_up_in_sight) {
  Show();
  const RECT before = Place();
  views.Show(other, Modality::None);
  Run();
  EXPECT_FALSE(Have_Common_Points(Place(), Place_Of_Other()));
  const RECT after = Place();
  EXPECT_TRUE(EqualRect(&after, &before));
}

TEST_F(FormsSideBySide, One_that_is_not_modal_stays_in_the_middle_where_there_is_no_room) {
  const RECT desk = Desktop();
  const FormSize wide{15 * Width_Of(desk) * 3 / 4, 15 * Height_Of(desk) * 3 / 4};
  form->Set_Size(wide);
  other.Set_Size(wide);
  Show();
  views.Show(other, Modality::None);
  Run();
  EXPECT_TRUE(Have_Common_Points(Place(), Place_Of_Other()));
}

// A form that only tells something, beside a program in which a person works.
struct FormAside : FormsSideBySide {
  FormAside() {
    other.Set_Stands_Aside();
    SetForegroundWindow(host.Window());
    SetActiveWindow(host.Window());
  }
  void Show_Other() {
    views.Show(other, Modality::None);
    Run();
  }

  HostWindow host;
};

TEST_F(FormAside, Leaves_the_keyboard_where_it_is) {
  Show_Other();
  EXPECT_TRUE(IsWindowVisible(reinterpret_cast<HWND>(views.Window_Of(other))));
  EXPECT_EQ(GetActiveWindow(), host.Window());
}

TEST_F(FormAside, Leaves_the_program_in_sight) {
  Show_Other();
  EXPECT_FALSE(Have_Common_Points(Place_On_Screen(host.Window()), Place_Of_Other()));
}

TEST_F(FormAside, Lies_in_the_corner_where_the_program_fills_the_screen) {
  const RECT all = Desktop();
  MoveWindow(host.Window(), all.left, all.top, Width_Of(all), Height_Of(all), FALSE);
  Show_Other();
  EXPECT_EQ(Place_Of_Other().right, all.right);
  EXPECT_EQ(Place_Of_Other().bottom, all.bottom);
}

TEST_F(FormAside, Leaves_another_in_sight_where_the_program_fills_the_screen) {
  Form third("Form3", "A third form", FormSize{4500, 1500});
  third.Set_Stands_Aside();
  const RECT all = Desktop();
  MoveWindow(host.Window(), all.left, all.top, Width_Of(all), Height_Of(all), FALSE);
  Show_Other();
  views.Show(third, Modality::None);
  Run();
  const RECT place = Place_On_Screen(reinterpret_cast<HWND>(views.Window_Of(third)));
  EXPECT_FALSE(Have_Common_Points(place, Place_Of_Other()));
  third.Unload();
}

TEST_F(FormAside, Takes_the_keyboard_all_the_same_when_it_is_modal) {
  HWND active = nullptr;
  Later([&] {
    active = GetActiveWindow();
    other.Unload();
  });
  views.Show(other, Modality::Modal);
  EXPECT_NE(active, nullptr);
  EXPECT_NE(active, host.Window());
}

TEST_F(FormsSideBySide, One_that_has_gone_leaves_its_place) {
  Show();
  const RECT first = Place();
  form->Unload();
  other.Load();
  views.Show(other, Modality::None);
  Run();
  EXPECT_TRUE(Have_Common_Points(first, Place_Of_Other()));
}

}  // namespace
}  // namespace quillspeech::tests
