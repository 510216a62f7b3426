#include "activex/support_error_info.hpp"

#include "activex/property_page.hpp"
#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

using SupportErrorInfoTest = OleTest;

TEST_F(SupportErrorInfoTest, Of_a_control_the_dual_interface_alone_leaves_error_objects) {
  const auto part = As<ISupportErrorInfo>();
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID__Quillspeech), S_OK);
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID_IOleObject), S_FALSE);
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID_IPropertyPage), S_FALSE);
}

TEST_F(SupportErrorInfoTest, Of_a_page_the_interfaces_of_pages_do) {
  ComPtr<ISupportErrorInfo> part;
  ASSERT_EQ(
      Make_Property_Page(CLSID_StartingKeys, nullptr, IID_ISupportErrorInfo, part.Receive_Void()),
      S_OK);
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID_IPropertyPage), S_OK);
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID_IPropertyPage2), S_OK);
  EXPECT_EQ(part->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
}

}  // namespace
}  // namespace quillspeech::activex::tests
