// Modal forms.
#include <gtest/gtest.h>

#include <utility>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormModals : FormScreen {
  HostWindow host;
};

TEST_F(FormModals, A_modal_show_returns_when_the_form_is_closed) {
  Later([this] { PostMessageW(Window(), WM_CLOSE, 0, 0); });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload"}));
}

TEST_F(FormModals, What_waits_in_the_queue_behind_the_end_comes_after_the_return) {
  TestWindow other;
  bool is_closed = false;
  bool has_returned = false;
  bool came_after = false;
  other.at_message = [&](UINT message) {
    if (message == WM_APP) came_after = has_returned;
  };
  Later([&] {
    if (std::exchange(is_closed, true)) return;
    PostMessageW(Window(), WM_CLOSE, 0, 0);
    PostMessageW(other.Handle(), WM_APP, 0, 0);
  });
  views.Show(*form, Modality::Modal);
  has_returned = true;
  Run();
  EXPECT_EQ(other.Count(WM_APP), 1);
  EXPECT_TRUE(came_after);
}

TEST_F(FormModals, The_threads_other_windows_take_no_input_meanwhile) {
  bool was_enabled = true;
  Later([&] {
    was_enabled = IsWindowEnabled(host.Window()) != FALSE;
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_FALSE(was_enabled);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_modal_form_may_be_hidden_and_stays_loaded) {
  Later([this] { views.Hide(*form); });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(form->Is_Loaded());
  EXPECT_FALSE(views.Is_Shown(*form));
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_modal_form_may_be_destroyed) {
  Later([this] { form.reset(); });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(form, nullptr);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, Modal_forms_nest) {
  Form inner("Form2", "Inner", {1500, 1500});
  Later([&] {
    later.clear();
    Later([&] { inner.Unload(); });
    views.Show(inner, Modality::Modal);
    EXPECT_TRUE(IsWindowEnabled(Window()));
    EXPECT_FALSE(IsWindowEnabled(host.Window()));
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_thread_that_is_told_to_quit_ends_them) {
  Later([] { PostQuitMessage(3); });
  views.Show(*form, Modality::Modal);
  EXPECT_FALSE(form->Is_Loaded());
  MSG message;
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(FormModals, What_a_handler_throws_does_not_keep_the_others_disabled) {
  Later([] { throw 1; });
  EXPECT_THROW(views.Show(*form, Modality::Modal), int);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

}  // namespace
}  // namespace quillspeech::tests
