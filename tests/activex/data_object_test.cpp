#include "activex/data_object.hpp"

#include <gtest/gtest.h>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

FORMATETC Metafile() { return {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT}; }

using DataObjectTest = OleTest;

TEST_F(DataObjectTest, It_gives_its_picture_as_a_metafile_of_its_size) {
  FORMATETC format = Metafile();
  STGMEDIUM medium = {};
  ASSERT_EQ(As<IDataObject>()->GetData(&format, &medium), S_OK);
  const auto* const picture = static_cast<METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
  EXPECT_EQ(picture->mm, MM_ANISOTROPIC);
  EXPECT_EQ(picture->xExt, 5884);
  EXPECT_EQ(picture->yExt, 3323);
  EXPECT_GT(GetMetaFileBitsEx(picture->hMF, 0, nullptr), 1000u);
  GlobalUnlock(medium.hMetaFilePict);
  ReleaseStgMedium(&medium);
}

TEST_F(DataObjectTest, What_it_does_not_give_it_refuses_by_the_part_that_is_wrong) {
  const auto data = As<IDataObject>();
  FORMATETC format = Metafile();
  EXPECT_EQ(data->QueryGetData(&format), S_OK);
  format.cfFormat = CF_TEXT;
  EXPECT_EQ(data->QueryGetData(&format), DV_E_FORMATETC);
  format = Metafile();
  format.dwAspect = DVASPECT_ICON;
  EXPECT_EQ(data->QueryGetData(&format), DV_E_DVASPECT);
  format = Metafile();
  format.lindex = 3;
  EXPECT_EQ(data->QueryGetData(&format), DV_E_LINDEX);
  format = Metafile();
  format.tymed = TYMED_HGLOBAL;
  STGMEDIUM medium = {};
  EXPECT_EQ(data->GetData(&format, &medium), DV_E_TYMED);
  EXPECT_EQ(data->SetData(&format, &medium, FALSE), E_NOTIMPL);
}

TEST_F(DataObjectTest, Its_formats_can_be_listed) {
  ComPtr<IEnumFORMATETC> formats;
  ASSERT_EQ(As<IDataObject>()->EnumFormatEtc(DATADIR_GET, formats.Receive()), S_OK);
  FORMATETC format = {};
  EXPECT_EQ(formats->Next(1, &format, nullptr), S_OK);
  EXPECT_EQ(format.cfFormat, CF_METAFILEPICT);
  EXPECT_EQ(formats->Next(1, &format, nullptr), S_FALSE);
  EXPECT_EQ(As<IDataObject>()->EnumFormatEtc(DATADIR_SET, formats.Receive()), E_NOTIMPL);
}

TEST_F(DataObjectTest, A_sink_is_checked_before_it_is_taken) {
  const auto data = As<IDataObject>();
  FORMATETC format = Metafile();
  DWORD cookie = 7;
  EXPECT_EQ(data->DAdvise(&format, 0, &container, nullptr), E_POINTER);
  EXPECT_EQ(data->DAdvise(nullptr, 0, &container, &cookie), E_INVALIDARG);
  EXPECT_EQ(data->DAdvise(&format, 0, nullptr, &cookie), E_INVALIDARG);
  EXPECT_EQ(cookie, 0u);
  format.cfFormat = CF_TEXT;
  cookie = 7;
  EXPECT_EQ(data->DAdvise(&format, 0, &container, &cookie), DV_E_FORMATETC);
  EXPECT_EQ(cookie, 0u);
  EXPECT_EQ(data->EnumDAdvise(nullptr), E_POINTER);
  EXPECT_EQ(container.References(), 0u);
}

TEST_F(DataObjectTest, A_sink_that_wants_no_data_may_hear_of_any_format) {
  const auto data = As<IDataObject>();
  FORMATETC any = {0, nullptr, static_cast<DWORD>(-1), -1, static_cast<DWORD>(-1)};
  DWORD cookie = 0;
  EXPECT_EQ(data->DAdvise(&any, 0, &container, &cookie), DV_E_FORMATETC);
  EXPECT_EQ(data->DAdvise(&any, ADVF_NODATA, &container, &cookie), S_OK);
  container.Expect({"OnDataChange"});
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_EQ(data->DUnadvise(cookie), S_OK);
}

TEST_F(DataObjectTest, A_sink_hears_when_the_picture_has_changed) {
  FORMATETC format = Metafile();
  DWORD cookie = 0;
  EXPECT_EQ(As<IDataObject>()->DUnadvise(1), OLE_E_NOCONNECTION);
  EXPECT_EQ(As<IDataObject>()->DAdvise(&format, 0, &container, &cookie), S_OK);
  container.Expect({"OnDataChange"});
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_EQ(As<IDataObject>()->DUnadvise(cookie), S_OK);
  EXPECT_EQ(Call("Refresh"), S_OK);
}

}  // namespace
}  // namespace quillspeech::activex::tests
