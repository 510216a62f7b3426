#include "presentation/status_bar.hpp"

#include <memory>
#include <utility>

#include "presentation/picture_file.hpp"
#include "presentation/status_pictures.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr FormSize Window_Size{2400, 2160};
constexpr FormPlace Image_Place{240, 120, 1920, 1920};

constexpr std::string_view On_View = "Image1";
constexpr std::string_view Of_Busy = "Image2";
constexpr std::string_view Of_Listening = "Image3";

void Add_Image(Form& form, std::string_view name, FormDrawing drawing, bool is_visible) {
  FormControl image;
  image.name = name;
  image.kind = FormControlKind::Image;
  image.place = Image_Place;
  image.drawing = std::move(drawing);
  image.visible = is_visible;
  form.Add(std::move(image));
}

}  // namespace

StatusBar::StatusBar(Session& session)
    : session_(session), window_("StatusBar", "Quillspeech", Window_Size) {
  window_.Set_Stands_Aside();
  Add_Image(window_, On_View, {}, true);
  Add_Image(window_, Of_Busy, Busy_Picture(), false);
  Add_Image(window_, Of_Listening, Listening_Picture(), false);
  window_.On(Form::Itself, FormEvent::Load, [this] { Take_Picture_Of(Of_Listening); });
  window_.On(On_View, FormEvent::Click, [this] { window_.Unload(); });
}

// A window on show stays where a person has put it: to come to the front with every slice would
// take the keyboard away from the program that is being tried.
void StatusBar::Show_Status_Image(int mode) {
  if (session_.settings.I_want_Status_Animation != "YES" || !Is_Design_Environment(session_)) {
    return;
  }
  if (session_.flags.Windows_Stay_Away) return;
  FormViews& views = session_.ports.views;
  Run_Silently_Trapped(session_, [&] {
    if (!views.Is_Shown(window_)) views.Show(window_, Modality::None);
  });
  Run_Silently_Trapped(session_, [&] { Take_Picture(mode); });
}

void StatusBar::Take_Picture(int mode) {
  const Settings& settings = session_.settings;
  if (mode == 1 && settings.Show_this_Image_for_Start.empty()) Take_Picture_Of(Of_Listening);
  if (mode == 2 && settings.Show_this_Image_for_Stop.empty()) Take_Picture_Of(Of_Busy);
  if (mode == 1) Take_Picture_From(settings.Show_this_Image_for_Start);
  if (mode == 2) Take_Picture_From(settings.Show_this_Image_for_Stop);
}

void StatusBar::Take_Picture_Of(std::string_view image) {
  file_on_view_.clear();
  window_.Set_Picture(On_View, "");
  window_.Set_Drawing(On_View, window_[image].drawing);
}

// The drawing stays behind it, for a view that can make nothing of the file.
void StatusBar::Take_Picture_From(const std::string& file) {
  if (file.empty() || file == file_on_view_) return;
  const auto picture = Read_Picture(session_.ports.riff_files, file);
  if (!picture) return;
  window_.Set_Picture(On_View, *picture);
  file_on_view_ = file;
}

void Connect_Status_Bar(Session& session) {
  const auto window = std::make_shared<StatusBar>(session);
  session.operations.Show_Status_Image = [window](Session&, int mode) {
    window->Show_Status_Image(mode);
  };
  session.operations.Unload_StatusBar = [window](Session&) { window->Window().Unload(); };
}

}  // namespace quillspeech
