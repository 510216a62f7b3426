#include "activex/persist_storage.hpp"

#include <gtest/gtest.h>

#include "tests/activex/memory_stream.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

class PersistStorageTest : public OleTest {
 protected:
  PersistStorageTest() {
    CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Receive());
    StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE,
                                 0, storage.Receive());
    EXPECT_TRUE(storage);
  }
  ComPtr<IPersistStorage> Persist() { return As<IPersistStorage>(); }
  // Each is begun or loaded once.
  void Make_Another() {
    control = New_Control();
    terminations = 0;
  }

  ComPtr<ILockBytes> bytes;
  ComPtr<IStorage> storage;
};

TEST_F(PersistStorageTest, What_was_saved_comes_back) {
  EXPECT_EQ(Persist()->InitNew(storage.Get()), S_OK);
  Let("Noise_Sensitivity", "9");
  EXPECT_EQ(Persist()->Save(storage.Get(), TRUE), S_OK);
  EXPECT_EQ(Persist()->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(Persist()->IsDirty(), S_FALSE);
  Forget_Settings(session());
  Make_Another();
  EXPECT_EQ(Persist()->Load(storage.Get()), S_OK);
  EXPECT_EQ(Get("Noise_Sensitivity"), "9");
  EXPECT_EQ(Persist()->Load(storage.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(Persist()->InitNew(storage.Get()), CO_E_ALREADYINITIALIZED);
}

TEST_F(PersistStorageTest, A_control_that_was_initialised_elsewhere_is_not_initialised_again) {
  EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(Persist()->InitNew(storage.Get()), CO_E_ALREADYINITIALIZED);
}

TEST_F(PersistStorageTest, A_copy_leaves_it_dirty_until_the_copy_is_its_own) {
  EXPECT_EQ(Persist()->InitNew(storage.Get()), S_OK);
  EXPECT_EQ(Persist()->Save(storage.Get(), FALSE), S_OK);
  DWORD cookie = 0;
  EXPECT_EQ(As<IOleObject>()->Advise(&container, &cookie), S_OK);
  EXPECT_EQ(Persist()->SaveCompleted(nullptr), S_OK);  // and nobody is told of a copy
  EXPECT_EQ(Persist()->IsDirty(), S_OK);
  EXPECT_EQ(Persist()->Save(storage.Get(), FALSE), S_OK);
  EXPECT_EQ(Persist()->HandsOffStorage(), S_OK);
  container.Expect({"OnSave"});
  EXPECT_EQ(Persist()->SaveCompleted(storage.Get()), S_OK);
  EXPECT_EQ(Persist()->IsDirty(), S_FALSE);
  EXPECT_EQ(As<IOleObject>()->Unadvise(cookie), S_OK);
}

TEST_F(PersistStorageTest, Calls_out_of_turn_are_refused) {
  EXPECT_EQ(Persist()->SaveCompleted(nullptr), E_UNEXPECTED);
  EXPECT_EQ(Persist()->HandsOffStorage(), E_UNEXPECTED);
  EXPECT_EQ(Persist()->InitNew(storage.Get()), S_OK);
  EXPECT_EQ(Persist()->InitNew(storage.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(Persist()->Load(storage.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(Persist()->HandsOffStorage(), S_OK);
  EXPECT_EQ(Persist()->Load(storage.Get()), CO_E_ALREADYINITIALIZED);
  EXPECT_EQ(Persist()->Save(storage.Get(), TRUE), E_UNEXPECTED);
  EXPECT_EQ(Persist()->SaveCompleted(nullptr), E_INVALIDARG);
  EXPECT_EQ(Persist()->SaveCompleted(storage.Get()), S_OK);
}

TEST_F(PersistStorageTest, A_storage_without_its_stream_or_with_a_damaged_one_is_refused) {
  EXPECT_EQ(Persist()->Load(storage.Get()), STG_E_FILENOTFOUND);
  ComPtr<IStream> stream;
  storage->CreateStream(L"Quillspeech", STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                        stream.Receive());
  stream->Write("QuillRec", 8, nullptr);
  stream = nullptr;
  EXPECT_EQ(Persist()->Load(storage.Get()), STG_E_DOCFILECORRUPT);
}

TEST_F(PersistStorageTest, It_holds_no_storage_between_two_calls) {
  EXPECT_EQ(Persist()->InitNew(storage.Get()), S_OK);
  EXPECT_EQ(Persist()->Save(storage.Get(), TRUE), S_OK);
  EXPECT_EQ(storage->AddRef(), 2u);
  storage->Release();
}

TEST_F(PersistStorageTest, Pointers_to_nowhere_are_refused) {
  EXPECT_EQ(Persist()->InitNew(nullptr), E_POINTER);
  EXPECT_EQ(Persist()->Load(nullptr), E_POINTER);
  EXPECT_EQ(Persist()->Save(nullptr, TRUE), E_POINTER);
}

}  // namespace
}  // namespace quillspeech::activex::tests
