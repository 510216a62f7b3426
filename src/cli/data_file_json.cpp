#include "cli/data_file_json.hpp"

#include "cli/data_file_json_forms.hpp"

namespace quillspeech::cli {

std::string_view Kind_Name(DataFileKind kind) {
  switch (kind) {
    case DataFileKind::Language:
      return "language";
    case DataFileKind::Engine:
      return "engine";
    case DataFileKind::Vocabulary:
      return "vocabulary";
  }
  return {};
}

std::optional<DataFileKind> Kind_Of_Name(std::string_view name) {
  for (const auto kind : {DataFileKind::Language, DataFileKind::Engine, DataFileKind::Vocabulary}) {
    if (Kind_Name(kind) == name) return kind;
  }
  return std::nullopt;
}

int Record_Bytes(DataFileKind kind) {
  return data_file_json::With_Record(kind, []<class Record>() { return Record::Record_Bytes; });
}

}  // namespace quillspeech::cli
