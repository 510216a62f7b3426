#include "activex/module.hpp"

#include <new>
#include <string>
#include <vector>

#include "activex/errors.hpp"
#include "base/host_text.hpp"
#include "core/operations.hpp"
#include "core/persistence.hpp"
#include "core/session_operations.hpp"
#include "platform/windows/data_file.hpp"
#include "platform/windows/dialogs.hpp"
#include "platform/windows/host_program.hpp"
#include "platform/windows/riff_file.hpp"
#include "platform/windows/shell.hpp"
#include "platform/windows/sound_cues.hpp"
#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech::activex {

struct Module::Platform {
  Platform();

  void Stop_At_Once();
  void Close_Devices();
  void Forget_Ended_Thread();

  windows::EventLoop events;
  activex::Activations activations;
  windows::HostProgram host;
  windows::SoundCues cues;
  windows::Shell shell;
  windows::RiffFiles riff_files{windows::NameEncoding::Windows1252};
  windows::WaveInput wave_input{events};
  windows::WaveOutput wave_output{events};
  windows::DataFileStore data_files{windows::NameEncoding::Windows1252};
  windows::FormViews views{events};
  windows::Dialogs dialogs{views};
  ContainedBoxes boxes{activations, views};
  quillspeech::Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input,
                                     wave_output, data_files, dialogs, views}};
};

namespace {

// What nobody has trapped, a person who has pressed a button is to know.
void Show_Failure(quillspeech::Session& session, int number) noexcept {
  Guarded([&] {
    Show_Box(session, Host_Text(number), "Quillspeech", BoxIcon::Stop);
    return S_OK;
  });
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
  events.At_Quit = [this] { Stop_At_Once(); };
  views.At_Failure = [this] { Show_Failure(session, Current_Failure_Number()); };
  views.Owner = [this] { return activations.Top_Window(); };
  views.Window_Life = [] {
    struct Used {
      CountedObject file;
      CountedControl session;
    };
    return std::make_shared<const Used>();
  };
  views.Modal_Time = [this] { return Begin_Modal_Time(activations); };
  events.Rest();  // until there is a control
}

// The thread's message loop is told to end: whatever waits must come back to it. A host that goes
// on all the same finds the session as a stop leaves it.
void Module::Platform::Stop_At_Once() {
  session.flags.Windows_Stay_Away = true;
  Ends_Well(session, [this] { session.operations.Unload_Database(session); });  // starts the clock
  Ends_Well(session, [this] { Halt_Session(session); });
  events.Enable(FormTimer::Timer2, false);
  events.Enable(FormTimer::Timer4, false);
  wave_output.Cut();
}

// What is left to the unloading of the file is memory and windows.
void Module::Platform::Close_Devices() {
  wave_input.Close_Stream();
  if (cues.Is_Sounding()) cues.Purge();
  wave_output.Cut();
}

// What its controls had under way must not go on here: their sinks and sites were that thread's,
// and so were the windows.
void Module::Platform::Forget_Ended_Thread() {
  Stop_At_Once();
  const Operations& operations = session.operations;
  for (const auto& unload :
       {operations.Unload_Graph, operations.Unload_StatusBar, operations.Unload_Help}) {
    Ends_Well(session, [&] { unload(session); });
  }
  views.Drop_Windows();
  Close_Devices();
  events.Stop_Timers();
  activations.Forget_All();
}

Module& Module::Of_This_File() {
  alignas(Module) static std::byte room[sizeof(Module)];
  static Module& module = *new (room) Module;
  return module;
}

void Module::Begin(HINSTANCE instance) { instance_ = instance; }

void Module::End() noexcept {
  ++generation_;  // what windows still stand count no longer
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

void Module::Lock(bool on) noexcept {
  const Exclusive exclusive(lock_);
  if (on) {
    ++locks_;
  } else if (locks_ > 0) {
    --locks_;
  }
}

bool Module::Can_Unload() const noexcept {
  const Exclusive exclusive(lock_);
  if (objects_ != 0 || locks_ != 0) return false;
  if (!platform_) return true;
  const bool is_its_own = ::GetCurrentThreadId() == thread_ || Has_Thread_Ended();
  return is_its_own && platform_->events.Depth() == 0;
}

// It took its windows with it.
bool Module::Has_Thread_Ended() const noexcept {
  return ::WaitForSingleObject(thread_handle_, 0) == WAIT_OBJECT_0;
}

void Module::Take_Thread() {
  const HANDLE handle = ::OpenThread(SYNCHRONIZE, FALSE, ::GetCurrentThreadId());
  if (!handle) throw std::bad_alloc();
  if (thread_handle_) ::CloseHandle(thread_handle_);
  thread_handle_ = handle;
  thread_ = ::GetCurrentThreadId();
}

// Entering and counting are under one hold of the lock: a session that still rests is anybody's.
HRESULT Module::Enter_Thread(unsigned& generation) noexcept {
  return Guarded([&] {
    bool has_ended = false;
    {
      const Exclusive exclusive(lock_);
      if (!platform_) {
        Take_Thread();
        platform_ = std::make_unique<Platform>();
      } else if (::GetCurrentThreadId() != thread_) {
        if (!Has_Thread_Ended() && !platform_->events.Is_Resting()) return RPC_E_WRONG_THREAD;
        has_ended = Come_To_This_Thread();
      }
      Count_Control();
      generation = generation_;
    }
    if (has_ended) platform_->Forget_Ended_Thread();
    return S_OK;
  });
}

// Whether the thread before it has ended, with all that it had left behind.
bool Module::Come_To_This_Thread() {
  const bool has_ended = Has_Thread_Ended();
  platform_->events.Move_To_This_Thread();
  Take_Thread();
  if (!has_ended) return false;
  controls_ = 0;
  ++generation_;
  return true;
}

void Module::Count_Control() noexcept {
  if (++controls_ == 1) platform_->events.Resume();
}

unsigned Module::Add_Control() noexcept {
  const Exclusive exclusive(lock_);
  Count_Control();
  return generation_;
}

// One that an ended thread has left behind may be let go of when others live. Devices may let
// messages in while they close, and so a new control.
void Module::Remove_Control(unsigned generation) noexcept {
  {
    const Exclusive exclusive(lock_);
    if (generation != generation_ || --controls_ > 0) return;
  }
  platform_->Close_Devices();
  const Exclusive exclusive(lock_);
  if (generation == generation_ && controls_ == 0) platform_->events.Rest();
}

quillspeech::Session& Module::Session() { return platform_->session; }
windows::EventLoop& Module::Events() { return platform_->events; }
windows::FormViews& Module::Views() { return platform_->views; }
activex::Activations& Module::Activations() { return platform_->activations; }

HRESULT Module::Type_Library(ITypeLib** library) {
  return ::LoadTypeLibEx(File_Name().c_str(), REGKIND_NONE, library);
}

HRESULT Module::Type_Info(REFGUID guid, ITypeInfo** information) {
  ComPtr<ITypeLib> library;
  const HRESULT loaded = Type_Library(library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(guid, information);
}

}  // namespace quillspeech::activex
