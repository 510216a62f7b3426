#include "activex/view_object.hpp"

#include "activex/control_extent.hpp"
#include "activex/errors.hpp"

namespace quillspeech::activex {
namespace {

HRESULT Check_View(DWORD aspect, LONG index) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return index == Whole_Object ? S_OK : DV_E_LINDEX;
}

}  // namespace

HRESULT ViewObject::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC device,
                         LPCRECTL bounds, LPCRECTL, WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                         ULONG_PTR) {
  const HRESULT view = Check_View(aspect, index);
  if (FAILED(view)) return view;
  if (!device || !bounds) return E_INVALIDARG;
  return Guarded([&] {
    const ComPtr<IUnknown> whole(&Whole());
    picture_.Draw(device, {bounds->left, bounds->top, bounds->right, bounds->bottom});
    return S_OK;
  });
}

HRESULT ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) {
  if (!colours) return E_POINTER;
  *colours = nullptr;
  return S_FALSE;
}

HRESULT ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if (sink && !(aspects & DVASPECT_CONTENT)) return DV_E_DVASPECT;
  const ComPtr<IUnknown> whole(&Whole());
  notices_.Set_View_Sink(aspects, flags, sink);
  if (flags & ADVF_PRIMEFIRST) notices_.Tell_View_Sink();
  return S_OK;
}

HRESULT ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  return notices_.View_Sink(aspects, flags, sink);
}

HRESULT ViewObject::GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, LPSIZEL extent) {
  if (!extent) return E_POINTER;
  const HRESULT view = Check_View(aspect, index);
  if (SUCCEEDED(view)) *extent = Own_Extent();
  return view;
}

HRESULT ViewObject::GetRect(DWORD aspect, LPRECTL rectangle) {
  if (!rectangle) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  const SIZEL extent = Own_Extent();
  *rectangle = {0, 0, extent.cx, extent.cy};
  return S_OK;
}

HRESULT ViewObject::GetViewStatus(DWORD* status) {
  if (!status) return E_POINTER;
  *status = VIEWSTATUS_OPAQUE;
  return S_OK;
}

HRESULT ViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* hit) {
  if (!bounds || !hit) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *hit = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

HRESULT ViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG,
                                 DWORD* hit) {
  if (!bounds || !rectangle || !hit) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  RECT both = {};
  *hit = IntersectRect(&both, bounds, rectangle) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

HRESULT ViewObject::GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, HDC,
                                     DVEXTENTINFO*, LPSIZEL extent) {
  return GetExtent(aspect, index, device, extent);
}

}  // namespace quillspeech::activex
