// IViewObjectEx, IViewObject2 and IViewObject: the control drawn where it has no window.
#pragma once

#include "activex/change_notices.hpp"
#include "activex/com.hpp"
#include "activex/face_picture.hpp"

namespace quillspeech::activex {

// It has the one aspect DVASPECT_CONTENT (else DV_E_DVASPECT), which is opaque and of one size. A
// view cannot be frozen, and has no palette of its own.
class ViewObject final : public PartOf<IViewObjectEx> {
 public:
  ViewObject(IUnknown& whole, FacePicture& picture, ChangeNotices& notices)
      : PartOf(whole), picture_(picture), notices_(notices) {}

  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE*, HDC, HDC device,
                                 LPCRECTL bounds, LPCRECTL, WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                                 ULONG_PTR) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC,
                                        LOGPALETTE** colours) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
  // A sink that wants to hear of more aspects hears of this one.
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;

  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*,
                                      LPSIZEL extent) override;

  HRESULT STDMETHODCALLTYPE GetRect(DWORD aspect, LPRECTL rectangle) override;
  HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* status) override;
  HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG near_to,
                                          DWORD* hit) override;
  HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle,
                                         LONG near_to, DWORD* hit) override;
  HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, HDC,
                                             DVEXTENTINFO*, LPSIZEL extent) override;

 private:
  FacePicture& picture_;
  ChangeNotices& notices_;
};

}  // namespace quillspeech::activex
