// Reads a pipe, a console or a file by a thread of its own: a read of these cannot be waited for
// together with anything else.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quillspeech::cli {

// Makes UTF-8 of UTF-16 that comes in pieces, which may end within a surrogate pair.
class Utf16Pieces {
 public:
  // The first half of a pair at the end waits for the next piece.
  std::string Take(std::wstring_view piece);

 private:
  std::wstring half_;  // empty: none waits
};

class InputReader {
 public:
  explicit InputReader(int descriptor);  // begins to read
  // Leaves the thread to itself, which may stand in a read that never ends.
  ~InputReader();
  InputReader(const InputReader&) = delete;
  InputReader& operator=(const InputReader&) = delete;

  // From now on it is called on the reading thread for each block, and once for the end; an empty
  // one ends that.
  void At_Arrival(std::function<void()> arrived);
  // Whether Take has something to give, or the input has ended.
  bool Is_Ready() const;
  // The next block, empty when none has come yet; nothing once the input has ended. The one after
  // it is read only then.
  std::optional<std::string> Take();

 private:
  struct Shared;
  static void Run(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;
};

}  // namespace quillspeech::cli
