// What holds for the layout of every window of an editor.
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "platform/form.hpp"

namespace quillspeech::tests {

struct ExpectedControl {
  const char* name;
  FormControlKind kind;
  const char* text;
  const char* tip;
};

inline void Expect_Control(const Form& form, const ExpectedControl& expected) {
  const FormControl& control = form[expected.name];
  EXPECT_EQ(control.kind, expected.kind) << expected.name;
  EXPECT_EQ(control.text, expected.text) << expected.name;
  EXPECT_EQ(control.tip, expected.tip) << expected.name;
}

// Of the menu's entries; with no parent, of the bar.
inline std::vector<std::string> Captions_In(const Form& form, const std::string& parent) {
  std::vector<std::string> captions;
  for (const FormMenu& menu : form.Menus()) {
    if (menu.parent == parent) captions.push_back(menu.caption);
  }
  return captions;
}

inline void Expect_No_Name_Twice(const Form& form) {
  std::set<std::string> names;
  for (const FormControl& control : form.Controls()) {
    EXPECT_TRUE(names.insert(control.name).second) << control.name;
  }
  for (const FormMenu& menu : form.Menus()) {
    EXPECT_TRUE(names.insert(menu.name).second) << menu.name;
  }
}

inline bool Are_Apart(const FormPlace& one, const FormPlace& other) {
  return one.left + one.width <= other.left || other.left + other.width <= one.left ||
         one.top + one.height <= other.top || other.top + other.height <= one.top;
}

// Every control lies inside its parent and apart from its neighbours.
inline void Expect_Controls_In_Their_Places(const Form& form) {
  constexpr int Margin = 90;
  for (const FormControl& one : form.Controls()) {
    const FormControl* const parent = form.Find(one.parent);
    const FormSize room =
        parent ? FormSize{parent->place.width, parent->place.height} : form.Size();
    EXPECT_GE(one.place.left, Margin) << one.name;
    EXPECT_LE(one.place.left + one.place.width, room.width - Margin) << one.name;
    EXPECT_LE(one.place.top + one.place.height, room.height - Margin) << one.name;
    for (const FormControl& other : form.Controls()) {
      if (&one == &other || one.parent != other.parent) continue;
      EXPECT_TRUE(Are_Apart(one.place, other.place)) << one.name << " and " << other.name;
    }
  }
}

}  // namespace quillspeech::tests
