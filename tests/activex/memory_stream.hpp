// Streams in memory.
#pragma once

#include <string>

#include "activex/com.hpp"

namespace quillspeech::activex::tests {

inline ComPtr<IStream> Stream_Of(const std::string& bytes) {
  ComPtr<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive());
  ULONG written = 0;
  stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), &written);
  stream->Seek({}, STREAM_SEEK_SET, nullptr);
  return stream;
}

inline std::string Bytes_Of(IStream& stream) {
  stream.Seek({}, STREAM_SEEK_SET, nullptr);
  std::string bytes;
  char piece[256];
  ULONG got = 0;
  while (SUCCEEDED(stream.Read(piece, sizeof piece, &got)) && got > 0) bytes.append(piece, got);
  return bytes;
}

}  // namespace quillspeech::activex::tests
