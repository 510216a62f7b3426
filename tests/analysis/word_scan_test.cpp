#include "analysis/word_scan.hpp"

#include <gtest/gtest.h>

#include <random>

#include "analysis/sample_head.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/plain_word_scan.hpp"
#include "tests/support/sample_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// A scan of a sound as a file, with its tables made and nothing analysed.
struct Scan : TestSession {
  explicit Scan(const Sound& sound, int sensitivity = 3) {
    Put_File(session, sound);
    session.settings.Noise_Sensitivity = sensitivity;
    Clear_Analysis(session);
    if (Prepare_Sample(session)) Find_Sample_Words(session);
  }
  WordTables& words = session.words;
  WordScanTables& scan = session.words.scan;
};

template <class T>
void Expect_Same(const DynamicTable<T>& table, const PlainWordScan::Table& plain,
                 const char* name) {
  for (std::int64_t i = 0; i < table.Count(); ++i) {
    const auto index = static_cast<std::size_t>(i);
    ASSERT_EQ(table[i], index < plain.size() ? plain[index] : 0) << name << " " << i;
  }
}

void Expect_Same_Scan(const WordScanTables& scan, const PlainWordScan& plain) {
  EXPECT_EQ(scan.Forward_Hit_Count, plain.forward_hit_count);
  EXPECT_EQ(scan.Backward_Hit_Count, plain.backward_hit_count);
  EXPECT_EQ(scan.Word_Gap_Threshold, plain.threshold);
  EXPECT_EQ(scan.Forward_Word_Count, plain.forward_gap_count);
  EXPECT_EQ(scan.Backward_Word_Count, plain.backward_gap_count);
  Expect_Same(scan.Forward_Hits, plain.forward_hits, "forward hit");
  Expect_Same(scan.Backward_Hits, plain.backward_hits, "backward hit");
  Expect_Same(scan.Forward_Gap_Index, plain.forward_gaps, "forward gap");
  Expect_Same(scan.Backward_Gap_Index, plain.backward_gaps, "backward gap");
  Expect_Same(scan.Forward_Word_Starts, plain.starts, "start");
  Expect_Same(scan.Backward_Word_Ends, plain.ends, "end");
}

// Words, pauses, hums and cells that were never reached, of any length.
Sound Any_Sound(std::mt19937& random) {
  const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
  const auto piece = [&](int kind, Bytes length) {
    if (kind == 0) return Silence(length);
    if (kind == 1) return Noise(Amplitude(below(6)), length, static_cast<unsigned>(below(99)));
    if (kind == 2) return Noise(Amplitude(below(120)), length, static_cast<unsigned>(below(99)));
    if (kind == 3) return Tone(Hertz{100.0 + below(3000)}, Amplitude(80), length);
    if (kind == 4) return Level(static_cast<std::uint8_t>(below(256)), length);
    return Level(0, length);
  };
  Sound sound;
  for (int pieces = 1 + below(14); pieces > 0; --pieces) {
    const int kind = below(6);
    sound = sound + piece(kind, Bytes(20 + below(2500)));
  }
  return sound + Silence(Bytes(1001));
}

TEST(WordScan, Any_sample_gives_the_tables_of_the_plain_scan) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    const Sound sound = Any_Sound(random);
    const auto last = static_cast<std::int64_t>(sound.size()) - 1;
    const int sensitivity = static_cast<int>(random() % 8);
    Scan fast(sound, sensitivity);
    std::vector<std::uint8_t> store = sound;
    const PlainWordScan plain = Plain_Sample_Scan(store, last, sensitivity);
    Expect_Same_Scan(fast.scan, plain);
    EXPECT_EQ(fast.words.Decimated_Count, plain.grid_count);
    Expect_Same(fast.words.Centred_Samples, plain.centred, "centred");
    Expect_Same(fast.words.Decimated_Samples, plain.decimated, "decimated");
    Expect_Same(fast.words.Reversed_Decimated_Samples, plain.reversed, "reversed");
    Expect_Same(fast.words.Word_Start, plain.word_start, "word start");
    Expect_Same(fast.words.Word_End, plain.word_end, "word end");
    for (std::int64_t i = 0; i <= last; ++i) {
      ASSERT_EQ(fast.session.sample.Speech_Sample_Bytes[i], store[static_cast<std::size_t>(i)]);
    }
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST(WordScan, Any_word_of_a_file_gives_the_tables_of_the_plain_deep_scan) {
  std::mt19937 random(2);
  for (int round = 0; round < 300; ++round) {
    const Sound sound = Any_Sound(random);
    const std::int64_t first = static_cast<std::int64_t>(random() % 300);
    const auto last = static_cast<std::int64_t>(sound.size()) - 1;
    const std::int64_t span = last - first;
    TestSession test;
    Put_File(test.session, sound);
    WordTables& words = test.session.words;
    Resize_Sample_Arrays(test.session, span);
    for (auto* table : {&words.Deep_Word_Start, &words.Deep_Word_End}) table->Resize(span / 10);
    Resize_Scan(words.scan, span / 10);
    Take_Word_Grid(test.session.sample, words, first, last - 1);
    Find_Hits(words, {ForwardHits::By_Change, 30, 20});
    Find_Gaps(words.scan, span);
    Bound_Words(words.scan, span, {words.Deep_Word_Start, words.Deep_Word_End});
    const PlainWordScan plain = Plain_Deep_Scan(sound, first, last);
    Expect_Same_Scan(words.scan, plain);
    Expect_Same(words.Deep_Word_Start, plain.word_start, "word start");
    Expect_Same(words.Deep_Word_End, plain.word_end, "word end");
    if (HasFailure()) FAIL() << "round " << round;
  }
}

TEST(WordScan, A_zero_byte_on_the_grid_is_written_to_128_in_the_store) {
  Scan test(Level(0, Bytes(2001)));
  EXPECT_EQ(test.session.sample.Speech_Sample_Bytes[25], 128);
  EXPECT_EQ(test.session.sample.Speech_Sample_Bytes[2000], 128);
  EXPECT_EQ(test.session.sample.Speech_Sample_Bytes[26], 0);
  EXPECT_EQ(test.session.sample.Speech_Sample_Bytes[0], 0);
  EXPECT_EQ(test.scan.Forward_Hit_Count, 0);
}

TEST(WordScan, A_sample_is_a_hit_only_when_it_is_strictly_further_from_silence_than_the_limit) {
  for (const int byte : {128 + 3, 128 - 3}) {
    EXPECT_EQ(Scan(Level(static_cast<std::uint8_t>(byte), Bytes(2001))).scan.Forward_Hit_Count, 0);
  }
  for (const int byte : {128 + 4, 128 - 4}) {
    EXPECT_EQ(Scan(Level(static_cast<std::uint8_t>(byte), Bytes(2001))).scan.Forward_Hit_Count, 80);
  }
}

TEST(WordScan, With_a_negative_sensitivity_every_grid_sample_is_a_hit_of_both_passes) {
  for (const int sensitivity : {-1, -32767}) {
    Scan test(Silence(Bytes(2001)), sensitivity);
    EXPECT_EQ(test.scan.Forward_Hit_Count, 80);
    EXPECT_EQ(test.scan.Backward_Hit_Count, 81);  // the silence at index 0 counts too
  }
}

TEST(WordScan, A_limit_of_minus_32768_fails_with_6_in_either_pass) {
  const auto failure = [](std::int64_t forward, std::int64_t backward) {
    Scan test(Silence(Bytes(2001)));
    return Failure_Of([&] {
      Find_Hits(test.words, {ForwardHits::By_Amplitude, forward, backward});
    });
  };
  EXPECT_EQ(failure(-32768, 3), 6);
  EXPECT_EQ(failure(3, -32768), 6);
}

TEST(WordScan, The_forward_pass_goes_by_amplitude_and_the_backward_pass_by_change) {
  Scan test(Silence(Bytes(1000)) + Level(200, Bytes(2000)) + Silence(Bytes(1001)));
  EXPECT_EQ(test.scan.Forward_Hit_Count, 80);
  EXPECT_EQ(test.scan.Backward_Hit_Count, 2);
}

TEST(WordScan, Only_every_25th_byte_is_looked_at) {
  Sound sound = Level(255, Bytes(2001));
  for (std::size_t i = 0; i < sound.size(); i += 25) sound[i] = 128;
  Scan test(sound);
  EXPECT_EQ(test.scan.Forward_Hit_Count, 0);
  EXPECT_EQ(test.scan.Backward_Hit_Count, 0);
}

TEST(WordScan, The_gap_threshold_is_2_percent_of_the_sample_rounded_half_to_even) {
  const struct {
    std::int64_t span;
    std::int64_t threshold;
  } cases[] = {{66149, 1323}, {1000, 20}, {1025, 20}, {1075, 22},
               {1024, 20},    {1026, 21}, {2725, 55}};
  for (const auto& c : cases) {
    Scan test(Silence(Bytes(c.span + 1)));
    EXPECT_EQ(test.scan.Word_Gap_Threshold, c.threshold) << c.span;
  }
}

TEST(WordScan, A_pause_of_exactly_the_threshold_between_two_hits_is_no_gap) {
  for (const std::int64_t span : {5000, 4999}) {  // threshold 100 both times, by rounding
    Scan test(Buzz(Bytes(2000)) + Silence(Bytes(75)) + Buzz(Bytes(span + 1 - 2075)));
    EXPECT_EQ(test.scan.Word_Gap_Threshold, 100);
    EXPECT_EQ(test.scan.Forward_Word_Count, 0);
  }
  Scan longer(Buzz(Bytes(2000)) + Silence(Bytes(100)) + Buzz(Bytes(2901)));
  EXPECT_EQ(longer.scan.Forward_Word_Count, 1);
}

TEST(WordScan, A_word_runs_from_its_first_hit_to_the_first_backward_mark_inside_it) {
  Scan test(Silence(Bytes(1000)) + Buzz(Bytes(2000)) + Silence(Bytes(1000)) + Buzz(Bytes(500)) +
            Silence(Bytes(501)));
  EXPECT_EQ(test.words.Probable_no_of_words_recognized, 2);
  EXPECT_EQ(test.words.Word_Start[0], 0);
  EXPECT_EQ(test.words.Word_Start[1], 1000);
  EXPECT_EQ(test.words.Word_End[1], 2950);  // one grid step before the last loud byte, at 2975
  EXPECT_EQ(test.words.Word_Start[2], 4000);
  EXPECT_EQ(test.words.Word_End[2], 4450);
}

TEST(WordScan, Speech_within_the_first_2_percent_falls_into_entry_0) {
  Scan test(Silence(Bytes(75)) + Buzz(Bytes(1000)) + Silence(Bytes(1000)) + Buzz(Bytes(1000)) +
            Silence(Bytes(1926)));
  ASSERT_EQ(test.scan.Word_Gap_Threshold, 100);
  EXPECT_EQ(test.words.Word_Start[0], 0);
  EXPECT_EQ(test.words.Word_End[0], 1025);
  EXPECT_EQ(test.words.Word_Start[1], 2075);
  EXPECT_EQ(test.words.Word_End[1], 3025);
}

TEST(WordScan, A_last_word_without_a_pause_behind_it_takes_the_end_of_the_sample_as_its_bound) {
  Scan test(Silence(Bytes(1000)) + Buzz(Bytes(4001)));
  EXPECT_EQ(test.words.Probable_no_of_words_recognized, 1);
  EXPECT_EQ(test.words.Word_Start[1], 1000);
  EXPECT_EQ(test.words.Word_End[1], 5000);
  EXPECT_EQ(test.scan.Forward_Word_Starts[2], 5000);
}

TEST(WordScan, Words_past_the_forward_count_keep_start_and_end_0) {
  // A steady level has hits all along, but changes only at its two edges, with a gap before each.
  Scan test(Silence(Bytes(1000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  EXPECT_EQ(test.scan.Forward_Word_Count, 1);
  EXPECT_EQ(test.scan.Backward_Word_Count, 2);
  EXPECT_EQ(test.words.Probable_no_of_words_recognized, 2);
  EXPECT_EQ(test.words.Word_Start[2], 0);
  EXPECT_EQ(test.words.Word_End[2], 0);
}

TEST(WordScan, A_scan_without_hits_counts_no_word) {
  Scan test(Silence(Bytes(5001)));
  EXPECT_EQ(test.words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(test.words.Decimated_Count, 201);
}

TEST(WordScan, Hits_up_to_32766_are_counted_and_one_more_fails_with_6) {
  const auto failure = [](Sound sound) { return Failure_Of([&] { Scan{sound}; }); };
  EXPECT_EQ(failure(Level(200, Bytes(25 * 32766 + 1))), 0);
  EXPECT_EQ(failure(Level(200, Bytes(25 * 32767 + 1))), 6);
  EXPECT_EQ(failure(Level(200, Bytes(25 * 40000 + 1))), 6);
}

TEST(WordScan, The_step_at_the_very_start_is_one_backward_hit_more) {
  const auto failure = [](Sound sound) { return Failure_Of([&] { Scan{sound}; }); };
  EXPECT_EQ(Scan(Buzz(Bytes(2001))).scan.Forward_Hit_Count, 80);
  EXPECT_EQ(Scan(Buzz(Bytes(2001))).scan.Backward_Hit_Count, 81);
  EXPECT_EQ(failure(Buzz(Bytes(25 * 32765 + 1))), 0);
  EXPECT_EQ(failure(Buzz(Bytes(25 * 32766 + 1))), 6);
}

TEST(WordScan, Tables_reach_to_a_tenth_of_the_span_rounded_half_to_even) {
  for (const auto& [span, upper] : {std::pair{1005, 100}, {1015, 102}, {1016, 102}, {1014, 101}}) {
    Scan test(Silence(Bytes(span + 1)));
    EXPECT_EQ(test.words.Word_Start.Count(), upper + 1) << span;
    EXPECT_EQ(test.scan.Forward_Hits.Count(), upper + 1) << span;
    EXPECT_EQ(test.words.Centred_Samples.Count(), span + 1) << span;
  }
}

TEST(WordScan, A_word_of_a_file_keeps_its_zero_bytes) {
  TestSession test;
  Put_File(test.session, Level(0, Bytes(2000)));
  Resize_Sample_Arrays(test.session, 1999);
  Take_Word_Grid(test.session.sample, test.session.words, 0, 1998);
  EXPECT_EQ(test.session.words.Decimated_Samples[1], -128);
  EXPECT_EQ(test.session.sample.Speech_Sample_Bytes[25], 0);
}

TEST(WordScan, A_change_of_30_forward_or_20_backward_is_no_hit_in_a_word_of_a_file) {
  const auto hits = [](int step) {
    TestSession test;
    const auto byte = static_cast<std::uint8_t>(128 + step);
    Put_File(test.session, Silence(Bytes(1000)) + Level(byte, Bytes(1000)) + Silence(Bytes(1000)));
    Resize_Sample_Arrays(test.session, 3000);
    Resize_Scan(test.session.words.scan, 300);
    Take_Word_Grid(test.session.sample, test.session.words, 0, 2999);
    Find_Hits(test.session.words, {ForwardHits::By_Change, 30, 20});
    const WordScanTables& scan = test.session.words.scan;
    return std::pair<int, int>(scan.Forward_Hit_Count.Raw(), scan.Backward_Hit_Count.Raw());
  };
  EXPECT_EQ(hits(20), std::pair(0, 0));
  EXPECT_EQ(hits(21), std::pair(0, 2));
  EXPECT_EQ(hits(30), std::pair(0, 2));
  EXPECT_EQ(hits(31), std::pair(2, 2));
  EXPECT_EQ(hits(-31), std::pair(2, 2));
}

TEST(WordScan, The_pump_can_scan_with_a_limit_of_its_own) {
  TestSession test;
  Put_File(test.session, Level(133, Bytes(1001)) + Level(134, Bytes(1000)));
  Clear_Analysis(test.session);
  ASSERT_TRUE(Prepare_Sample(test.session));
  Take_Sample_Grid(test.session.sample, test.session.words, 2000);
  Find_Hits(test.session.words, {ForwardHits::By_Amplitude, 5, 5});
  EXPECT_EQ(test.session.words.scan.Forward_Hit_Count, 40);
}

}  // namespace
}  // namespace quillspeech
