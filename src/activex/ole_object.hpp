// IOleObject: the control as its container handles it.
#pragma once

#include "activex/activation.hpp"
#include "activex/change_notices.hpp"
#include "activex/com.hpp"
#include "activex/control_record.hpp"
#include "activex/control_site.hpp"

namespace quillspeech::activex {

// What a container is to know before it places the control: it draws itself anew at each size,
// cannot be linked to, is active inside out and as soon as it shows, and wants its site first.
constexpr DWORD Misc_Status = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                              OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                              OLEMISC_SETCLIENTSITEFIRST;
// The verb that shows the property pages, beside OLEIVERB_PROPERTIES; as does the primary verb
// where the control is designed and not used.
constexpr LONG Verb_Properties = 1;

// Monikers, initialisation from data, the clipboard and colour schemes are not supported
// (E_NOTIMPL).
class OleObject final : public PartOf<IOleObject> {
 public:
  OleObject(IUnknown& whole, ControlSite& site, Activation& activation, ChangeNotices& notices,
            ControlRecord& record);

  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Close(DWORD save) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index,
                                   HWND parent, LPCRECT position) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override { return Give_Class(id); }
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) override;
  // The size is fixed: any other than its own is E_FAIL.
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** enumerator) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

 private:
  HRESULT Do_Primary_Verb(MSG* message, IOleClientSite* site, HWND parent, LPCRECT position);
  HRESULT Show_Properties(HWND parent, LPCRECT position);

  ControlSite& site_;
  Activation& activation_;
  ChangeNotices& notices_;
  ControlRecord& record_;
};

}  // namespace quillspeech::activex
