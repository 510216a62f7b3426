#include "cli/input_tap.hpp"

namespace quillspeech::cli {

InputTap::InputTap(WaveInput& input, std::uint32_t rate, std::uint32_t block)
    : input_(input), format_{1, 1, rate, rate, 1, 8} {
  for (Block& one : blocks_) one.bytes.assign(block, 128);
}

InputTap::~InputTap() {
  if (handle_ == 0) return;
  input_.Reset(handle_);
  for (Block& block : blocks_) input_.Unprepare_Header(handle_, block.header);
  input_.Close(handle_);
}

WaveResult InputTap::Open() {
  constexpr int First_Device = 0;
  if (const WaveResult wrong = input_.Get_Device_Capabilities(First_Device)) return wrong;
  if (const WaveResult wrong = input_.Open(handle_, format_)) return wrong;
  for (Block& block : blocks_) {
    block.header.data = block.bytes.data();
    block.header.buffer_length = static_cast<std::uint32_t>(block.bytes.size());
    if (const WaveResult wrong = input_.Prepare_Header(handle_, block.header)) return wrong;
    if (const WaveResult wrong = Queue(block)) return wrong;
  }
  return input_.Start(handle_);
}

WaveResult InputTap::Queue(Block& block) { return input_.Add_Buffer(handle_, block.header); }

void InputTap::Take(const std::function<void(std::span<const std::uint8_t>)>& hear) {
  for (std::size_t seen = 0; seen < blocks_.size(); ++seen) {
    Block& block = blocks_[next_];
    if ((block.header.flags & Header_Done) == 0) return;
    hear(block.bytes);
    Queue(block);
    next_ = (next_ + 1) % blocks_.size();
  }
}

}  // namespace quillspeech::cli
