#include "activex/events.hpp"

#include <algorithm>

#include "activex/member_ids.hpp"
#include "activex/variants.hpp"

namespace quillspeech::activex {
namespace {

MemberValue Argument_Of(const ControlEvent& event) {
  if (const auto* text = std::get_if<std::string>(&event.argument)) return *text;
  if (const auto* number = std::get_if<std::int16_t>(&event.argument)) return *number;
  return {};
}

void Call_Handler(IDispatch& sink, const ControlEvent& event) {
  VARIANT argument;
  ::VariantInit(&argument);
  Give_Value(Argument_Of(event), argument);
  DISPPARAMS arguments{&argument, nullptr, argument.vt == VT_EMPTY ? 0u : 1u, 0};
  sink.Invoke(static_cast<DISPID>(event.id), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
              &arguments, nullptr, nullptr, nullptr);
  ::VariantClear(&argument);
}

class Telling {
 public:
  Telling(std::vector<DISPID>& being_told, DISPID id) : being_told_(being_told) {
    being_told_.push_back(id);
  }
  ~Telling() { being_told_.pop_back(); }
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

 private:
  std::vector<DISPID>& being_told_;
};

}  // namespace

// Each sink gets an argument of its own, which it may spoil.
void EventSender::Send(const ControlEvent& event) {
  if (freezes_ > 0) return;
  points_.events.For_Each_Sink<IDispatch>([&](IDispatch& sink) { Call_Handler(sink, event); });
}

void EventSender::Freeze(bool freeze) {
  if (freeze) {
    ++freezes_;
  } else if (freezes_ > 0) {
    --freezes_;
  }
}

void EventSender::Tell_Changed(std::string_view name) {
  const DISPID id = Id_Of_Member(name);
  if (std::ranges::find(being_told_, id) != being_told_.end()) return;
  const Telling telling(being_told_, id);
  points_.property_changes.For_Each_Sink<IPropertyNotifySink>(
      [&](IPropertyNotifySink& sink) { sink.OnChanged(id); });
}

}  // namespace quillspeech::activex
