#include "activex/control_object.hpp"

#include <algorithm>

#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "core/face_form.hpp"

namespace quillspeech::activex {
namespace {

bool Is_One_Of(REFIID iid, std::initializer_list<const IID*> ids) {
  return std::ranges::any_of(ids, [&](const IID* id) { return IsEqualIID(iid, *id); });
}

}  // namespace

HRESULT Make_Control(IUnknown* outer, REFIID iid, void** object) {
  return Guarded([&]() -> HRESULT {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer && !IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
    Module& module = Module::Of_This_File();
    const HRESULT entered = module.Enter_Thread();
    if (FAILED(entered)) return entered;
    return Give_New(*new ControlObject(outer, module.Session()), outer, iid, object);
  });
}

ControlObject::ControlObject(IUnknown* outer, Session& session)
    : AggregatedObject(outer),
      control_(Control::Make(session, *this)),
      face_(Make_Face_Form(*control_)),
      record_(*this, notices_),
      picture_(*this, *face_),
      activation_(Whole(), *this, site_, *face_),
      connection_points_(Whole()),
      events_(connection_points_),
      dispatch_(Whole(), *this),
      provide_class_info_(Whole()),
      support_error_info_(Whole()),
      ole_object_(Whole(), site_, activation_, notices_, record_),
      ole_control_(Whole(), activation_, events_),
      in_place_object_(Whole(), activation_),
      in_place_active_object_(Whole(), activation_),
      view_object_(Whole(), picture_, notices_),
      data_object_(Whole(), picture_, notices_),
      persist_stream_init_(Whole(), record_),
      persist_property_bag_(Whole(), record_),
      persist_storage_(Whole(), record_),
      quick_activate_(Whole()),
      specify_property_pages_(Whole()) {
  Module::Of_This_File().Add_Control();
}

ControlObject::~ControlObject() { Module::Of_This_File().Remove_Control(); }

// The window goes first, while the control can still answer.
void ControlObject::At_Last_Release() noexcept {
  Coded([&] {
    activation_.Deactivate_In_Place();
    return S_OK;
  });
  const auto control = control_;
  Coded([&] {
    control->UserControl_Terminate();
    return S_OK;
  });
  connection_points_.Disconnect_All();
}

std::shared_ptr<Control> ControlObject::Living() {
  return control_ && !control_->Is_Terminated() ? control_ : nullptr;
}

IUnknown* ControlObject::Interface_Of(REFIID iid) {
  if (IUnknown* const found = Running_Interface(iid)) return found;
  if (IUnknown* const found = Placing_Interface(iid)) return found;
  return Persisting_Interface(iid);
}

// What programs use.
IUnknown* ControlObject::Running_Interface(REFIID iid) {
  if (Is_One_Of(iid, {&IID_IDispatch, &IID__Quillspeech})) return dispatch_.Interface();
  if (Is_One_Of(iid, {&IID_IProvideClassInfo, &IID_IProvideClassInfo2})) {
    return &provide_class_info_;
  }
  if (IsEqualIID(iid, IID_ISupportErrorInfo)) return &support_error_info_;
  if (IsEqualIID(iid, IID_IConnectionPointContainer)) return &connection_points_;
  return nullptr;
}

// What containers use to show it.
IUnknown* ControlObject::Placing_Interface(REFIID iid) {
  if (IsEqualIID(iid, IID_IOleObject)) return &ole_object_;
  if (IsEqualIID(iid, IID_IOleControl)) return &ole_control_;
  if (Is_One_Of(iid, {&IID_IOleWindow, &IID_IOleInPlaceObject})) return &in_place_object_;
  if (IsEqualIID(iid, IID_IOleInPlaceActiveObject)) return &in_place_active_object_;
  if (Is_One_Of(iid, {&IID_IViewObject, &IID_IViewObject2, &IID_IViewObjectEx})) {
    return &view_object_;
  }
  if (IsEqualIID(iid, IID_IDataObject)) return &data_object_;
  if (IsEqualIID(iid, IID_IQuickActivate)) return &quick_activate_;
  if (IsEqualIID(iid, IID_ISpecifyPropertyPages)) return &specify_property_pages_;
  return nullptr;
}

// What containers use to keep it.
IUnknown* ControlObject::Persisting_Interface(REFIID iid) {
  if (Is_One_Of(iid, {&IID_IPersist, &IID_IPersistStream, &IID_IPersistStreamInit})) {
    return &persist_stream_init_;
  }
  if (IsEqualIID(iid, IID_IPersistPropertyBag)) return &persist_property_bag_;
  if (IsEqualIID(iid, IID_IPersistStorage)) return &persist_storage_;
  return nullptr;
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
  if (!picture_.Is_Drawing()) notices_.View_Changed(Whole());
}

void ControlObject::Enabled_Changed(bool enabled) {
  const auto kept = Kept();
  face_->Set_Enabled(enabled);
  notices_.View_Changed(Whole());
}

std::int32_t ControlObject::Window_Handle() const {
  return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(activation_.Window()));
}

void ControlObject::Repaint() {
  const auto kept = Kept();
  if (activation_.Window()) {
    activation_.Repaint();
  } else {
    notices_.View_Changed(Whole());
  }
}

}  // namespace quillspeech::activex
