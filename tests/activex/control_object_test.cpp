#include "activex/control_object.hpp"

#include <gtest/gtest.h>
#include <objsafe.h>
#include <psapi.h>

#include <vector>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using ControlObjectTest = OleTest;

const std::vector<const IID*> Interfaces = {
    &IID_IUnknown,
    &IID_IDispatch,
    &IID__Quillspeech,
    &IID_IProvideClassInfo,
    &IID_IProvideClassInfo2,
    &IID_ISupportErrorInfo,
    &IID_IConnectionPointContainer,
    &IID_IOleObject,
    &IID_IOleControl,
    &IID_IOleWindow,
    &IID_IOleInPlaceObject,
    &IID_IOleInPlaceActiveObject,
    &IID_IViewObject,
    &IID_IViewObject2,
    &IID_IViewObjectEx,
    &IID_IDataObject,
    &IID_IQuickActivate,
    &IID_ISpecifyPropertyPages,
    &IID_IPersist,
    &IID_IPersistStream,
    &IID_IPersistStreamInit,
    &IID_IPersistPropertyBag,
    &IID_IPersistStorage,
};

ComPtr<IUnknown> Asked(IUnknown& object, REFIID iid) {
  ComPtr<IUnknown> found;
  object.QueryInterface(iid, found.Receive_Void());
  return found;
}

TEST_F(ControlObjectTest, Every_interface_leads_to_every_other_and_to_one_identity) {
  for (const IID* from : Interfaces) {
    const auto here = Asked(*control, *from);
    ASSERT_TRUE(here);
    for (const IID* to : Interfaces) EXPECT_TRUE(Asked(*here, *to));
    EXPECT_EQ(Asked(*here, IID_IUnknown).Get(), control.Get());
  }
}

TEST_F(ControlObjectTest, An_interface_is_the_same_each_time_it_is_asked_for) {
  for (const IID* iid : Interfaces) {
    EXPECT_EQ(Asked(*control, *iid).Get(), Asked(*control, *iid).Get());
  }
}

TEST_F(ControlObjectTest, What_it_does_not_have_it_refuses_and_clears_the_pointer) {
  void* object = this;
  EXPECT_EQ(control->QueryInterface(IID_IMarshal, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(control->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ControlObjectTest, It_does_not_claim_to_be_safe_for_scripts_of_strangers) {
  EXPECT_FALSE(Asked(*control, IID_IObjectSafety));
}

TEST_F(ControlObjectTest, Each_reference_is_counted) {
  EXPECT_EQ(control->AddRef(), 2u);
  EXPECT_EQ(As<IOleObject>()->AddRef(), 4u);  // with the one that asking has given
  control->Release();
  EXPECT_EQ(control->Release(), 1u);
}

TEST_F(ControlObjectTest, It_counts_as_an_object_of_the_module_until_its_end) {
  const long before = Module::Of_This_File().Objects();
  auto other = New_Control();
  EXPECT_EQ(Module::Of_This_File().Objects(), before + 1);
  EXPECT_FALSE(Module::Of_This_File().Can_Unload());
  other = nullptr;
  EXPECT_EQ(Module::Of_This_File().Objects(), before);
  terminations = 0;
}

TEST_F(ControlObjectTest, Two_controls_share_one_session) {
  auto other = New_Control();
  EXPECT_EQ(Let("Consider_this_Engine_for_Recognition", "C:\\Shared.EGN"), S_OK);
  std::swap(control, other);
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "C:\\Shared.EGN");
  other = nullptr;
  terminations = 0;
}

TEST_F(ControlObjectTest, Its_last_release_terminates_the_control_once) {
  control = nullptr;
  EXPECT_EQ(terminations, 1);
}

// An outer object with an identity of its own.
class Outer final : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!IsEqualIID(iid, IID_IUnknown)) return inner->QueryInterface(iid, object);
    AddRef();
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ComPtr<IUnknown> inner;
  ULONG references = 0;
};

TEST_F(ControlObjectTest, As_a_part_its_interfaces_have_the_identity_of_the_whole) {
  Outer outer;
  ASSERT_EQ(Make_Control(&outer, IID_IUnknown, outer.inner.Receive_Void()), S_OK);
  EXPECT_NE(outer.inner.Get(), &outer);
  for (const IID* iid : Interfaces) {
    if (IsEqualIID(*iid, IID_IUnknown)) continue;
    const auto part = Asked(*outer.inner, *iid);
    ASSERT_TRUE(part);
    EXPECT_EQ(outer.references, 1u);
    EXPECT_EQ(Asked(*part, IID_IUnknown).Get(), &outer);
  }
  EXPECT_EQ(outer.references, 0u);
  outer.inner = nullptr;
  EXPECT_EQ(terminations, 1);
  terminations = 0;
}

TEST_F(ControlObjectTest, As_a_part_it_is_given_out_by_its_inner_identity_only) {
  Outer outer;
  void* object = this;
  EXPECT_EQ(Make_Control(&outer, IID_IDispatch, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
}

// One that shows nothing of its part but the keeping of settings.
class SelectiveOuter final : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IPersistStreamInit)) return inner->QueryInterface(iid, object);
    const bool is_own = IsEqualIID(iid, IID_IUnknown);
    if (is_own) AddRef();
    *object = is_own ? this : nullptr;
    return is_own ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }

  ComPtr<IUnknown> inner;
  ULONG references = 0;
};

TEST_F(ControlObjectTest, A_part_works_also_where_the_whole_hides_its_interfaces) {
  SelectiveOuter outer;
  ASSERT_EQ(Make_Control(&outer, IID_IUnknown, outer.inner.Receive_Void()), S_OK);
  QACONTAINER from = {};
  from.cbSize = sizeof from;
  from.pClientSite = &container;
  from.pAdviseSink = &container;
  QACONTROL to = {};
  to.cbSize = sizeof to;
  EXPECT_EQ(outer.inner.As<IQuickActivate>()->QuickActivate(&from, &to), S_OK);
  SIZEL extent = {};
  EXPECT_EQ(outer.inner.As<IQuickActivate>()->GetContentExtent(&extent), S_OK);
  FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  DWORD cookie = 0;
  EXPECT_EQ(outer.inner.As<IDataObject>()->DAdvise(&format, 0, &container, &cookie), S_OK);
  container.Expect({"OnViewChange", "OnDataChange"});
  DISPPARAMS nothing = {};
  outer.inner.As<IDispatch>()->Invoke(Id_Of("Refresh", Access::Call), IID_NULL, LOCALE_NEUTRAL,
                                      DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr);
  container.Done();
  EXPECT_EQ(outer.inner.As<IDataObject>()->DUnadvise(cookie), S_OK);
  EXPECT_EQ(outer.inner.As<IViewObject>()->SetAdvise(0, 0, nullptr), S_OK);
  const auto object = outer.inner.As<IOleObject>();
  container.Expect_Activation();
  container.Expect_UI_Activation();  // with an object for the frame
  container.Expect({"OnFocus got"});
  object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, nullptr, 0, container.window, nullptr);
  container.Done();
  container.Expect_UI_Deactivation();
  container.Expect({"OnFocus lost", "OnInPlaceDeactivate"});
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  terminations = -1;
}

TEST_F(ControlObjectTest, A_sink_may_let_go_of_the_control_inside_an_event) {
  EventSink sink;
  sink.Connect(*control);
  sink.At_Event = [this] { control = nullptr; };
  IDispatch* const raw = As<IDispatch>().Get();  // as a caller who counts nothing
  DISPPARAMS nothing = {};
  raw->Invoke(Id_Of("Stop_Real_Action", Access::Call), IID_NULL, LOCALE_USER_DEFAULT,
              DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr);
  EXPECT_EQ(sink.heard, std::vector{EventId::StopRecognitionActivity});
  EXPECT_EQ(terminations, 1);
}

TEST_F(ControlObjectTest, A_container_may_let_go_of_the_control_while_a_window_of_it_is_modal) {
  session().operations.Show_Help = [this](quillspeech::Session&) {
    control = nullptr;
    EXPECT_EQ(terminations, 0);  // the call that stands keeps it
  };
  IDispatch* const raw = As<IDispatch>().Get();
  DISPPARAMS nothing = {};
  raw->Invoke(Id_Of("AboutBox", Access::Call), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
              &nothing, nullptr, nullptr, nullptr);
  session().operations.Show_Help = Operations::Nothing;
}

TEST_F(ControlObjectTest, A_timer_may_let_go_of_the_control_inside_a_wait) {
  windows::EventLoop& events = Module::Of_This_File().Events();
  const auto timer = events.Make_Timer(std::chrono::milliseconds(1), [this] { control = nullptr; });
  timer->Enable(true);
  session().operations.Show_Help = [&](quillspeech::Session&) {
    while (control) events.Wait_For_Events();
  };
  Call("AboutBox");
  session().operations.Show_Help = Operations::Nothing;
  EXPECT_EQ(terminations, 1);
}

TEST_F(ControlObjectTest, A_container_may_let_go_of_the_control_behind_a_message_box) {
  BoxCloser closer(L"Quillspeech Start", [this] { control = nullptr; });
  Call("Start_Real_Action");  // whose settings are incomplete
  EXPECT_EQ(closer.closed, 1);
  EXPECT_EQ(terminations, 1);
}

TEST_F(ControlObjectTest, A_thousand_controls_come_and_go_and_leave_no_memory_behind) {
  const auto memory = [] {
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    EXPECT_TRUE(GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters));
    return counters.PagefileUsage;
  };
  const auto come_and_go = [&] {
    control = New_Control();
    Place();
    EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
    Withdraw();
  };
  for (int i = 0; i < 200; ++i) come_and_go();
  const auto before = memory();
  for (int i = 0; i < 1000; ++i) come_and_go();
  EXPECT_LE(memory(), before + 64 * 1024);
  control = nullptr;
  terminations = 1;
}

}  // namespace
}  // namespace quillspeech::activex::tests
