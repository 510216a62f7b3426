#include "activex/provide_class_info.hpp"

#include <gtest/gtest.h>

#include "tests/activex/test_owner.hpp"

namespace quillspeech::activex {
namespace {

using ProvideClassInfoTest = tests::DispatchTest;

TEST_F(ProvideClassInfoTest, The_class_is_that_of_the_type_library) {
  ProvideClassInfo part(owner);
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(part.GetClassInfo(information.Receive()), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, CLSID_Quillspeech);
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  information->ReleaseTypeAttr(attributes);
  EXPECT_EQ(part.GetClassInfo(nullptr), E_POINTER);
}

TEST_F(ProvideClassInfoTest, The_one_id_that_it_knows_is_that_of_the_events) {
  ProvideClassInfo part(owner);
  GUID guid = {};
  EXPECT_EQ(part.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &guid), S_OK);
  EXPECT_EQ(guid, DIID___Quillspeech);
  EXPECT_EQ(part.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID + 1, &guid), E_INVALIDARG);
  EXPECT_EQ(guid, GUID_NULL);
  EXPECT_EQ(part.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr), E_POINTER);
}

}  // namespace
}  // namespace quillspeech::activex
