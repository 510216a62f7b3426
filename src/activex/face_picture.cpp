#include "activex/face_picture.hpp"

#include <utility>

#include "activex/control_extent.hpp"
#include "core/control.hpp"
#include "platform/windows/form_drawing.hpp"

namespace quillspeech::activex {
namespace {

constexpr int Picture_Dots_Per_Inch = 96;

// A metafile under way, and then done; freed unless somebody takes it over.
class Metafile {
 public:
  ~Metafile() {
    Finish();
    if (done_) DeleteMetaFile(done_);
  }
  HDC Device() const { return device_; }
  void Finish() {
    if (device_) done_ = CloseMetaFile(std::exchange(device_, nullptr));
  }
  explicit operator bool() const { return done_ != nullptr; }
  HMETAFILE Take() { return std::exchange(done_, nullptr); }

 private:
  HDC device_ = CreateMetaFileW(nullptr);
  HMETAFILE done_ = nullptr;
};

HRESULT Give_Picture(Metafile& metafile, STGMEDIUM& medium) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
  auto* const picture = memory ? static_cast<METAFILEPICT*>(GlobalLock(memory)) : nullptr;
  if (!picture) {
    GlobalFree(memory);  // or nothing
    return E_OUTOFMEMORY;
  }
  const SIZEL extent = Own_Extent();
  *picture = {MM_ANISOTROPIC, extent.cx, extent.cy, metafile.Take()};
  GlobalUnlock(memory);
  medium.tymed = TYMED_MFPICT;
  medium.hMetaFilePict = memory;
  medium.pUnkForRelease = nullptr;
  return S_OK;
}

// Counts while it lives.
class Counted {
 public:
  explicit Counted(int& count) : count_(count) { ++count_; }
  ~Counted() { --count_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int& count_;
};

}  // namespace

void FacePicture::Prepare() {
  const Counted drawing(drawings_);
  shown_.Follow();
  if (const auto control = access_.Living()) control->UserControl_Paint();
}

void FacePicture::Draw(HDC device, const RECT& bounds) {
  Prepare();
  windows::Draw_Form(face_, device, bounds);
}

HRESULT FacePicture::Give_Metafile(STGMEDIUM& medium) {
  Metafile metafile;
  const HDC device = metafile.Device();
  if (!device) return E_OUTOFMEMORY;
  const SIZE size = Own_Size(Picture_Dots_Per_Inch);
  SetMapMode(device, MM_ANISOTROPIC);
  SetWindowOrgEx(device, 0, 0, nullptr);
  SetWindowExtEx(device, size.cx, size.cy, nullptr);
  Draw(device, {0, 0, size.cx, size.cy});
  metafile.Finish();
  return metafile ? Give_Picture(metafile, medium) : E_OUTOFMEMORY;
}

}  // namespace quillspeech::activex
