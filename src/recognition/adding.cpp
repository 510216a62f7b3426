#include "recognition/adding.hpp"

#include <cstdint>
#include <string>
#include <string_view>

#include "base/text.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;

bool Is_Wanted(Session& session, std::string_view text) {
  const Settings& settings = session.settings;
  const std::string question =
      "Add the produced Engine Strings  " + std::string(text) +
      " to your specified record no :  " + std::to_string(settings.Direct_Add.Raw()) +
      " of the file  " + settings.Consider_this_Lang_File_to_Add;
  return Show_Box(session, question, "Quillspeech Language Editor", BoxIcon::None,
                  BoxButtons::YesNo) == BoxAnswer::Yes;
}

// Makes the record that Direct_Add names the current one. A number past the end is pulled back to
// the last record, in the setting too: to 0 in an empty file, which is no record to read.
void Read_Record(Session& session) {
  OpenDataFile& data = session.data;
  Checked32& number = session.settings.Direct_Add;
  data.Main_File_Number.Open(session.ports.data_files,
                             session.settings.Consider_this_Lang_File_to_Add,
                             SayRecord::Record_Bytes);
  data.Main_Record_Count = data.Main_File_Number.Record_Count();
  if (number > data.Main_Record_Count) number = data.Main_Record_Count;
  data.Main_File_Number.Read(number, data.SayRecord.Bytes(), SayRecord::Missing_Byte);
  data.SayRecord.RecordNo(number.Raw());
}

void Add_Pattern(Session& session, std::string_view text) {
  constexpr std::int16_t Confirmed_Rating = 100;
  SayRecord& record = session.data.SayRecord;
  const Checked16 count = record.LikeCount() + 1;
  if (count > SayRecord::Most_Likes) {
    Show_Box(session, "Sorry, this file type Lang does not permit entries above 30.",
             "Quillspeech");
    return;
  }
  record.LikeCount(count.Raw());
  record.LikeProtocols(count, text);
  record.LikeRatings(count, Confirmed_Rating);
  session.data.Main_File_Number.Write(record.RecordNo(), record.Bytes());
}

}  // namespace

void Add_Engine_String_To_Language(Session& session) {
  const std::string text = Trimmed(session.filter.Voice_Word_Table[1]);
  if (!Is_Wanted(session, text)) return;
  Settings& settings = session.settings;
  if (settings.Direct_Add == 0) settings.Direct_Add = 1;
  if (settings.Consider_this_Lang_File_to_Add.empty()) {
    Show_Box(session, "Please specify your language file location", "Quillspeech Info",
             BoxIcon::Information);
    return;
  }
  Read_Record(session);
  Add_Pattern(session, text);
  session.data.Main_File_Number.Close();
}

}  // namespace quillspeech
