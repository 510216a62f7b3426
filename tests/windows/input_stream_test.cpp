// A recording stream over a device that a test plays, in the place of the system's own calls.
#include "platform/windows/input_stream.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

// Where this program finds the system's calls.
#define CALL_OF_THE_SYSTEM(name, bytes) \
  extern "C" decltype(&name) Call_##name asm("__imp__" #name "@" #bytes)
CALL_OF_THE_SYSTEM(waveInOpen, 24);
CALL_OF_THE_SYSTEM(waveInPrepareHeader, 12);
CALL_OF_THE_SYSTEM(waveInUnprepareHeader, 12);
CALL_OF_THE_SYSTEM(waveInAddBuffer, 12);
CALL_OF_THE_SYSTEM(waveInStart, 4);
CALL_OF_THE_SYSTEM(waveInReset, 4);
CALL_OF_THE_SYSTEM(waveInClose, 4);

namespace quillspeech::tests {
namespace {

constexpr WaveFormat Mono_22050{1, 1, 22'050, 22'050, 1, 8};

// Puts another call into its place until the end of the test.
template <class Function>
class Replaced {
 public:
  Replaced(Function*& place, Function* other) : place_(place), before_(place) {
    DWORD access = 0;
    ::VirtualProtect(&place_, sizeof place_, PAGE_READWRITE, &access);
    place_ = other;
  }
  ~Replaced() { place_ = before_; }
  Replaced(const Replaced&) = delete;
  Replaced& operator=(const Replaced&) = delete;

 private:
  Function*& place_;
  Function* before_;
};

class PlayedDevice : public testing::Test {
 protected:
  PlayedDevice() {
    device_ = this;
    EXPECT_EQ(stream.Open(Mono_22050), Wave_Ok);
  }
  ~PlayedDevice() override {
    stream.Close();
    device_ = nullptr;
  }

  // Gives the next buffer back, with so many bytes in it.
  void Bring(DWORD count) {
    ASSERT_LT(next, given.size());
    Finish(*given[next++], count);
  }
  std::size_t Take(std::size_t most) {
    std::vector<std::uint8_t> bytes(most);
    return stream.Take(bytes.data(), most);
  }

  std::vector<WAVEHDR*> given;  // buffers, in the order in which the device got them
  std::size_t next = 0;
  MMRESULT answer = MMSYSERR_NOERROR;  // to a buffer
  bool gives_back_at_once = false;
  DWORD bytes_then = 0;
  bool is_open = false;

 private:
  static void Finish(WAVEHDR& header, DWORD count) {
    header.dwBytesRecorded = count;
    header.dwFlags |= WHDR_DONE;
  }
  static MMRESULT WINAPI Open(HWAVEIN* handle, UINT, const WAVEFORMATEX*, DWORD_PTR, DWORD_PTR,
                              DWORD) {
    *handle = reinterpret_cast<HWAVEIN>(device_);
    device_->is_open = true;
    return MMSYSERR_NOERROR;
  }
  static MMRESULT WINAPI Pass_Header(HWAVEIN, WAVEHDR*, UINT) { return MMSYSERR_NOERROR; }
  static MMRESULT WINAPI Add_Buffer(HWAVEIN, WAVEHDR* header, UINT) {
    if (device_->answer != MMSYSERR_NOERROR) return device_->answer;
    header->dwFlags &= ~DWORD{WHDR_DONE};
    device_->given.push_back(header);
    if (device_->gives_back_at_once) Finish(*header, device_->bytes_then);
    return MMSYSERR_NOERROR;
  }
  static MMRESULT WINAPI Pass(HWAVEIN) { return MMSYSERR_NOERROR; }
  static MMRESULT WINAPI Close(HWAVEIN) {
    device_->is_open = false;
    return MMSYSERR_NOERROR;
  }

  static inline PlayedDevice* device_ = nullptr;  // the system's calls know no other way to it
  Replaced<decltype(waveInOpen)> open_{Call_waveInOpen, &Open};
  Replaced<decltype(waveInPrepareHeader)> prepare_{Call_waveInPrepareHeader, &Pass_Header};
  Replaced<decltype(waveInUnprepareHeader)> unprepare_{Call_waveInUnprepareHeader, &Pass_Header};
  Replaced<decltype(waveInAddBuffer)> add_{Call_waveInAddBuffer, &Add_Buffer};
  Replaced<decltype(waveInStart)> start_{Call_waveInStart, &Pass};
  Replaced<decltype(waveInReset)> reset_{Call_waveInReset, &Pass};
  Replaced<decltype(waveInClose)> close_{Call_waveInClose, &Close};

 protected:
  windows::InputStream stream{""};  // after the calls that it makes at its end
};

TEST_F(PlayedDevice, It_has_buffers_for_ten_seconds) {
  std::size_t bytes = 0;
  for (const WAVEHDR* const header : given) bytes += header->dwBufferLength;
  EXPECT_NEAR(static_cast<double>(bytes), 220'500, 1'000);
}

TEST_F(PlayedDevice, What_it_brought_can_be_taken_in_parts_and_its_buffers_go_back) {
  const std::size_t before = given.size();
  Bring(100);
  Bring(50);
  EXPECT_EQ(Take(80), 80U);
  EXPECT_EQ(given.size(), before);
  EXPECT_EQ(Take(80), 70U);
  EXPECT_EQ(given.size(), before + 2);
  EXPECT_EQ(Take(80), 0U);
}

TEST_F(PlayedDevice, One_that_takes_no_buffer_back_has_gone) {
  Bring(100);
  Bring(100);
  answer = MMSYSERR_NODRIVER;
  EXPECT_EQ(Take(1'000), 100U);
  EXPECT_EQ(Take(1'000), 0U);
  EXPECT_FALSE(stream.Is_Running(Mono_22050));
  EXPECT_FALSE(is_open);
}

TEST_F(PlayedDevice, One_that_has_gone_is_opened_again) {
  Bring(100);
  answer = MMSYSERR_NODRIVER;
  stream.Drop();
  EXPECT_FALSE(stream.Is_Running(Mono_22050));
  answer = MMSYSERR_NOERROR;
  next = given.size();
  EXPECT_EQ(stream.Open(Mono_22050), Wave_Ok);
  Bring(100);
  EXPECT_EQ(Take(1'000), 100U);
}

TEST_F(PlayedDevice, One_that_gives_back_at_once_what_it_is_given_holds_nobody) {
  const std::size_t round = given.size();
  for (const DWORD count : {DWORD{0}, DWORD{10}}) {
    gives_back_at_once = true;
    bytes_then = count;
    for (std::size_t i = 0; i < round; ++i) {
      given[given.size() - round + i]->dwBytesRecorded = count;
      given[given.size() - round + i]->dwFlags |= WHDR_DONE;
    }
    EXPECT_EQ(Take(1'000'000), round * count);
    stream.Drop();
  }
}

TEST_F(PlayedDevice, A_rate_of_a_few_samples_a_second_has_buffers_all_the_same) {
  EXPECT_EQ(stream.Open({1, 1, 10, 10, 1, 8}), Wave_Ok);
  EXPECT_GE(given.back()->dwBufferLength, 1U);
}

}  // namespace
}  // namespace quillspeech::tests
