#include "base/little_endian.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <vector>

namespace quillspeech {
namespace {

// The number's bytes, once they read back as the number.
template <class T>
std::vector<int> Bytes_Of(T number) {
  std::array<std::uint8_t, sizeof(T)> bytes{};
  To_Little_Endian(number, bytes.data());
  EXPECT_EQ(From_Little_Endian<T>(bytes.data()), number);
  return {bytes.begin(), bytes.end()};
}

TEST(LittleEndian, The_lowest_byte_comes_first) {
  EXPECT_EQ(Bytes_Of(std::uint8_t{0xA1}), (std::vector<int>{0xA1}));
  EXPECT_EQ(Bytes_Of(std::uint16_t{0xB2A1}), (std::vector<int>{0xA1, 0xB2}));
  EXPECT_EQ(Bytes_Of(std::uint32_t{0xD4C3B2A1}), (std::vector<int>{0xA1, 0xB2, 0xC3, 0xD4}));
  EXPECT_EQ(Bytes_Of(std::uint64_t{0x0807060504030201}),
            (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(LittleEndian, Numbers_below_zero_are_twos_complement) {
  EXPECT_EQ(Bytes_Of(std::int16_t{-2}), (std::vector<int>{0xFE, 0xFF}));
  EXPECT_EQ(Bytes_Of(std::int32_t{-2}), (std::vector<int>{0xFE, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(Bytes_Of(std::numeric_limits<std::int16_t>::min()), (std::vector<int>{0x00, 0x80}));
  EXPECT_EQ(Bytes_Of(std::numeric_limits<std::int32_t>::max()),
            (std::vector<int>{0xFF, 0xFF, 0xFF, 0x7F}));
}

TEST(LittleEndian, A_number_takes_its_own_bytes_and_no_other) {
  std::array<std::uint8_t, 4> bytes = {9, 9, 9, 9};
  To_Little_Endian(std::uint16_t{0x0201}, bytes.data() + 1);
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{9, 1, 2, 9}));
  EXPECT_EQ(From_Little_Endian<std::uint16_t>(bytes.data() + 1), 0x0201);
}

}  // namespace
}  // namespace quillspeech
