// An object that may be made as a part of a larger one.
#pragma once

#include <atomic>

#include "activex/com.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {

// It keeps its own count; its interfaces share the identity of the whole: the outer object when
// there is one, itself otherwise. Made by new with a count of 1, and deleted with the last
// reference to its inner identity.
class AggregatedObject : private CountedObject {
 public:
  // What whoever made it holds.
  IUnknown& Inner() { return inner_; }
  IUnknown& Whole() { return whole_; }

  // Keeps the object in memory while one of its procedures calls out.
  ComPtr<IUnknown> Kept() const { return ComPtr<IUnknown>(&inner_); }

 protected:
  explicit AggregatedObject(IUnknown* outer) : inner_(*this), whole_(outer ? *outer : inner_) {}
  virtual ~AggregatedObject() = default;

  // The interface of that id, uncounted; null when there is none.
  virtual IUnknown* Interface_Of(REFIID iid) = 0;
  // The last reference has gone; those that come and go inside count no more.
  virtual void At_Last_Release() noexcept {}

 private:
  class InnerUnknown final : public IUnknown {
   public:
    explicit InnerUnknown(AggregatedObject& object) : object_(object) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** interface_out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
    ULONG STDMETHODCALLTYPE Release() override;

   private:
    AggregatedObject& object_;
    std::atomic<ULONG> count_ = 1;
  };

  mutable InnerUnknown inner_;  // who keeps it may know it as constant
  IUnknown& whole_;
};

// Hands a new object's interface out: with an outer object its inner identity, and nothing else.
HRESULT Give_New(AggregatedObject& made, IUnknown* outer, REFIID iid, void** object);

}  // namespace quillspeech::activex
