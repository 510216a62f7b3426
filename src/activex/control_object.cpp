#include "activex/control_object.hpp"

#include <algorithm>
#include <array>

#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "core/face_form.hpp"

namespace quillspeech::activex {
namespace {

// What leaves error objects: the vtable of the members.
constexpr std::array<const IID*, 1> Telling_Interfaces = {&IID__Quillspeech};

}  // namespace

HRESULT Make_Control(IUnknown* outer, REFIID iid, void** object) {
  return Guarded([&]() -> HRESULT {
    if (!object) return E_POINTER;
    *object = nullptr;
    const bool is_identity = IsEqualIID(iid, IID_IUnknown);
    if (outer && !is_identity) return CLASS_E_NOAGGREGATION;
    // One that was made in vain would end the session as it goes.
    if (!is_identity && !ControlObject::Has(iid)) return E_NOINTERFACE;
    const ThreadEntry entry;
    if (FAILED(entry.Code())) return entry.Code();
    auto& made = *new ControlObject(outer, Module::Of_This_File().Session());
    return Give_New(made, outer, iid, object);
  });
}

ControlObject::ControlObject(IUnknown* outer, Session& session)
    : AggregatedObject(outer),
      control_(Control::Make(session, *this)),
      face_(Make_Face_Form(*control_)),
      shown_(*this, site_),
      record_(*this, notices_),
      picture_(*this, shown_, *face_),
      activation_(Whole(), *this, site_, shown_, *face_, in_place_active_object_),
      connection_points_(Whole()),
      events_(connection_points_),
      dispatch_(Whole(), *this),
      provide_class_info_(Whole()),
      support_error_info_(Whole(), Telling_Interfaces),
      ole_object_(Whole(), site_, activation_, notices_, record_),
      ole_control_(Whole(), activation_, events_),
      in_place_object_(Whole(), activation_),
      in_place_active_object_(Whole(), activation_),
      view_object_(Whole(), picture_, notices_),
      data_object_(Whole(), picture_, notices_),
      persist_stream_init_(Whole(), record_),
      persist_property_bag_(Whole(), record_),
      persist_storage_(Whole(), record_),
      quick_activate_(Whole(), site_, ole_object_, view_object_, connection_points_),
      specify_property_pages_(Whole()) {
  Module::Of_This_File().Activations().Add(activation_);
}

ControlObject::~ControlObject() { Module::Of_This_File().Activations().Remove(activation_); }

// The window goes first, while the control can still answer.
void ControlObject::At_Last_Release() noexcept {
  Guarded([&] {
    activation_.Deactivate_In_Place();
    return S_OK;
  });
  const auto control = control_;
  Guarded([&] {
    control->UserControl_Terminate();
    return S_OK;
  });
  connection_points_.Disconnect_All();
}

std::shared_ptr<Control> ControlObject::Living() {
  return control_ && !control_->Is_Terminated() ? control_ : nullptr;
}

struct ControlObject::InterfaceRow {
  const IID& iid;
  IUnknown* (*of)(ControlObject&);
};

std::span<const ControlObject::InterfaceRow> ControlObject::Interface_Rows() {
  using Object = ControlObject;
  constexpr auto members = [](Object& object) -> IUnknown* { return object.dispatch_.Interface(); };
  constexpr auto class_info = [](Object& object) -> IUnknown* {
    return &object.provide_class_info_;
  };
  constexpr auto window = [](Object& object) -> IUnknown* { return &object.in_place_object_; };
  constexpr auto view = [](Object& object) -> IUnknown* { return &object.view_object_; };
  constexpr auto stream = [](Object& object) -> IUnknown* { return &object.persist_stream_init_; };
  static constexpr InterfaceRow Rows[] = {
      // What programs use.
      {IID_IDispatch, members},
      {IID__Quillspeech, members},
      {IID_IProvideClassInfo, class_info},
      {IID_IProvideClassInfo2, class_info},
      {IID_ISupportErrorInfo, [](Object& o) -> IUnknown* { return &o.support_error_info_; }},
      {IID_IConnectionPointContainer, [](Object& o) -> IUnknown* { return &o.connection_points_; }},
      // What containers use to show it.
      {IID_IOleObject, [](Object& o) -> IUnknown* { return &o.ole_object_; }},
      {IID_IOleControl, [](Object& o) -> IUnknown* { return &o.ole_control_; }},
      {IID_IOleWindow, window},
      {IID_IOleInPlaceObject, window},
      {IID_IOleInPlaceActiveObject,
       [](Object& o) -> IUnknown* { return &o.in_place_active_object_; }},
      {IID_IViewObject, view},
      {IID_IViewObject2, view},
      {IID_IViewObjectEx, view},
      {IID_IDataObject, [](Object& o) -> IUnknown* { return &o.data_object_; }},
      {IID_IQuickActivate, [](Object& o) -> IUnknown* { return &o.quick_activate_; }},
      {IID_ISpecifyPropertyPages,
       [](Object& o) -> IUnknown* { return &o.specify_property_pages_; }},
      // What containers use to keep it.
      {IID_IPersist, stream},
      {IID_IPersistStream, stream},
      {IID_IPersistStreamInit, stream},
      {IID_IPersistPropertyBag, [](Object& o) -> IUnknown* { return &o.persist_property_bag_; }},
      {IID_IPersistStorage, [](Object& o) -> IUnknown* { return &o.persist_storage_; }},
  };
  return Rows;
}

bool ControlObject::Has(REFIID iid) {
  return std::ranges::any_of(
      Interface_Rows(), [&](const InterfaceRow& row) { return IsEqualIID(iid, row.iid) != FALSE; });
}

IUnknown* ControlObject::Interface_Of(REFIID iid) {
  for (const InterfaceRow& row : Interface_Rows()) {
    if (IsEqualIID(iid, row.iid)) return row.of(*this);
  }
  return nullptr;
}

bool ControlObject::User_Mode() const {
  const auto kept = Kept();
  return site_.User_Mode();
}

void ControlObject::Raise(const ControlEvent& event) {
  const auto kept = Kept();
  events_.Send(event);
}

// A get may announce a change, too; whether it was one is the container's to find out.
void ControlObject::Property_Changed(std::string_view name) {
  const auto kept = Kept();
  record_.Touch();
  events_.Tell_Changed(name);
}

void ControlObject::Face_Changed(const Face& face) {
  const auto kept = Kept();
  Show_Face(*face_, face);
  if (!picture_.Is_Drawing()) notices_.View_Changed(data_object_);
}

void ControlObject::Enabled_Changed(bool enabled) {
  const auto kept = Kept();
  face_->Set_Enabled(enabled);
  notices_.View_Changed(data_object_);
}

std::int32_t ControlObject::Window_Handle() const {
  return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(activation_.Window()));
}

void ControlObject::Repaint() {
  const auto kept = Kept();
  if (activation_.Window()) {
    activation_.Repaint();
  } else {
    notices_.View_Changed(data_object_);
  }
}

}  // namespace quillspeech::activex
