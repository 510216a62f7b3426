#include "analysis/word_slicing.hpp"

#include "analysis/file_slice_analysis.hpp"
#include "base/rounding.hpp"

namespace quillspeech {

void Number_Slices(WordTables& words, std::int64_t length, std::int64_t slice_bytes) {
  words.No_of_Processings =
      Round_To_16(static_cast<double>(length) / static_cast<double>(slice_bytes)).Raw();
  words.Middle_Slice_Number = Rounded_Quotient(words.No_of_Processings, 2);
}

void Analyse_Numbered_Slice(Session& session, std::int64_t start, std::int64_t overlap,
                            SliceAnalysis analyse) {
  const WordTables& words = session.words;
  const Settings& settings = session.settings;
  const std::string& start_only = settings.This_speech_sample_process_Start_only;
  const std::string& middle_only = settings.This_speech_sample_process_middle_only;
  const std::string& end_only = settings.This_speech_sample_process_end_only;
  const std::int64_t number = words.Current_Vyanjana_no_Processed;
  const std::int64_t slice_bytes = settings.Sample_processing_resolution;
  const std::int64_t base = start + (number - 1) * slice_bytes;
  const std::int64_t top = start + number * slice_bytes;
  if (start_only == "YES" && number == 1) analyse(session, base, top);
  if (end_only == "YES" && number == words.No_of_Processings) analyse(session, base, top);
  if (middle_only == "YES" && number == words.Middle_Slice_Number) analyse(session, base, top);
  if (start_only == "NO" && middle_only == "NO" && end_only == "NO") {
    analyse(session, base - overlap, top);
  }
}

namespace {

void Analyse_File_Slices(Session& session, std::int64_t start, std::int64_t length) {
  WordTables& words = session.words;
  Number_Slices(words, length, session.settings.Sample_processing_resolution);
  const std::int64_t last = words.No_of_Processings;
  for (std::int64_t number = 1; number <= last; ++number) {
    words.Current_Vyanjana_no_Processed = number;
    Analyse_Numbered_Slice(session, start, 0, Analyse_File_Slice);
  }
}

}  // namespace

void Analyse_File_Word(Session& session, std::int64_t first_byte, std::int64_t last_byte,
                       std::int64_t longest) {
  constexpr std::int64_t Idle_Bytes = 100;
  constexpr std::int64_t Short_Word_Bytes = 2'000;
  const std::int64_t length = last_byte - first_byte;
  const Checked32& slice_bytes = session.settings.Sample_processing_resolution;
  if (length > Idle_Bytes && length <= Short_Word_Bytes) {
    Analyse_File_Slice(session, first_byte, last_byte);
  }
  if (length > Short_Word_Bytes && length <= longest && slice_bytes == 0) {
    Analyse_File_Slice(session, first_byte, last_byte);
  }
  if (length > 0 && length <= longest && slice_bytes != 0 && length > slice_bytes) {
    Analyse_File_Slices(session, first_byte, length);
  }
  if (length <= slice_bytes) Analyse_File_Slice(session, first_byte, last_byte);
}

}  // namespace quillspeech
