// The COM object that a container holds: one control, and the interfaces to it.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "activex/activation.hpp"
#include "activex/aggregated_object.hpp"
#include "activex/change_notices.hpp"
#include "activex/connection_points.hpp"
#include "activex/control_access.hpp"
#include "activex/control_record.hpp"
#include "activex/control_site.hpp"
#include "activex/data_object.hpp"
#include "activex/dispatch.hpp"
#include "activex/events.hpp"
#include "activex/face_picture.hpp"
#include "activex/module.hpp"
#include "activex/ole_control.hpp"
#include "activex/ole_in_place_active_object.hpp"
#include "activex/ole_in_place_object.hpp"
#include "activex/ole_object.hpp"
#include "activex/persist_property_bag.hpp"
#include "activex/persist_storage.hpp"
#include "activex/persist_stream_init.hpp"
#include "activex/provide_class_info.hpp"
#include "activex/quick_activate.hpp"
#include "activex/shown_mode.hpp"
#include "activex/specify_property_pages.hpp"
#include "activex/support_error_info.hpp"
#include "activex/view_object.hpp"
#include "core/control.hpp"

namespace quillspeech::activex {

// Makes a control for a class factory, on a thread that may have one.
HRESULT Make_Control(IUnknown* outer, REFIID iid, void** object);

// Ends its control with the last reference, wherever that goes: in an event, in a wait, in a call
// of the container's.
class ControlObject final : public AggregatedObject, private ControlAccess, private Container {
 public:
  ControlObject(IUnknown* outer, Session& session);
  ~ControlObject() override;

  // Whether a control has the interface of that id, beside IUnknown.
  static bool Has(REFIID iid);

 private:
  struct InterfaceRow;
  static std::span<const InterfaceRow> Interface_Rows();

  // AggregatedObject
  IUnknown* Interface_Of(REFIID iid) override;
  void At_Last_Release() noexcept override;

  // ControlAccess
  std::shared_ptr<Control> Living() override;

  // Container
  bool User_Mode() const override;
  void Raise(const ControlEvent& event) override;
  void Property_Changed(std::string_view name) override;
  void Face_Changed(const Face& face) override;
  void Enabled_Changed(bool enabled) override;
  std::int32_t Window_Handle() const override;
  void Repaint() override;

  const CountedControl counted_;
  std::shared_ptr<Control> control_;
  std::unique_ptr<Form> face_;

  // What the interfaces share.
  ControlSite site_;
  ShownMode shown_;
  ChangeNotices notices_;
  ControlRecord record_;
  FacePicture picture_;
  Activation activation_;

  // The interfaces.
  ConnectionPoints connection_points_;
  EventSender events_;
  Dispatch dispatch_;
  ProvideClassInfo provide_class_info_;
  SupportErrorInfo support_error_info_;
  OleObject ole_object_;
  OleControl ole_control_;
  OleInPlaceObject in_place_object_;
  OleInPlaceActiveObject in_place_active_object_;
  ViewObject view_object_;
  DataObject data_object_;
  PersistStreamInit persist_stream_init_;
  PersistPropertyBag persist_property_bag_;
  PersistStorage persist_storage_;
  QuickActivation quick_activate_;
  SpecifyPropertyPages specify_property_pages_;
};

}  // namespace quillspeech::activex
