#include "platform/windows/form_view.hpp"

#include <algorithm>
#include <set>
#include <system_error>
#include <utility>

#include "platform/windows/form_place.hpp"
#include "platform/windows/text.hpp"
#include "platform/windows/waiting_windows.hpp"

namespace quillspeech::windows {
namespace {

void Let_Go(FormWindow& window) {
  if (Form* const form = window.Model()) form->Attach(nullptr);
  window.Form_Gone();
}

// The system has made no window: the form is without a view again.
[[noreturn]] void Give_Up(FormWindow& window) {
  const auto error = static_cast<int>(GetLastError());
  Let_Go(window);
  throw std::system_error(error, std::system_category());
}

RECT Place_Of(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

bool Is_In_Sight(HWND window) {
  const RECT place = Place_Of(window);
  return IsWindowVisible(window) && !IsRectEmpty(&place);
}

std::vector<RECT> Places_Of(const auto& windows) {
  std::vector<RECT> places;
  for (const auto& [form, window] : windows) {
    const HWND up = window->Is_Shown() ? window->Window() : nullptr;
    if (!up || IsIconic(up)) continue;
    const bool is_child = (GetWindowLongPtrW(up, GWL_STYLE) & WS_CHILD) != 0;
    if (!is_child) places.push_back(Place_Of(up));
  }
  return places;
}

// Forms that are not modal are there together: a new one leaves those that are up in sight, and one
// that stands aside the program's window too, as long as that does not fill the screen.
void Leave_In_Sight(const Form& form, HWND window, const std::vector<RECT>& others) {
  const HWND owner = GetWindow(window, GW_OWNER);
  const RECT area = Work_Area_Around(owner);
  const RECT centred = Place_Of(window);
  std::vector<RECT> taken = others;
  if (form.Stands_Aside() && owner && !IsIconic(owner)) taken.push_back(Place_Of(owner));
  const RECT second = form.Stands_Aside() ? Place_In_Corner(centred, area) : centred;
  const RECT place = Place_Beside(centred, taken, area)
                         .value_or(Place_Beside(second, others, area).value_or(second));
  SetWindowPos(window, nullptr, place.left, place.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Those that lie on their side are for vertical writing only.
int CALLBACK Note_Font(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
  if (font->lfFaceName[0] != L'@') {
    reinterpret_cast<std::set<std::string>*>(names)->insert(Narrow(font->lfFaceName));
  }
  return 1;
}

}  // namespace

FormViews::FormViews(EventLoop& loop, int dots_per_inch)
    : loop_(loop),
      dots_per_inch_(dots_per_inch > 0 ? dots_per_inch : Screen_Dots_Per_Inch()),
      desk_(dots_per_inch_) {
  desk_.At_Failure = [this] {
    if (At_Failure) At_Failure();
  };
  desk_.At_End = [this](FormWindow& window) {
    std::erase_if(windows_, [&](const auto& entry) { return entry.second.get() == &window; });
  };
  filter_ = loop_.Add_Filter([this](MSG& message) { return Filter(message); });
}

FormViews::~FormViews() {
  loop_.Remove_Filter(filter_);
  Drop_Windows();
}

void FormViews::Drop_Windows() {
  modal_.clear();
  while (!windows_.empty()) {
    const std::shared_ptr<FormWindow> window = windows_.begin()->second;
    Let_Go(*window);
  }
}

FormWindow* FormViews::Find(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

std::shared_ptr<FormWindow> FormViews::Made(Form& form) {
  auto window = std::make_shared<FormWindow>(form, desk_);
  windows_[&form] = window;
  form.Attach(window.get());
  return window;
}

// The window that the thread's user works in.
HWND FormViews::Owner_For_New_Window() const {
  const HWND active = GetActiveWindow();
  if (active) return GetAncestor(active, GA_ROOT);
  return Owner ? Owner() : nullptr;
}

// Forms that are not modal lie side by side: what ends one ends no other. So it is the last of the
// windows that own each other, and one that shows: some programs have a hidden one behind them all,
// or one without any size.
HWND FormViews::Owner_Of_Modeless() const {
  HWND owner = nullptr;
  const HWND active = GetActiveWindow();
  HWND window = active ? GetAncestor(active, GA_ROOT) : nullptr;
  for (; window; window = GetWindow(window, GW_OWNER)) {
    const bool is_ours = std::ranges::any_of(
        windows_, [&](const auto& entry) { return entry.second->Window() == window; });
    if (is_ours) {
      owner = nullptr;
    } else if (Is_In_Sight(window)) {
      owner = window;
    }
  }
  if (owner) return owner;
  return Owner ? Owner() : nullptr;
}

void FormViews::Make_Window(FormWindow& window, Modality modality) {
  const bool is_modal = modality == Modality::Modal;
  if (!window.Make_Top(is_modal ? Owner_For_New_Window() : Owner_Of_Modeless(), is_modal)) {
    Give_Up(window);
  }
  if (!is_modal) Leave_In_Sight(*window.Model(), window.Window(), Places_Of(windows_));
  if (Window_Life) window.life = Window_Life();
}

void FormViews::Show(Form& form, Modality modality) {
  const std::weak_ptr<const void> life = form.Life();
  form.Load();
  if (life.expired() || !form.Is_Loaded()) return;  // its Load has unloaded it again
  FormWindow* const found = Find(form);
  std::shared_ptr<FormWindow> window = found ? found->shared_from_this() : Made(form);
  if (!window->Window()) Make_Window(*window, modality);
  const bool is_modal = std::ranges::find(modal_, window.get()) != modal_.end();
  if (modality == Modality::Modal && !is_modal) return Run_Modally(window);
  if (form.Stands_Aside() && !is_modal) return window->Show_Aside();
  window->Show();
}

void FormViews::Run_Modally(const std::shared_ptr<FormWindow>& window) {
  const FrontWindow front;
  const auto time = Modal_Time ? Modal_Time() : nullptr;
  modal_.push_back(window.get());
  try {
    window->Disable_Others();
    window->Show();
    Wait_While_Shown(*window);
  } catch (...) {
    std::erase(modal_, window.get());
    window->Hide();
    throw;
  }
  std::erase(modal_, window.get());
}

HWND FormViews::Active_Window() const {
  const HWND active = GetActiveWindow();
  const bool is_worked_in =
      active && std::ranges::any_of(windows_, [&](const auto& entry) {
        const Form* const form = entry.second->Model();
        return entry.second->Window() == active && form && !form->Stands_Aside();
      });
  return is_worked_in ? active : nullptr;
}

// A look at the queue tells whether the thread is still to quit: a host may have gone on all the
// same.
void FormViews::Wait_While_Shown(FormWindow& window) {
  if (loop_.Is_Quitting()) loop_.Run_Pending_Events();
  while (window.Is_Shown()) {
    if (loop_.Is_Quitting()) {
      if (Form* const form = window.Model()) form->Unload();
      window.Hide();
      return;
    }
    loop_.Wait_For_Events_While([&] { return window.Is_Shown(); });
  }
}

// One that has been hidden is about to return only, and no box can lie before it.
HWND FormViews::Modal_Window() const {
  const auto found = std::find_if(modal_.rbegin(), modal_.rend(), [](const FormWindow* window) {
    return window->Window() && window->Is_Shown();
  });
  return found == modal_.rend() ? nullptr : (*found)->Window();
}

std::vector<std::string> FormViews::Font_Names() const {
  std::set<std::string> names;
  LOGFONTW any{};
  any.lfCharSet = DEFAULT_CHARSET;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &any, &Note_Font, reinterpret_cast<LPARAM>(&names), 0);
  ReleaseDC(nullptr, screen);
  return {names.begin(), names.end()};
}

void FormViews::Hide(Form& form) {
  if (FormWindow* const window = Find(form)) window->Hide();
}

void FormViews::Make_Child(Form& form, std::intptr_t parent, const ChildPlace& place,
                           ChildMode mode) {
  const std::weak_ptr<const void> life = form.Life();
  form.Load();
  if (life.expired() || !form.Is_Loaded()) return;
  if (FormWindow* const old = Find(form)) Let_Go(*old);  // it moves into another parent
  const std::shared_ptr<FormWindow> window = Made(form);
  if (!window->Make_Child(reinterpret_cast<HWND>(parent), place, mode)) Give_Up(*window);
}

void FormViews::Move_Child(Form& form, const ChildPlace& place) {
  if (FormWindow* const window = Find(form)) window->Move(place);
}

void FormViews::Set_Child_Mode(Form& form, ChildMode mode) {
  if (FormWindow* const window = Find(form)) window->Set_Mode(mode);
}

std::intptr_t FormViews::Window_Of(const Form& form) const {
  const FormWindow* const window = Find(form);
  return window ? reinterpret_cast<std::intptr_t>(window->Window()) : 0;
}

bool FormViews::Is_Shown(const Form& form) const {
  const FormWindow* const window = Find(form);
  return window && window->Is_Shown();
}

void FormViews::Repaint(Form& form) {
  if (FormWindow* const window = Find(form)) window->Repaint();
}

bool FormViews::Translate(const Form& form, MSG& message) {
  FormWindow* const window = Find(form);
  return window && window->Translate(message);
}

void FormViews::Set_Signals(const Form& form, FormSignals signals) {
  if (FormWindow* const window = Find(form)) window->signals = std::move(signals);
}

// A key may end any form: what is looked at is a copy.
bool FormViews::Filter(MSG& message) {
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  for (const auto& [form, window] : std::map(windows_)) {
    if (window->Take_From_Loop(message)) return true;
  }
  return false;
}

}  // namespace quillspeech::windows
