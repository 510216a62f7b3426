#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/form.hpp"

namespace quillspeech::tests {
namespace {

struct ChosenItem : testing::Test {
  ChosenItem() {
    FormControl list;
    list.name = "Combo1";
    list.kind = FormControlKind::ComboBox;
    form.Add(list);
    for (const auto item : {"one", "two"}) form.Add_Item("Combo1", item);
    form.Set_Index("Combo1", 1);
  }

  Form form{"Form1", "", FormSize{3000, 3000}};
};

TEST_F(ChosenItem, Is_chosen_no_longer_when_the_program_sets_another_text) {
  form.Set_Text("Combo1", "three");
  EXPECT_EQ(form["Combo1"].text, "three");
  EXPECT_EQ(form["Combo1"].index, -1);
}

TEST_F(ChosenItem, Stays_chosen_when_the_program_sets_its_own_text) {
  form.Set_Text("Combo1", "two");
  EXPECT_EQ(form["Combo1"].index, 1);
}

TEST_F(ChosenItem, Is_not_exchanged_for_another_by_its_text) {
  form.Set_Text("Combo1", "one");
  EXPECT_EQ(form["Combo1"].text, "one");
  EXPECT_EQ(form["Combo1"].index, -1);
}

// The view takes the choice away and then shows the text.
TEST_F(ChosenItem, Is_taken_from_the_view_with_its_text) {
  struct View : FormView {
    void Control_Changed(const FormControl& control, FormChange change) override {
      changes.push_back(change);
      text = control.text;
    }
    void Menu_Changed(const FormMenu&, FormChange) override {}
    void Form_Changed(FormChange) override {}
    void Form_Gone() override {}
    std::vector<FormChange> changes;
    std::string text;
  } view;
  form.Attach(&view);
  form.Set_Text("Combo1", "three");
  EXPECT_EQ(view.changes, std::vector{FormChange::Index});
  EXPECT_EQ(view.text, "three");
  form.Attach(nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
