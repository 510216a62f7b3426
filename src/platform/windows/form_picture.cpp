#include "platform/windows/form_picture.hpp"

#include <ole2.h>
#include <olectl.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

constexpr double Far_Away = 32000;  // what every device, and a metafile, still counts

// What no number is goes far away too.
LONG Rounded(double place) { return std::lround(std::fmax(-Far_Away, std::fmin(Far_Away, place))); }

// An object that a device draws with for a while.
class DrawsWith {
 public:
  DrawsWith(HDC device, HGDIOBJ object)
      : device_(device), object_(object), old_(SelectObject(device, object)) {}
  ~DrawsWith() {
    SelectObject(device_, old_);
    DeleteObject(object_);  // which leaves those that are the system's
  }
  DrawsWith(const DrawsWith&) = delete;
  DrawsWith& operator=(const DrawsWith&) = delete;

 private:
  HDC device_;
  HGDIOBJ object_;
  HGDIOBJ old_;
};

// One drawing on one surface.
class Painter {
 public:
  Painter(const DrawingScale& scale, HDC device, const RECT& surface, FormFonts& fonts)
      : scale_(scale), device_(device), surface_(surface), fonts_(fonts) {}

  void Paint(const DrawingOperation& operation) {
    if (operation.points.size() < Points_Of(operation.kind)) return;
    switch (operation.kind) {
      case DrawingKind::Lines:
        return Lines(operation);
      case DrawingKind::Polygon:
        return Polygon(operation);
      case DrawingKind::Box:
        return Box(operation);
      case DrawingKind::Circle:
        return Circle(operation);
      case DrawingKind::Text:
        return Text(operation);
    }
  }

 private:
  static std::size_t Points_Of(DrawingKind kind) {
    switch (kind) {
      case DrawingKind::Polygon:
        return 3;
      case DrawingKind::Circle:
      case DrawingKind::Text:
        return 1;
      default:
        return 2;
    }
  }

  double Units_Across() const { return Width_Of(surface_) / (scale_.right - scale_.left); }
  double Across(double x) const { return surface_.left + (x - scale_.left) * Units_Across(); }
  double Down(double y) const {
    const double units = Height_Of(surface_) / (scale_.bottom - scale_.top);
    return surface_.top + (y - scale_.top) * units;
  }
  POINT Place_Of(const DrawingPoint& point) const {
    return {Rounded(Across(point.x)), Rounded(Down(point.y))};
  }
  std::vector<POINT> Places_Of(const std::vector<DrawingPoint>& points) const {
    std::vector<POINT> places;
    places.reserve(points.size());
    for (const DrawingPoint& point : points) places.push_back(Place_Of(point));
    return places;
  }

  int Thickness(double points) const {
    return fonts_.Scale().Down(static_cast<int>(Rounded(points * Twips_Per_Point)));
  }
  // Its ends and corners are round.
  HPEN Pen_For(const DrawingOperation& operation) const {
    return CreatePen(PS_SOLID, Thickness(operation.line_points), operation.colour);
  }
  HGDIOBJ Filling_For(const DrawingOperation& operation) const {
    if (!operation.is_filled) return GetStockObject(NULL_BRUSH);
    return CreateSolidBrush(operation.colour);
  }

  // The system leaves out the last point of a thin line.
  void Lines(const DrawingOperation& operation) {
    const std::vector<POINT> places = Places_Of(operation.points);
    const DrawsWith pen(device_, Pen_For(operation));
    Polyline(device_, places.data(), static_cast<int>(places.size()));
    if (Thickness(operation.line_points) > 1) return;
    const POINT last = places.back();
    MoveToEx(device_, last.x, last.y, nullptr);
    LineTo(device_, last.x + 1, last.y);
  }

  // What is filled has no edge besides, or neighbours would lie on each other.
  void Polygon(const DrawingOperation& operation) {
    const std::vector<POINT> places = Places_Of(operation.points);
    const DrawsWith filling(device_, Filling_For(operation));
    const DrawsWith pen(device_,
                        operation.is_filled ? GetStockObject(NULL_PEN) : Pen_For(operation));
    ::Polygon(device_, places.data(), static_cast<int>(places.size()));
  }

  // A filled one shows however narrow it is.
  void Box(const DrawingOperation& operation) {
    const POINT one = Place_Of(operation.points[0]);
    const POINT other = Place_Of(operation.points[1]);
    const RECT box{std::min(one.x, other.x), std::min(one.y, other.y), std::max(one.x, other.x),
                   std::max(one.y, other.y)};
    const DrawsWith filling(device_, Filling_For(operation));
    if (operation.is_filled) {
      PatBlt(device_, box.left, box.top, std::max<LONG>(1, Width_Of(box)),
             std::max<LONG>(1, Height_Of(box)), PATCOPY);
      return;
    }
    const DrawsWith pen(device_, Pen_For(operation));
    Rectangle(device_, box.left, box.top, box.right, box.bottom);
  }

  // A filled one has a thin edge of its colour: without, the system makes it a unit smaller. The
  // smallest would not show.
  void Circle(const DrawingOperation& operation) {
    const double radius = std::fabs(operation.radius * Units_Across());
    const LONG width = std::max<LONG>(1, Rounded(2 * radius));
    const LONG left = Rounded(Across(operation.points[0].x) - radius);
    const LONG top = Rounded(Down(operation.points[0].y) - radius);
    const int thickness = Thickness(operation.line_points);
    const DrawsWith filling(device_, operation.is_filled || width <= 2 || thickness > 1
                                         ? CreateSolidBrush(operation.colour)
                                         : GetStockObject(NULL_BRUSH));
    if (width <= 2) {
      PatBlt(device_, left, top, width, width, PATCOPY);
    } else if (!operation.is_filled && thickness > 1) {
      // An even number of dots lies on both sides of the edge, an odd one in the middle of its dot.
      const double middle = (width - thickness % 2) / 2.0;
      Ring(left + width / 2.0, top + width / 2.0, middle + thickness / 2.0,
           std::fmax(0, middle - thickness / 2.0));
    } else {
      const DrawsWith pen(device_, CreatePen(PS_SOLID, 0, operation.colour));
      Ellipse(device_, left, top, left + width, top + width);
    }
  }

  // Row by row, between two circles: thick pens leave bumps on round edges.
  void Ring(double x, double y, double outer, double inner) {
    const LONG top = std::max(surface_.top, Rounded(y - outer));
    const LONG bottom = std::min(surface_.bottom, Rounded(y + outer));
    for (LONG row = top; row < bottom; ++row) {
      const double away = row + 0.5 - y;
      const double far_off = std::sqrt(std::fmax(0, outer * outer - away * away));
      const double near_by = std::sqrt(std::fmax(0, inner * inner - away * away));
      Row(row, Rounded(x - far_off), Rounded(x - near_by));
      Row(row, Rounded(x + near_by), Rounded(x + far_off));
    }
  }
  void Row(LONG row, LONG left, LONG right) {
    PatBlt(device_, left, row, right - left, 1, PATCOPY);
  }

  void Text(const DrawingOperation& operation) {
    const POINT place = Place_Of(operation.points[0]);
    const std::wstring text = Wide(operation.text);
    const HGDIOBJ old_font = SelectObject(device_, fonts_.Font_For(operation.font));
    SetTextColor(device_, operation.colour);
    ExtTextOutW(device_, place.x, place.y, 0, nullptr, text.c_str(), static_cast<UINT>(text.size()),
                nullptr);
    SelectObject(device_, old_font);
  }

  const DrawingScale& scale_;
  HDC device_;
  RECT surface_;
  FormFonts& fonts_;
};

}  // namespace

void Paint_Drawing(const FormDrawing& drawing, HDC device, const RECT& surface, FormFonts& fonts) {
  if (drawing.operations.empty() || IsRectEmpty(&surface)) return;
  const int saved = SaveDC(device);
  IntersectClipRect(device, surface.left, surface.top, surface.right, surface.bottom);
  SetTextAlign(device, TA_LEFT | TA_TOP | TA_NOUPDATECP);
  SetBkMode(device, TRANSPARENT);
  Painter painter(drawing.scale, device, surface, fonts);
  for (const DrawingOperation& operation : drawing.operations) painter.Paint(operation);
  RestoreDC(device, saved);
}

RECT Place_In_Shape(double width, double height, const RECT& room) {
  const double units = std::fmin(Width_Of(room) / width, Height_Of(room) / height);
  const LONG across = Rounded(width * units);
  const LONG down = Rounded(height * units);
  const LONG left = room.left + (Width_Of(room) - across) / 2;
  const LONG top = room.top + (Height_Of(room) - down) / 2;
  return {left, top, left + across, top + down};
}

RECT Place_In_Shape(const FormDrawing& drawing, const RECT& room) {
  return Place_In_Shape(std::fabs(drawing.scale.right - drawing.scale.left),
                        std::fabs(drawing.scale.bottom - drawing.scale.top), room);
}

void PictureFile::Release::operator()(IPicture* picture) const { picture->Release(); }

// The stream frees the memory.
PictureFile::PictureFile(std::string_view bytes) : bytes_(bytes) {
  if (bytes.empty()) return;
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  void* const into = memory ? GlobalLock(memory) : nullptr;
  if (!into) return;
  std::copy(bytes.begin(), bytes.end(), static_cast<char*>(into));
  GlobalUnlock(memory);
  IStream* stream = nullptr;
  if (FAILED(CreateStreamOnHGlobal(memory, TRUE, &stream))) {
    GlobalFree(memory);
    return;
  }
  // The memory may be larger than what was asked for, and would be read to its end.
  stream->SetSize({.QuadPart = bytes.size()});
  void* loaded = nullptr;
  const HRESULT result =
      OleLoadPicture(stream, static_cast<LONG>(bytes.size()), FALSE, IID_IPicture, &loaded);
  stream->Release();
  if (SUCCEEDED(result)) picture_.reset(static_cast<IPicture*>(loaded));
}

PictureFile::~PictureFile() = default;
PictureFile::PictureFile(PictureFile&&) noexcept = default;
PictureFile& PictureFile::operator=(PictureFile&&) noexcept = default;

// A picture counts from its lower edge, upwards.
void PictureFile::Paint(HDC device, const RECT& surface) const {
  if (!picture_ || IsRectEmpty(&surface)) return;
  OLE_XSIZE_HIMETRIC width = 0;
  OLE_YSIZE_HIMETRIC height = 0;
  picture_->get_Width(&width);
  picture_->get_Height(&height);
  if (width <= 0 || height <= 0) return;
  const RECT place = Place_In_Shape(width, height, surface);
  const int saved = SaveDC(device);
  IntersectClipRect(device, surface.left, surface.top, surface.right, surface.bottom);
  SetStretchBltMode(device, COLORONCOLOR);
  picture_->Render(device, place.left, place.top, Width_Of(place), Height_Of(place), 0, height,
                   width, -height, &place);
  RestoreDC(device, saved);
}

PaintBuffer::PaintBuffer(HDC device, const RECT& place) : device_(device) {
  RECT visible{};
  if (GetClipBox(device, &visible) == NULLREGION) return;
  if (!IntersectRect(&box_, &visible, &place)) return;
  memory_ = CreateCompatibleDC(device);
  bitmap_ = CreateCompatibleBitmap(device, Width_Of(box_), Height_Of(box_));
  if (!memory_ || !bitmap_) {
    if (memory_) DeleteDC(std::exchange(memory_, nullptr));
    return;
  }
  old_bitmap_ = SelectObject(memory_, bitmap_);
  SetViewportOrgEx(memory_, -box_.left, -box_.top, nullptr);
}

PaintBuffer::~PaintBuffer() {
  if (memory_) {
    BitBlt(device_, box_.left, box_.top, Width_Of(box_), Height_Of(box_), memory_, box_.left,
           box_.top, SRCCOPY);
    SelectObject(memory_, old_bitmap_);
    DeleteDC(memory_);
  }
  if (bitmap_) DeleteObject(bitmap_);
}

}  // namespace quillspeech::windows
