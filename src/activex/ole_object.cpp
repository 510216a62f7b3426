#include "activex/ole_object.hpp"

#include <cwchar>
#include <string>

#include "activex/control_extent.hpp"
#include "activex/errors.hpp"
#include "activex/guids.hpp"

namespace quillspeech::activex {
namespace {

constexpr wchar_t User_Type[] = L"Quillspeech";

HRESULT Give_User_Type(LPOLESTR* name) {
  *name = static_cast<LPOLESTR>(CoTaskMemAlloc(sizeof User_Type));
  if (!*name) return E_OUTOFMEMORY;
  std::wmemcpy(*name, User_Type, sizeof User_Type / sizeof *User_Type);
  return S_OK;
}

template <class Interface>
HRESULT Give_Nothing(Interface** to, HRESULT why) {
  if (!to) return E_POINTER;
  *to = nullptr;
  return why;
}

}  // namespace

OleObject::OleObject(IUnknown& whole, ControlSite& site, Activation& activation,
                     ChangeNotices& notices, ControlRecord& record)
    : PartOf(whole), site_(site), activation_(activation), notices_(notices), record_(record) {}

HRESULT OleObject::SetClientSite(IOleClientSite* site) {
  return Guarded([&] {
    const ComPtr<IUnknown> whole(&Whole());
    const ComPtr<IOleClientSite> next(site);
    if (site_ && site != site_.Get().Get()) activation_.Deactivate_In_Place();
    site_.Set(site);
    if (site) activation_.Follow_Ambients();
    return S_OK;
  });
}

HRESULT OleObject::GetClientSite(IOleClientSite** site) { return site_.Get().Give(site); }

// One that is to ask first saves as well: what there is to see is the container's.
HRESULT OleObject::Close(DWORD save) {
  return Guarded([&]() -> HRESULT {
    const ComPtr<IUnknown> whole(&Whole());
    activation_.Deactivate_In_Place();
    const auto site = site_.Get();
    const bool saves = save != OLECLOSE_NOSAVE && record_.Is_Dirty() && site;
    const HRESULT saved = saves ? site->SaveObject() : S_OK;
    notices_.Closed();  // also where the save has failed
    return FAILED(saved) ? saved : S_OK;
  });
}

HRESULT OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  return Give_Nothing(moniker, E_NOTIMPL);
}

HRESULT OleObject::GetClipboardData(DWORD, IDataObject** data) {
  return Give_Nothing(data, E_NOTIMPL);
}

HRESULT OleObject::DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG, HWND parent,
                          LPCRECT position) {
  return Guarded([&]() -> HRESULT {
    const ComPtr<IUnknown> whole(&Whole());
    switch (verb) {
      case OLEIVERB_PRIMARY:
        return Do_Primary_Verb(message, site, parent, position);
      case OLEIVERB_SHOW:
      case OLEIVERB_OPEN:  // it has no window apart
      case OLEIVERB_INPLACEACTIVATE:
        return activation_.Activate_In_Place(site);
      case OLEIVERB_UIACTIVATE:
        return activation_.Activate_UI(site, message);
      case OLEIVERB_HIDE:
        return activation_.Hide();
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      case OLEIVERB_PROPERTIES:
      case Verb_Properties:
        return Show_Properties(parent, position);
      default:
        break;
    }
    if (verb < 0) return E_NOTIMPL;
    const HRESULT done = Do_Primary_Verb(message, site, parent, position);
    return FAILED(done) ? done : OLEOBJ_S_INVALIDVERB;
  });
}

HRESULT OleObject::Do_Primary_Verb(MSG* message, IOleClientSite* site, HWND parent,
                                   LPCRECT position) {
  return site_.User_Mode() ? activation_.Activate_UI(site, message)
                           : Show_Properties(parent, position);
}

// The container's own frame comes first.
HRESULT OleObject::Show_Properties(HWND parent, LPCRECT position) {
  const auto control_site = site_.As<IOleControlSite>();
  if (control_site && control_site->ShowPropertyFrame() == S_OK) return S_OK;
  const ComPtr<IUnknown> whole(&Whole());
  const auto specify = whole.As<ISpecifyPropertyPages>();
  CAUUID pages = {};
  const HRESULT specified = specify ? specify->GetPages(&pages) : E_NOINTERFACE;
  if (FAILED(specified)) return specified;
  IUnknown* object = whole.Get();
  const std::wstring name = site_.Display_Name();
  const UINT left = position ? static_cast<UINT>(position->left) : 0;
  const UINT top = position ? static_cast<UINT>(position->top) : 0;
  const HRESULT shown = OleCreatePropertyFrame(
      parent ? parent : activation_.Window(), left, top, name.empty() ? User_Type : name.c_str(), 1,
      &object, pages.cElems, pages.pElems, LOCALE_USER_DEFAULT, 0, nullptr);
  CoTaskMemFree(pages.pElems);
  return shown;
}

HRESULT OleObject::EnumVerbs(IEnumOLEVERB** verbs) { return Give_Nothing(verbs, OLE_S_USEREG); }

HRESULT OleObject::GetUserType(DWORD form, LPOLESTR* name) {
  if (!name) return E_POINTER;
  *name = nullptr;
  const HRESULT registered = OleRegGetUserType(CLSID_Quillspeech, form, name);
  return SUCCEEDED(registered) && *name ? S_OK : Give_User_Type(name);
}

HRESULT OleObject::SetExtent(DWORD aspect, SIZEL* extent) {
  if (!extent) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return Is_Own_Extent(*extent) ? S_OK : E_FAIL;
}

HRESULT OleObject::GetExtent(DWORD aspect, SIZEL* extent) {
  if (!extent) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *extent = Own_Extent();
  return S_OK;
}

HRESULT OleObject::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (!cookie) return E_POINTER;
  *cookie = 0;
  if (!sink) return E_INVALIDARG;
  ComPtr<IOleAdviseHolder> sinks;
  const HRESULT made = notices_.Object_Sinks(sinks.Receive());
  return FAILED(made) ? made : sinks->Advise(sink, cookie);
}

HRESULT OleObject::Unadvise(DWORD cookie) {
  IOleAdviseHolder* const sinks = notices_.Object_Sinks();
  return sinks ? sinks->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

HRESULT OleObject::EnumAdvise(IEnumSTATDATA** enumerator) {
  if (!enumerator) return E_POINTER;
  IOleAdviseHolder* const sinks = notices_.Object_Sinks();
  return sinks ? sinks->EnumAdvise(enumerator) : Give_Nothing(enumerator, S_OK);
}

HRESULT OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (!status) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? Misc_Status : 0;
  return S_OK;
}

}  // namespace quillspeech::activex
