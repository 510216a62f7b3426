// Drawings and picture files on a device, at any scale.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/form_drawing.hpp"
#include "platform/windows/form_fonts.hpp"
#include "platform/windows/windows_api.hpp"

struct IPicture;

namespace quillspeech::windows {

// Stretches the drawing over the surface, in the device's own units, and draws nothing outside of
// it. The thickness of lines and the size of letters are those of the fonts' scale. Edges are
// rounded to the nearest unit, so that neighbours meet; what lies on the right or the lower edge of
// the scale lies just outside.
void Paint_Drawing(const FormDrawing& drawing, HDC device, const RECT& surface, FormFonts& fonts);

// The largest place in the middle of the room that is as wide for its height; both above 0.
RECT Place_In_Shape(double width, double height, const RECT& room);
// The same for a drawing's scale.
RECT Place_In_Shape(const FormDrawing& drawing, const RECT& room);

// The bytes of a picture file (BMP, ICO, WMF, EMF, GIF, JPEG), as the system understands them.
class PictureFile {
 public:
  explicit PictureFile(std::string_view bytes = {});
  ~PictureFile();
  PictureFile(PictureFile&&) noexcept;
  PictureFile& operator=(PictureFile&&) noexcept;

  bool Is_There() const { return picture_ != nullptr; }  // false: the bytes are no such file
  bool Is_Of(std::string_view bytes) const { return bytes_ == bytes; }
  // In the middle of the surface, as large as its shape lets it be.
  void Paint(HDC device, const RECT& surface) const;

 private:
  struct Release {
    void operator()(IPicture* picture) const;
  };

  std::string bytes_;
  std::unique_ptr<IPicture, Release> picture_;
};

// What is drawn here shows on the device all at once, when this ends: nothing flickers.
class PaintBuffer {
 public:
  PaintBuffer(HDC device, const RECT& place);
  ~PaintBuffer();
  PaintBuffer(const PaintBuffer&) = delete;
  PaintBuffer& operator=(const PaintBuffer&) = delete;

  // In the coordinates of the device; that itself where there is no memory for another.
  HDC Device() const { return memory_ ? memory_ : device_; }

 private:
  HDC device_;
  RECT box_{};  // what of the place can be seen
  HDC memory_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ old_bitmap_ = nullptr;
};

}  // namespace quillspeech::windows
