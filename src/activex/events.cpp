#include "activex/events.hpp"

#include <algorithm>
#include <utility>

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

// The result members whose gets announce them, Voice_Word without a name. Nothing else does.
bool Is_Told_By_Gets(std::string_view name) { return name.empty() || name == "Platinum_Words"; }

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

class EventSender::Telling {
 public:
  Telling(std::vector<Round>& rounds, DISPID id) : rounds_(rounds) {
    rounds_.push_back({id, true});
  }
  ~Telling() { rounds_.pop_back(); }
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

  // Whether there is something to tell that was not told.
  bool Has_Changed() { return std::exchange(rounds_.back().has_changed, false); }

 private:
  std::vector<Round>& rounds_;  // this one's is the last whenever it is asked
};

void EventSender::Tell_Changed(std::string_view name) {
  const DISPID id = Id_Of_Member(name);
  const auto under_way = std::ranges::find(rounds_, id, &Round::id);
  if (under_way != rounds_.end()) {
    if (!Is_Told_By_Gets(name)) under_way->has_changed = true;
    return;
  }
  Telling telling(rounds_, id);
  for (int left = Most_Rounds; left > 0 && telling.Has_Changed(); --left) {
    points_.property_changes.For_Each_Sink<IPropertyNotifySink>(
        [&](IPropertyNotifySink& sink) { sink.OnChanged(id); });
  }
}

}  // namespace quillspeech::activex
