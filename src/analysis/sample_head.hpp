// What every run over a sample begins with: it clears what the last run left, makes its tables, and
// finds the words.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

// Empties the word tables and the tables of the words' bounds, the scan, the curve, the sample work
// arrays and the entry tables, and sets the counters of the run to 0. What recognition found stays.
void Clear_Analysis(Session& session);

// The start of a run of either kind: Clear_Analysis, no words available, no sample to be skipped.
void Clear_Last_Run(Session& session);

// Takes the sample's length into Last_Sample_Index and Sample_Span, and makes the tables of the
// scan and of level 1. False, with Capture_Busy cleared, when the sample has less than 11 bytes.
bool Make_Sample_Tables(Session& session);

// False, with a message and Capture_Busy cleared, when that sample has less than 1,001 bytes.
bool Is_Sample_Usable(Session& session);

// The head of a run: both of the above, and between them it asks for all words again ("*" in
// Words_I_Want). False when the sample is too short for a run.
bool Prepare_Sample(Session& session);

// Resizes the arrays that hold a value for each byte to 0 to `span`, contents kept.
void Resize_Sample_Arrays(Session& session, std::int64_t span);

// Finds the words of the sample by Noise_Sensitivity: Probable_no_of_words_recognized, Word_Start
// and Word_End; releases the capture when it is quiet, and draws the graph.
void Find_Sample_Words(Session& session);

// Empties the result tables and the trace string when Memory_Clean is "YES", and tells whether.
bool Clean_Memory_When_Wanted(Session& session);

// Clears Capture_Busy when the scan of a stretch, at any level, has fewer than 100 hits.
void Release_Capture_When_Quiet(Session& session);

// Sets Word_Length at that word number, and enters the word in the three entry tables.
void Enter_Word(WordTables& words, std::int64_t number);

// Draws the audio graph when Show_Audio_Graph is "YES" and the host is a design environment.
void Draw_Graph_When_Wanted(Session& session);

// The title of the message boxes that refuse a sample or a word.
inline constexpr std::string_view Fatal_Title = "Quillspeech FATAL ERROR";

}  // namespace quillspeech
