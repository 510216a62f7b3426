#include "analysis/slice_steps.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/sample_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// A session with a sound in its store; the capture may promise more than the store has.
struct Steps : TestSession {
  explicit Steps(const Sound& sound, std::int64_t promised = 0) {
    Put_File(session, sound);
    if (promised > 0) session.sample.Samples_Per_Capture = promised;
  }
  std::optional<std::int64_t> Loud(SliceSpan span, std::int64_t distance = 25) {
    return Count_Loud_Bytes(session.sample, span, distance);
  }
  // The number of the failure that ends the centring, 0 when it ends well.
  int Centre(SliceSpan span) {
    Enter_Slice(session, span, 128, 0);
    return Failure_Of([&] { Centre_Slice(session, span); });
  }
};

Sound Sound_With(std::vector<std::size_t> loud_positions) {
  Sound sound = Silence(Bytes(3000));
  for (const std::size_t position : loud_positions) sound[position] = 255;
  return sound;
}

TEST(EndWithinSample, An_end_at_or_past_the_promised_bytes_is_pulled_back_to_50_before_them) {
  const struct {
    std::int64_t last;
    std::int64_t end;
  } cases[] = {{-1, -1}, {2999, 2999}, {3000, 2950}, {3001, 2950}, {99999, 2950}};
  const Steps test(Silence(Bytes(3000)));
  for (const auto& c : cases) EXPECT_EQ(End_Within_Sample(test.session.sample, c.last), c.end);
}

TEST(CountLoudBytes, A_byte_counts_at_the_distance_or_further_from_silence) {
  const auto count = [](int byte, std::int64_t distance) {
    return Steps(Level(static_cast<std::uint8_t>(byte), Bytes(3000))).Loud({0, 2500}, distance);
  };
  EXPECT_EQ(count(128 + 25, 25), 98);  // 25, 50, ... 2,450
  EXPECT_EQ(count(128 - 25, 25), 98);
  EXPECT_EQ(count(128 + 24, 25), 0);
  EXPECT_EQ(count(128 - 24, 25), 0);
  EXPECT_EQ(count(128 + 30, 30), 98);
  EXPECT_EQ(count(128 - 30, 30), 98);
  EXPECT_EQ(count(128 - 29, 30), 0);
}

TEST(CountLoudBytes, The_walk_begins_25_bytes_inside_the_slice_and_ends_before_its_last_25) {
  EXPECT_EQ(Steps(Sound_With({100, 124, 126, 149})).Loud({100, 300}), 0);
  EXPECT_EQ(Steps(Sound_With({125})).Loud({100, 300}), 1);
  EXPECT_EQ(Steps(Sound_With({250})).Loud({100, 300}), 1);
  EXPECT_EQ(Steps(Sound_With({275, 300})).Loud({100, 300}), 0);
  EXPECT_EQ(Steps(Sound_With({275})).Loud({100, 301}), 1);
}

TEST(CountLoudBytes, A_slice_of_50_bytes_or_fewer_has_no_grid_byte) {
  EXPECT_EQ(Steps(Level(255, Bytes(3000))).Loud({100, 150}), 0);
  EXPECT_EQ(Steps(Level(255, Bytes(3000))).Loud({100, 151}), 1);
}

TEST(CountLoudBytes, The_walk_gives_up_where_it_meets_the_end_of_the_promised_bytes) {
  Steps test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  EXPECT_TRUE(test.Loud({0, 3000}).has_value());
  EXPECT_EQ(test.Loud({0, 3026}), std::nullopt);
  EXPECT_EQ(test.Loud({2975, 5000}), std::nullopt);
}

TEST(CountLoudBytes, A_walk_that_ends_where_the_promised_bytes_do_gives_up) {
  Steps test(Silence(Bytes(3000)));
  EXPECT_EQ(test.Loud({2950, 3000}), 0);
  EXPECT_EQ(test.Loud({2975, 3025}), std::nullopt);
}

TEST(CountLoudBytes, A_grid_byte_beyond_a_store_shorter_than_promised_fails_with_9) {
  Steps test(Silence(Bytes(1000)), 3000);
  EXPECT_EQ(Failure_Of([&] { test.Loud({0, 1025}); }), 0);
  EXPECT_EQ(Failure_Of([&] { test.Loud({0, 1026}); }), 9);
}

TEST(CentreSlice, The_slice_stands_at_its_place_and_from_index_1) {
  Steps test(Level(130, Bytes(3000)));
  EXPECT_EQ(test.Centre({1000, 1500}), 0);
  for (std::int64_t i = 990; i <= 1500; ++i) {
    const int expected = i > 1000 && i < 1499 ? 2 : 0;
    ASSERT_EQ(test.session.slice.Span_Samples[i], expected) << i;
    ASSERT_EQ(test.session.words.Decimated_Samples[i], expected) << i;
  }
  for (std::int64_t k = 0; k <= 500 + 128; ++k) {
    ASSERT_EQ(test.session.words.Centred_Samples[k], k >= 1 && k <= 498 ? 2 : 0) << k;
  }
}

TEST(CentreSlice, A_store_shorter_than_the_slice_is_taken_to_its_end_and_then_fails_with_9) {
  Steps test(Level(130, Bytes(1200)), 3000);
  EXPECT_EQ(test.Centre({1000, 1500}), 9);
  const Session& session = test.session;
  EXPECT_EQ(session.slice.Span_Samples[1199], 2);
  EXPECT_EQ(session.slice.Span_Samples[1200], 0);
  EXPECT_EQ(session.words.Decimated_Samples[1199], 2);
  EXPECT_EQ(session.words.Decimated_Samples[1200], 0);
  EXPECT_EQ(session.words.Centred_Samples[199], 2);
  EXPECT_EQ(session.words.Centred_Samples[200], 0);
}

TEST(CentreSlice, The_store_needs_no_byte_past_the_last_one_taken) {
  EXPECT_EQ(Steps(Level(130, Bytes(1499)), 3000).Centre({1000, 1500}), 0);
  EXPECT_EQ(Steps(Level(130, Bytes(1498)), 3000).Centre({1000, 1500}), 9);
}

TEST(CentreSlice, A_slice_that_begins_outside_the_store_takes_nothing_and_fails_with_9) {
  for (const SliceSpan span : {SliceSpan{1200, 1500}, {1199, 1500}, {2000, 2500}, {-2, 500}}) {
    Steps test(Level(130, Bytes(1200)), 3000);
    EXPECT_EQ(test.Centre(span), 9) << span.first_byte;
    for (std::int64_t k = 0; k <= span.Length(); ++k) {
      ASSERT_EQ(test.session.words.Centred_Samples[k], 0);
    }
  }
}

TEST(CentreSlice, A_slice_of_2_bytes_or_fewer_takes_nothing_wherever_it_lies) {
  for (const std::int64_t length : {0, 1, 2}) {
    EXPECT_EQ(Steps(Level(130, Bytes(1200))).Centre({5000, 5000 + length}), 0) << length;
  }
}

}  // namespace
}  // namespace quillspeech
