// The window of one control inside its container's: the face, live or as a picture, and an eye on
// its focus and its painting.
#pragma once

#include <memory>

#include "activex/com.hpp"
#include "platform/windows/form_view.hpp"

namespace quillspeech::activex {

class InPlaceWindow {
 public:
  // What happens to it. Each may end the window.
  class Listener {
   public:
    virtual void On_Focus(bool got) noexcept = 0;  // from outside the control, or to there
    virtual void On_Paint() noexcept = 0;          // before it is painted
    // A key that comes to it in a wait of the session, where no loop of the container's looks at
    // it. False: nobody has made use of it.
    virtual bool On_Key(MSG& message) noexcept = 0;

   protected:
    ~Listener() = default;
  };

  InPlaceWindow(windows::FormViews& views, Form& face, Listener& listener);
  ~InPlaceWindow();
  InPlaceWindow(const InPlaceWindow&) = delete;
  InPlaceWindow& operator=(const InPlaceWindow&) = delete;

  // At that place of the parent, not yet visible. False when there can be no window.
  bool Open(HWND parent, const RECT& position, ChildMode mode);
  void Close();
  HWND Handle() const;  // null while there is none; a parent that ends takes it along
  bool Is_Open() const { return Handle() != nullptr; }
  bool Is_Shown() const { return views_.Is_Shown(face_); }
  void Set_Mode(ChildMode mode);
  void Show(bool visible);
  void Repaint();

  // The place is the top left corner of the position; the size is always its own. What lies outside
  // the clip, in the same coordinates, does not show.
  void Place(const RECT& position, const RECT& clip);
  // Where it lies at that position.
  RECT Place_At(const RECT& position) const;

  enum class Entry { By_Itself, First, Last };

  // Where it was last, or into the first or the last control that takes it; nothing when it is
  // there already.
  void Take_Focus(Entry entry);
  // Moves the focus inside, presses a button: what a dialog box does with the key. False when it
  // means nothing here, or would leave at either end.
  bool Take_Key(MSG& message);

 private:
  bool Has_Focus() const;

  windows::FormViews& views_;
  Form& face_;
  std::shared_ptr<Listener*> listener_;  // the pointer becomes null when nobody listens any more
};

}  // namespace quillspeech::activex
