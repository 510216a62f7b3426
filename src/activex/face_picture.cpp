#include "activex/face_picture.hpp"

#include "activex/control_extent.hpp"
#include "core/control.hpp"
#include "platform/windows/form_drawing.hpp"

namespace quillspeech::activex {
namespace {

constexpr int Picture_Dots_Per_Inch = 96;

// Freed when nobody takes it over.
struct Metafile {
  HMETAFILE handle;
  ~Metafile() {
    if (handle) DeleteMetaFile(handle);
  }
};

HRESULT Give_Picture(Metafile& metafile, STGMEDIUM& medium) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
  auto* const picture = memory ? static_cast<METAFILEPICT*>(GlobalLock(memory)) : nullptr;
  if (!picture) return E_OUTOFMEMORY;
  const SIZEL extent = Own_Extent();
  *picture = {MM_ANISOTROPIC, extent.cx, extent.cy, metafile.handle};
  GlobalUnlock(memory);
  metafile.handle = nullptr;
  medium.tymed = TYMED_MFPICT;
  medium.hMetaFilePict = memory;
  medium.pUnkForRelease = nullptr;
  return S_OK;
}

}  // namespace

void FacePicture::Draw(HDC device, const RECT& bounds) {
  is_drawing_ = true;
  if (const auto control = access_.Living()) control->UserControl_Paint();
  is_drawing_ = false;
  windows::Draw_Form(face_, device, bounds);
}

HRESULT FacePicture::Give_Metafile(STGMEDIUM& medium) {
  const HDC device = CreateMetaFileW(nullptr);
  if (!device) return E_OUTOFMEMORY;
  const SIZE size = Own_Size(Picture_Dots_Per_Inch);
  SetMapMode(device, MM_ANISOTROPIC);
  SetWindowOrgEx(device, 0, 0, nullptr);
  SetWindowExtEx(device, size.cx, size.cy, nullptr);
  Draw(device, {0, 0, size.cx, size.cy});
  Metafile metafile{CloseMetaFile(device)};
  return metafile.handle ? Give_Picture(metafile, medium) : E_OUTOFMEMORY;
}

}  // namespace quillspeech::activex
