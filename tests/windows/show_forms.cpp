// Shows the control's face, the property pages and drawn windows and writes pictures of them:
// show_forms FOLDER [DOTS PER INCH]
//
// face_run, face_design and face_drawn (without windows), one picture for each page, and drawings,
// help, splash and coming_splash, which are drawn without windows too.

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "core/face_form.hpp"
#include "core/property_pages.hpp"
#include "platform/windows/form_drawing.hpp"
#include "platform/windows/form_view.hpp"
#include "presentation/help_window_layout.hpp"
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

FormControl Surface(const char* name, FormControlKind kind, const FormPlace& place) {
  FormControl surface;
  surface.name = name;
  surface.kind = kind;
  surface.place = place;
  return surface;
}

FormDrawing Circles() {
  FormDrawing drawing{{-1, 1, 1, -1}, {Drawn_Line({-1, 0}, {1, 0}, 0x808080)}};
  for (int ring = 5; ring > 0; --ring) {
    DrawingOperation circle = Drawn_Circle({0, 0}, ring / 6.0, ring % 2 == 0 ? 0xFFFFFF : 0xC06020);
    circle.is_filled = ring % 2 == 0;
    circle.line_points = ring;
    drawing.operations.push_back(circle);
  }
  drawing.operations.push_back(Drawn_Text({-0.95, 0.95}, "Circles", 0x000080));
  return drawing;
}

// Boxes, and a wave across them.
FormDrawing Boxes_And_Wave() {
  FormDrawing ground{{0, -1, 100, 1}, {}};
  for (int box = 0; box < 10; ++box) {
    ground.operations.push_back(
        Drawn_Box({box * 10.0, -1}, {box * 10.0 + 10, 1}, box % 2 == 0 ? 0x0000FF : 0x00FFFF));
  }
  std::vector<DrawingPoint> wave;
  for (int x = 0; x <= 100; ++x) wave.push_back({x * 1.0, 0.8 * std::sin(x / 8.0)});
  ground.operations.push_back(Drawn_Lines(wave, 0x800000));
  ground.operations.back().line_points = 2;
  return ground;
}

void Show_Drawings(Gallery& gallery) {
  Form form("Form1", "Drawings", {6000, 3000});
  form.Set_Ground(Boxes_And_Wave());
  FormControl picture = Surface("Picture1", FormControlKind::Picture, {150, 150, 2400, 1800});
  FormControl image = Surface("Image1", FormControlKind::Image, {2700, 150, 1200, 1800});
  FormControl button = Surface("Command1", FormControlKind::Button, {4050, 150, 1800, 1800});
  button.text = "&Rings with a caption";
  for (FormControl* const each : {&picture, &image, &button}) {
    each->drawing = Circles();
    form.Add(*each);
  }
  FormControl label = Surface("Label1", FormControlKind::Label, {150, 2250, 5700, 300});
  label.text = "A label lets the ground show through";
  form.Add(label);
  gallery.Show(form, ChildMode::Live, "drawings");
  gallery.Draw(form, "drawings_drawn");
}

void Show_Small_Windows(Gallery& gallery) {
  Form help("Help", "Help", Help_Size);
  Lay_Out_Help(help);
  Form splash("Splash", "Splash", Splash_Size);
  Lay_Out_Splash(splash);
  Form coming("ComingSplash", "ComingSplash", ComingSplash_Size);
  Lay_Out_ComingSplash(coming);
  for (const auto& [form, name] :
       {std::pair{&help, "help"}, {&splash, "splash"}, {&coming, "coming_splash"}}) {
    gallery.Show(*form, ChildMode::Live, name);
    gallery.Draw(*form, std::string(name) + "_drawn");
  }
}

int Show_All(const std::string& folder, int dots) {
  Gallery gallery(folder, dots);
  Show_Drawings(gallery);
  Show_Small_Windows(gallery);
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
