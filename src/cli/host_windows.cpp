#include "cli/host_windows.hpp"

#include <utility>

namespace quillspeech::cli {

void HostWindows::Watch(headless::FormViews& views) {
  views.At_Showing = [this](const Form& form, bool is_shown, Modality modality) {
    told_(form.Name(), is_shown, modality == Modality::Modal);
  };
}

void HostWindows::Watch(Operations& operations) {
  operations.Show_Status_Image = [this, show = operations.Show_Status_Image](Session& session,
                                                                             int image) {
    Note_Shown("StatusBar");
    show(session, image);
  };
  operations.Draw_Audio_Graph = [this, draw = operations.Draw_Audio_Graph](Session& session) {
    Note_Shown("Graph");
    draw(session);
  };
  Watch_Unload(operations.Unload_Graph, "Graph");
  Watch_Unload(operations.Unload_StatusBar, "StatusBar");
}

void HostWindows::Watch_Unload(Operations::Procedure& unload, const std::string& name) {
  unload = [this, name, unload_it = unload](Session& session) {
    unload_it(session);
    Note_Gone(name);
  };
}

void HostWindows::Note_Shown(const std::string& name) {
  if (shown_.insert(name).second) told_(name, true, false);
}

void HostWindows::Note_Gone(const std::string& name) {
  if (shown_.erase(name) != 0) told_(name, false, false);
}

}  // namespace quillspeech::cli
