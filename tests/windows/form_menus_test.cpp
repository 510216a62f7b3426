// The menu bars of forms, chosen from as by a person.
#include "platform/windows/form_menus.hpp"

#include <gtest/gtest.h>

#include <optional>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormMenuBars : FormScreen {
  FormMenuBars() {
    for (const FormMenu& menu : {
             FormMenu{"mnuFile", "&File", ""},
             FormMenu{"mnuOpen", "&Open", "mnuFile"},
             FormMenu{"mnuLine", "-", "mnuFile"},
             FormMenu{"mnuRecent", "Recent", "mnuFile"},
             FormMenu{"mnuFirst", "First", "mnuRecent"},
             FormMenu{"mnuView", "View", ""},
             FormMenu{"mnuAll", "All \xA9", "mnuView"},
         }) {
      form->Add_Menu(menu);
      Note(menu.name, FormEvent::Click, "Click");
    }
  }

  HMENU Bar() const { return GetMenu(Window()); }
  static std::string Caption(HMENU menu, UINT place) {
    wchar_t text[100] = {};
    GetMenuStringW(menu, place, text, 100, MF_BYPOSITION);
    return windows::Narrow(text);
  }
  static bool Is_Grey(HMENU menu, UINT place) {
    return (GetMenuState(menu, place, MF_BYPOSITION) & MF_GRAYED) != 0;
  }
  void Choose(HMENU menu, int place) {
    PostMessageW(Window(), WM_COMMAND, GetMenuItemID(menu, place), 0);
    Run();
  }
};

TEST_F(FormMenuBars, A_form_without_menus_has_no_bar) {
  Form plain("Form2", "Plain", {1500, 1500});
  views.Show(plain, Modality::None);
  EXPECT_EQ(GetMenu(reinterpret_cast<HWND>(views.Window_Of(plain))), nullptr);
}

TEST_F(FormMenuBars, Menus_stand_in_their_order_with_their_entries_below_them) {
  Show();
  ASSERT_EQ(GetMenuItemCount(Bar()), 2);
  EXPECT_EQ(Caption(Bar(), 0), "&File");
  EXPECT_EQ(Caption(Bar(), 1), "View");
  const HMENU file = GetSubMenu(Bar(), 0);
  ASSERT_EQ(GetMenuItemCount(file), 3);
  EXPECT_EQ(Caption(file, 0), "&Open");
  EXPECT_NE(GetMenuState(file, 1, MF_BYPOSITION) & MF_SEPARATOR, 0U);
  EXPECT_EQ(Caption(GetSubMenu(file, 2), 0), "First");
  EXPECT_EQ(Caption(GetSubMenu(Bar(), 1), 0), "All \xA9");
}

TEST_F(FormMenuBars, A_chosen_entry_is_a_click_on_it) {
  Show();
  Choose(GetSubMenu(Bar(), 0), 0);
  Choose(GetSubMenu(GetSubMenu(Bar(), 0), 2), 0);
  EXPECT_EQ(heard, (Heard{"Form_Load", "mnuOpen_Click", "mnuFirst_Click"}));
}

TEST_F(FormMenuBars, An_entry_is_chosen_by_its_letters) {
  Show();
  PostMessageW(Window(), WM_SYSCOMMAND, SC_KEYMENU, 'f');
  Later([this] { PostMessageW(Window(), WM_CHAR, 'o', 1); });
  for (int i = 0; i < 200 && heard.size() < 2; ++i) loop.Wait_For_Events();
  EXPECT_EQ(heard, (Heard{"Form_Load", "mnuOpen_Click"}));
}

TEST_F(FormMenuBars, A_caption_changes_in_a_window_that_shows) {
  Show();
  form->Set_Menu_Caption("mnuOpen", "Open &again");
  form->Set_Menu_Caption("mnuView", "Look");
  EXPECT_EQ(Caption(GetSubMenu(Bar(), 0), 0), "Open &again");
  EXPECT_EQ(Caption(Bar(), 1), "Look");
}

TEST_F(FormMenuBars, What_is_disabled_is_grey_and_comes_back) {
  form->Set_Menu_Enabled("mnuOpen", false);
  Show();
  form->Set_Menu_Enabled("mnuView", false);
  EXPECT_TRUE(Is_Grey(GetSubMenu(Bar(), 0), 0));
  EXPECT_TRUE(Is_Grey(Bar(), 1));
  form->Set_Menu_Enabled("mnuOpen", true);
  form->Set_Menu_Enabled("mnuView", true);
  EXPECT_FALSE(Is_Grey(GetSubMenu(Bar(), 0), 0));
  EXPECT_FALSE(Is_Grey(Bar(), 1));
}

TEST_F(FormMenuBars, An_entry_that_is_not_visible_is_not_there) {
  form->Set_Menu_Visible("mnuOpen", false);
  Show();
  EXPECT_EQ(GetMenuItemCount(GetSubMenu(Bar(), 0)), 2);
  form->Set_Menu_Visible("mnuOpen", true);
  EXPECT_EQ(Caption(GetSubMenu(Bar(), 0), 0), "&Open");
  form->Set_Menu_Visible("mnuFile", false);
  ASSERT_EQ(GetMenuItemCount(Bar()), 1);
  Choose(GetSubMenu(Bar(), 0), 0);
  EXPECT_EQ(heard.back(), "mnuAll_Click");
}

TEST_F(FormMenuBars, The_inner_size_stays_that_of_the_form_however_many_lines_the_bar_has) {
  for (int i = 0; i < 12; ++i) {
    form->Add_Menu({"mnuMore" + std::to_string(i), "A rather long menu", ""});
  }
  Show();
  RECT inside{};
  GetClientRect(Window(), &inside);
  EXPECT_EQ(inside.right, 200);
  EXPECT_EQ(inside.bottom, 100);
}

TEST_F(FormMenuBars, A_number_of_no_entry_is_nothing) {
  Show();
  PostMessageW(Window(), WM_COMMAND, windows::First_Menu_Command + 7, 0);
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load"}));
}

TEST_F(FormMenuBars, An_entry_may_unload_its_form) {
  form->On("mnuOpen", FormEvent::Click, [this] { form->Unload(); });
  Show();
  Choose(GetSubMenu(Bar(), 0), 0);
  EXPECT_FALSE(form->Is_Loaded());
}

}  // namespace
}  // namespace quillspeech::tests
