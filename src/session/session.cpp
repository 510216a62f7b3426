#include "session/session.hpp"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "base/angle_table.hpp"
#include "base/text.hpp"

namespace quillspeech {

Session::Session(const Ports& platform) : ports(platform) {
  slice.angle_tables = std::make_shared<AngleTables>();
}

Session::~Session() {
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer2, FormTimer::Timer3,
                                FormTimer::Timer4, FormTimer::Timer5}) {
    ports.events.Enable(timer, false);
    ports.events.On_Tick(timer, [] {});
  }
}

bool Is_Stopped(const Session& session) { return session.settings.Stop_everything_now == "YES"; }

void Clear_Result_Tables(Results& results) {
  results.Platinum_Words_Available = 0;
  results.Platinum_Word_Table.Fill({});
  results.Platinum_Best_Table.Fill({});
  results.Platinum_Word_Font.clear();
  results.Platinum_Score_Table.Fill(0);
}

void Reset_Results(Session& session) {
  session.flags.File_Run_Active = 0;
  Clear_Result_Tables(session.results);
}

namespace {

bool Names_Design_Environment(std::string_view path) {
  constexpr std::size_t Usable_Characters = 261;
  path = path.substr(0, std::min(Usable_Characters, path.find('\0')));
  const auto separator = path.find_last_of("\\:");
  const auto name =
      Lower_Case(separator == std::string_view::npos ? path : path.substr(separator + 1));
  constexpr std::array<std::string_view, 5> Names = {"vb.exe", "vb32.exe", "vb5.exe", "vb5cce.exe",
                                                     "vb6.exe"};
  return std::find(Names.begin(), Names.end(), name) != Names.end();
}

}  // namespace

std::int16_t Is_Design_Environment(Session& session) {
  Flags& flags = session.flags;
  if (flags.Design_Environment_Tested) return flags.Design_Environment_Result;
  flags.Design_Environment_Tested = True;
  try {
    const auto path = session.ports.host.Path();
    if (path && Names_Design_Environment(*path)) flags.Design_Environment_Result = True;
  } catch (...) {  // NOLINT(bugprone-empty-catch): a host that cannot be told is an ordinary one
  }
  return flags.Design_Environment_Result;
}

BoxAnswer Show_Box(Session& session, std::string_view text, std::string_view title, BoxIcon icon,
                   BoxButtons buttons) {
  return session.ports.boxes.Show({std::string(title), std::string(text), buttons, icon});
}

std::string Ask_Text(Session& session, std::string_view prompt, std::string_view title,
                     std::string_view text) {
  return session.ports.dialogs.Ask_Text(
      {std::string(title), std::string(prompt), std::string(text)});
}

std::string Ask_File(Session& session, std::string_view title, std::string_view pattern,
                     std::string_view name) {
  return session.ports.dialogs.Ask_File(
      {std::string(title), std::string(pattern), std::string(name)});
}

}  // namespace quillspeech
