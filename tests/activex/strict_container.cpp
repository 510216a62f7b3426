#include "tests/activex/strict_container.hpp"

#include <memory>
#include <utility>

namespace quillspeech::activex::tests {

class StrictFrame final : public IOleInPlaceFrame {
 public:
  explicit StrictFrame(StrictContainer& container) : container_(container) {}
  ~StrictFrame() { EXPECT_EQ(references_, 0u) << "somebody holds the frame"; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool is_own = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IOleInPlaceFrame) ||
                        IsEqualIID(iid, IID_IOleInPlaceUIWindow) || IsEqualIID(iid, IID_IOleWindow);
    *object = is_own ? this : nullptr;
    if (is_own) AddRef();
    return is_own ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
    *window = container_.window;
    return container_.Called("Frame.GetWindow");
  }
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override {
    return container_.Called("Frame.ContextSensitiveHelp");
  }
  HRESULT STDMETHODCALLTYPE GetBorder(RECT*) override {
    return container_.Called("Frame.GetBorder", INPLACE_E_NOTOOLSPACE);
  }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return container_.Called("Frame.RequestBorderSpace", INPLACE_E_NOTOOLSPACE);
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) override {
    return container_.Called(widths ? "Frame.SetBorderSpace" : "Frame.SetBorderSpace none");
  }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
    return container_.Called(object ? "Frame.SetActiveObject" : "Frame.SetActiveObject none");
  }
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override {
    return container_.Called("Frame.InsertMenus", E_NOTIMPL);
  }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override {
    return container_.Called("Frame.SetMenu");
  }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override {
    return container_.Called("Frame.RemoveMenus", E_NOTIMPL);
  }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override {
    return container_.Called("Frame.SetStatusText");
  }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL on) override {
    return container_.Called(on ? "Frame.EnableModeless" : "Frame.EnableModeless none");
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) override {
    return container_.Called("Frame.TranslateAccelerator", S_FALSE);
  }

 private:
  StrictContainer& container_;
  ULONG references_ = 0;
};

namespace {

// One for all tests: the system takes two seconds over the end of a window on a screen without a
// window manager.
HWND Standing_Window() {
  static HWND window = nullptr;
  if (!IsWindow(window)) {
    window = CreateWindowExW(0, L"STATIC", L"Container", WS_POPUP | WS_VISIBLE, 50, 50, 660, 520,
                             nullptr, nullptr, nullptr, nullptr);
  }
  return window;
}

}  // namespace

StrictContainer::StrictContainer()
    : window(Standing_Window()), frame_(std::make_unique<StrictFrame>(*this)) {
  SetForegroundWindow(window);
  SetFocus(window);
}

StrictContainer::~StrictContainer() {
  Done();
  EXPECT_EQ(references_, 0u) << "somebody holds the container";
}

void StrictContainer::Expect(std::initializer_list<const char*> calls) {
  expected_.insert(expected_.end(), calls.begin(), calls.end());
}

void StrictContainer::Expect_Activation() {
  Expect(
      {"CanInPlaceActivate", "OnInPlaceActivate", "GetWindow", "GetWindowContext", "ShowObject"});
}

void StrictContainer::Expect_UI_Activation() {
  Expect({"OnUIActivate", "Frame.SetActiveObject", "Frame.SetBorderSpace none"});
}

void StrictContainer::Expect_UI_Deactivation() {
  Expect({"Frame.SetActiveObject none", "OnUIDeactivate"});
}

void StrictContainer::Done() {
  for (const std::string& call : expected_) ADD_FAILURE() << call << " was expected and never came";
  expected_.clear();
}

HRESULT StrictContainer::Called(const std::string& call, HRESULT answer) {
  if (expected_.empty() || expected_.front() != call) {
    ADD_FAILURE() << call << " was not expected, but "
                  << (expected_.empty() ? "nothing" : expected_.front());
  } else {
    expected_.pop_front();
  }
  if (const auto action = actions_.find(call); action != actions_.end()) {
    const auto now = action->second;
    actions_.erase(action);
    now();
  }
  const auto refusal = refusals_.find(call);
  return refusal == refusals_.end() ? answer : refusal->second;
}

HRESULT StrictContainer::QueryInterface(REFIID iid, void** object) {
  IUnknown* found = nullptr;
  if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IOleClientSite)) {
    found = static_cast<IOleClientSite*>(this);
  } else if (is_in_place_site &&
             (IsEqualIID(iid, IID_IOleInPlaceSite) || IsEqualIID(iid, IID_IOleWindow))) {
    found = static_cast<IOleInPlaceSite*>(this);
  } else if (is_control_site && IsEqualIID(iid, IID_IOleControlSite)) {
    found = static_cast<IOleControlSite*>(this);
  } else if (has_ambients && IsEqualIID(iid, IID_IDispatch)) {
    found = static_cast<IDispatch*>(this);
  } else if (IsEqualIID(iid, IID_IAdviseSink)) {
    found = static_cast<IAdviseSink*>(this);
  } else if (IsEqualIID(iid, IID_IPropertyNotifySink)) {
    found = static_cast<IPropertyNotifySink*>(this);
  }
  *object = found;
  if (!found) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

HRESULT StrictContainer::GetWindow(HWND* to) {
  *to = parent;
  return Called("GetWindow");
}

HRESULT StrictContainer::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                          RECT* position_out, RECT* clip_out,
                                          OLEINPLACEFRAMEINFO* information) {
  EXPECT_EQ(information->cb, sizeof *information);
  *frame = frame_.get();
  frame_->AddRef();
  *document = nullptr;
  *position_out = position;
  *clip_out = clip;
  information->fMDIApp = FALSE;
  information->hwndFrame = window;
  information->haccel = nullptr;
  information->cAccelEntries = 0;
  return Called("GetWindowContext");
}

HRESULT StrictContainer::OnPosRectChange(LPCRECT asked) {
  asked_position = *asked;
  return Called("OnPosRectChange");
}

HRESULT StrictContainer::TranslateAccelerator(MSG* message, DWORD) {
  key = *message;
  return Called("TranslateAccelerator");
}

HRESULT StrictContainer::OnChanged(DISPID id) {
  changed = id;
  return Called("OnChanged");
}

HRESULT StrictContainer::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                EXCEPINFO*, UINT*) {
  if (const auto now = std::exchange(At_Ambient, nullptr)) now();
  if (id == DISPID_AMBIENT_DISPLAYNAME && !display_name.empty()) {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(display_name.c_str());
    return S_OK;
  }
  const auto told = ambients.find(id);
  if (told == ambients.end()) return answers_with_nothing ? S_OK : DISP_E_MEMBERNOTFOUND;
  result->vt = VT_BOOL;
  result->boolVal = told->second ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

}  // namespace quillspeech::activex::tests
