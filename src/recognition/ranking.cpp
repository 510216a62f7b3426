#include "recognition/ranking.hpp"

#include <cstdint>

#include "base/text.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

constexpr int Places = 7;

bool Has_Place_Before(const Results& results, int place, std::int64_t index) {
  for (int earlier = 1; earlier < place; ++earlier) {
    if (results.Best_Word_Index[earlier] == index) return true;
  }
  return false;
}

// Every place starts from entry 0, whose rank is 0.
void Choose_Place(Results& results, int place) {
  Checked16& best = results.Best_Word_Index[place];
  const std::int64_t available = results.Platinum_Words_Available;
  for (std::int64_t i = 1; i <= available; ++i) {
    if (Has_Place_Before(results, place, i)) continue;
    if (results.Platinum_Rank_Table[i] > results.Platinum_Rank_Table[best]) best = i;
  }
  results.Platinum_Best_Table[place] = Trimmed(results.Platinum_Word_Table[best]);
}

void Rank(Results& results) {
  for (int place = 1; place <= Places; ++place) results.Best_Word_Index[place] = 0;
  for (int place = 1; place <= Places; ++place) Choose_Place(results, place);
}

}  // namespace

void Rank_Platinum_Words(Session& session) {
  Run_Trapped(session, [&] { Rank(session.results); });
}

}  // namespace quillspeech
