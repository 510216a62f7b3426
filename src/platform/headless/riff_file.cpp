#include "platform/headless/riff_file.hpp"

#include <algorithm>

#include "platform/riff_walk.hpp"

namespace quillspeech::headless {

namespace {

class Memory final : public ByteSource {
 public:
  explicit Memory(const std::vector<std::uint8_t>& content) : content_(content) {}

  std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) override {
    const auto length = static_cast<std::int64_t>(content_.size());
    const std::int64_t got = std::clamp<std::int64_t>(length - offset, 0, count);
    if (got > 0) std::copy_n(content_.data() + offset, got, bytes);
    return got;
  }

 private:
  std::vector<std::uint8_t> content_;
};

class File final : public RiffFile {
 public:
  File(RiffFiles& store, const std::vector<std::uint8_t>& content)
      : store_(store), walk_(std::make_unique<Memory>(content)) {
    ++store_.opens;
    ++store_.open_files;
  }
  ~File() override { --store_.open_files; }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  std::optional<RiffChunk> Descend_To_Form(std::uint32_t form_type) override {
    return walk_.Descend_To_Form(form_type);
  }
  std::optional<RiffChunk> Descend_To_Chunk(std::uint32_t identifier,
                                            const RiffChunk& parent) override {
    return walk_.Descend_To_Chunk(identifier, parent);
  }
  std::int64_t Read(std::uint8_t* bytes, std::int64_t count) override {
    return store_.failing_reads.contains(++store_.reads) ? -1 : walk_.Read(bytes, count);
  }
  bool Ascend(const RiffChunk& chunk) override {
    return !store_.ascends_fail && walk_.Ascend(chunk);
  }

 private:
  RiffFiles& store_;
  RiffWalk walk_;
};

}  // namespace

std::unique_ptr<RiffFile> RiffFiles::Open(const std::string& path) {
  const auto found = files.find(path);
  if (found == files.end()) return nullptr;
  return std::make_unique<File>(*this, found->second);
}

}  // namespace quillspeech::headless
