#include "analysis/slice_steps.hpp"

#include <algorithm>

#include "analysis/spectrum.hpp"
#include "analysis/word_scan.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech {

SliceNote::SliceNote(Session& session, Checked32 first_byte, Checked32 last_byte)
    : session_(session) {
  if (!session.trace.Keep_Slices) return;
  const WordTables& words = session.words;
  index_ = session.trace.slices.size();
  session.trace.slices.push_back({words.Current_Word_no_Processed.Raw(),
                                  words.Current_DeepWord_no_Processed.Raw(),
                                  words.Current_TooDeepWord_no_Processed.Raw(),
                                  first_byte.Raw(),
                                  last_byte.Raw(),
                                  {}});
}

void SliceNote::Set_Category(std::int16_t category) {
  if (index_) session_.trace.slices.at(*index_).category = category;
}

std::int64_t End_Within_Sample(const Sample& sample, std::int64_t last_byte) {
  constexpr std::int64_t Margin_Bytes = 50;
  const std::int64_t total = sample.Samples_Per_Capture;
  return last_byte >= total ? total - Margin_Bytes : last_byte;
}

void Enter_Slice(Session& session, SliceSpan span, std::int64_t lags, std::int16_t noise_gate) {
  Slice& slice = session.slice;
  slice.Span_Samples.Resize(span.last_byte);
  session.words.Decimated_Samples.Resize(span.last_byte);
  session.words.Centred_Samples.Resize(span.Length() + lags);
  slice.Noise_Gate_Limit = noise_gate;
  slice.Span_Start = span.first_byte;
  slice.Span_End = span.last_byte;
}

std::optional<std::int64_t> Count_Loud_Bytes(const Sample& sample, SliceSpan span,
                                             std::int64_t loud_distance) {
  std::int64_t count = 0;
  const std::int64_t end = span.last_byte - Grid_Step_Bytes;
  for (std::int64_t p = span.first_byte + Grid_Step_Bytes;; p += Grid_Step_Bytes) {
    if (p >= sample.Samples_Per_Capture) return std::nullopt;
    if (p >= end) return count;
    const std::int64_t distance = sample.Speech_Sample_Bytes[p] - Silent_Byte;
    if (distance >= loud_distance || distance <= -loud_distance) ++count;
  }
}

void Centre_Slice(Session& session, SliceSpan span) {
  const auto& store = session.sample.Speech_Sample_Bytes;
  const std::int64_t first = span.first_byte + 1;
  const std::int64_t last_wanted = span.last_byte - 2;
  if (last_wanted < first) return;
  const std::int64_t last = std::clamp(store.Count() - 1, first - 1, last_wanted);
  const std::int64_t count = last - first + 1;
  const std::uint8_t* bytes = store.Read_Range(first, last);
  std::int16_t* in_span = session.slice.Span_Samples.Write_Range(first, last);
  std::int16_t* in_store = session.words.Decimated_Samples.Write_Range(first, last);
  std::int16_t* centred = session.words.Centred_Samples.Write_Range(1, count);
  for (std::int64_t i = 0; i < count; ++i) {
    const auto sample = static_cast<std::int16_t>(bytes[i] - Silent_Byte);
    in_span[i] = in_store[i] = centred[i] = sample;
  }
  if (last < last_wanted) Fail(Failure::Subscript_Out_Of_Range);
}

void Correlate_Slice(Session& session, std::int64_t length, std::int64_t level) {
  const std::int16_t* centred = session.words.Centred_Samples.Read_Range(0, length + level);
  Autocorrelate(centred, length, static_cast<int>(level), session.slice.Autocorrelation);
}

void Clear_Slice_Tables(Session& session) {
  Slice& slice = session.slice;
  Clear_Curve(slice.Magnitude, slice.Magnitude_dB, slice.Curve_Bins_In_Use);
  Clear_Valleys(slice.Valley_dB, slice.Valley_Bin);
  Free_Scan_Tables(session.words.scan);
  session.words.Decimated_Samples.Clear();
}

namespace {

// Sessions that share the tables ask for one only when their level changes: jobs would wait for
// each other at every slice.
const AngleTable& Angles_For(Slice& slice, int level) {
  if (!slice.angles || slice.angles->Level() != level) {
    slice.angles = slice.angle_tables->For_Level(level);
  }
  return *slice.angles;
}

}  // namespace

void Count_Valleys(Session& session, std::int64_t level) {
  Slice& slice = session.slice;
  const AngleTable& angles = Angles_For(slice, static_cast<int>(level));
  Compute_Curve(slice.Autocorrelation, angles, slice.Magnitude, slice.Magnitude_dB,
                slice.Curve_Bins_In_Use);
  slice.Engine_Category =
      Find_Valleys(slice.Magnitude_dB, static_cast<int>(level), slice.Valley_dB, slice.Valley_Bin);
}

}  // namespace quillspeech
