#include "analysis/sample_head.hpp"

#include "analysis/spectrum.hpp"
#include "analysis/word_scan.hpp"
#include "base/rounding.hpp"

namespace quillspeech {

namespace {

constexpr std::int64_t Shortest_Span = 10;
constexpr std::int64_t Shortest_Usable_Span = 1'000;
constexpr std::int64_t Quiet_Stretch_Hits = 100;

void Clear_Words(WordTables& words) {
  Clear_Scan(words.scan);
  words.Centred_Samples.Clear();
  words.Decimated_Samples.Clear();
  words.Reversed_Decimated_Samples.Clear();
  words.Decimated_Count = 0;
  words.Word_Start.Clear();
  words.Word_End.Clear();
  words.Word_Length.Clear();
  words.Word_Count_Log.Fill(0);
  words.Word_Entry_Number.Fill(0);
  words.Word_Entry_Length.Fill(0);
}

void Clear_Counters(WordTables& words) {
  words.Probable_no_of_words_recognized = 0;
  words.Current_Word_no_Processed = 0;
  words.Current_DeepWord_no_Processed = 0;
  words.Current_TooDeepWord_no_Processed = 0;
  words.Current_Vyanjana_no_Processed = 0;
  words.No_of_Processings = 0;
  words.Middle_Slice_Number = 0;
}

void Clear_Slice(Slice& slice) {
  slice.Engine_Category = 0;
  slice.Span_Samples.Clear();
  slice.Autocorrelation.Fill(0);
  Clear_Curve(slice.Magnitude, slice.Magnitude_dB, slice.Curve_Bins_In_Use);
  Clear_Valleys(slice.Valley_dB, slice.Valley_Bin);
}

}  // namespace

void Clear_Analysis(Session& session) {
  Clear_Words(session.words);
  Clear_Counters(session.words);
  Clear_Slice(session.slice);
}

void Clear_Last_Run(Session& session) {
  Clear_Analysis(session);
  session.results.Platinum_Words_Available = 0;
  session.flags.Stop_Sample_Flag = 0;
}

void Resize_Sample_Arrays(Session& session, std::int64_t span) {
  session.slice.Span_Samples.Resize(span);
  session.words.Decimated_Samples.Resize(span);
  session.words.Centred_Samples.Resize(span);
  session.words.Reversed_Decimated_Samples.Resize(span);
}

bool Make_Sample_Tables(Session& session) {
  WordTables& words = session.words;
  const Checked32 span = session.sample.Wave_Header_Buffer_Length - 1;
  words.Last_Sample_Index = words.Sample_Span = span;
  if (span < Shortest_Span) {
    session.flags.Capture_Busy = 0;
    return false;
  }
  Resize_Sample_Arrays(session, span);
  const std::int64_t upper = Rounded_Quotient(span, words.Word_Table_Divisor);
  Resize_Scan(words.scan, upper);
  words.Word_Start.Resize(upper);
  words.Word_End.Resize(upper);
  words.Word_Length.Resize(upper);
  return true;
}

bool Is_Sample_Usable(Session& session) {
  if (session.words.Sample_Span >= Shortest_Usable_Span) return true;
  Show_Box(session, "'CANNOT PROCESS' Code : PA", Fatal_Title, BoxIcon::Stop);
  session.flags.Capture_Busy = 0;
  return false;
}

bool Prepare_Sample(Session& session) {
  if (!Make_Sample_Tables(session)) return false;
  session.settings.Words_I_Want[1].assign(1, '*');
  return Is_Sample_Usable(session);
}

void Find_Sample_Words(Session& session) {
  WordTables& words = session.words;
  const std::int64_t span = words.Sample_Span;
  const std::int64_t limit = session.settings.Noise_Sensitivity;
  Take_Sample_Grid(session.sample, words, span);
  Find_Hits(words, {ForwardHits::By_Amplitude, limit, limit});
  Find_Gaps(words.scan, span);
  Release_Capture_When_Quiet(session);
  words.Probable_no_of_words_recognized = Count_Words(words.scan);
  Bound_Words(words.scan, span, {words.Word_Start, words.Word_End});
  Draw_Graph_When_Wanted(session);
}

bool Clean_Memory_When_Wanted(Session& session) {
  if (session.settings.Memory_Clean != "YES") return false;
  Clear_Result_Tables(session.results);
  session.filter.Voice_Magic_Elements.clear();
  return true;
}

void Release_Capture_When_Quiet(Session& session) {
  const WordScanTables& scan = session.words.scan;
  if (scan.Forward_Hit_Count + scan.Backward_Hit_Count < Quiet_Stretch_Hits) {
    session.flags.Capture_Busy = 0;
  }
}

void Enter_Word(WordTables& words, std::int64_t number) {
  const Checked32 length = std::int64_t{words.Word_End[number]} - words.Word_Start[number];
  words.Word_Length.Put(number, length.Raw());
  words.Word_Count_Log[number - 1] = words.Probable_no_of_words_recognized.Raw();
  words.Word_Entry_Number[number - 1] = number;
  words.Word_Entry_Length[number - 1] = length;
}

void Draw_Graph_When_Wanted(Session& session) {
  if (session.settings.Show_Audio_Graph == "YES" && Is_Design_Environment(session)) {
    session.operations.Draw_Audio_Graph(session);
  }
}

}  // namespace quillspeech
