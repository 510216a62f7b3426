#include "activex/persist_property_bag.hpp"

#include <gtest/gtest.h>

#include <map>

#include "activex/errors.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

// A container's bag, with values of any type.
class TestBag final : public IPropertyBag {
 public:
  ~TestBag() { EXPECT_EQ(references_, 0u); }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override {
    reads.push_back(name);
    if (name == failing) return Failed();
    const auto kept = values.find(name);
    return kept == values.end() ? E_INVALIDARG : VariantCopy(value, &kept->second);
  }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override {
    if (name == failing) return Failed();
    writes.push_back(name);
    return VariantCopy(&values[name], value);
  }

  void Put(const std::wstring& name, const wchar_t* text) {
    values[name].vt = VT_BSTR;
    values[name].bstrVal = SysAllocString(text);
  }
  void Put(const std::wstring& name, double number) {
    values[name].vt = VT_R8;
    values[name].dblVal = number;
  }

  std::map<std::wstring, ScopedVariant> values;
  std::vector<std::wstring> reads;
  std::vector<std::wstring> writes;
  std::wstring failing;
  HRESULT failure = E_ACCESSDENIED;
  bool tells = false;  // in words of its own

 private:
  HRESULT Failed() const {
    if (tells) Tell_Failure(70);
    return failure;
  }

  ULONG references_ = 0;
};

class PersistBagTest : public OleTest {
 protected:
  ComPtr<IPersistPropertyBag> Persist() { return As<IPersistPropertyBag>(); }
  TestBag bag;
};

TEST_F(PersistBagTest, A_load_asks_for_every_key_in_order_and_for_the_stop_twice) {
  EXPECT_EQ(Persist()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(bag.reads.size(), 71u);
  EXPECT_EQ(bag.reads.front(), L"Stop_everything_now");
  EXPECT_EQ(bag.reads.back(), L"Words_to_Scan");
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "7000");
}

TEST_F(PersistBagTest, Values_of_any_type_are_converted) {
  bag.Put(L"Noise_Sensitivity", L" 12 ");
  bag.Put(L"Speech_sampling_time_in_ms", 5000.5);
  bag.Put(L"Operation_Status", L"  Finish ");
  EXPECT_EQ(Persist()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(Get("Noise_Sensitivity"), "12");
  EXPECT_EQ(session().settings.Speech_sampling_time_in_ms, 5000);
  EXPECT_EQ(Get("Operation_Status"), "Finish");
}

TEST_F(PersistBagTest, A_value_that_cannot_be_converted_ends_the_load_with_its_number) {
  bag.Put(L"Noise_Sensitivity", L"many");
  EXPECT_EQ(Persist()->Load(&bag, nullptr), static_cast<HRESULT>(0x800A000D));
  bag.Put(L"Noise_Sensitivity", 40000.0);
  EXPECT_EQ(Persist()->Load(&bag, nullptr), static_cast<HRESULT>(0x800A0006));
  SetErrorInfo(0, nullptr);
}

TEST_F(PersistBagTest, An_error_of_the_bag_ends_the_load_and_goes_out) {
  bag.failing = L"Memory_Clean";
  EXPECT_EQ(Persist()->Load(&bag, nullptr), E_ACCESSDENIED);
  EXPECT_EQ(bag.reads.back(), L"Memory_Clean");
}

TEST_F(PersistBagTest, The_words_with_an_error_of_the_bag_are_its_own_or_none) {
  ComPtr<IErrorInfo> error;
  bag.failing = L"Stop_everything_now";
  Tell_Failure(9);  // of something else, before
  EXPECT_EQ(Persist()->Load(&bag, nullptr), E_ACCESSDENIED);
  EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_FALSE);
  Tell_Failure(9);
  EXPECT_EQ(Persist()->Save(&bag, TRUE, TRUE), E_ACCESSDENIED);
  EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_FALSE);
  bag.tells = true;
  EXPECT_EQ(Persist()->Load(&bag, nullptr), E_ACCESSDENIED);
  EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_OK);
  EXPECT_EQ(Persist()->Save(&bag, TRUE, TRUE), E_ACCESSDENIED);
  EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_OK);
}

TEST_F(PersistBagTest, A_fresh_control_saves_what_differs_from_the_defaults) {
  EXPECT_EQ(Persist()->InitNew(), S_OK);
  EXPECT_EQ(Persist()->Save(&bag, TRUE, FALSE), S_OK);
  const std::vector<std::wstring> differing = {
      L"Consider_this_Lang_File_to_Add",
      L"Consider_this_Lang_File_to_match",
      L"Direct_Add",
      L"Keep_Digital_Signal_Processing_level",  // which the initialisation leaves empty
      L"Platinum_Word_Font",
      L"Play_this_file_for_Start",
      L"Play_this_file_for_Stop",
      L"Play_this_file_on_Initialization",
      L"Words_I_Want",  // of word 0, which nobody has set
  };
  EXPECT_EQ(bag.writes, differing);
  EXPECT_EQ(std::wstring(bag.values[L"Direct_Add"].bstrVal), L"NO");
}

TEST_F(PersistBagTest, A_save_of_all_properties_leaves_no_key_out) {
  EXPECT_EQ(Persist()->InitNew(), S_OK);
  EXPECT_EQ(Persist()->Save(&bag, TRUE, TRUE), S_OK);
  EXPECT_EQ(bag.values.size(), Record_Key_Count);
  EXPECT_EQ(bag.values[L"Noise_Sensitivity"].vt, VT_I2);
  EXPECT_EQ(bag.values[L"Words_to_Scan"].vt, VT_I4);
  EXPECT_EQ(bag.values[L"Memory_Clean"].vt, VT_BSTR);
}

TEST_F(PersistBagTest, What_was_saved_comes_back) {
  Persist()->InitNew();
  Let("Noise_Sensitivity", "9");
  Let("Speech_echo_feature", "YES");
  EXPECT_EQ(Persist()->Save(&bag, TRUE, FALSE), S_OK);
  EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
  Forget_Settings(session());
  EXPECT_EQ(Persist()->Load(&bag, nullptr), S_OK);
  EXPECT_EQ(Get("Noise_Sensitivity"), "9");
  EXPECT_EQ(Get("Speech_echo_feature"), "YES");
}

TEST_F(PersistBagTest, An_error_of_the_bag_ends_the_save_which_stays_to_be_done) {
  Persist()->InitNew();
  bag.failing = L"Direct_Add";
  bag.failure = STG_E_MEDIUMFULL;
  EXPECT_EQ(Persist()->Save(&bag, TRUE, FALSE), STG_E_MEDIUMFULL);
  EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
}

TEST_F(PersistBagTest, Pointers_to_nowhere_are_refused) {
  EXPECT_EQ(Persist()->Load(nullptr, nullptr), E_POINTER);
  EXPECT_EQ(Persist()->Save(nullptr, TRUE, TRUE), E_POINTER);
}

}  // namespace
}  // namespace quillspeech::activex::tests
