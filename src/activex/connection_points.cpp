#include "activex/connection_points.hpp"

#include <algorithm>

#include "activex/enumerator.hpp"
#include "activex/errors.hpp"
#include "activex/guids.hpp"

namespace quillspeech::activex {

ConnectionPoint::ConnectionPoint(IUnknown& whole, IConnectionPointContainer& container, REFIID iid)
    : whole_(whole), container_(container), iid_(iid) {}

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (iid != IID_IUnknown && iid != IID_IConnectionPoint) return E_NOINTERFACE;
  AddRef();
  *object = static_cast<IConnectionPoint*>(this);
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* iid) {
  if (!iid) return E_POINTER;
  *iid = iid_;
  return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** to) {
  return ComPtr<IConnectionPointContainer>(&container_).Give(to);
}

// A sink of events may know them by IDispatch alone.
HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
  if (cookie) *cookie = 0;
  if (!sink || !cookie) return E_POINTER;
  return Guarded([&] {
    const ComPtr<IUnknown> given(sink);
    auto connected = given.As<IUnknown>(iid_);
    if (!connected && iid_ == DIID___Quillspeech) connected = given.As<IUnknown>(IID_IDispatch);
    if (!connected) return CONNECT_E_CANNOTCONNECT;
    connections_.push_back({next_cookie_, connected});
    *cookie = next_cookie_++;
    return S_OK;
  });
}

// The sink is let go of when it is out of the list already: it may call back.
HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
  const auto found = std::ranges::find(connections_, cookie, &Connection::cookie);
  if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
  const Connection removed = std::move(*found);
  connections_.erase(found);
  return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** enumerator) {
  return Guarded([&] {
    std::vector<CONNECTDATA> items;
    for (const Connection& connection : connections_) {
      items.push_back({connection.sink.Get(), connection.cookie});
    }
    return Enumerate<IEnumConnections>(std::move(items), enumerator);
  });
}

void ConnectionPoint::Disconnect_All() { const auto removed = std::exchange(connections_, {}); }

bool ConnectionPoint::Is_Connected(DWORD cookie) const {
  return std::ranges::find(connections_, cookie, &Connection::cookie) != connections_.end();
}

ConnectionPoints::ConnectionPoints(IUnknown& whole)
    : PartOf(whole),
      events(whole, *this, DIID___Quillspeech),
      property_changes(whole, *this, IID_IPropertyNotifySink) {}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** enumerator) {
  return Guarded([&] {
    std::vector<IConnectionPoint*> items = {&events, &property_changes};
    return Enumerate<IEnumConnectionPoints>(std::move(items), enumerator);
  });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  for (ConnectionPoint* const found : {&events, &property_changes}) {
    IID own;
    found->GetConnectionInterface(&own);
    if (own == iid) return ComPtr<IConnectionPoint>(found).Give(point);
  }
  return CONNECT_E_NOCONNECTION;
}

void ConnectionPoints::Disconnect_All() {
  events.Disconnect_All();
  property_changes.Disconnect_All();
}

}  // namespace quillspeech::activex
