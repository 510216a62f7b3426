// Enumerators over what there was when they were made: interfaces, and sinks with their cookies.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "activex/errors.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {

inline IUnknown* Object_In(IUnknown* item) { return item; }
inline IUnknown* Object_In(const CONNECTDATA& item) { return item.pUnk; }

// Holds a reference to each item's object.
template <class Interface, class Item>
class Enumerator final : public Interface {
 public:
  explicit Enumerator(std::vector<Item> items) : items_(std::move(items)) {
    for (const Item& item : items_) Object_In(item)->AddRef();
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != __uuidof(Interface)) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<Interface*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(::InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = ::InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  // The count may be left out by who asks for one.
  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, Item* items, ULONG* given) override {
    if (given) *given = 0;
    if (!items || (!given && wanted != 1)) return E_POINTER;
    const ULONG count = std::min(wanted, Left());
    for (ULONG index = 0; index < count; ++index) {
      items[index] = items_[next_++];
      Object_In(items[index])->AddRef();
    }
    if (given) *given = count;
    return count == wanted ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const ULONG skipped = std::min(count, Left());
    next_ += skipped;
    return skipped == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    next_ = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** clone) override {
    if (!clone) return E_POINTER;
    *clone = nullptr;
    return Guarded([&] {
      auto made = std::make_unique<Enumerator>(items_);
      made->next_ = next_;
      return ComPtr<Interface>(made.release()).Give(clone);
    });
  }

  ~Enumerator() {
    for (const Item& item : items_) Object_In(item)->Release();
  }

 private:
  ULONG Left() const { return static_cast<ULONG>(items_.size() - next_); }

  std::vector<Item> items_;
  std::size_t next_ = 0;
  LONG references_ = 0;
  CountedObject counted_;
};

// Gives a caller an enumerator over the items.
template <class Interface, class Item>
HRESULT Enumerate(std::vector<Item> items, Interface** to) {
  if (!to) return E_POINTER;
  *to = nullptr;
  auto made = std::make_unique<Enumerator<Interface, Item>>(std::move(items));
  return ComPtr<Interface>(made.release()).Give(to);
}

}  // namespace quillspeech::activex
