#include "activex/persist_stream_init.hpp"

#include <gtest/gtest.h>

#include <random>

#include "activex/stored_record.hpp"
#include "tests/activex/memory_stream.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

class PersistStreamTest : public OleTest {
 protected:
  ComPtr<IPersistStreamInit> Persist() { return As<IPersistStreamInit>(); }
  HRESULT Load(const std::string& bytes) { return Persist()->Load(Stream_Of(bytes).Get()); }
  std::string Saved() {
    const auto stream = Stream_Of("");
    EXPECT_EQ(Persist()->Save(stream.Get(), TRUE), S_OK);
    return Bytes_Of(*stream);
  }
};

TEST_F(PersistStreamTest, A_new_control_has_the_settings_of_its_initialisation) {
  EXPECT_EQ(Persist()->InitNew(), S_OK);
  EXPECT_EQ(Get("Play_this_file_for_Start"), "start.wav");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), "UserTemp.SAY");
}

TEST_F(PersistStreamTest, A_control_is_initialised_once) {
  EXPECT_EQ(Persist()->InitNew(), S_OK);
  EXPECT_EQ(Persist()->InitNew(), E_UNEXPECTED);
  EXPECT_EQ(As<IPersistPropertyBag>()->InitNew(), E_UNEXPECTED);
}

TEST_F(PersistStreamTest, A_control_that_was_loaded_is_not_initialised_any_more) {
  EXPECT_EQ(Load(StoredRecord().Bytes()), S_OK);
  Let("Noise_Sensitivity", "9");
  EXPECT_EQ(Persist()->InitNew(), E_UNEXPECTED);
  EXPECT_EQ(As<IPersistPropertyBag>()->InitNew(), E_UNEXPECTED);
  EXPECT_EQ(Get("Noise_Sensitivity"), "9");
}

TEST_F(PersistStreamTest, A_control_that_was_initialised_may_be_loaded) {
  EXPECT_EQ(Persist()->InitNew(), S_OK);
  EXPECT_EQ(Load(StoredRecord().Bytes()), S_OK);
  EXPECT_EQ(Get("Play_this_file_for_Start"), "");
}

TEST_F(PersistStreamTest, What_was_saved_comes_back) {
  Persist()->InitNew();
  Let("Noise_Sensitivity", "9");
  Let("Speech_echo_feature", "YES");
  Let("Consider_this_Engine_for_Recognition",
      "C:\\My \xDC"
      "ber.EGN");
  const std::string saved = Saved();
  Forget_Settings(session());
  EXPECT_EQ(Load(saved), S_OK);
  EXPECT_EQ(Get("Noise_Sensitivity"), "9");
  EXPECT_EQ(Get("Speech_echo_feature"), "YES");
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"),
            "C:\\My \xDC"
            "ber.EGN");
  EXPECT_EQ(Saved(), saved);
}

TEST_F(PersistStreamTest, What_was_not_saved_has_its_default) {
  EXPECT_EQ(Load(StoredRecord().Bytes()), S_OK);
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), "User.SAY");
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "7000");
  EXPECT_EQ(Get("Play_this_file_for_Start"), "");
}

TEST_F(PersistStreamTest, A_load_reads_its_record_and_nothing_behind_it) {
  const auto stream = Stream_Of(StoredRecord().Bytes() + "more");
  EXPECT_EQ(Persist()->Load(stream.Get()), S_OK);
  char rest[5] = {};
  EXPECT_EQ(stream->Read(rest, 4, nullptr), S_OK);
  EXPECT_STREQ(rest, "more");
}

TEST_F(PersistStreamTest, It_is_dirty_from_a_change_until_it_is_saved_or_loaded) {
  EXPECT_EQ(Persist()->IsDirty(), S_FALSE);
  Let("Noise_Sensitivity", "9");
  EXPECT_EQ(Persist()->IsDirty(), S_OK);
  const auto stream = Stream_Of("");
  EXPECT_EQ(Persist()->Save(stream.Get(), FALSE), S_OK);
  EXPECT_EQ(Persist()->IsDirty(), S_OK);  // a copy
  const std::string saved = Saved();
  EXPECT_EQ(Persist()->IsDirty(), S_FALSE);
  Let("Noise_Sensitivity", "8");
  EXPECT_EQ(Load(saved), S_OK);
  EXPECT_EQ(Persist()->IsDirty(), S_FALSE);
}

TEST_F(PersistStreamTest, Sinks_hear_of_a_save) {
  DWORD cookie = 0;
  EXPECT_EQ(As<IOleObject>()->Advise(&container, &cookie), S_OK);
  container.Expect({"OnSave"});
  Saved();
  EXPECT_EQ(As<IOleObject>()->Unadvise(cookie), S_OK);
}

TEST_F(PersistStreamTest, A_save_takes_no_more_bytes_than_it_said) {
  Persist()->InitNew();
  Let("Consider_this_Engine_for_Recognition", std::string(5000, 'x'));
  ULARGE_INTEGER most = {};
  EXPECT_EQ(Persist()->GetSizeMax(&most), S_OK);
  EXPECT_GE(most.QuadPart, Saved().size());
  EXPECT_LT(most.QuadPart, 10000u);
}

TEST_F(PersistStreamTest, Measuring_a_save_does_not_save) {
  Persist()->InitNew();
  session().settings.Digital_Signal_Processing_Level = 256;
  ULARGE_INTEGER most = {};
  EXPECT_EQ(Persist()->GetSizeMax(&most), S_OK);
  EXPECT_EQ(session().settings.Digital_Signal_Processing_Level, 256);
}

TEST_F(PersistStreamTest, It_tells_its_class) {
  CLSID id = {};
  EXPECT_EQ(Persist()->GetClassID(&id), S_OK);
  EXPECT_TRUE(IsEqualCLSID(id, CLSID_Quillspeech));
  EXPECT_EQ(Persist()->GetClassID(nullptr), E_POINTER);
}

TEST_F(PersistStreamTest, Pointers_to_nowhere_are_refused) {
  EXPECT_EQ(Persist()->Load(nullptr), E_POINTER);
  EXPECT_EQ(Persist()->Save(nullptr, TRUE), E_POINTER);
  EXPECT_EQ(Persist()->GetSizeMax(nullptr), E_POINTER);
}

TEST_F(PersistStreamTest, A_failed_load_is_the_code_of_its_failure_and_leaves_no_words) {
  SetErrorInfo(0, nullptr);
  StoredRecord record;
  record.WriteProperty("Noise_Sensitivity", std::string("many"), MemberValue());
  EXPECT_EQ(Load(record.Bytes()), static_cast<HRESULT>(0x800A000D));
  ComPtr<IErrorInfo> error;
  EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_FALSE);
}

TEST_F(PersistStreamTest, A_table_that_is_indexed_out_of_its_bounds_fails_a_save_and_its_measure) {
  session().settings.Send_of_no = 5000;
  const auto stream = Stream_Of("");
  ULARGE_INTEGER most = {};
  EXPECT_EQ(Persist()->Save(stream.Get(), TRUE), static_cast<HRESULT>(0x800A0009));
  EXPECT_EQ(Persist()->GetSizeMax(&most), static_cast<HRESULT>(0x800A0009));
  SetErrorInfo(0, nullptr);
}

TEST_F(PersistStreamTest, A_record_that_is_cut_short_anywhere_is_refused_and_changes_nothing) {
  Persist()->InitNew();
  Let("Noise_Sensitivity", "9");
  const std::string saved = Saved();
  ASSERT_GT(saved.size(), 100u);
  Let("Noise_Sensitivity", "5");
  for (std::size_t length = 0; length < saved.size(); ++length) {
    ASSERT_TRUE(FAILED(Load(saved.substr(0, length)))) << length;
  }
  EXPECT_EQ(Get("Noise_Sensitivity"), "5");
  EXPECT_EQ(Load(saved), S_OK);
}

TEST_F(PersistStreamTest, Bytes_that_were_changed_at_random_never_do_harm) {
  Persist()->InitNew();
  const std::string saved = Saved();
  std::mt19937 random(20260101);
  int refused = 0;
  for (int i = 0; i < 3000; ++i) {
    std::string damaged = saved;
    for (int n = 0; n < 3; ++n) damaged[random() % damaged.size()] = static_cast<char>(random());
    refused += FAILED(Load(damaged)) ? 1 : 0;
  }
  EXPECT_GT(refused, 1000);
  SetErrorInfo(0, nullptr);
  session().settings.Send_of_no = 0;
}

TEST_F(PersistStreamTest, Noise_is_no_record) {
  std::mt19937 random(7);
  for (int i = 0; i < 500; ++i) {
    std::string noise(random() % 300, '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    ASSERT_TRUE(FAILED(Load(noise)));
  }
}

}  // namespace
}  // namespace quillspeech::activex::tests
