#include "audio/wave_reader.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tests/audio/wave_reader_fixture.hpp"

namespace quillspeech::tests {
namespace {

TEST_F(WaveReader, A_sound_lands_in_the_store_byte_for_byte) {
  const Sound sound = Silence(Bytes(500)) + Tone(1000_Hz, Amplitude(100), Bytes(2000));
  EXPECT_EQ(Read(Wave().Data(sound)), True);
  EXPECT_EQ(Store(), sound);
  EXPECT_EQ(sample.Samples_Per_Capture, 2500);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 2500);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WaveReader, The_buffer_header_points_at_the_store_with_its_flags_cleared) {
  sample.Wave_Header.flags = 3;
  sample.Wave_Header.loop_count = 4;
  Read(Wave().Data(Silence(Bytes(10))));
  EXPECT_EQ(sample.Wave_Header.data, sample.Speech_Sample_Bytes.Read_Range(0, 0));
  EXPECT_EQ(sample.Wave_Header.flags, 0u);
  EXPECT_EQ(sample.Wave_Header.loop_count, 0u);
}

TEST_F(WaveReader, The_format_is_that_of_the_file) {
  Read(Wave().Format(Pcm(2, 16, 44100)).Data(Silence(Bytes(8))));
  EXPECT_EQ(sample.Wave_Format.format_tag, 1);
  EXPECT_EQ(sample.Wave_Format.channels, 2);
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 44100u);
  EXPECT_EQ(sample.Wave_Format.average_bytes_per_second, 176400u);
  EXPECT_EQ(sample.Wave_Format.block_alignment, 4);
  EXPECT_EQ(sample.Wave_Format.bits_per_sample, 16);
}

TEST_F(WaveReader, Each_field_of_the_format_lies_at_its_offset) {
  // No such format can be played; it is taken in before the question.
  const FileBytes counted = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  EXPECT_EQ(Read(Wave().Chunk("fmt ", counted).Data(Silence(Bytes(8)))), False);
  EXPECT_EQ(sample.Wave_Format.format_tag, 0x0201);
  EXPECT_EQ(sample.Wave_Format.channels, 0x0403);
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 0x08070605u);
  EXPECT_EQ(sample.Wave_Format.average_bytes_per_second, 0x0C0B0A09u);
  EXPECT_EQ(sample.Wave_Format.block_alignment, 0x0E0D);
  EXPECT_EQ(sample.Wave_Format.bits_per_sample, 0x100F);
}

TEST_F(WaveReader, The_file_is_closed_when_it_was_taken_in) {
  Read(Wave().Data(Silence(Bytes(10))));
  EXPECT_EQ(riff_files.opens, 1);
  EXPECT_EQ(riff_files.open_files, 0);
}

TEST_F(WaveReader, Nothing_is_announced_to_the_host) {
  bool told = false;
  session.operations.Wave_File_Was_Read = [&](Session&) { told = true; };
  Read(Wave().Data(Silence(Bytes(10))));
  EXPECT_FALSE(told);
}

TEST_F(WaveReader, Only_the_exact_text_YES_stops_it) {
  session.settings.Stop_everything_now = "yes";
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10)))), True);
}

TEST_F(WaveReader, A_second_data_chunk_behind_the_format_chunk_is_the_one_that_counts) {
  EXPECT_EQ(Read(Wave().Data(Level(1, Bytes(10))).Format().Data(Level(2, Bytes(4)))), True);
  EXPECT_EQ(Store(), FileBytes(4, 2));
}

TEST_F(WaveReader, A_data_chunk_shorter_than_its_size_is_taken_in_with_zeros_behind) {
  EXPECT_EQ(Read(Wave().Data(Level(7, Bytes(10))).Claiming(15)), True);
  EXPECT_EQ(Store(), (FileBytes{7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 0, 0, 0, 0, 0}));
  EXPECT_EQ(sample.Samples_Per_Capture, 10);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 10);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(WaveReader, What_the_store_held_is_thrown_away) {
  Read(Wave().Data(Level(9, Bytes(20))));
  EXPECT_EQ(Read(Wave().Data(Level(7, Bytes(4))).Claiming(8)), True);
  EXPECT_EQ(Store(), (FileBytes{7, 7, 7, 7, 0, 0, 0, 0}));
}

TEST_F(WaveReader, Unknown_chunks_between_format_and_data_are_skipped) {
  const Sound sound = Tone(500_Hz, Amplitude(50), Bytes(101));
  EXPECT_EQ(Read(Wave()
                     .Chunk("JUNK", Silence(Bytes(3)))
                     .Format()
                     .Chunk("fact", Silence(Bytes(4)))
                     .Chunk("LIST", Silence(Bytes(27)))
                     .Data(sound)),
            True);
  EXPECT_EQ(Store(), sound);
}

TEST_F(WaveReader, What_follows_the_data_is_not_taken_in) {
  EXPECT_EQ(Read(Wave().Data(Level(7, Bytes(5))).Chunk("LIST", Level(9, Bytes(20)))), True);
  EXPECT_EQ(Store(), FileBytes(5, 7));
}

TEST_F(WaveReader, A_stereo_file_of_16_bits_is_taken_in_as_it_lies) {
  const Sound sound = Noise(Amplitude(120), Bytes(400));
  EXPECT_EQ(Read(Wave().Format(Pcm(2, 16, 44100)).Data(sound)), True);
  EXPECT_EQ(Store(), sound);
  EXPECT_EQ(sample.Samples_Per_Capture, 400);
}

TEST_F(WaveReader, A_format_chunk_longer_than_the_record_is_cut_and_the_rest_skipped) {
  for (const std::size_t length : {17u, 18u, 40u, 5000u}) {
    SCOPED_TRACE(length);
    FileBytes format = Format_Bytes(Pcm());
    format.resize(length, 0xFF);
    EXPECT_EQ(Read(Wave().Chunk("fmt ", format).Data(Level(7, Bytes(5)))), True);
    EXPECT_EQ(Store(), FileBytes(5, 7));
    EXPECT_EQ(sample.Wave_Format.bits_per_sample, 8);
  }
}

TEST_F(WaveReader, A_format_chunk_shorter_than_the_record_leaves_the_other_fields_0) {
  sample.Wave_Format = Pcm(2, 16, 8000);
  FileBytes format = Format_Bytes(Pcm());
  format.resize(14);
  EXPECT_EQ(Read(Wave().Chunk("fmt ", format).Data(Silence(Bytes(5)))), False);
  Expect_One_Box("Corrupt Format");
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 22050u);
  EXPECT_EQ(sample.Wave_Format.block_alignment, 1);
  EXPECT_EQ(sample.Wave_Format.bits_per_sample, 0);
}

TEST_F(WaveReader, A_file_that_ends_inside_its_format_leaves_the_fields_behind_the_end_0) {
  for (int length = 21; length < 35; ++length) {
    SCOPED_TRACE(length);
    boxes.shown.clear();
    sample.Wave_Format = Pcm(2, 16, 8000);
    EXPECT_EQ(Read(Wave().Data(Silence(Bytes(5))).Cut_To(length)), False);
    Expect_One_Box("Corrupt Format");
    EXPECT_EQ(sample.Wave_Format.format_tag, 1);
    const std::uint32_t rate_there = length < 25 ? 0 : length < 26 ? 0x22 : 0x5622;
    EXPECT_EQ(sample.Wave_Format.samples_per_second, rate_there);
    EXPECT_EQ(sample.Wave_Format.bits_per_sample, 0);
  }
}

TEST_F(WaveReader, Formats_that_can_be_played_are_the_common_ones) {
  struct Case {
    const char* what;
    WaveFormat format;
    bool plays;
  };
  WaveFormat wrong_alignment = Pcm(2, 16);
  wrong_alignment.block_alignment = 2;
  WaveFormat wrong_byte_rate = Pcm();
  wrong_byte_rate.average_bytes_per_second += 1;
  WaveFormat real_numbers = Pcm(1, 16);
  real_numbers.format_tag = 3;
  WaveFormat no_tag = Pcm();
  no_tag.format_tag = 0;
  const std::vector<Case> cases = {
      {"mono of 8 bits", Pcm(1, 8, 22050), true},
      {"mono of 8 bits at 44,100 Hz", Pcm(1, 8, 44100), true},
      {"stereo of 8 bits", Pcm(2, 8, 22050), true},
      {"mono of 16 bits", Pcm(1, 16, 22050), true},
      {"stereo of 16 bits", Pcm(2, 16, 44100), true},
      {"the slowest", Pcm(1, 8, 4000), true},
      {"slower", Pcm(1, 8, 3999), false},
      {"the fastest", Pcm(2, 16, 192000), true},
      {"faster", Pcm(2, 16, 192001), false},
      {"no rate", Pcm(1, 8, 0), false},
      {"no channel", Pcm(0, 8), false},
      {"three channels", Pcm(3, 8), false},
      {"no bits", Pcm(1, 0), false},
      {"24 bits", Pcm(1, 24), false},
      {"12 bits", Pcm(2, 12), false},
      {"no tag", no_tag, false},
      {"another tag", real_numbers, false},
      {"wrong alignment", wrong_alignment, false},
      {"wrong byte rate", wrong_byte_rate, false},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.what);
    EXPECT_EQ(Read(Wave().Format(one.format).Data(Silence(Bytes(12)))), one.plays ? True : False);
  }
}

TEST_F(WaveReader, A_sound_longer_than_one_read_is_whole) {
  const Sound sound = Noise(Amplitude(127), Bytes(2'500'001));
  EXPECT_EQ(Read(Wave().Data(sound)), True);
  EXPECT_TRUE(Store() == sound);
  EXPECT_EQ(sample.Samples_Per_Capture, 2'500'001);
}

TEST_F(WaveReader, A_sound_that_ends_with_a_read_is_whole) {
  EXPECT_EQ(Read(Wave().Data(Level(7, Bytes(1 << 20))).Claiming((1 << 20) + 10)), True);
  EXPECT_EQ(sample.Speech_Sample_Bytes.Count(), (1 << 20) + 10);
  EXPECT_EQ(sample.Samples_Per_Capture, 1 << 20);
}

// A machine of 64 bits has room for every index; a smaller one may find no memory.
TEST_F(WaveReader, A_data_chunk_that_claims_far_more_than_the_file_has_is_taken_in_or_failure_7) {
  std::int16_t taken_in = False;
  const Wave wave = Wave().Data(Level(7, Bytes(10))).Claiming(0x7FFFFFFF);
  const int failure = Failure_Of([&] { taken_in = Read(wave); });
  EXPECT_EQ(riff_files.open_files, 0);
  EXPECT_TRUE(boxes.shown.empty());
  if (sizeof(void*) < 8 && failure != 0) {
    EXPECT_EQ(failure, 7);
    return;
  }
  EXPECT_EQ(failure, 0);
  EXPECT_EQ(taken_in, True);
  EXPECT_EQ(sample.Speech_Sample_Bytes.Count(), 0x7FFFFFFF);
  EXPECT_EQ(sample.Speech_Sample_Bytes[0x7FFFFFFE], 0);
  EXPECT_EQ(sample.Samples_Per_Capture, 10);
}

}  // namespace
}  // namespace quillspeech::tests
