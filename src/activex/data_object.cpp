#include "activex/data_object.hpp"

// After the system's other headers.
#include <shlobj.h>

#include "activex/errors.hpp"

namespace quillspeech::activex {
namespace {

constexpr FORMATETC Metafile_Format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, Whole_Object,
                                       TYMED_MFPICT};

// Of a sink that wants to hear of changes in any format.
bool Is_Any_Format(const FORMATETC& format) {
  constexpr auto Any = static_cast<DWORD>(-1);
  return format.cfFormat == 0 && format.dwAspect == Any && format.tymed == Any;
}

}  // namespace

HRESULT DataObject::QueryGetData(FORMATETC* format) {
  if (!format) return E_POINTER;
  if (format->cfFormat != Metafile_Format.cfFormat) return DV_E_FORMATETC;
  if (format->dwAspect != Metafile_Format.dwAspect) return DV_E_DVASPECT;
  if (format->lindex != Metafile_Format.lindex) return DV_E_LINDEX;
  return format->tymed & Metafile_Format.tymed ? S_OK : DV_E_TYMED;
}

HRESULT DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (!medium) return E_POINTER;
  *medium = {};
  const HRESULT offered = QueryGetData(format);
  if (FAILED(offered)) return offered;
  return Guarded([&] {
    const ComPtr<IUnknown> whole(&Whole());
    return picture_.Give_Metafile(*medium);
  });
}

HRESULT DataObject::GetCanonicalFormatEtc(FORMATETC* asked, FORMATETC* same) {
  if (!asked || !same) return E_POINTER;
  *same = *asked;
  same->ptd = nullptr;
  return DATA_S_SAMEFORMATETC;
}

HRESULT DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  if (!formats) return E_POINTER;
  *formats = nullptr;
  if (direction != DATADIR_GET) return E_NOTIMPL;
  return SHCreateStdEnumFmtEtc(1, &Metafile_Format, formats);
}

HRESULT DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!format || !sink) return E_INVALIDARG;
  const bool is_any = (flags & ADVF_NODATA) && Is_Any_Format(*format);
  const HRESULT offered = is_any ? S_OK : QueryGetData(format);
  if (FAILED(offered)) return offered;
  ComPtr<IDataAdviseHolder> sinks;
  const HRESULT made = notices_.Data_Sinks(sinks.Receive());
  return FAILED(made) ? made : sinks->Advise(this, format, flags, sink, cookie);
}

HRESULT DataObject::DUnadvise(DWORD cookie) {
  IDataAdviseHolder* const sinks = notices_.Data_Sinks();
  return sinks ? sinks->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT DataObject::EnumDAdvise(IEnumSTATDATA** enumerator) {
  if (!enumerator) return E_POINTER;
  *enumerator = nullptr;
  IDataAdviseHolder* const sinks = notices_.Data_Sinks();
  return sinks ? sinks->EnumAdvise(enumerator) : S_OK;
}

}  // namespace quillspeech::activex
