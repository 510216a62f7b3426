#include "platform/windows/form_place.hpp"

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

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
  const RECT found = windows::Place_Beside(place, taken);
  EXPECT_TRUE(EqualRect(&found, &wanted)) << found.left << ", " << found.top;
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

TEST(FormPlace, Stays_where_there_is_no_room_beside) {
  const RECT place{300, 300, 400, 350};
  Expect_Place({Desktop()}, place, place);
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
