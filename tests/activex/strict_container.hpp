// A container that knows what it is to be asked, and in which order: a call that was not expected
// fails the test, and so does one that never came. Its ambient properties may be read at any time.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <initializer_list>
#include <map>
#include <string>

#include "activex/com.hpp"

namespace quillspeech::activex::tests {

// The frame of the container's window, which is its document's window, too.
class StrictFrame;

class StrictContainer final : public IOleClientSite,
                              public IOleInPlaceSite,
                              public IOleControlSite,
                              public IDispatch,
                              public IAdviseSinkEx,
                              public IPropertyNotifySink {
 public:
  StrictContainer();
  ~StrictContainer();
  StrictContainer(const StrictContainer&) = delete;
  StrictContainer& operator=(const StrictContainer&) = delete;

  // These, and no others, from now on.
  void Expect(std::initializer_list<const char*> calls);
  void Expect_Activation();     // into the container's window
  void Expect_UI_Activation();  // and on to the keyboard
  void Expect_UI_Deactivation();
  // All that were expected have come.
  void Done();
  // Does it at the next call of that name, before the answer.
  void At(const std::string& call, std::function<void()> action) { actions_[call] = action; }
  // Fails that call, each time.
  void Refuse(const std::string& call, HRESULT with) { refusals_[call] = with; }

  ULONG References() const { return references_; }

  const HWND window;     // the tests share it
  HWND parent = window;  // where it places the control
  RECT position{10, 20, 10 + 222, 20 + 126};
  RECT clip{0, 0, 640, 480};
  std::map<DISPID, bool> ambients;  // what it tells; it knows no others, but for the name
  std::wstring display_name;
  std::function<void()> At_Ambient;  // once, before it tells one
  bool has_ambients = true;
  bool answers_with_nothing = false;  // for the ambients that it does not know
  bool is_in_place_site = true;
  bool is_control_site = true;
  RECT asked_position{};  // by the last OnPosRectChange
  DISPID changed = 0;     // by the last OnChanged
  MSG key{};              // by the last TranslateAccelerator

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return Called("SaveObject"); }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override {
    return Called("GetMoniker", E_NOTIMPL);
  }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override {
    return Called("GetContainer", E_NOINTERFACE);
  }
  HRESULT STDMETHODCALLTYPE ShowObject() override { return Called("ShowObject"); }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return Called("OnShowWindow"); }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override {
    return Called("RequestNewObjectLayout", E_NOTIMPL);
  }

  // IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* to) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override {
    return Called("ContextSensitiveHelp");
  }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return Called("CanInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return Called("OnInPlaceActivate"); }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return Called("OnUIActivate"); }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, RECT* position_out,
                                             RECT* clip_out,
                                             OLEINPLACEFRAMEINFO* information) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return Called("Scroll"); }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return Called("OnUIDeactivate"); }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return Called("OnInPlaceDeactivate"); }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return Called("DiscardUndoState"); }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return Called("DeactivateAndUndo"); }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT asked) override;

  // IOleControlSite
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override {
    return Called("OnControlInfoChanged");
  }
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return Called("LockInPlaceActive"); }
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) override {
    return Called("GetExtendedControl", E_NOTIMPL);
  }
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override {
    return Called("TransformCoords", E_NOTIMPL);
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD) override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL got) override {
    return Called(got ? "OnFocus got" : "OnFocus lost");
  }
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return Called("ShowPropertyFrame"); }

  // IDispatch, for the ambient properties
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override;

  // IAdviseSinkEx
  void STDMETHODCALLTYPE OnViewStatusChange(DWORD) override { Called("OnViewStatusChange"); }
  void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override { Called("OnDataChange"); }
  void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { Called("OnViewChange"); }
  void STDMETHODCALLTYPE OnRename(IMoniker*) override { Called("OnRename"); }
  void STDMETHODCALLTYPE OnSave() override { Called("OnSave"); }
  void STDMETHODCALLTYPE OnClose() override { Called("OnClose"); }

  // IPropertyNotifySink
  HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) override;
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return Called("OnRequestEdit"); }

 private:
  friend class StrictFrame;
  HRESULT Called(const std::string& call, HRESULT answer = S_OK);

  std::deque<std::string> expected_;
  std::map<std::string, std::function<void()>> actions_;
  std::map<std::string, HRESULT> refusals_;
  ULONG references_ = 0;
  std::unique_ptr<StrictFrame> frame_;
};

}  // namespace quillspeech::activex::tests
