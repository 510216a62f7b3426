#include "activex/view_object.hpp"

#include <gtest/gtest.h>

#include <set>

#include "tests/activex/ole_fixture.hpp"

namespace quillspeech::activex::tests {
namespace {

class ViewObjectTest : public OleTest {
 protected:
  ComPtr<IViewObjectEx> View() { return As<IViewObjectEx>(); }
};

// A bitmap of the control's size to draw into, white at first.
class Picture {
 public:
  Picture() {
    BITMAPINFO information = {};
    information.bmiHeader = {
        sizeof(BITMAPINFOHEADER), Width, -Height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(nullptr, &information, DIB_RGB_COLORS,
                               reinterpret_cast<void**>(&pixels_), nullptr, 0);
    old_ = SelectObject(device, bitmap_);
    const RECT all = {0, 0, Width, Height};
    FillRect(device, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  }
  ~Picture() {
    SelectObject(device, old_);
    DeleteObject(bitmap_);
    DeleteDC(device);
  }
  std::set<std::uint32_t> Colours() const {
    GdiFlush();
    std::set<std::uint32_t> colours;
    for (int i = 0; i < Width * Height; ++i) colours.insert(pixels_[i] & 0xFFFFFF);
    return colours;
  }
  std::uint32_t At(int x, int y) const { return pixels_[y * Width + x] & 0xFFFFFF; }

  static constexpr int Width = 222;
  static constexpr int Height = 126;
  const HDC device = CreateCompatibleDC(nullptr);

 private:
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_ = nullptr;
  std::uint32_t* pixels_ = nullptr;
};

TEST_F(ViewObjectTest, It_draws_its_face_where_it_has_no_window) {
  Picture picture;
  const RECTL bounds = {0, 0, Picture::Width, Picture::Height};
  EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                         nullptr, nullptr, 0),
            S_OK);
  EXPECT_GT(picture.Colours().size(), 3u);
  EXPECT_TRUE(picture.Colours().contains(0x00FF00));  // its texts at run time
}

TEST_F(ViewObjectTest, In_design_mode_its_texts_are_grey) {
  Place();
  container.ambients[DISPID_AMBIENT_USERMODE] = false;
  Picture picture;
  const RECTL bounds = {0, 0, Picture::Width, Picture::Height};
  EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                         nullptr, nullptr, 0),
            S_OK);
  EXPECT_FALSE(picture.Colours().contains(0x00FF00));
}

TEST_F(ViewObjectTest, It_stays_inside_the_bounds) {
  Picture picture;
  const RECTL bounds = {100, 60, 200, 110};
  EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                         nullptr, nullptr, 0),
            S_OK);
  GdiFlush();
  for (int y = 0; y < Picture::Height; ++y) {
    for (int x = 0; x < Picture::Width; ++x) {
      if (x >= 100 && x < 200 && y >= 60 && y < 110) continue;
      ASSERT_EQ(picture.At(x, y), 0xFFFFFFu) << x << ", " << y;
    }
  }
  EXPECT_GT(picture.Colours().size(), 3u);
}

TEST_F(ViewObjectTest, It_has_one_aspect_and_one_part) {
  Picture picture;
  const RECTL bounds = {0, 0, 10, 10};
  const auto draw = [&](DWORD aspect, LONG index, HDC device, const RECTL* where) {
    return View()->Draw(aspect, index, nullptr, nullptr, nullptr, device, where, nullptr, nullptr,
                        0);
  };
  EXPECT_EQ(draw(DVASPECT_ICON, -1, picture.device, &bounds), DV_E_DVASPECT);
  EXPECT_EQ(draw(DVASPECT_CONTENT, 0, picture.device, &bounds), DV_E_LINDEX);
  EXPECT_EQ(draw(DVASPECT_CONTENT, -1, nullptr, &bounds), E_INVALIDARG);
  EXPECT_EQ(draw(DVASPECT_CONTENT, -1, picture.device, nullptr), E_INVALIDARG);
}

TEST_F(ViewObjectTest, Its_extent_is_the_one_that_its_object_has) {
  SIZEL extent = {};
  EXPECT_EQ(View()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &extent), S_OK);
  EXPECT_EQ(extent.cx, 5884);
  EXPECT_EQ(extent.cy, 3323);
  RECTL rectangle = {};
  EXPECT_EQ(View()->GetRect(DVASPECT_CONTENT, &rectangle), S_OK);
  EXPECT_EQ(rectangle.right, 5884);
}

TEST_F(ViewObjectTest, It_is_opaque_and_hit_inside_its_bounds) {
  DWORD status = 0;
  EXPECT_EQ(View()->GetViewStatus(&status), S_OK);
  EXPECT_EQ(status, static_cast<DWORD>(VIEWSTATUS_OPAQUE));
  const RECT bounds = {10, 10, 20, 20};
  DWORD hit = 0;
  EXPECT_EQ(View()->QueryHitPoint(DVASPECT_CONTENT, &bounds, {15, 15}, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_HIT));
  EXPECT_EQ(View()->QueryHitPoint(DVASPECT_CONTENT, &bounds, {20, 15}, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
  const RECT beside = {20, 20, 30, 30};
  EXPECT_EQ(View()->QueryHitRect(DVASPECT_CONTENT, &bounds, &beside, 0, &hit), S_OK);
  EXPECT_EQ(hit, static_cast<DWORD>(HITRESULT_OUTSIDE));
}

TEST_F(ViewObjectTest, Its_sink_hears_when_it_looks_different) {
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT, 0, &container), S_OK);
  container.Expect({"OnViewChange"});
  EXPECT_EQ(Call("Refresh"), S_OK);
  container.Done();
  DWORD aspects = 0;
  DWORD flags = 0;
  ComPtr<IAdviseSink> sink;
  EXPECT_EQ(View()->GetAdvise(&aspects, &flags, sink.Receive()), S_OK);
  EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
  EXPECT_EQ(sink.Get(), static_cast<IAdviseSink*>(&container));
  sink = nullptr;
  EXPECT_EQ(View()->SetAdvise(0, 0, nullptr), S_OK);
  EXPECT_EQ(Call("Refresh"), S_OK);
}

TEST_F(ViewObjectTest, A_sink_may_want_to_hear_at_once_and_once_only) {
  container.Expect({"OnViewChange"});
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, &container), S_OK);
  EXPECT_EQ(Call("Refresh"), S_OK);
}

TEST_F(ViewObjectTest, Only_the_sink_that_wants_to_hear_at_once_does) {
  FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  DWORD cookie = 0;
  EXPECT_EQ(As<IDataObject>()->DAdvise(&format, 0, &container, &cookie), S_OK);
  container.Expect({"OnViewChange"});  // and no OnDataChange
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, &container), S_OK);
  container.Done();
  EXPECT_EQ(View()->SetAdvise(0, ADVF_PRIMEFIRST, nullptr), S_OK);
  EXPECT_EQ(As<IDataObject>()->DUnadvise(cookie), S_OK);
}

TEST_F(ViewObjectTest, A_sink_of_several_aspects_hears_of_the_one_that_there_is) {
  EXPECT_EQ(View()->SetAdvise(DVASPECT_ICON, 0, &container), DV_E_DVASPECT);
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT | DVASPECT_ICON, 0, &container), S_OK);
  container.Expect({"OnViewChange"});
  EXPECT_EQ(Call("Refresh"), S_OK);
  EXPECT_EQ(View()->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(ViewObjectTest, Its_status_is_drawn_in_the_words_of_its_mode) {
  Place();
  const RECTL bounds = {0, 0, Picture::Width, Picture::Height};
  const auto status = [&](bool user_mode) {
    container.ambients[DISPID_AMBIENT_USERMODE] = user_mode;
    Picture picture;
    EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                           nullptr, nullptr, 0),
              S_OK);
    GdiFlush();
    std::vector<std::uint32_t> pixels;
    for (int y = 102; y < 119; ++y) {
      for (int x = 8; x < 214; ++x) pixels.push_back(picture.At(x, y));
    }
    return pixels;
  };
  const auto used = status(true);
  EXPECT_NE(used, status(false));
  EXPECT_EQ(used, status(true));
}

TEST_F(ViewObjectTest, A_container_may_draw_it_while_it_is_asked_for_its_mode) {
  Place();
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT, 0, &container), S_OK);
  Picture picture;
  const RECTL bounds = {0, 0, Picture::Width, Picture::Height};
  const auto draw = [&] {
    EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                           nullptr, nullptr, 0),
              S_OK);
  };
  container.At_Ambient = [&] {
    draw();
    container.ambients[DISPID_AMBIENT_USERMODE] = false;
  };
  draw();
  EXPECT_EQ(View()->SetAdvise(0, 0, nullptr), S_OK);
}

TEST_F(ViewObjectTest, Drawing_it_is_no_news_for_its_sink) {
  EXPECT_EQ(View()->SetAdvise(DVASPECT_CONTENT, 0, &container), S_OK);
  Picture picture;
  const RECTL bounds = {0, 0, Picture::Width, Picture::Height};
  EXPECT_EQ(View()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, picture.device, &bounds,
                         nullptr, nullptr, 0),
            S_OK);
  EXPECT_EQ(View()->SetAdvise(0, 0, nullptr), S_OK);
}

}  // namespace
}  // namespace quillspeech::activex::tests
