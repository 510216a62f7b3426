// The file itself, loaded as COM loads it.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>

#include "activex/com.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "platform/windows/multimedia.hpp"
#include "tests/activex/test_owner.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::activex {
namespace {

// Quillspeech.ocx from the folder of this program.
class LoadedFile : public testing::Test {
 protected:
  LoadedFile() {
    const std::wstring program = Module::Of_This_File().File_Name();
    path_ = program.substr(0, program.find_last_of(L"\\/") + 1) + L"Quillspeech.ocx";
    file_ = ::LoadLibraryW(path_.c_str());
    EXPECT_NE(file_, nullptr);
  }
  ~LoadedFile() override {
    if (file_) ::FreeLibrary(file_);
  }

  template <class Function>
  Function Entry(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(file_, name)));
  }
  HRESULT Class_Object(REFCLSID class_id, REFIID iid, void** object) const {
    return Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(class_id, iid,
                                                                                  object);
  }
  ComPtr<IClassFactory> Factory(REFCLSID class_id = CLSID_Quillspeech) const {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(Class_Object(class_id, IID_IClassFactory, factory.Receive_Void()), S_OK);
    return factory;
  }
  bool Can_Unload() const { return Entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")() == S_OK; }
  ComPtr<IUnknown> New_Control() const {
    ComPtr<IUnknown> control;
    EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IUnknown, control.Receive_Void()), S_OK);
    return control;
  }

  // The class of the hidden window of the file's loop.
  std::wstring Loop_Class() const {
    HWND window = nullptr;
    while ((window = ::FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr) {
      std::array<wchar_t, 100> name{};
      ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
      const bool is_ours = std::wstring_view(name.data()).starts_with(L"Quillspeech.EventLoop");
      const auto owner = reinterpret_cast<HMODULE>(::GetWindowLongPtrW(window, GWLP_HINSTANCE));
      if (is_ours && owner == file_) return name.data();
    }
    return {};
  }

  std::wstring path_;
  HMODULE file_ = nullptr;
};

TEST_F(LoadedFile, It_has_the_five_doors_of_a_control) {
  for (const char* const name : {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                 "DllUnregisterServer", "DllInstall"}) {
    EXPECT_NE(Entry<void*>(name), nullptr) << name;
  }
}

TEST_F(LoadedFile, Each_of_its_nine_classes_has_a_factory_and_no_other_class) {
  for (const CLSID& class_id :
       {CLSID_Quillspeech, CLSID_StartingKeys, CLSID_InterestingSettings,
        CLSID_WindowsTechnicalSettings, CLSID_LanguageDepartment, CLSID_WaveAudioDepartment,
        CLSID_ErrorDepartment, CLSID_SoundCardSettings, CLSID_EngineDepartment}) {
    const auto factory = Factory(class_id);
    ComPtr<IUnknown> made;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, made.Receive_Void()), S_OK);
    EXPECT_TRUE(made);
  }
  IUnknown* nothing = nullptr;
  EXPECT_EQ(Class_Object(IID_IUnknown, IID_IClassFactory, reinterpret_cast<void**>(&nothing)),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(Class_Object(CLSID_Quillspeech, IID_IDispatch, reinterpret_cast<void**>(&nothing)),
            E_NOINTERFACE);
  EXPECT_EQ(Class_Object(CLSID_Quillspeech, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_TRUE(Can_Unload());
}

TEST_F(LoadedFile, It_stays_while_there_is_an_object_a_factory_or_a_lock) {
  EXPECT_TRUE(Can_Unload());
  auto factory = Factory();
  EXPECT_FALSE(Can_Unload());
  factory->LockServer(TRUE);
  factory = {};
  EXPECT_FALSE(Can_Unload());
  Factory()->LockServer(FALSE);
  EXPECT_TRUE(Can_Unload());
  auto control = New_Control();
  EXPECT_FALSE(Can_Unload());
  control = {};
  EXPECT_TRUE(Can_Unload());
}

TEST_F(LoadedFile, The_end_of_a_lock_that_nobody_took_means_nothing) {
  Factory()->LockServer(FALSE);
  EXPECT_TRUE(Can_Unload());
  Factory()->LockServer(TRUE);
  EXPECT_FALSE(Can_Unload());
  Factory()->LockServer(FALSE);
  EXPECT_TRUE(Can_Unload());
}

TEST_F(LoadedFile, It_can_be_unloaded_and_loaded_again) {
  New_Control();
  for (int times = 0; times < 3; ++times) {
    ASSERT_TRUE(Can_Unload());
    const std::wstring loop_class = Loop_Class();
    EXPECT_FALSE(loop_class.empty());
    const HMODULE old = file_;
    ::FreeLibrary(file_);
    EXPECT_EQ(::GetModuleHandleW(path_.c_str()), nullptr);
    WNDCLASSEXW left{};
    EXPECT_FALSE(::GetClassInfoExW(old, loop_class.c_str(), &left));
    file_ = ::LoadLibraryW(path_.c_str());
    ASSERT_NE(file_, nullptr);
    New_Control();
  }
}

// Answers each box of that title as soon as it shows, and does something first.
class Answering {
 public:
  Answering(const wchar_t* title, std::function<void()> first) : title_(title), first_(first) {
    Only() = this;
    timer_ = ::SetTimer(nullptr, 0, 10, Look);
  }
  ~Answering() { ::KillTimer(nullptr, timer_); }
  Answering(const Answering&) = delete;
  Answering& operator=(const Answering&) = delete;
  int answered = 0;

 private:
  static Answering*& Only() {
    static Answering* only = nullptr;
    return only;
  }
  static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
    Answering& self = *Only();
    const HWND box = ::FindWindowW(nullptr, self.title_);
    if (!box) return;
    ++self.answered;
    self.first_();
    ::SendMessageW(box, WM_COMMAND, IDOK, 0);
  }

  const wchar_t* title_;
  std::function<void()> first_;
  UINT_PTR timer_;
};

// A machine without a sound card tells so from within the tick that is to record.
TEST_F(LoadedFile, It_can_be_unloaded_when_its_control_has_gone_within_a_recording) {
  if (::waveInGetNumDevs() > 0) GTEST_SKIP() << "this machine has an input";
  auto control = New_Control().As<IDispatch>();
  {
    const tests::Script script(control.Get());
    script.Let(L"Speech_sampling_time_in_ms", 4'000);
    script.Let(L"Words_I_Want", L"all");
    script.Get(L"Start_Real_Action");
  }
  const Answering answering(L"Quillspeech", [&] {
    control = {};
    EXPECT_FALSE(Can_Unload());
  });
  EXPECT_TRUE(tests::Run_Host_While([&] { return answering.answered == 0 || !Can_Unload(); }));
  EXPECT_TRUE(Can_Unload());
  ::FreeLibrary(file_);
  EXPECT_EQ(::GetModuleHandleW(path_.c_str()), nullptr);
  tests::Dispatch_Messages();
  file_ = ::LoadLibraryW(path_.c_str());
}

TEST_F(LoadedFile, Only_the_thread_of_the_session_lets_it_be_unloaded) {
  New_Control();
  bool can_unload = true;
  std::thread([&] { can_unload = Can_Unload(); }).join();
  EXPECT_FALSE(can_unload);
  EXPECT_TRUE(Can_Unload());
}

TEST_F(LoadedFile, A_control_of_another_thread_must_wait_until_the_last_one_here_has_gone) {
  const auto on_another_thread = [&] {
    HRESULT code = S_OK;
    std::thread([&] {
      ::OleInitialize(nullptr);
      {
        ComPtr<IUnknown> made;
        code = Factory()->CreateInstance(nullptr, IID_IUnknown, made.Receive_Void());
      }
      ::OleUninitialize();
    }).join();
    return code;
  };
  auto control = New_Control();
  EXPECT_EQ(on_another_thread(), RPC_E_WRONG_THREAD);
  control = {};
  EXPECT_EQ(on_another_thread(), S_OK);
  EXPECT_TRUE(Can_Unload());  // that thread has ended
}

TEST_F(LoadedFile, An_outer_object_gets_the_inner_IUnknown_and_nothing_else_at_first) {
  const auto factory = Factory();
  const auto outer = New_Control();
  IUnknown* made = outer.Get();
  EXPECT_EQ(factory->CreateInstance(outer.Get(), IID_IDispatch, reinterpret_cast<void**>(&made)),
            CLASS_E_NOAGGREGATION);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(LoadedFile, A_script_reaches_the_members_of_its_control) {
  const auto control = New_Control().As<IDispatch>();
  ASSERT_TRUE(control);
  const tests::Script script(control.Get());
  EXPECT_EQ(script.Let(L"noise_sensitivity", L"17").code, S_OK);
  EXPECT_EQ(script.Get(L"Noise_Sensitivity").result.iVal, 17);
  EXPECT_EQ(script.Let(L"Send_of_no", 500).code, S_OK);
  EXPECT_EQ(script.Get(L"Platinum_Words").Text(), L"");
  EXPECT_EQ(script.Let(L"Send_of_no", L"abc").Number(), 13);
}

TEST_F(LoadedFile, A_new_process_has_no_settings_until_a_control_is_initialised_or_loaded) {
  const auto control = New_Control().As<IDispatch>();
  const tests::Script script(control.Get());
  EXPECT_EQ(script.Get(L"Words_to_Scan").result.lVal, 0);
  EXPECT_EQ(script.Get(L"Voice_Processing_Delay").result.lVal, 0);
  EXPECT_EQ(script.Get(L"Words_I_Want").Text(), L"");
}

TEST_F(LoadedFile, Two_controls_share_the_session_which_stays_when_both_have_gone) {
  auto one = New_Control().As<IDispatch>();
  auto other = New_Control().As<IDispatch>();
  EXPECT_EQ(tests::Script(one.Get()).Let(L"Noise_Sensitivity", 23).code, S_OK);
  EXPECT_EQ(tests::Script(other.Get()).Get(L"Noise_Sensitivity").result.iVal, 23);
  one = {};
  other = {};
  one = New_Control().As<IDispatch>();
  EXPECT_EQ(tests::Script(one.Get()).Get(L"Noise_Sensitivity").result.iVal, 23);
}

TEST_F(LoadedFile, A_per_user_installation_has_one_name) {
  const auto install = Entry<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall");
  EXPECT_EQ(install(TRUE, L"elsewhere"), E_INVALIDARG);
  EXPECT_EQ(install(TRUE, L"User"), S_OK);
  EXPECT_EQ(install(FALSE, L"user"), S_OK);
}

TEST(Module, A_thread_that_is_told_to_quit_stops_the_session) {
  Module& module = Module::Of_This_File();
  const ThreadEntry entry;
  ASSERT_EQ(entry.Code(), S_OK);
  quillspeech::Session& session = module.Session();
  session.settings.Stop_everything_now = "NO";
  session.ports.events.Enable(FormTimer::Timer5, true);
  session.ports.events.Enable(FormTimer::Timer1, true);
  ::PostQuitMessage(3);
  session.ports.events.Run_Pending_Events();
  EXPECT_TRUE(Is_Stopped(session));
  EXPECT_FALSE(session.ports.events.Is_Enabled(FormTimer::Timer5));
  EXPECT_FALSE(session.ports.events.Is_Enabled(FormTimer::Timer1));
  MSG message;
  EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
  EXPECT_EQ(message.wParam, 3u);
  session.settings.Stop_everything_now = "NO";
}

}  // namespace
}  // namespace quillspeech::activex
