#include "activex/events.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/activex/simple_object.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::SimpleObject;

// A sink that keeps what it hears: the id, and the argument behind a blank.
struct NotingSink {
  explicit NotingSink(ConnectionPoints& to) : points(to) {
    object.At_Invoke = [this](DISPID id, DISPPARAMS* arguments, VARIANT*) {
      std::wstring told = std::to_wstring(id);
      for (UINT index = 0; index < arguments->cArgs; ++index) {
        const VARIANT& argument = arguments->rgvarg[index];
        if (argument.vt == VT_BSTR) told += L" " + std::wstring(argument.bstrVal);
        if (argument.vt == VT_I2) told += L" " + std::to_wstring(argument.iVal);
      }
      heard.push_back(told);
      if (const auto now = At_Event) now();  // which may take itself away
      return answer;
    };
    object.At_Changed = [this](DISPID id) {
      changed.push_back(id);
      return answer;
    };
  }

  ~NotingSink() { points.Disconnect_All(); }

  ConnectionPoints& points;
  SimpleObject object;
  HRESULT answer = S_OK;
  std::function<void()> At_Event;
  std::vector<std::wstring> heard;
  std::vector<DISPID> changed;
};

struct EventsTest : tests::DispatchTest {
  DWORD Connect(NotingSink& sink) {
    DWORD cookie = 0;
    owner.points.events.Advise(static_cast<IDispatch*>(&sink.object), &cookie);
    DWORD other = 0;
    owner.points.property_changes.Advise(static_cast<IDispatch*>(&sink.object), &other);
    return cookie;
  }
  void Send(EventId id) { owner.events.Send({id, {}}); }
};
using Heard = std::vector<std::wstring>;

TEST_F(EventsTest, Every_event_goes_out_with_its_id) {
  NotingSink sink(owner.points);
  Connect(sink);
  Heard expected;
  for (const EventRow& row : Event_Rows()) {
    if (row.kind != EventArgument::None) continue;
    Send(row.id);
    expected.push_back(std::to_wstring(static_cast<int>(row.id)));
  }
  EXPECT_EQ(sink.heard, expected);
  EXPECT_EQ(sink.heard.size(), 6u);
}

TEST_F(EventsTest, Words_travel_as_text_and_the_number_of_words_in_16_bits) {
  NotingSink sink(owner.points);
  Connect(sink);
  owner.events.Send({EventId::SpokenWordConvertedToText, std::string("caf\xE9")});
  owner.events.Send({EventId::SpokenWordConvertedToPatternOnly, std::string("fth*s")});
  owner.events.Send({EventId::SpokenWordDetected, std::int16_t{3}});
  EXPECT_EQ(sink.heard, (Heard{L"5 caf\u00E9", L"6 fth*s", L"7 3"}));
}

TEST_F(EventsTest, Every_sink_hears_and_one_that_fails_does_not_silence_the_others) {
  NotingSink failing(owner.points);
  NotingSink good(owner.points);
  failing.answer = E_FAIL;
  Connect(failing);
  Connect(good);
  Send(EventId::Click);
  Send(EventId::Click);
  EXPECT_EQ(failing.heard.size(), 2u);
  EXPECT_EQ(good.heard.size(), 2u);
}

TEST_F(EventsTest, A_sink_that_disconnects_itself_hears_no_more) {
  NotingSink sink(owner.points);
  const DWORD cookie = Connect(sink);
  sink.At_Event = [&] { EXPECT_EQ(owner.points.events.Unadvise(cookie), S_OK); };
  Send(EventId::Click);
  Send(EventId::Click);
  EXPECT_EQ(sink.heard.size(), 1u);
}

TEST_F(EventsTest, A_sink_that_another_disconnects_is_not_called_any_more) {
  NotingSink one(owner.points);
  NotingSink other(owner.points);
  Connect(one);
  const DWORD cookie = Connect(other);
  one.At_Event = [&] { owner.points.events.Unadvise(cookie); };
  Send(EventId::Click);
  EXPECT_TRUE(other.heard.empty());
}

TEST_F(EventsTest, A_sink_that_connects_another_does_not_disturb_the_event_under_way) {
  NotingSink one(owner.points);
  NotingSink other(owner.points);
  Connect(one);
  one.At_Event = [&] {
    one.At_Event = nullptr;
    Connect(other);
  };
  Send(EventId::Click);
  EXPECT_TRUE(other.heard.empty());
  Send(EventId::Click);
  EXPECT_EQ(other.heard.size(), 1u);
}

TEST_F(EventsTest, The_object_is_kept_while_sinks_are_called) {
  NotingSink sink(owner.points);
  Connect(sink);
  owner.references = 1;
  ULONG during = 0;
  sink.At_Event = [&] { during = owner.references; };
  Send(EventId::Click);
  EXPECT_GT(during, 1u);
  EXPECT_EQ(owner.references, 1u);
}

TEST_F(EventsTest, A_sink_may_spoil_its_argument) {
  SimpleObject spoiler;
  NotingSink good(owner.points);
  spoiler.At_Invoke = [](DISPID, DISPPARAMS* arguments, VARIANT*) {
    return ::VariantClear(&arguments->rgvarg[0]);
  };
  DWORD cookie = 0;
  owner.points.events.Advise(static_cast<IDispatch*>(&spoiler), &cookie);
  Connect(good);
  owner.events.Send({EventId::SpokenWordConvertedToText, std::string("six")});
  EXPECT_EQ(good.heard, Heard{L"5 six"});
}

TEST_F(EventsTest, A_sink_may_call_any_member_from_inside_an_event) {
  NotingSink sink(owner.points);
  Connect(sink);
  sink.At_Event = [&] {
    sink.At_Event = nullptr;
    script.Let(L"Noise_Sensitivity", 8);
    Send(EventId::Click);
  };
  Send(EventId::StartRecognitionActivity);
  EXPECT_EQ(sink.heard, (Heard{L"3", L"1"}));
  EXPECT_EQ(session.settings.Noise_Sensitivity.Raw(), 8);
}

TEST_F(EventsTest, Frozen_events_are_dropped_until_the_last_thaw) {
  NotingSink sink(owner.points);
  Connect(sink);
  owner.events.Freeze(true);
  owner.events.Freeze(true);
  Send(EventId::Click);
  owner.events.Freeze(false);
  Send(EventId::Click);
  EXPECT_TRUE(sink.heard.empty());
  owner.events.Freeze(false);
  EXPECT_TRUE(sink.heard.empty());
  Send(EventId::Click);
  EXPECT_EQ(sink.heard.size(), 1u);
}

TEST_F(EventsTest, A_thaw_too_many_means_nothing) {
  NotingSink sink(owner.points);
  Connect(sink);
  owner.events.Freeze(false);
  owner.events.Freeze(true);
  Send(EventId::Click);
  EXPECT_TRUE(sink.heard.empty());
}

TEST_F(EventsTest, A_change_is_told_by_the_id_of_its_member_also_when_events_are_frozen) {
  NotingSink sink(owner.points);
  Connect(sink);
  owner.events.Freeze(true);
  owner.events.Tell_Changed("Enabled");
  owner.events.Tell_Changed("Speech_sampling_time_in_ms");
  owner.events.Tell_Changed("");
  EXPECT_EQ(sink.changed, (std::vector<DISPID>{-514, 0x68030002, DISPID_UNKNOWN}));
  EXPECT_EQ(sink.object.edits_requested, 0);
}

TEST_F(EventsTest, What_is_being_told_is_not_told_anew_by_a_sink_that_reads_it) {
  NotingSink sink(owner.points);
  Connect(sink);
  sink.object.At_Changed = [&](DISPID id) {
    sink.changed.push_back(id);
    script.Get(L"Platinum_Words");  // which announces itself
    return S_OK;
  };
  host_program.At_Call = [&](std::string_view call) {
    if (call == "Property_Changed") owner.events.Tell_Changed(host_program.changed.back());
  };
  script.Get(L"Platinum_Words");
  EXPECT_EQ(sink.changed, std::vector<DISPID>{0x68030045});
  script.Get(L"Platinum_Words");
  EXPECT_EQ(sink.changed.size(), 2u);
  owner.events.Tell_Changed("Enabled");  // another change is told meanwhile
  EXPECT_EQ(sink.changed, (std::vector<DISPID>{0x68030045, 0x68030045, -514, 0x68030045}));
}

TEST_F(EventsTest, What_one_sink_changes_anew_is_told_to_all_once_more) {
  NotingSink first(owner.points);
  NotingSink second(owner.points);
  Connect(first);
  Connect(second);
  host_program.At_Call = [&](std::string_view call) {
    if (call == "Property_Changed") owner.events.Tell_Changed(host_program.changed.back());
  };
  std::vector<std::wstring> seen;  // by the first, which hears before the second acts
  first.object.At_Changed = [&](DISPID) {
    seen.push_back(std::to_wstring(session.settings.Noise_Sensitivity.Raw()));
    return S_OK;
  };
  second.object.At_Changed = [&](DISPID id) {
    second.changed.push_back(id);
    if (second.changed.size() == 1) script.Let(L"Noise_Sensitivity", 7);
    return S_OK;
  };
  script.Let(L"Noise_Sensitivity", 5);
  EXPECT_EQ(seen, (std::vector<std::wstring>{L"5", L"7"}));
  EXPECT_EQ(second.changed, (std::vector<DISPID>{0x6803003D, 0x6803003D}));
}

TEST_F(EventsTest, A_sink_that_answers_each_change_by_another_is_told_ten_times) {
  NotingSink sink(owner.points);
  Connect(sink);
  sink.object.At_Changed = [&](DISPID id) {
    sink.changed.push_back(id);
    owner.events.Tell_Changed("Noise_Sensitivity");
    return S_OK;
  };
  owner.events.Tell_Changed("Noise_Sensitivity");
  EXPECT_EQ(sink.changed.size(), 10u);
  owner.events.Tell_Changed("Noise_Sensitivity");
  EXPECT_EQ(sink.changed.size(), 20u);
}

TEST_F(EventsTest, Two_changes_that_sinks_answer_by_one_another_come_to_an_end) {
  NotingSink sink(owner.points);
  Connect(sink);
  sink.object.At_Changed = [&](DISPID id) {
    sink.changed.push_back(id);
    owner.events.Tell_Changed(id == -514 ? "Noise_Sensitivity" : "Enabled");
    return S_OK;
  };
  owner.events.Tell_Changed("Enabled");
  EXPECT_LE(sink.changed.size(), 110u);
}

}  // namespace
}  // namespace quillspeech::activex
