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

  HINSTANCE Instance() const { return instance_; }
  std::wstring File_Name() const;

  // Every COM object that a caller can hold counts here while it lives, and so does each lock of a
  // class factory.
  void Add_Object() noexcept { ++objects_; }
  void Remove_Object() noexcept { --objects_; }
  // Also while none does, the file stays as long as its code is on the stack, in a wait of the
  // session, and for every thread but the session's own: the hidden window is that one's to end.
  bool Can_Unload() const noexcept;
  long Objects() const noexcept { return objects_; }

  // What a control or a page needs to be made on this thread: makes the session at the first call,
  // and takes it over to this thread when it rests. RPC_E_WRONG_THREAD while controls of another
  // thread live: a session has one thread. What a thread has left behind at its end does not count.
  HRESULT Enter_Thread();
  // The session rests while there are none, on its thread: its sound devices are closed and its
  // timers stand still. Not before the wait in which the last one goes is over.
  void Add_Control() noexcept;
  void Remove_Control() noexcept;

  // After Enter_Thread.
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

  HINSTANCE instance_ = nullptr;
  std::atomic<long> objects_ = 0;
  SRWLOCK lock_ = SRWLOCK_INIT;  // of what follows
  std::unique_ptr<Platform> platform_;
  long controls_ = 0;
  DWORD thread_ = 0;  // of the session
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

// Counts one control, or whatever else uses the session, while it lives. After Enter_Thread.
class CountedControl {
 public:
  CountedControl() { Module::Of_This_File().Add_Control(); }
  ~CountedControl() { Module::Of_This_File().Remove_Control(); }
  CountedControl(const CountedControl&) = delete;
  CountedControl& operator=(const CountedControl&) = delete;
};

}  // namespace quillspeech::activex
