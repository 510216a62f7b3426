// A VARIANT that frees what it holds.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

struct ScopedVariant : VARIANT {
  ScopedVariant() { VariantInit(this); }
  ~ScopedVariant() { VariantClear(this); }
  ScopedVariant(const ScopedVariant&) = delete;
  ScopedVariant& operator=(const ScopedVariant&) = delete;
};

}  // namespace quillspeech::activex
