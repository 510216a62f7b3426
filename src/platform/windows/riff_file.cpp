#include "platform/windows/riff_file.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/windows/handle.hpp"
#include "platform/windows/windows_api.hpp"

#include <mmsystem.h>  // after windows.h

namespace quillspeech::windows {

namespace {

constexpr std::int64_t Last_Place = std::numeric_limits<LONG>::max();

std::int64_t End_Of(const RiffChunk& chunk) { return std::int64_t{chunk.data_offset} + chunk.size; }

std::int64_t Behind(const RiffChunk& chunk) { return End_Of(chunk) + chunk.size % 2; }

RiffChunk As_Chunk(const MMCKINFO& information) {
  RiffChunk chunk;
  chunk.identifier = information.ckid;
  chunk.size = information.cksize;
  if (information.ckid == FOURCC_RIFF) chunk.form_type = information.fccType;
  chunk.data_offset = information.dwDataOffset;
  return chunk;
}

MMCKINFO As_Information(const RiffChunk& chunk) {
  MMCKINFO information{};
  information.ckid = chunk.identifier;
  information.cksize = chunk.size;
  information.fccType = chunk.form_type;
  information.dwDataOffset = chunk.data_offset;
  return information;
}

// The calls search on past sizes that wrap around, for ever if need be. So they are asked for one
// chunk at a time, and the search is here.
class File final : public RiffFile {
 public:
  explicit File(HMMIO file) : file_(file) {}
  ~File() override { ::mmioClose(file_, 0); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  std::optional<RiffChunk> Descend_To_Form(std::uint32_t form_type) override {
    return Search(Last_Place, [form_type](const RiffChunk& chunk) {
      return chunk.identifier == FOURCC_RIFF && chunk.form_type == form_type;
    });
  }

  std::optional<RiffChunk> Descend_To_Chunk(std::uint32_t identifier,
                                            const RiffChunk& parent) override {
    const auto found = Search(End_Of(parent), [identifier](const RiffChunk& chunk) {
      return chunk.identifier == identifier;
    });
    if (found) Seek(found->data_offset);  // the calls go behind the form type of a RIFF or LIST
    return found;
  }

  std::int64_t Read(std::uint8_t* bytes, std::int64_t count) override {
    const std::int64_t start = Position();
    const LONG wanted = static_cast<LONG>(std::min(count, Last_Place));
    const LONG got = ::mmioRead(file_, reinterpret_cast<HPSTR>(bytes), wanted);
    if (got < 0) Seek(start);
    return got;
  }

  bool Ascend(const RiffChunk& chunk) override {
    if (Behind(chunk) > Last_Place) return ::mmioSeek(file_, 0, SEEK_END) >= 0;
    MMCKINFO information = As_Information(chunk);
    return ::mmioAscend(file_, &information, 0) == MMSYSERR_NOERROR;
  }

 private:
  std::int64_t Position() const { return ::mmioSeek(file_, 0, SEEK_CUR); }
  void Seek(std::int64_t place) { ::mmioSeek(file_, static_cast<LONG>(place), SEEK_SET); }

  // The first chunk from the position on that is wanted and whose header begins before the end.
  // Without one, the position stays.
  template <class Wanted>
  std::optional<RiffChunk> Search(std::int64_t end, Wanted wanted) {
    const std::int64_t start = Position();
    std::int64_t place = start;
    while (place < end && place <= Last_Place) {
      MMCKINFO information{};
      Seek(place);
      if (::mmioDescend(file_, &information, nullptr, 0) != MMSYSERR_NOERROR) break;
      const RiffChunk chunk = As_Chunk(information);
      if (wanted(chunk)) return chunk;
      place = Behind(chunk);
    }
    Seek(start);
    return std::nullopt;
  }

  HMMIO file_;
};

}  // namespace

std::unique_ptr<RiffFile> RiffFiles::Open(const std::string& path) {
  const auto name = Wide_Name(path, encoding_);
  if (!name) return nullptr;
  Handle disk(::CreateFileW(name->c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!disk.Is_Open() || ::GetFileType(disk.Get()) != FILE_TYPE_DISK) return nullptr;
  // Opened by name it would be taken for a part of another file where the name has a plus sign.
  MMIOINFO information{};
  information.fccIOProc = FOURCC_DOS;
  information.adwInfo[0] = static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(disk.Get()));
  const HMMIO file = ::mmioOpenW(nullptr, &information, MMIO_READ | MMIO_ALLOCBUF);
  if (file == nullptr) return nullptr;
  disk.Release();
  return std::make_unique<File>(file);
}

}  // namespace quillspeech::windows
