// The calls that go out to the sinks of a control.
#pragma once

#include <string_view>
#include <vector>

#include "activex/connection_points.hpp"
#include "core/control_events.hpp"

namespace quillspeech::activex {

class EventSender {
 public:
  explicit EventSender(ConnectionPoints& points) : points_(points) {}

  // To every sink, arguments by value. A sink that fails is left to itself. Events of a time in
  // which the container has frozen them are dropped: what they tell of can be read from the result
  // members, now and afterwards.
  void Send(const ControlEvent& event);
  // IOleControl::FreezeEvents: as many thaws as freezes let them flow again.
  void Freeze(bool freeze);

  // IPropertyNotifySink::OnChanged with the id of the member of that name, DISPID_UNKNOWN for the
  // empty name; frozen or not. No member asks before it changes (OnRequestEdit). What a sink
  // changes anew while it is being told is told to all once more, when they have heard of it, and
  // so on for Most_Rounds rounds; but what a get announces that a sink makes in there is nothing
  // new.
  void Tell_Changed(std::string_view name);
  static constexpr int Most_Rounds = 10;  // a sink might answer each change by another one

 private:
  struct Round {
    DISPID id;
    bool has_changed;
  };
  class Telling;

  ConnectionPoints& points_;
  int freezes_ = 0;
  std::vector<Round> rounds_;  // of the changes that are being told
};

}  // namespace quillspeech::activex
