#include "audio/wave_reader.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/audio/wave_reader_fixture.hpp"

namespace quillspeech::tests {
namespace {

// Boxes that note how many files are open while they are shown.
class BoxesOverOpenFiles final : public MessageBoxes {
 public:
  explicit BoxesOverOpenFiles(const headless::RiffFiles& files) : files_(files) {}
  BoxAnswer Show(const MessageBox&) override {
    open_files.push_back(files_.open_files);
    return BoxAnswer::OK;
  }

  std::vector<int> open_files;

 private:
  const headless::RiffFiles& files_;
};

TEST_F(WaveReader, The_box_is_shown_first_and_then_the_file_is_closed) {
  BoxesOverOpenFiles watching(riff_files);
  Session watched{Ports{events, watching, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, views}};
  const std::vector<FileBytes> corrupt = {
      {},
      Wave().Without_Format(),
      Wave().Chunk("fmt ", {}),
      Wave().Format(Pcm(3)),
      Wave().Format(),
      Wave().Data({}),
  };
  for (const FileBytes& file : corrupt) {
    riff_files.files["a.wav"] = file;
    EXPECT_EQ(Open_Wave_File(watched, "a.wav"), False);
    EXPECT_EQ(riff_files.open_files, 0);
  }
  EXPECT_EQ(watching.open_files, std::vector<int>(corrupt.size(), 1));
}

// What a file leaves behind only when it was taken in.
struct Results {
  explicit Results(const Sample& sample)
      : samples(sample.Samples_Per_Capture),
        buffer_length(sample.Wave_Header_Buffer_Length),
        header(sample.Wave_Header) {}
  std::int64_t samples;
  std::int64_t buffer_length;
  WaveHeader header;
};

void Expect_Same_Lengths(const Results& now, const Results& before) {
  EXPECT_EQ(now.samples, before.samples);
  EXPECT_EQ(now.buffer_length, before.buffer_length);
  EXPECT_EQ(now.header.buffer_length, before.header.buffer_length);
  EXPECT_EQ(now.header.flags, before.header.flags);
  EXPECT_EQ(now.header.loop_count, before.header.loop_count);
}

void Expect_Same(const Results& now, const Results& before) {
  Expect_Same_Lengths(now, before);
  EXPECT_EQ(now.header.data, before.header.data);
}

struct WaveReaderAfterAGoodFile : WaveReader {
  WaveReaderAfterAGoodFile() {
    Read(Wave().Data(Level(7, Bytes(300))));
    sample.Wave_Header.flags = Header_Done;
    sample.Wave_Header.loop_count = 4;
  }
  Results Now() const { return Results(session.sample); }
};

TEST_F(WaveReaderAfterAGoodFile, A_stopped_session_opens_nothing_and_touches_nothing) {
  const Results before = Now();
  session.settings.Stop_everything_now = "YES";
  EXPECT_EQ(Read(Wave().Format(Pcm(2, 16, 8000)).Data(Silence(Bytes(10)))), False);
  EXPECT_EQ(riff_files.opens, 1);
  EXPECT_TRUE(boxes.shown.empty());
  Expect_Same(Now(), before);
  EXPECT_EQ(Store(), FileBytes(300, 7));
  EXPECT_EQ(Format_Bytes(sample.Wave_Format), Format_Bytes(Pcm()));
}

TEST_F(WaveReaderAfterAGoodFile, A_file_that_fails_before_its_data_leaves_store_and_results) {
  struct Case {
    const char* text;
    FileBytes file;
    bool ascends_fail = false;
  };
  const Sound sound = Silence(Bytes(10));
  const std::vector<Case> cases = {
      {"Corrupt Wavechunk.", Wave().Form("AVI ").Data(sound)},
      {"Corrupt Fmt chunk", Wave().Without_Format().Data(sound)},
      {"Corrupt Wave Format Record", Wave().Chunk("fmt ", {}).Data(sound)},
      {"Corrupt Format", Wave().Format(Pcm(3)).Data(sound)},
      {"Corrupt fmt chunk", Wave().Data(sound), true},
      {"Corrupt data chunk", Wave().Format()},
      {" Corrupt wave data", Wave().Data({})},
  };
  const Results before = Now();
  for (const Case& one : cases) {
    SCOPED_TRACE(one.text);
    boxes.shown.clear();
    riff_files.ascends_fail = one.ascends_fail;
    EXPECT_EQ(Read(one.file), False);
    Expect_One_Box(one.text);
    Expect_Same(Now(), before);
    EXPECT_EQ(Store(), FileBytes(300, 7));
  }
}

// Whoever still uses the buffer header must not follow it into the store that went.
TEST_F(WaveReaderAfterAGoodFile, Data_that_cannot_be_read_leaves_a_header_without_a_buffer) {
  const Results before = Now();
  riff_files.failing_reads = {4};
  EXPECT_EQ(Read(Wave().Data(Level(9, Bytes(5000)))), False);
  Expect_One_Box(" Corrupt wave data");
  Expect_Same_Lengths(Now(), before);
  EXPECT_EQ(sample.Wave_Header.data, nullptr);
  EXPECT_EQ(Store(), FileBytes(5000, 0));
}

TEST_F(WaveReader, A_file_that_cannot_be_opened_is_told_with_an_apology) {
  EXPECT_EQ(Open_Wave_File(session, "none.wav"), False);
  Expect_One_Box("Sorry ! Couldn't open the wav file you specified.");
}

TEST_F(WaveReader, A_file_without_a_wave_form_is_a_corrupt_wavechunk) {
  EXPECT_EQ(Read(Wave().Form("AVI ").Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Wavechunk.");
}

TEST_F(WaveReader, An_empty_file_is_a_corrupt_wavechunk) {
  EXPECT_EQ(Read({}), False);
  Expect_One_Box("Corrupt Wavechunk.");
}

TEST_F(WaveReader, A_file_without_a_format_chunk_is_a_corrupt_Fmt_chunk) {
  EXPECT_EQ(Read(Wave().Without_Format().Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Fmt chunk");
}

TEST_F(WaveReader, A_format_chunk_of_no_bytes_is_a_corrupt_record) {
  sample.Wave_Format = Pcm(2, 16, 8000);
  EXPECT_EQ(Read(Wave().Chunk("fmt ", {}).Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Wave Format Record");
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 8000u);
}

TEST_F(WaveReader, A_format_chunk_at_the_very_end_of_a_cut_file_is_a_corrupt_record) {
  sample.Wave_Format = Pcm(2, 16, 8000);
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10))).Cut_To(20)), False);
  Expect_One_Box("Corrupt Wave Format Record");
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 8000u);
}

TEST_F(WaveReader, A_format_that_cannot_be_read_leaves_the_old_one) {
  sample.Wave_Format = Pcm(2, 16, 8000);
  riff_files.failing_reads = {1};
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Wave Format Record");
  EXPECT_EQ(sample.Wave_Format.samples_per_second, 8000u);
}

TEST_F(WaveReader, A_format_that_no_device_plays_stays_in_the_record) {
  WaveFormat compressed = Pcm();
  compressed.format_tag = 2;
  EXPECT_EQ(Read(Wave().Format(compressed).Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Format");
  EXPECT_EQ(sample.Wave_Format.format_tag, 2);
}

TEST_F(WaveReader, A_machine_without_a_device_plays_no_format) {
  wave_output.present = false;
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt Format");
}

TEST_F(WaveReader, A_format_chunk_that_cannot_be_left_is_a_corrupt_fmt_chunk) {
  riff_files.ascends_fail = true;
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt fmt chunk");
}

TEST_F(WaveReader, A_file_without_a_data_chunk_is_a_corrupt_data_chunk) {
  EXPECT_EQ(Read(Wave().Format().Chunk("LIST", Silence(Bytes(10)))), False);
  Expect_One_Box("Corrupt data chunk");
}

TEST_F(WaveReader, A_data_chunk_before_the_format_chunk_is_not_found_again) {
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10))).Format()), False);
  Expect_One_Box("Corrupt data chunk");
}

TEST_F(WaveReader, A_data_chunk_of_no_bytes_leaves_the_store_alone) {
  sample.Speech_Sample_Bytes.Resize(2);
  EXPECT_EQ(Read(Wave().Data({})), False);
  Expect_One_Box(" Corrupt wave data");
  EXPECT_EQ(sample.Speech_Sample_Bytes.Count(), 3);
}

TEST_F(WaveReader, A_data_chunk_at_the_very_end_of_a_cut_file_leaves_zeros_of_its_size) {
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10))).Cut_To(44)), False);
  Expect_One_Box(" Corrupt wave data");
  EXPECT_EQ(Store(), FileBytes(10, 0));
  EXPECT_EQ(sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 0);
}

TEST_F(WaveReader, Data_that_cannot_be_read_is_corrupt) {
  riff_files.failing_reads = {2};
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(10)))), False);
  Expect_One_Box(" Corrupt wave data");
}

TEST_F(WaveReader, Data_that_fails_in_the_middle_of_a_long_file_is_corrupt) {
  riff_files.failing_reads = {3};
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(3'000'000)))), False);
  Expect_One_Box(" Corrupt wave data");
  EXPECT_EQ(sample.Samples_Per_Capture, 154350);
}

TEST_F(WaveReader, A_file_that_ends_behind_its_format_has_no_data_chunk) {
  EXPECT_EQ(Read(Wave().Data(Silence(Bytes(5))).Cut_To(36)), False);
  Expect_One_Box("Corrupt data chunk");
  EXPECT_EQ(sample.Wave_Format.bits_per_sample, 8);
}

TEST_F(WaveReader, A_data_chunk_that_claims_2_to_the_31_bytes_is_failure_6) {
  for (const std::uint32_t size : {0x80000000u, 0xFFFFFFFFu}) {
    SCOPED_TRACE(size);
    const Wave wave = Wave().Data(Silence(Bytes(10))).Claiming(size).Riff_Claiming(0xFFFFFFFF);
    EXPECT_EQ(Failure_Of([&] { Read(wave); }), 6);
    EXPECT_EQ(riff_files.open_files, 0);
    EXPECT_TRUE(boxes.shown.empty());
  }
}

}  // namespace
}  // namespace quillspeech::tests
