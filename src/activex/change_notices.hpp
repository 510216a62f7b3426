// Who is told when a control's looks, data or life change.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

constexpr LONG Whole_Object = -1;  // the only index of a part that there is

class ChangeNotices {
 public:
  // Sinks of the object (IOleObject::Advise) and of its data (IDataObject::DAdvise), in holders
  // that are made when the first sink comes. Null: none came yet. E_OUTOFMEMORY.
  HRESULT Object_Sinks(IOleAdviseHolder** holder);
  HRESULT Data_Sinks(IDataAdviseHolder** holder);
  IOleAdviseHolder* Object_Sinks() const { return object_sinks_.Get(); }
  IDataAdviseHolder* Data_Sinks() const { return data_sinks_.Get(); }

  // The one sink of the view (IViewObject::SetAdvise); null takes it away.
  void Set_View_Sink(DWORD aspects, DWORD flags, IAdviseSink* sink);
  HRESULT View_Sink(DWORD* aspects, DWORD* flags, IAdviseSink** sink) const;

  // What has happened. The control must be kept by the caller: a sink may let go of it.
  void View_Changed(IDataObject& data);
  void Tell_View_Sink();  // alone
  void Saved();
  void Closed();

 private:
  ComPtr<IOleAdviseHolder> object_sinks_;
  ComPtr<IDataAdviseHolder> data_sinks_;
  ComPtr<IAdviseSink> view_sink_;
  DWORD view_aspects_ = 0;
  DWORD view_flags_ = 0;
};

}  // namespace quillspeech::activex
