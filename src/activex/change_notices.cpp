#include "activex/change_notices.hpp"

namespace quillspeech::activex {

HRESULT ChangeNotices::Object_Sinks(IOleAdviseHolder** holder) {
  if (!object_sinks_) {
    const HRESULT made = CreateOleAdviseHolder(object_sinks_.Receive());
    if (FAILED(made)) return made;
  }
  return object_sinks_.Give(holder);
}

HRESULT ChangeNotices::Data_Sinks(IDataAdviseHolder** holder) {
  if (!data_sinks_) {
    const HRESULT made = CreateDataAdviseHolder(data_sinks_.Receive());
    if (FAILED(made)) return made;
  }
  return data_sinks_.Give(holder);
}

void ChangeNotices::Set_View_Sink(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  view_sink_ = ComPtr<IAdviseSink>(sink);
  view_aspects_ = aspects;
  view_flags_ = flags;
}

HRESULT ChangeNotices::View_Sink(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const {
  if (aspects) *aspects = view_aspects_;
  if (flags) *flags = view_flags_;
  return sink ? view_sink_.Give(sink) : S_OK;
}

void ChangeNotices::View_Changed(IDataObject& data) {
  const auto data_sinks = data_sinks_;
  Tell_View_Sink();
  if (data_sinks) data_sinks->SendOnDataChange(&data, 0, 0);
}

void ChangeNotices::Tell_View_Sink() {
  const auto sink = view_sink_;
  if (!sink) return;
  if (view_flags_ & ADVF_ONLYONCE) Set_View_Sink(0, 0, nullptr);
  sink->OnViewChange(DVASPECT_CONTENT, Whole_Object);
}

void ChangeNotices::Saved() {
  if (const auto sinks = object_sinks_) sinks->SendOnSave();
}

void ChangeNotices::Closed() {
  if (const auto sinks = object_sinks_) sinks->SendOnClose();
}

}  // namespace quillspeech::activex
