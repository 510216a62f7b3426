// Shows the control's face and the property pages and writes pictures of them:
// show_forms FOLDER [DOTS PER INCH]
//
// face_run, face_design and face_drawn (without windows), and one picture for each page.

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

#include "core/face_form.hpp"
#include "core/property_pages.hpp"
#include "platform/windows/form_drawing.hpp"
#include "platform/windows/form_view.hpp"
#include "tests/support/table_members.hpp"
#include "tests/support/test_control.hpp"
#include "tests/windows/form_pictures.hpp"

namespace quillspeech::tests {
namespace {

void Run_For(windows::EventLoop& loop, std::chrono::milliseconds time) {
  bool is_over = false;
  const auto timer = loop.Make_Timer(time, [&] { is_over = true; });
  timer->Enable(true);
  while (!is_over) loop.Wait_For_Events();
}

class Gallery {
 public:
  Gallery(std::string folder, int dots) : folder_(std::move(folder)), views_(loop_, dots) {}

  // The form in a host's window.
  void Show(Form& form, ChildMode mode, const std::string& name) {
    const SIZE size = Size_Of(form);
    RECT outer{0, 0, size.cx, size.cy};
    AdjustWindowRect(&outer, WS_OVERLAPPEDWINDOW, FALSE);
    const HWND host = CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20,
                                      20, outer.right - outer.left, outer.bottom - outer.top,
                                      nullptr, nullptr, nullptr, nullptr);
    views_.Make_Child(form, reinterpret_cast<std::intptr_t>(host),
                      {0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy)}, mode);
    views_.Show(form, Modality::None);
    Run_For(loop_, std::chrono::milliseconds(300));
    Picture picture(size.cx, size.cy);
    Take_Picture(reinterpret_cast<HWND>(views_.Window_Of(form)), picture);
    Save(picture, name);
    form.Unload();
    DestroyWindow(host);
  }

  void Draw(const Form& form, const std::string& name) {
    const SIZE size = Size_Of(form);
    Picture picture(size.cx, size.cy);
    windows::Draw_Form(form, picture.Device(), {0, 0, size.cx, size.cy});
    Save(picture, name);
  }

 private:
  SIZE Size_Of(const Form& form) const {
    return windows::Pixels_Of(form.Size(), windows::Scale_At(views_.Dots_Per_Inch()));
  }
  void Save(const Picture& picture, const std::string& name) {
    picture.Save(folder_ + "/" + name + ".bmp");
    std::cout << name << ": " << picture.Width() << " x " << picture.Height() << '\n';
  }

  std::string folder_;
  windows::EventLoop loop_;
  windows::FormViews views_;
};

void Show_Face_Of(Gallery& gallery, bool user_mode, const std::string& name) {
  ControlTest test;
  test.host_program.user_mode = user_mode;
  test.control->UserControl_Show();
  test.control->UserControl_Paint();
  if (user_mode) {
    test.control->face.Text1 = "computer";
    test.control->face.Text2 = "kefmpjutfr";
  }
  const auto face = Make_Face_Form(*test.control);
  gallery.Show(*face, user_mode ? ChildMode::Live : ChildMode::Inert, name);
  gallery.Draw(*face, name + "_drawn");
  face->Set_Text("Label1", "Unspecified Languge File to Add|Match");
  if (user_mode) gallery.Draw(*face, name + "_long_status_drawn");
}

int Show_All(const std::string& folder, int dots) {
  Gallery gallery(folder, dots);
  Show_Face_Of(gallery, true, "face_run");
  Show_Face_Of(gallery, false, "face_design");
  ControlTest test;
  TableMembers members(*test.control);
  for (const PropertyPage& page : Property_Pages()) {
    PageForm form(page, test.session, [] { return std::intptr_t{0}; });
    form.PropertyPage_SelectionChanged(members);
    gallery.Show(form.View(), ChildMode::Live, "page_" + std::string(page.name));
  }
  return 0;
}

}  // namespace
}  // namespace quillspeech::tests

int main(int count, char** arguments) {
  if (count < 2) return 2;
  const int dots = count > 2 ? std::atoi(arguments[2]) : 96;
  return quillspeech::tests::Show_All(arguments[1], dots);
}
