#include "activex/stored_record.hpp"

#include <gtest/gtest.h>

#include "tests/activex/memory_stream.hpp"

namespace quillspeech::activex::tests {
namespace {

using namespace std::string_literals;

HRESULT Reading(const std::string& bytes) {
  StoredRecord record;
  return record.Read_From(*Stream_Of(bytes));
}

const std::string Head = "QuillRec\1\0"s;

TEST(StoredRecord, It_keeps_what_differs_from_its_default) {
  StoredRecord record;
  record.WriteProperty("Noise_Sensitivity", std::int16_t{5}, std::int16_t{3});
  record.WriteProperty("Words_to_Scan", std::int32_t{1}, std::int32_t{1});
  EXPECT_EQ(record.ReadProperty("Noise_Sensitivity", std::int16_t{3}),
            MemberValue(std::int16_t{5}));
  EXPECT_EQ(record.ReadProperty("Words_to_Scan", std::int32_t{7}), MemberValue(std::int32_t{7}));
}

TEST(StoredRecord, Its_bytes_are_laid_out_as_told) {
  StoredRecord record;
  record.WriteProperty("Words_to_Scan", std::int32_t{-2}, {});
  record.WriteProperty("Send_of_no", std::int16_t{258}, {});
  record.WriteProperty("Voice_Word", "th\0 "s, {});
  record.WriteProperty("Play_File", true, {});
  EXPECT_EQ(record.Bytes(), Head + "\4\0"s +                        //
                                "\x09Play_File\4\1"s +              //
                                "\x0ASend_of_no\2\2\1"s +           //
                                "\x0AVoice_Word\1\4\0\0\0th\0 "s +  //
                                "\x0DWords_to_Scan\3\xFE\xFF\xFF\xFF"s);
}

TEST(StoredRecord, Every_type_comes_back_from_a_stream) {
  StoredRecord record;
  record.WriteProperty("Words_to_Scan", std::int32_t{-2000000000}, {});
  record.WriteProperty("Send_of_no", std::int16_t{-32768}, {});
  record.WriteProperty("Voice_Word", std::string(100'000, 'v'), {});
  record.WriteProperty("Play_File", false, {});
  const auto stream = Stream_Of("");
  EXPECT_EQ(record.Write_To(*stream), S_OK);
  StoredRecord read;
  EXPECT_EQ(read.Read_From(*Stream_Of(Bytes_Of(*stream))), S_OK);
  EXPECT_EQ(read, record);
}

TEST(StoredRecord, What_is_damaged_is_told_by_its_code) {
  struct Case {
    const char* what;
    std::string bytes;
    HRESULT code;
  };
  const Case cases[] = {
      {"nothing", "", STG_E_DOCFILECORRUPT},
      {"another kind", "QuillRex\1\0\0\0"s, STG_E_INVALIDHEADER},
      {"a later version", "QuillRec\2\0\0\0"s, STG_E_OLDDLL},
      {"no count", Head + "\1", STG_E_DOCFILECORRUPT},
      {"fewer keys than told", Head + "\1\0"s, STG_E_DOCFILECORRUPT},
      {"a key without a name", Head + "\1\0\0\2\1\0"s, STG_E_DOCFILECORRUPT},
      {"a type that there is not", Head + "\1\0\1A\x09\1\0"s, STG_E_DOCFILECORRUPT},
      {"a truth that is neither", Head + "\1\0\1A\4\2"s, STG_E_DOCFILECORRUPT},
      {"a key that comes twice", Head + "\2\0\1A\4\1\1A\4\1"s, STG_E_DOCFILECORRUPT},
      {"a text longer than the stream", Head + "\1\0\1A\1\xFF\xFF\xFF\xFFtext"s,
       STG_E_DOCFILECORRUPT},
  };
  for (const Case& one : cases) EXPECT_EQ(Reading(one.bytes), one.code) << one.what;
  EXPECT_EQ(Reading(Head + "\0\0"s), S_OK);
}

TEST(StoredRecord, A_record_that_was_read_in_vain_is_as_it_was) {
  StoredRecord record;
  record.WriteProperty("Words_to_Scan", std::int32_t{5}, {});
  const StoredRecord before = record;
  EXPECT_TRUE(FAILED(record.Read_From(*Stream_Of(Head + "\2\0\1A\4\1"s))));
  EXPECT_EQ(record, before);
}

}  // namespace
}  // namespace quillspeech::activex::tests
