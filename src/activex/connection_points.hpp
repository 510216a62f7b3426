// IConnectionPointContainer: the points at which sinks connect, for the events __Quillspeech and
// for IPropertyNotifySink.
#pragma once

#include <vector>

#include "activex/com.hpp"

namespace quillspeech::activex {

// One of them. It has an identity of its own, and the count of the whole.
class ConnectionPoint final : public IConnectionPoint {
 public:
  struct Connection {
    DWORD cookie;
    ComPtr<IUnknown> sink;  // asked for the interface of the point already
  };

  ConnectionPoint(IUnknown& whole, IConnectionPointContainer& container, REFIID iid);
  ConnectionPoint(const ConnectionPoint&) = delete;
  ConnectionPoint& operator=(const ConnectionPoint&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return whole_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return whole_.Release(); }

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* iid) override;
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** to) override;
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** enumerator) override;

  // Calls each sink that is connected now. A sink may disconnect itself and others, whom no call
  // reaches any more, and let go of the whole.
  template <class Sink, class Action>
  void For_Each_Sink(Action&& action) {
    const ComPtr<IUnknown> whole(&whole_);
    for (const Connection& connection : std::vector(connections_)) {
      if (Is_Connected(connection.cookie)) action(*static_cast<Sink*>(connection.sink.Get()));
    }
  }
  void Disconnect_All();

 private:
  bool Is_Connected(DWORD cookie) const;

  IUnknown& whole_;
  IConnectionPointContainer& container_;
  const IID iid_;
  std::vector<Connection> connections_;
  DWORD next_cookie_ = 1;
};

class ConnectionPoints final : public PartOf<IConnectionPointContainer> {
 public:
  explicit ConnectionPoints(IUnknown& whole);

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** enumerator) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

  // Lets go of all sinks, for the end of the control.
  void Disconnect_All();

  ConnectionPoint events;            // DIID___Quillspeech; the sinks are IDispatch
  ConnectionPoint property_changes;  // IPropertyNotifySink
};

}  // namespace quillspeech::activex
