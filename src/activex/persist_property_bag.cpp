#include "activex/persist_property_bag.hpp"

#include "activex/scoped_variant.hpp"
#include "activex/variants.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::activex {
namespace {

// A container's bag as the control knows bags. Codes of the container end the routine that is under
// way, and are kept.
class ContainerBag final : public PropertyBag {
 public:
  ContainerBag(IPropertyBag& bag, IErrorLog* log, bool save_all)
      : bag_(bag), log_(log), save_all_(save_all) {}

  MemberValue ReadProperty(std::string_view key, const MemberValue& unless_kept) override;
  void WriteProperty(std::string_view key, const MemberValue& value,
                     const MemberValue& unless_kept) override;

  // What came of a routine that used it. With an error object for the thread when the container's
  // bag has left one.
  HRESULT Result(HRESULT of_routine) const { return FAILED(failure_) ? failure_ : of_routine; }

 private:
  [[noreturn]] void End_With(HRESULT failure) {
    failure_ = failure;
    Fail(Failure::Invalid_Call);
  }

  IPropertyBag& bag_;
  IErrorLog* log_;
  bool save_all_;
  HRESULT failure_ = S_OK;
};

// As a text, whatever type it has: the record converts texts.
MemberValue ContainerBag::ReadProperty(std::string_view key, const MemberValue& unless_kept) {
  ScopedVariant kept;
  SetErrorInfo(0, nullptr);  // what is told afterwards is the bag's own
  const HRESULT read = bag_.Read(windows::Wide(key).c_str(), &kept, log_);
  if (read == E_INVALIDARG) return unless_kept;
  if (FAILED(read)) End_With(read);
  return Value_Of(kept, MemberType::Text);
}

void ContainerBag::WriteProperty(std::string_view key, const MemberValue& value,
                                 const MemberValue& unless_kept) {
  if (!save_all_ && value == unless_kept) return;
  ScopedVariant given;
  Give_Value(value, given);
  SetErrorInfo(0, nullptr);
  const HRESULT written = bag_.Write(windows::Wide(key).c_str(), &given);
  if (FAILED(written)) End_With(written);
}

}  // namespace

HRESULT PersistPropertyBag::InitNew() {
  const ComPtr<IUnknown> whole(&Whole());
  return record_.Initialise();
}

HRESULT PersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!bag) return E_POINTER;
  const ComPtr<IUnknown> whole(&Whole());
  ContainerBag from(*bag, log, false);
  return from.Result(record_.Load(from));
}

HRESULT PersistPropertyBag::Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) {
  if (!bag) return E_POINTER;
  const ComPtr<IUnknown> whole(&Whole());
  ContainerBag to(*bag, nullptr, save_all != FALSE);
  const HRESULT saved = to.Result(record_.Save(to));
  if (SUCCEEDED(saved)) record_.Is_Saved(clear_dirty != FALSE);
  return saved;
}

}  // namespace quillspeech::activex
