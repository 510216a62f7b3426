#include "editors/voc_record_states.hpp"

namespace quillspeech {

using datafiles::VocRecord;

void Copy_Curve(const VocRecord& from, VocRecord& to) {
  to.VocabularyName(from.VocabularyName());
  for (int i = 0; i <= from.VocabularySampleCount(); ++i) {
    to.VocabularySamples(i, from.VocabularySamples(i));
  }
  to.VocabularySampleCount(from.VocabularySampleCount());
}

void Make_Deleted(VocRecord& record) {
  record.VocabularyName("");
  for (int i = 0; i <= record.VocabularySampleCount(); ++i) record.VocabularySamples(i, 0);
  record.VocabularySampleCount(0);
}

}  // namespace quillspeech
