// The system's headers of COM and of OLE controls, and a pointer that counts.
#pragma once

#include "platform/windows/windows_api.hpp"
//
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>

#include <utility>

namespace quillspeech::activex {

// Holds one reference.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  explicit ComPtr(Interface* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  // Takes over a reference that was counted already.
  static ComPtr Adopt(Interface* object) {
    ComPtr pointer;
    pointer.object_ = object;
    return pointer;
  }

  // The object's other interface; null when it has none.
  template <class Other>
  ComPtr<Other> As(REFIID iid = __uuidof(Other)) const {
    void* other = nullptr;
    if (object_ && SUCCEEDED(object_->QueryInterface(iid, &other))) {
      return ComPtr<Other>::Adopt(static_cast<Other*>(other));
    }
    return {};
  }

  Interface* Get() const { return object_; }
  Interface* operator->() const { return object_; }
  Interface& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // For calls that give a counted reference out.
  Interface** Receive() {
    *this = {};
    return &object_;
  }
  void** Receive_Void() { return reinterpret_cast<void**>(Receive()); }
  // Gives a counted reference to a caller.
  HRESULT Give(Interface** to) const {
    if (!to) return E_POINTER;
    if (object_) object_->AddRef();
    *to = object_;
    return S_OK;
  }

 private:
  Interface* object_ = nullptr;
};

// An interface of a larger object, whose identity and count it shares.
template <class Interface>
class PartOf : public Interface {
 public:
  explicit PartOf(IUnknown& whole) : whole_(whole) {}
  PartOf(const PartOf&) = delete;
  PartOf& operator=(const PartOf&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    return whole_.QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return whole_.AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return whole_.Release(); }

 protected:
  ~PartOf() = default;
  IUnknown& Whole() const { return whole_; }

 private:
  IUnknown& whole_;
};

}  // namespace quillspeech::activex
