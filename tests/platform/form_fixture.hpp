// A form with one control of each kind that tests act on, and a list of what its handlers heard.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/form.hpp"

namespace quillspeech::tests {

inline FormControl Named(std::string name, FormControlKind kind, std::string text = {},
                         std::string parent = {}) {
  FormControl control;
  control.name = std::move(name);
  control.kind = kind;
  control.text = std::move(text);
  control.parent = std::move(parent);
  return control;
}

struct FormTest : testing::Test {
  FormTest() {
    form->Add(Named("Label1", FormControlKind::Label, "&Name:"));
    form->Add(Named("Text1", FormControlKind::TextBox, "first"));
    form->Add(Named("Frame1", FormControlKind::Frame, "Group"));
    form->Add(Named("Command1", FormControlKind::Button, "&Save", "Frame1"));
    form->Add(Named("Command2", FormControlKind::Button, "Close"));
    form->Add(Named("Combo1", FormControlKind::ComboBox));
    for (const char* const item : {"one", "two", "three"}) form->Add_Item("Combo1", item);
    for (const char* const name :
         {"Label1", "Text1", "Frame1", "Command1", "Command2", "Combo1", "Form"}) {
      Note(name, FormEvent::Click, "Click");
      Note(name, FormEvent::Change, "Change");
    }
    Note("Form", FormEvent::Load, "Load");
    Note("Form", FormEvent::Unload, "Unload");
  }

  void Note(const std::string& name, FormEvent event, const std::string& word) {
    form->On(name, event, [this, heard_name = name + "_" + word] { heard.push_back(heard_name); });
  }
  void Note_Keys(const std::string& name) {
    form->On_Key_Press(name, [this, name](unsigned char key) {
      heard.push_back(name + "_KeyPress " + std::to_string(key));
    });
  }

  using Heard = std::vector<std::string>;

  std::unique_ptr<Form> form = std::make_unique<Form>("Form1", "A form", FormSize{3000, 1500});
  Heard heard;
};

}  // namespace quillspeech::tests
