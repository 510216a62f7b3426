#include "activex/module.hpp"

#include <new>
#include <string>
#include <vector>

#include "activex/errors.hpp"
#include "core/operations.hpp"
#include "core/persistence.hpp"
#include "platform/windows/data_file.hpp"
#include "platform/windows/host_program.hpp"
#include "platform/windows/message_boxes.hpp"
#include "platform/windows/riff_file.hpp"
#include "platform/windows/shell.hpp"
#include "platform/windows/sound_cues.hpp"
#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"

namespace quillspeech::activex {

struct Module::Platform {
  Platform();

  windows::EventLoop events;
  windows::MessageBoxes boxes;
  windows::HostProgram host;
  windows::SoundCues cues;
  windows::Shell shell;
  windows::RiffFiles riff_files{windows::NameEncoding::Windows1252};
  windows::WaveInput wave_input{events};
  windows::WaveOutput wave_output{events};
  windows::DataFileStore data_files{windows::NameEncoding::Windows1252};
  quillspeech::Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input,
                                     wave_output, data_files, dialogs, views}};
  windows::FormViews views{events};
};

namespace {

// The thread's message loop is told to end: whatever waits must come back to it.
void Stop_At_Once(quillspeech::Session& session) {
  session.settings.Stop_everything_now = "YES";
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer2, FormTimer::Timer3,
                                FormTimer::Timer4, FormTimer::Timer5}) {
    session.ports.events.Enable(timer, false);
  }
  session.operations.Stop_Recording(session);
}

class Exclusive {
 public:
  explicit Exclusive(SRWLOCK& lock) : lock_(lock) { ::AcquireSRWLockExclusive(&lock_); }
  ~Exclusive() { ::ReleaseSRWLockExclusive(&lock_); }
  Exclusive(const Exclusive&) = delete;
  Exclusive& operator=(const Exclusive&) = delete;

 private:
  SRWLOCK& lock_;
};

}  // namespace

// The settings are those of a process in which no control was ever made or loaded.
Module::Platform::Platform() {
  Prepare_Session(session);
  Forget_Settings(session);
  events.At_Quit = [this] { Stop_At_Once(session); };
}

Module& Module::Of_This_File() {
  alignas(Module) static std::byte room[sizeof(Module)];
  static Module& module = *new (room) Module;
  return module;
}

void Module::Begin(HINSTANCE instance) { instance_ = instance; }

void Module::End() noexcept {
  platform_.reset();
  if (thread_handle_) ::CloseHandle(thread_handle_);
  thread_handle_ = nullptr;
}

std::wstring Module::File_Name() const {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        ::GetModuleFileNameW(instance_, name.data(), static_cast<DWORD>(name.size()));
    if (length < name.size()) return name.substr(0, length);
    name.resize(2 * name.size());
  }
}

bool Module::Can_Unload() const noexcept {
  if (objects_ != 0) return false;
  return !platform_ || (Is_On_Session_Thread() && platform_->events.Depth() == 0);
}

// A thread that has ended took its windows with it.
bool Module::Is_On_Session_Thread() const noexcept {
  return ::GetCurrentThreadId() == thread_ ||
         ::WaitForSingleObject(thread_handle_, 0) == WAIT_OBJECT_0;
}

void Module::Take_Thread() {
  const HANDLE handle = ::OpenThread(SYNCHRONIZE, FALSE, ::GetCurrentThreadId());
  if (!handle) throw std::bad_alloc();
  if (thread_handle_) ::CloseHandle(thread_handle_);
  thread_handle_ = handle;
  thread_ = ::GetCurrentThreadId();
}

HRESULT Module::Enter_Thread() {
  return Guarded([&] {
    const Exclusive exclusive(lock_);
    if (!platform_) {
      Take_Thread();
      platform_ = std::make_unique<Platform>();
    } else if (::GetCurrentThreadId() != thread_) {
      if (controls_ != 0 || platform_->events.Depth() != 0) return RPC_E_WRONG_THREAD;
      platform_->events.Move_To_This_Thread();
      Take_Thread();
    }
    return S_OK;
  });
}

quillspeech::Session& Module::Session() { return platform_->session; }
windows::EventLoop& Module::Events() { return platform_->events; }
windows::FormViews& Module::Views() { return platform_->views; }

HRESULT Module::Type_Library(ITypeLib** library) {
  return ::LoadTypeLibEx(File_Name().c_str(), REGKIND_NONE, library);
}

HRESULT Module::Type_Info(REFGUID guid, ITypeInfo** information) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = Type_Library(library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(guid, information);
}

}  // namespace quillspeech::activex
