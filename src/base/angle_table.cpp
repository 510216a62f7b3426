#include "base/angle_table.hpp"

#include <algorithm>
#include <utility>

#include "base/run_time_failure.hpp"
#include "base/sine_cosine.hpp"

namespace quillspeech {
namespace {

int Valid_Level(int level) {
  if (level < 1 || level > Largest_Level) Fail(Failure::Subscript_Out_Of_Range);
  return level;
}

}  // namespace

AngleTable::AngleTable(int level)
    : level_(Valid_Level(level)),
      rows_(static_cast<std::size_t>(Panels()) * static_cast<std::size_t>(level)) {
  auto row = rows_.begin();
  for (int first_bin = 1; first_bin < level; first_bin += Bins_In_Panel) {
    const int last_bin = std::min(first_bin + Bins_In_Panel, level) - 1;
    for (int term = 1; term <= level; ++term, ++row) {
      for (int bin = first_bin; bin <= last_bin; ++bin) {
        const auto place = static_cast<std::size_t>(bin - first_bin);
        const auto [sine, cosine] = Sine_And_Cosine(Transform_Angle(bin, term, level));
        row->cosine[place] = cosine;
        row->sine[place] = sine;
      }
    }
  }
}

// The lock is held while a table is built: others who want it wait for this one.
std::shared_ptr<const AngleTable> AngleTables::For_Level(int level) {
  const std::lock_guard lock(mutex_);
  auto found = std::find_if(latest_first_.begin(), latest_first_.end(), [level](const auto& table) {
    return table && table->Level() == level;
  });
  if (found == latest_first_.end()) {
    auto built = std::make_shared<const AngleTable>(level);
    found = latest_first_.end() - 1;
    *found = std::move(built);
  }
  std::rotate(latest_first_.begin(), found, found + 1);
  Let_Go_Of_Older_Ones();
  return latest_first_.front();
}

// The first one always fits.
void AngleTables::Let_Go_Of_Older_Ones() {
  std::size_t bytes = 0;
  for (auto& table : latest_first_) {
    if (!table) continue;
    bytes += table->Bytes();
    if (bytes <= Most_Bytes_Kept) continue;
    bytes -= table->Bytes();
    table.reset();
  }
}

}  // namespace quillspeech
