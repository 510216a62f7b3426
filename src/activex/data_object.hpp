// IDataObject: the control's picture as a metafile, which is what containers keep of it.
#pragma once

#include "activex/change_notices.hpp"
#include "activex/com.hpp"
#include "activex/face_picture.hpp"

namespace quillspeech::activex {

// CF_METAFILEPICT in a TYMED_MFPICT of DVASPECT_CONTENT, and nothing else; nothing can be set.
class DataObject final : public PartOf<IDataObject> {
 public:
  DataObject(IUnknown& whole, FacePicture& picture, ChangeNotices& notices)
      : PartOf(whole), picture_(picture), notices_(notices) {}

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return DV_E_FORMATETC; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* asked, FORMATETC* same) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  // Also for any format, by a sink that wants no data.
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink,
                                    DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** enumerator) override;

 private:
  FacePicture& picture_;
  ChangeNotices& notices_;
};

}  // namespace quillspeech::activex
