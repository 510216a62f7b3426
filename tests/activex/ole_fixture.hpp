// A control object as a class factory makes it, and what the tests do to it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "activex/com.hpp"
#include "activex/control_object.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "activex/scoped_variant.hpp"
#include "core/member_table.hpp"
#include "core/persistence.hpp"
#include "platform/windows/text.hpp"
#include "tests/activex/strict_container.hpp"

namespace quillspeech::activex::tests {

inline ComPtr<IUnknown> New_Control() {
  ComPtr<IUnknown> made;
  EXPECT_EQ(Make_Control(nullptr, IID_IUnknown, made.Receive_Void()), S_OK);
  return made;
}

// The control's session is that of the process; each test begins with it forgotten. At its end, all
// that the test has made is gone.
class OleTest : public testing::Test {
 protected:
  OleTest() : objects_before_(Module::Of_This_File().Objects()), control(New_Control()) {
    Forget_Settings(session());
    session().operations.Show_Help = Operations::Nothing;
    session().operations.Unload_Help = [this](quillspeech::Session&) { ++terminations; };
  }
  ~OleTest() override {
    if (control) {
      const auto object = As<IOleObject>();
      if (is_sited_) Withdraw();
    }
    control = nullptr;
    EXPECT_EQ(terminations, 1);
    session().operations.Unload_Help = Operations::Nothing;
    EXPECT_EQ(Module::Of_This_File().Objects(), objects_before_);
  }

  quillspeech::Session& session() { return Module::Of_This_File().Session(); }

  template <class Interface>
  ComPtr<Interface> As() const {
    return control.As<Interface>();
  }

  // Places the control, and takes it away again.
  void Place() {
    is_sited_ = true;
    EXPECT_EQ(As<IOleObject>()->SetClientSite(&container), S_OK);
  }
  void Withdraw() {
    is_sited_ = false;
    EXPECT_EQ(As<IOleObject>()->SetClientSite(nullptr), S_OK);
  }
  HRESULT Do(LONG verb, MSG* message = nullptr) {
    return As<IOleObject>()->DoVerb(verb, message, &container, 0, container.window,
                                    &container.position);
  }
  void Activate() {
    container.Expect_Activation();
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    container.Done();
  }
  // All the ways back, at the end of a test.
  void Deactivate() {
    container.Expect({"OnInPlaceDeactivate"});
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    container.Done();
  }
  HWND Window() const {
    HWND window = nullptr;
    const auto place = As<IOleInPlaceObject>();
    return place && SUCCEEDED(place->GetWindow(&window)) ? window : nullptr;
  }

  static DISPID Id_Of(std::string_view member, Access access) {
    const Member* const found = Find_Member(member, access);
    EXPECT_TRUE(found) << member;
    return found ? found->id : DISPID_UNKNOWN;
  }
  HRESULT Call(std::string_view member) {
    DISPPARAMS nothing = {};
    return As<IDispatch>()->Invoke(Id_Of(member, Access::Call), IID_NULL, LOCALE_USER_DEFAULT,
                                   DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr);
  }
  HRESULT Let(std::string_view member, const std::string& text) {
    ScopedVariant value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(windows::Wide(text).c_str());
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments = {&value, &put, 1, 1};
    return As<IDispatch>()->Invoke(Id_Of(member, Access::Let), IID_NULL, LOCALE_USER_DEFAULT,
                                   DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr);
  }
  std::string Get(std::string_view member) {
    DISPPARAMS nothing = {};
    ScopedVariant value;
    EXPECT_EQ(As<IDispatch>()->Invoke(Id_Of(member, Access::Get), IID_NULL, LOCALE_USER_DEFAULT,
                                      DISPATCH_PROPERTYGET, &nothing, &value, nullptr, nullptr),
              S_OK);
    EXPECT_EQ(VariantChangeType(&value, &value, VARIANT_ALPHABOOL, VT_BSTR), S_OK);
    return windows::Narrow(std::wstring(value.bstrVal, SysStringLen(value.bstrVal)));
  }

  // Before the control, which holds it.
  StrictContainer container;
  int terminations = 0;

 private:
  const long objects_before_;
  bool is_sited_ = false;

 protected:
  ComPtr<IUnknown> control;
};

// Answers the box with that title as soon as it shows.
class BoxCloser {
 public:
  BoxCloser(const wchar_t* title, std::function<void()> before)
      : title_(title), before_(std::move(before)) {
    Only() = this;
    SetTimer(nullptr, 0, 10, Look);
  }
  int closed = 0;

 private:
  static BoxCloser*& Only() {
    static BoxCloser* only = nullptr;
    return only;
  }
  static void CALLBACK Look(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = FindWindowW(nullptr, Only()->title_);
    if (!box) return;
    KillTimer(nullptr, timer);
    Only()->before_();
    ++Only()->closed;
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  }

  const wchar_t* title_;
  std::function<void()> before_;
};

// Hears the control's events, and does something at one of them.
class EventSink final : public IDispatch {
 public:
  ~EventSink() { EXPECT_EQ(references_, 0u) << "somebody holds the sink"; }

  void Connect(IUnknown& to) {
    ComPtr<IConnectionPoint> point;
    const auto points = ComPtr<IUnknown>(&to).As<IConnectionPointContainer>();
    ASSERT_EQ(points->FindConnectionPoint(DIID___Quillspeech, point.Receive()), S_OK);
    ASSERT_EQ(point->Advise(this, &cookie_), S_OK);
    point_ = point.Get();
  }
  void Disconnect() {
    EXPECT_EQ(point_->Unadvise(cookie_), S_OK);
    point_ = nullptr;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool is_own = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
                        IsEqualIID(iid, DIID___Quillspeech);
    *object = is_own ? this : nullptr;
    if (is_own) AddRef();
    return is_own ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    heard.push_back(static_cast<EventId>(id));
    if (At_Event) At_Event();
    return S_OK;
  }

  std::vector<EventId> heard;
  std::function<void()> At_Event;

 private:
  DWORD cookie_ = 0;
  IConnectionPoint* point_ = nullptr;  // uncounted: the sink holds no control
  ULONG references_ = 0;
};

}  // namespace quillspeech::activex::tests
