// The setters of a form: each stores the value and tells the view when it is another one.
#include <utility>

#include "base/run_time_failure.hpp"
#include "platform/form.hpp"

namespace quillspeech {

template <class Value>
void Form::Change(std::string_view control, Value FormControl::*part, const Value& value,
                  FormChange change) {
  FormControl& one = At(control);
  if (one.*part == value) return;
  one.*part = value;
  if (view_) view_->Control_Changed(one, change);
}

template <class Value>
void Form::Change_Menu(std::string_view menu, Value FormMenu::*part, const Value& value,
                       FormChange change) {
  FormMenu& one = Menu_At(menu);
  if (one.*part == value) return;
  one.*part = value;
  if (view_) view_->Menu_Changed(one, change);
}

void Form::Set_Caption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  if (view_) view_->Form_Changed(FormChange::Text);
}

void Form::Set_Size(FormSize size) {
  if (size_ == size) return;
  size_ = size;
  if (view_) view_->Form_Changed(FormChange::Place);
}

void Form::Set_Enabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  if (view_) view_->Form_Changed(FormChange::Enabled);
}

void Form::Set_Ground(FormDrawing ground) {
  if (ground_ == ground) return;
  ground_ = std::move(ground);
  if (view_) view_->Form_Changed(FormChange::Drawing);
}

void Form::Change_Ground(const std::function<void(FormDrawing&)>& change) {
  change(ground_);
  if (view_) view_->Form_Changed(FormChange::Drawing);
}

// A text that is not the chosen item's leaves no item of a combo box chosen.
void Form::Set_Text(std::string_view control, std::string_view text) {
  FormControl& box = At(control);
  if (box.kind == FormControlKind::ComboBox && box.index >= 0 &&
      box.items[static_cast<std::size_t>(box.index)] != text) {
    box.index = -1;
    box.text = text;
    if (view_) view_->Control_Changed(box, FormChange::Index);
    return;
  }
  Change(control, &FormControl::text, std::string(text), FormChange::Text);
}

void Form::Set_Tip(std::string_view control, std::string_view tip) {
  Change(control, &FormControl::tip, std::string(tip), FormChange::Tip);
}

void Form::Set_Font(std::string_view control, const FormFont& font) {
  Change(control, &FormControl::font, font, FormChange::Font);
}

void Form::Set_Text_Colour(std::string_view control, std::optional<FormColour> colour) {
  Change(control, &FormControl::text_colour, colour, FormChange::Colours);
}

void Form::Set_Back_Colour(std::string_view control, std::optional<FormColour> colour) {
  Change(control, &FormControl::back_colour, colour, FormChange::Colours);
}

void Form::Set_Enabled(std::string_view control, bool enabled) {
  Change(control, &FormControl::enabled, enabled, FormChange::Enabled);
}

void Form::Set_Visible(std::string_view control, bool visible) {
  Change(control, &FormControl::visible, visible, FormChange::Visible);
}

void Form::Set_Place(std::string_view control, const FormPlace& place) {
  Change(control, &FormControl::place, place, FormChange::Place);
}

void Form::Set_Read_Only(std::string_view control, bool read_only) {
  Change(control, &FormControl::read_only, read_only, FormChange::ReadOnly);
}

void Form::Add_Item(std::string_view control, std::string_view item, std::int32_t data) {
  FormControl& list = At(control);
  list.items.emplace_back(item);
  list.item_data.push_back(data);
  if (view_) view_->Control_Changed(list, FormChange::Items);
}

void Form::Clear_Items(std::string_view control) {
  FormControl& list = At(control);
  list.items.clear();
  list.item_data.clear();
  list.index = -1;
  list.text.clear();
  if (view_) view_->Control_Changed(list, FormChange::Items);
}

void Form::Set_Index(std::string_view control, int index) {
  FormControl& list = At(control);
  const auto count = static_cast<int>(list.items.size());
  if (index < -1 || index >= count) Fail(Failure::Invalid_Call);
  const std::string text = index < 0 ? std::string() : list.items[static_cast<std::size_t>(index)];
  if (list.index == index && list.text == text) return;
  list.index = index;
  list.text = text;
  if (view_) view_->Control_Changed(list, FormChange::Index);
}

void Form::Set_Focus(std::string_view control) {
  const FormControl& one = (*this)[control];
  if (!Takes_Focus(one.kind) || !Takes_Action(control)) Fail(Failure::Invalid_Call);
  focused_ = one.name;
  if (view_) view_->Control_Changed(one, FormChange::Focus);
}

void Form::Set_Menu_Caption(std::string_view menu, std::string_view caption) {
  Change_Menu(menu, &FormMenu::caption, std::string(caption), FormChange::Text);
}

void Form::Set_Menu_Enabled(std::string_view menu, bool enabled) {
  Change_Menu(menu, &FormMenu::enabled, enabled, FormChange::Enabled);
}

void Form::Set_Menu_Visible(std::string_view menu, bool visible) {
  Change_Menu(menu, &FormMenu::visible, visible, FormChange::Visible);
}

void Form::Set_Drawing(std::string_view control, FormDrawing drawing) {
  FormControl& surface = At(control);
  if (surface.drawing == drawing) return;
  surface.drawing = std::move(drawing);
  if (view_) view_->Control_Changed(surface, FormChange::Drawing);
}

void Form::Set_Scale(std::string_view control, const DrawingScale& scale) {
  FormControl& surface = At(control);
  if (surface.drawing.scale == scale) return;
  surface.drawing.scale = scale;
  if (view_) view_->Control_Changed(surface, FormChange::Drawing);
}

void Form::Draw(std::string_view control, DrawingOperation operation) {
  FormControl& surface = At(control);
  surface.drawing.operations.push_back(std::move(operation));
  if (view_) view_->Control_Changed(surface, FormChange::Drawing);
}

void Form::Clear_Drawing(std::string_view control) {
  FormControl& surface = At(control);
  if (surface.drawing.operations.empty()) return;
  surface.drawing.operations.clear();
  if (view_) view_->Control_Changed(surface, FormChange::Drawing);
}

void Form::Set_Picture(std::string_view control, std::string_view bytes) {
  Change(control, &FormControl::picture, std::string(bytes), FormChange::Drawing);
}

}  // namespace quillspeech
