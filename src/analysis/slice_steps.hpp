// The steps that the analysis of a slice takes alike for captures and for files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/checked.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Keeps one call of a slice analysis in the session's trace, when slices are kept.
class SliceNote {
 public:
  SliceNote(Session& session, Checked32 first_byte, Checked32 last_byte);
  void Set_Category(std::int16_t category);

 private:
  Session& session_;
  std::optional<std::size_t> index_;
};

// The end of a slice: one at or past the bytes that the capture promises is pulled back to 50
// before these.
std::int64_t End_Within_Sample(const Sample& sample, std::int64_t last_byte);

// The byte positions first_byte to last_byte in the store.
struct SliceSpan {
  std::int64_t first_byte = 0;
  std::int64_t last_byte = 0;
  std::int64_t Length() const { return last_byte - first_byte; }
};

// Makes room for the slice, `lags` cells beyond its length among them, with contents kept, and
// notes its bounds and the noise gate. Failure 9 when last_byte is negative, 7 when memory runs
// out.
void Enter_Slice(Session& session, SliceSpan span, std::int64_t lags, std::int16_t noise_gate);

// Counts the grid bytes inside the slice whose distance from silence is `loud_distance` or more.
// Nothing when the walk meets the end of the bytes that the capture promises; failure 9 at a grid
// byte outside the store, which may be shorter than these.
std::optional<std::int64_t> Count_Loud_Bytes(const Sample& sample, SliceSpan span,
                                             std::int64_t loud_distance);

// Takes the slice's bytes, without the first and the last two, into Span_Samples and
// Decimated_Samples at their positions in the store and into Centred_Samples from index 1. Where
// the store ends before the slice, what it has is taken, and then failure 9 follows.
void Centre_Slice(Session& session, SliceSpan span);

// Correlates the slice with itself, lags 0 to `level`. Cells of Centred_Samples past the slice's
// own count as an earlier slice or the word scan left them. Failures 6 and 9 as in Autocorrelate.
void Correlate_Slice(Session& session, std::int64_t length, std::int64_t level);

// Clears the curve with its valleys, and frees the word scan's tables and Decimated_Samples. The
// words' bounds survive.
void Clear_Slice_Tables(Session& session);

// The curve of the autocorrelation, and the number of its valleys as Engine_Category.
void Count_Valleys(Session& session, std::int64_t level);

}  // namespace quillspeech
