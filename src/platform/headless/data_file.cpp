#include "platform/headless/data_file.hpp"

#include <algorithm>

namespace quillspeech::headless {

namespace {

constexpr std::int64_t Largest_File = 1 << 30;  // bytes

class File final : public DataFile {
 public:
  File(DataFileStore& store, const std::string& name) : store_(store), name_(name) {
    ++store_.opens;
    ++store_.open_files;
  }
  ~File() override { --store_.open_files; }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  std::int64_t Length() const override { return static_cast<std::int64_t>(Content().size()); }

  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const auto fault = store_.read_faults.find(++store_.reads);
    if (fault != store_.read_faults.end()) Fail(fault->second);
    const auto& content = Content();
    const auto length = static_cast<std::int64_t>(content.size());
    const auto from = static_cast<std::size_t>(std::min(offset, length));
    const auto count = std::min(bytes.size(), content.size() - from);
    const auto bad = store_.bad_places.lower_bound(from);
    if (bad != store_.bad_places.end() && *bad < from + count) Fail(Failure::Device_Failure);
    std::copy_n(content.data() + from, count, bytes.data());
    return static_cast<std::int64_t>(count);
  }

  void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    auto& content = Content();
    const auto fault = store_.write_faults.find(++store_.writes);
    if (offset > Largest_File) Fail(Failure::Disk_Full);
    const auto from = static_cast<std::size_t>(offset);
    if (fault == store_.write_faults.end()) {
      content.resize(std::max(content.size(), from + bytes.size()));
      std::copy(bytes.begin(), bytes.end(), content.data() + from);
      return;
    }
    const auto there = content.size() - std::min(from, content.size());
    const auto torn = static_cast<std::size_t>(fault->second.torn_bytes);
    std::copy_n(bytes.data(), std::min({torn, there, bytes.size()}), content.data() + from);
    Fail(fault->second.failure);
  }

 private:
  std::vector<std::uint8_t>& Content() const {
    const auto found = store_.files.find(name_);
    if (found == store_.files.end()) Fail(Failure::Device_Failure);
    return found->second;
  }

  DataFileStore& store_;
  std::string name_;
};

}  // namespace

std::unique_ptr<DataFile> DataFileStore::Open(const std::string& name) {
  const auto refusal = refused.find(name);
  if (refusal != refused.end()) Fail(refusal->second);
  if (read_only.contains(name)) Fail(Failure::Path_Access);
  if (name.empty() || name.find('\0') != std::string::npos) Fail(Failure::Bad_File_Name);
  files.try_emplace(name);
  return std::make_unique<File>(*this, name);
}

}  // namespace quillspeech::headless
