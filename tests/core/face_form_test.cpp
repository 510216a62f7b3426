#include "core/face_form.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/test_control.hpp"

namespace quillspeech::tests {
namespace {

struct FaceForm : testing::Test, ControlTest {
  std::unique_ptr<Form> form = Make_Face_Form(*control);
};

TEST_F(FaceForm, Has_the_child_controls_in_their_order_with_their_texts_tips_and_fonts) {
  std::size_t at = 0;
  for (const ChildControl& child : Child_Controls()) {
    if (child.kind == ChildKind::Timer) continue;
    const FormControl& control_on_form = form->Controls()[at++];
    EXPECT_EQ(control_on_form.name, child.name);
    EXPECT_EQ(control_on_form.text, child.text);
    EXPECT_EQ(control_on_form.tip, child.tip);
    EXPECT_EQ(control_on_form.parent, child.parent);
    if (!child.font.empty()) {
      EXPECT_EQ(control_on_form.font.name, child.font);
    }
  }
  EXPECT_EQ(at, form->Controls().size());
}

TEST_F(FaceForm, Is_as_large_as_the_control_and_holds_each_child_inside_its_parent) {
  EXPECT_EQ(form->Size(), (FormSize{3336, 1884}));
  for (const FormControl& child : form->Controls()) {
    const FormControl* const parent = form->Find(child.parent);
    const FormSize room =
        parent ? FormSize{parent->place.width, parent->place.height} : form->Size();
    EXPECT_GT(child.place.width, 0) << child.name;
    EXPECT_GE(child.place.left, 0) << child.name;
    EXPECT_GE(child.place.top, 0) << child.name;
    EXPECT_LE(child.place.left + child.place.width, room.width) << child.name;
    EXPECT_LE(child.place.top + child.place.height, room.height) << child.name;
  }
}

TEST_F(FaceForm, No_two_controls_of_one_parent_overlap) {
  for (const FormControl& one : form->Controls()) {
    for (const FormControl& other : form->Controls()) {
      if (&one == &other || one.parent != other.parent) continue;
      const bool is_apart = one.place.left + one.place.width <= other.place.left ||
                            other.place.left + other.place.width <= one.place.left ||
                            one.place.top + one.place.height <= other.place.top ||
                            other.place.top + other.place.height <= one.place.top;
      EXPECT_TRUE(is_apart) << one.name << " and " << other.name;
    }
  }
}

TEST_F(FaceForm, Clicks_on_the_frames_and_the_label_raise_Click) {
  for (const char* const name : {"Frame1", "Frame2", "Label1"}) EXPECT_TRUE(form->Click(name));
  EXPECT_EQ(host_program.Times("Click"), 3);
}

TEST_F(FaceForm, Clicks_on_text_boxes_and_buttons_raise_no_Click) {
  for (const char* const name :
       {"Text1", "Text2", "Command1", "Command2", "Command3", "Command4"}) {
    EXPECT_TRUE(form->Click(name)) << name;
  }
  EXPECT_EQ(host_program.Times("Click"), 0);
}

TEST_F(FaceForm, The_buttons_act_on_the_session) {
  form->Click("Command1");
  EXPECT_TRUE(Pump_Is_On());
  form->Click("Command4");
  EXPECT_EQ(Times("Show_Splash"), 1);
}

TEST_F(FaceForm, Shows_what_the_face_shows) {
  const Face face{"Speechdetected", "hello", "fth", Pure_Green};
  Show_Face(*form, face);
  EXPECT_EQ((*form)["Label1"].text, "Speechdetected");
  EXPECT_EQ((*form)["Text1"].text, "hello");
  EXPECT_EQ((*form)["Text2"].text, "fth");
  EXPECT_EQ((*form)["Text1"].text_colour, Pure_Green);
  EXPECT_EQ((*form)["Text2"].text_colour, Pure_Green);
}

TEST_F(FaceForm, What_a_person_types_stays_until_a_result_takes_its_place) {
  for (const auto& [box, result] : {std::pair{"Text1", &session.results.Platinum_Best_Table[1]},
                                    std::pair{"Text2", &session.filter.Voice_Word_Table[1]}}) {
    *result = "";
    EXPECT_TRUE(form->Type(box, "typed"));
    control->Set_Label1("Another");
    control->Timer1_Timer();
    Show_Face(*form, control->face);
    EXPECT_EQ((*form)[box].text, "typed");
    *result = "hello";
    for (const char* const again : {"typed once more", "and again"}) {
      EXPECT_TRUE(form->Type(box, again));
      control->Timer1_Timer();
      Show_Face(*form, control->face);
      EXPECT_EQ((*form)[box].text, "hello");
    }
  }
}

TEST_F(FaceForm, Both_colours_of_the_texts_stand_out_from_the_ground) {
  for (const char* const name : {"Text1", "Text2"}) {
    EXPECT_EQ((*form)[name].back_colour, 0U) << name;  // black
  }
}

TEST_F(FaceForm, May_outlive_its_control) {
  control.reset();
  EXPECT_TRUE(form->Click("Frame1"));
  EXPECT_EQ(host_program.Times("Click"), 0);
}

TEST_F(FaceForm, A_click_may_end_the_control_and_the_form) {
  host_program.At_First(EventId::Click, [this] {
    control->UserControl_Terminate();
    control.reset();
    form.reset();
  });
  EXPECT_TRUE(form->Click("Label1"));
  EXPECT_EQ(form, nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
