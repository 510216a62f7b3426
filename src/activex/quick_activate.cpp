#include "activex/quick_activate.hpp"

#include "activex/guids.hpp"
#include "activex/ole_object.hpp"

namespace quillspeech::activex {
namespace {

// 0 when the sink cannot be connected, as the handshake has it.
DWORD Connected(const ComPtr<IUnknown>& control, REFIID iid, IUnknown* sink) {
  const auto points = control.As<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  if (!sink || !points || FAILED(points->FindConnectionPoint(iid, point.Receive()))) return 0;
  return SUCCEEDED(point->Advise(sink, &cookie)) ? cookie : 0;
}

}  // namespace

HRESULT QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (!container || !control) return E_POINTER;
  if (container->cbSize < sizeof *container || control->cbSize < sizeof *control) {
    return E_INVALIDARG;
  }
  const ComPtr<IUnknown> whole(&Whole());
  const auto object = whole.As<IOleObject>();
  const auto view = whole.As<IViewObjectEx>();
  const HRESULT sited = object->SetClientSite(container->pClientSite);
  if (FAILED(sited)) return sited;
  const ULONG size = control->cbSize;
  *control = {};
  control->cbSize = size;
  if (container->pAdviseSink) view->SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
  control->dwPropNotifyCookie =
      Connected(whole, IID_IPropertyNotifySink, container->pPropertyNotifySink);
  control->dwEventCookie = Connected(whole, DIID___Quillspeech, container->pUnkEventSink);
  control->dwMiscStatus = Misc_Status;
  return view->GetViewStatus(&control->dwViewStatus);
}

HRESULT QuickActivation::SetContentExtent(LPSIZEL extent) {
  return ComPtr<IUnknown>(&Whole()).As<IOleObject>()->SetExtent(DVASPECT_CONTENT, extent);
}

HRESULT QuickActivation::GetContentExtent(LPSIZEL extent) {
  return ComPtr<IUnknown>(&Whole()).As<IOleObject>()->GetExtent(DVASPECT_CONTENT, extent);
}

}  // namespace quillspeech::activex
