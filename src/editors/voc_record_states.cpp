#include "editors/voc_record_states.hpp"

#include "base/run_time_failure.hpp"

namespace quillspeech {

using datafiles::VocRecord;

namespace {

// Before anything changes, so that a damaged record stays as it is.
void Check_Count(const VocRecord& record) {
  if (record.VocabularySampleCount() > VocRecord::Last_Sample) {
    Fail(Failure::Subscript_Out_Of_Range);
  }
}

}  // namespace

void Copy_Curve(const VocRecord& from, VocRecord& to) {
  Check_Count(from);
  to.VocabularyName(from.VocabularyName());
  for (int i = 0; i <= from.VocabularySampleCount(); ++i) {
    to.VocabularySamples(i, from.VocabularySamples(i));
  }
  to.VocabularySampleCount(from.VocabularySampleCount());
}

void Make_Deleted(VocRecord& record) {
  Check_Count(record);
  record.VocabularyName("");
  for (int i = 0; i <= record.VocabularySampleCount(); ++i) record.VocabularySamples(i, 0);
  record.VocabularySampleCount(0);
}

}  // namespace quillspeech
