#include "activex/quick_activate.hpp"

#include "activex/guids.hpp"

namespace quillspeech::activex {
namespace {

// 0 when the sink cannot be connected, as the handshake has it.
DWORD Connected(ConnectionPoints& points, REFIID iid, IUnknown* sink) {
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  if (!sink || FAILED(points.FindConnectionPoint(iid, point.Receive()))) return 0;
  return SUCCEEDED(point->Advise(sink, &cookie)) ? cookie : 0;
}

}  // namespace

HRESULT QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (!container || !control) return E_POINTER;
  if (container->cbSize < sizeof *container || control->cbSize < sizeof *control) {
    return E_INVALIDARG;
  }
  const ComPtr<IUnknown> whole(&Whole());
  const HRESULT sited = object_.SetClientSite(container->pClientSite);
  if (FAILED(sited)) return sited;
  site_.Set_Flags(container->dwAmbientFlags);
  const ULONG size = control->cbSize;
  *control = {};
  control->cbSize = size;
  if (container->pAdviseSink) view_.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  control->dwPropNotifyCookie =
      Connected(points_, IID_IPropertyNotifySink, container->pPropertyNotifySink);
  control->dwEventCookie = Connected(points_, DIID___Quillspeech, container->pUnkEventSink);
  control->dwMiscStatus = Misc_Status;
  return view_.GetViewStatus(&control->dwViewStatus);
}

}  // namespace quillspeech::activex
