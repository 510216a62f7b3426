#include "padded_wave.hpp"

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace example {
namespace {

using Bytes = std::vector<char>;

constexpr std::size_t Head_Bytes = 44;  // RIFF, a format of 16 bytes, and the head of the data
constexpr char Silence = static_cast<char>(128);

std::uint32_t Number(const Bytes& bytes, std::size_t at) {
  std::uint32_t number = 0;
  std::memcpy(&number, bytes.data() + at, sizeof number);
  return number;
}

void Set_Number(Bytes& bytes, std::size_t at, std::size_t number) {
  const auto value = static_cast<std::uint32_t>(number);
  std::memcpy(bytes.data() + at, &value, sizeof value);
}

// The usual head of 44 bytes with a format of one byte a sample.
bool Is_Plain(const Bytes& bytes) {
  return bytes.size() > Head_Bytes && std::memcmp(bytes.data(), "RIFF", 4) == 0 &&
         std::memcmp(bytes.data() + 12, "fmt ", 4) == 0 && Number(bytes, 16) == 16 &&
         Number(bytes, 20) == 0x00010001 && Number(bytes, 32) == 0x00080001 &&
         std::memcmp(bytes.data() + 36, "data", 4) == 0 &&
         Number(bytes, 40) <= bytes.size() - Head_Bytes;
}

// The file with the silence; nothing when it is answered as it is.
Bytes Padded(const std::wstring& file, unsigned milliseconds) {
  std::ifstream in(std::filesystem::path(file), std::ios::binary);
  Bytes bytes{std::istreambuf_iterator<char>(in), {}};
  if (!Is_Plain(bytes)) return {};
  bytes.resize(Head_Bytes + Number(bytes, 40));  // without what may stand behind the sound
  const std::size_t sound = bytes.size() - Head_Bytes;
  const std::size_t wanted = std::size_t{Number(bytes, 24)} * milliseconds / 1000;
  if (sound >= wanted) return {};

  const std::size_t before = (wanted - sound) / 2;
  bytes.insert(bytes.begin() + Head_Bytes, before, Silence);
  bytes.resize(Head_Bytes + wanted, Silence);
  Set_Number(bytes, 4, bytes.size() - 8);
  Set_Number(bytes, 40, wanted);
  return bytes;
}

// A new file in the folder for temporary files; empty when there can be none.
std::wstring New_File() {
  wchar_t folder[MAX_PATH + 1], name[MAX_PATH];
  if (GetTempPathW(MAX_PATH + 1, folder) == 0) return {};
  return GetTempFileNameW(folder, L"qui", 0, name) != 0 ? name : L"";
}

}  // namespace

PaddedWave::PaddedWave(const std::wstring& file, unsigned milliseconds) : file_(file) {
  const Bytes bytes = Padded(file, milliseconds);
  if (bytes.empty()) return;
  made_ = New_File();
  std::ofstream out(std::filesystem::path(made_), std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  out.close();
  if (out) file_ = made_;
}

PaddedWave::~PaddedWave() {
  if (!made_.empty()) DeleteFileW(made_.c_str());
}

}  // namespace example
