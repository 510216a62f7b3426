#include "activex/connection_points.hpp"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <vector>

#include "activex/guids.hpp"
#include "tests/activex/simple_object.hpp"
#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using tests::SimpleObject;

struct ConnectionTest : tests::DispatchTest {
  ConnectionTest() { owner.references = 1; }

  IUnknown* Unknown(SimpleObject& sink) { return static_cast<IDispatch*>(&sink); }
  DWORD Advise(SimpleObject& sink) {
    DWORD cookie = 0;
    EXPECT_EQ(owner.points.events.Advise(Unknown(sink), &cookie), S_OK);
    return cookie;
  }
};

TEST_F(ConnectionTest, There_are_two_points_of_which_each_knows_its_interface_and_its_container) {
  for (const IID& iid : {DIID___Quillspeech, IID_IPropertyNotifySink}) {
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(owner.points.FindConnectionPoint(iid, point.Receive()), S_OK);
    IID own = {};
    EXPECT_EQ(point->GetConnectionInterface(&own), S_OK);
    EXPECT_EQ(own, iid);
    ComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.Receive()), S_OK);
    EXPECT_EQ(container.Get(), &owner.points);
  }
  EXPECT_EQ(owner.references, 1u);
}

TEST_F(ConnectionTest, Another_interface_has_no_point) {
  IConnectionPoint* point = &owner.points.events;
  EXPECT_EQ(owner.points.FindConnectionPoint(IID_IDispatch, &point), CONNECT_E_NOCONNECTION);
  EXPECT_EQ(point, nullptr);
  EXPECT_EQ(owner.points.FindConnectionPoint(IID_IDispatch, nullptr), E_POINTER);
}

TEST_F(ConnectionTest, A_point_has_an_identity_of_its_own_and_the_count_of_the_whole) {
  ConnectionPoint& point = owner.points.events;
  ComPtr<IUnknown> unknown;
  ASSERT_EQ(point.QueryInterface(IID_IUnknown, unknown.Receive_Void()), S_OK);
  EXPECT_EQ(unknown.Get(), static_cast<IUnknown*>(&point));
  EXPECT_EQ(owner.references, 2u);
  ComPtr<IDispatch> other;
  EXPECT_EQ(point.QueryInterface(IID_IDispatch, other.Receive_Void()), E_NOINTERFACE);
  EXPECT_EQ(point.QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ConnectionTest, A_sink_is_held_from_its_Advise_to_its_Unadvise) {
  SimpleObject sink;
  const DWORD cookie = Advise(sink);
  EXPECT_NE(cookie, 0u);
  EXPECT_EQ(sink.references, 2);
  EXPECT_EQ(owner.points.events.Unadvise(cookie), S_OK);
  EXPECT_EQ(sink.references, 1);
  EXPECT_EQ(owner.points.events.Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(ConnectionTest, The_same_sink_may_connect_twice_with_two_cookies) {
  SimpleObject sink;
  const DWORD one = Advise(sink);
  const DWORD other = Advise(sink);
  EXPECT_NE(one, other);
  owner.points.events.Unadvise(one);
  EXPECT_EQ(sink.references, 2);
  owner.points.events.Unadvise(other);
  EXPECT_EQ(sink.references, 1);
}

TEST_F(ConnectionTest, A_sink_of_events_answers_to_their_interface_or_to_IDispatch) {
  SimpleObject sink;
  sink.answers_to = DIID___Quillspeech;
  owner.points.events.Unadvise(Advise(sink));
  EXPECT_EQ(sink.references, 1);
}

TEST_F(ConnectionTest, What_is_no_sink_cannot_connect) {
  SimpleObject sink;
  sink.hears_changes = false;
  DWORD cookie = 5;
  EXPECT_EQ(owner.points.property_changes.Advise(Unknown(sink), &cookie), CONNECT_E_CANNOTCONNECT);
  EXPECT_EQ(cookie, 0u);
  EXPECT_EQ(sink.references, 1);
  EXPECT_EQ(owner.points.events.Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(owner.points.events.Advise(Unknown(sink), nullptr), E_POINTER);
  EXPECT_EQ(owner.points.events.GetConnectionInterface(nullptr), E_POINTER);
  EXPECT_EQ(owner.points.events.GetConnectionPointContainer(nullptr), E_POINTER);
  EXPECT_EQ(owner.points.events.EnumConnections(nullptr), E_POINTER);
  EXPECT_EQ(owner.points.EnumConnectionPoints(nullptr), E_POINTER);
}

TEST_F(ConnectionTest, The_end_of_the_control_lets_go_of_all_sinks) {
  SimpleObject sink;
  Advise(sink);
  DWORD cookie = 0;
  owner.points.property_changes.Advise(Unknown(sink), &cookie);
  EXPECT_EQ(sink.references, 3);
  owner.points.Disconnect_All();
  EXPECT_EQ(sink.references, 1);
}

TEST_F(ConnectionTest, A_sink_may_look_at_the_connections_while_it_is_let_go) {
  SimpleObject sink;
  const DWORD cookie = Advise(sink);
  std::optional<HRESULT> again;
  sink.At_Release = [&] {
    if (!again) again = owner.points.events.Unadvise(cookie);
  };
  owner.points.events.Unadvise(cookie);
  EXPECT_EQ(again, CONNECT_E_NOCONNECTION);
  sink.At_Release = nullptr;
}

TEST_F(ConnectionTest, The_points_are_enumerated) {
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(owner.points.EnumConnectionPoints(points.Receive()), S_OK);
  std::array<IConnectionPoint*, 3> found = {};
  ULONG count = 0;
  EXPECT_EQ(points->Next(3, found.data(), &count), S_FALSE);
  ASSERT_EQ(count, 2u);
  EXPECT_EQ(found[0], &owner.points.events);
  EXPECT_EQ(found[1], &owner.points.property_changes);
  for (IConnectionPoint* const point : {found[0], found[1]}) point->Release();
  EXPECT_EQ(points->Next(1, found.data(), nullptr), S_FALSE);
}

TEST_F(ConnectionTest, An_enumerator_keeps_the_object) {
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(owner.points.EnumConnectionPoints(points.Receive()), S_OK);
  EXPECT_GT(owner.references, 1u);
  points = {};
  EXPECT_EQ(owner.references, 1u);
}

TEST_F(ConnectionTest, Connections_are_enumerated_as_they_were_then) {
  SimpleObject one;
  SimpleObject other;
  const DWORD first = Advise(one);
  Advise(other);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(owner.points.events.EnumConnections(connections.Receive()), S_OK);
  owner.points.Disconnect_All();
  CONNECTDATA data = {};
  EXPECT_EQ(connections->Next(1, &data, nullptr), S_OK);
  EXPECT_EQ(data.dwCookie, first);
  EXPECT_EQ(data.pUnk, Unknown(one));
  data.pUnk->Release();
  connections = {};
  EXPECT_EQ(one.references, 1);
  EXPECT_EQ(other.references, 1);
}

TEST_F(ConnectionTest, An_enumerator_skips_begins_again_and_is_cloned_where_it_stands) {
  SimpleObject sink;
  for (int times = 0; times < 3; ++times) Advise(sink);
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(owner.points.events.EnumConnections(connections.Receive()), S_OK);
  EXPECT_EQ(connections->Skip(2), S_OK);
  ComPtr<IEnumConnections> clone;
  ASSERT_EQ(connections->Clone(clone.Receive()), S_OK);
  EXPECT_EQ(connections->Skip(2), S_FALSE);
  CONNECTDATA data = {};
  ASSERT_EQ(clone->Next(1, &data, nullptr), S_OK);
  EXPECT_EQ(data.dwCookie, 3u);
  data.pUnk->Release();
  EXPECT_EQ(clone->Reset(), S_OK);
  EXPECT_EQ(clone->Skip(3), S_OK);
  EXPECT_EQ(connections->Clone(nullptr), E_POINTER);
  EXPECT_EQ(connections->Next(1, nullptr, nullptr), E_POINTER);
  EXPECT_EQ(connections->Next(2, &data, nullptr), E_POINTER);
  EXPECT_EQ(connections->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&data)),
            E_NOINTERFACE);
  owner.points.Disconnect_All();
}

}  // namespace
}  // namespace quillspeech::activex
