#include "recognition/engine_table.hpp"

#include <array>
#include <string>
#include <string_view>

#include "recognition/like_match.hpp"
#include "session/failure_trap.hpp"
#include "session/open_records.hpp"

namespace quillspeech {
namespace {

struct LetterGroup {
  int first;  // categories
  int last;
  std::string_view letters;
};

// Neighbours overlap: a language file's patterns are written over exactly these letters.
constexpr std::array<LetterGroup, 11> Built_In_Groups = {{{0, 0, "_"},
                                                          {1, 1, "dbtrvgp"},
                                                          {2, 5, "dbtrvgpunmle"},
                                                          {6, 7, "oa"},
                                                          {8, 13, "aAA"},
                                                          {14, 22, "AkgH"},
                                                          {23, 25, "AkgHfthjj"},
                                                          {26, 30, "AkgHfthjjs"},
                                                          {31, 49, "fthjjs"},
                                                          {50, 69, "s"},
                                                          {70, 70, "sx"}}};

void Refuse_Name(Session& session) {
  Show_Box(session, "Please see if you have provided correctly the location of the engine file",
           "Quillspeech CRITICAL USER ERROR");
  session.operations.Stop_And_Recover(session);
}

void Load_Engine_File(Session& session) {
  Open_Records(session.data, session.data.EgnRecord, session.ports.data_files,
               session.settings.Consider_this_Engine_for_Recognition);
  // The last slot stays out: a category of 100 keeps what the table held before.
  for (int category = 0; category < datafiles::EgnRecord::Last_Slot; ++category) {
    session.filter.Engine_Table[category] = session.data.EgnRecord.EngineSlots(category);
  }
  session.data.Main_File_Number.Close();
}

}  // namespace

void Load_Default_Engine_Table(Session& session) {
  for (const LetterGroup& group : Built_In_Groups) {
    for (int category = group.first; category <= group.last; ++category) {
      session.filter.Engine_Table[category] = group.letters;
    }
  }
}

bool Is_Engine_File_Name(std::string_view name) {
  return Like_Match(name, "*.EGN") || Like_Match(name, "*.egn");
}

void Load_Engine(Session& session) {
  const std::string& name = session.settings.Consider_this_Engine_for_Recognition;
  if (name.empty()) {
    Load_Default_Engine_Table(session);
  } else if (!Is_Engine_File_Name(name)) {
    Refuse_Name(session);
  } else {
    Run_Trapped(session, [&] { Load_Engine_File(session); });
  }
}

}  // namespace quillspeech
