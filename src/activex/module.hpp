// The module: what the process shares. One session for all controls, made with the first of them,
// which lives as long as the module is loaded.
#pragma once

#include <atomic>
#include <memory>

#include "activex/com.hpp"
#include "activex/modality.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/form_view.hpp"
#include "session/session.hpp"

namespace quillspeech::activex {

class Module {
 public:
  // The one of this file (.ocx). Its state begins when the file is loaded.
  static Module& Of_This_File();

  void Begin(HINSTANCE instance);  // at loading
  void End() noexcept;             // at unloading, unless the process ends

  std::wstring File_Name() const;

  // Every COM object that a caller can hold counts here while it lives, and so does code of ours
  // that waits in a loop of the system's.
  void Add_Object() noexcept { ++objects_; }
  void Remove_Object() noexcept { --objects_; }
  // A lock of a class factory, or its end; one end too many means nothing.
  void Lock(bool on) noexcept;
  // Also while nothing counts and nobody has locked it, the file stays as long as its code is on
  // the stack, in a wait of the session, and for every thread but the session's own: the hidden
  // window is that one's to end.
  bool Can_Unload() const noexcept;
  long Objects() const noexcept { return objects_; }

  // What a control or a page needs to be made on this thread: makes the session at the first call,
  // takes it over to this thread when it rests, and counts a control, so that it stays.
  // RPC_E_WRONG_THREAD while controls of another thread live: a session has one thread. What a
  // thread has left behind at its end does not count, and is of an older generation.
  HRESULT Enter_Thread(unsigned& generation) noexcept;
  // The session rests while there are none, on its thread: its sound devices are closed and its
  // timers stand still. Not before the wait in which the last one goes is over. Gives the
  // generation, which goes back with the control.
  unsigned Add_Control() noexcept;
  void Remove_Control(unsigned generation) noexcept;

  // While a control counts.
  quillspeech::Session& Session();
  windows::EventLoop& Events();
  windows::FormViews& Views();
  activex::Activations& Activations();

  // The type library in the resources of this file.
  HRESULT Type_Library(ITypeLib** library);
  HRESULT Type_Info(REFGUID guid, ITypeInfo** information);

 private:
  struct Platform;  // the session and its ports

  // It is never destroyed as such: when the process ends, End is not called, and what it would
  // call may be gone.
  Module() = default;
  ~Module() = default;
  bool Has_Thread_Ended() const noexcept;
  void Take_Thread();
  bool Come_To_This_Thread();
  void Count_Control() noexcept;

  HINSTANCE instance_ = nullptr;
  std::atomic<long> objects_ = 0;
  mutable SRWLOCK lock_ = SRWLOCK_INIT;  // of what follows
  std::unique_ptr<Platform> platform_;   // stays when it is made
  long locks_ = 0;
  long controls_ = 0;        // of the generation
  unsigned generation_ = 0;  // another one when a thread has ended with its controls
  DWORD thread_ = 0;         // of the session
  HANDLE thread_handle_ = nullptr;
};

// Counts one object in the module while it lives.
class CountedObject {
 public:
  CountedObject() { Module::Of_This_File().Add_Object(); }
  ~CountedObject() { Module::Of_This_File().Remove_Object(); }
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
};

// Enters the thread for something that is to be made, and counts as a control until that does.
class ThreadEntry {
 public:
  ThreadEntry() : code_(Module::Of_This_File().Enter_Thread(generation_)) {}
  ~ThreadEntry() {
    if (SUCCEEDED(code_)) Module::Of_This_File().Remove_Control(generation_);
  }
  ThreadEntry(const ThreadEntry&) = delete;
  ThreadEntry& operator=(const ThreadEntry&) = delete;

  HRESULT Code() const { return code_; }

 private:
  unsigned generation_ = 0;
  const HRESULT code_;
};

// Counts one control, or whatever else uses the session, while it lives. Within a ThreadEntry, or
// while another one counts.
class CountedControl {
 public:
  CountedControl() : generation_(Module::Of_This_File().Add_Control()) {}
  ~CountedControl() { Module::Of_This_File().Remove_Control(generation_); }
  CountedControl(const CountedControl&) = delete;
  CountedControl& operator=(const CountedControl&) = delete;

 private:
  const unsigned generation_;
};

}  // namespace quillspeech::activex
