#include "cli/host_windows.hpp"

#include <utility>

namespace quillspeech::cli {

void HostWindows::Watch(Operations& operations) {
  Watch_Modal(operations.Show_Splash, "Splash");
  Watch_Modal(operations.Show_Help, "Help");
  operations.Show_Status_Image = [this, show = operations.Show_Status_Image](Session& session,
                                                                             int image) {
    Note_Shown("StatusBar");
    show(session, image);
  };
  operations.Draw_Audio_Graph = [this, draw = operations.Draw_Audio_Graph](Session& session) {
    Note_Shown("Graph");
    draw(session);
  };
  operations.Show_Database = [this, show = operations.Show_Database](Session& session, bool modal) {
    if (!modal) Note_Shown("Database");
    if (modal) told_("Database", true, true);
    show(session, modal);
    if (modal) told_("Database", false, true);
  };
  Watch_Unload(operations.Unload_Graph, "Graph");
  Watch_Unload(operations.Unload_StatusBar, "StatusBar");
  Watch_Unload(operations.Unload_Database, "Database");
  Watch_Unload(operations.Unload_Help, "Help");
}

void HostWindows::Watch_Modal(Operations::Procedure& show, const std::string& name) {
  show = [this, name, show_it = show](Session& session) {
    told_(name, true, true);
    show_it(session);
    told_(name, false, true);
  };
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
