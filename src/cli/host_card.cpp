#include "cli/host_card.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string_view>
#include <utility>

#include "cli/host_failure.hpp"
#include "cli/host_fields.hpp"

namespace quillspeech::cli::host_card {
namespace {

using namespace host_fields;

headless::SoundCard& Simulated_Card(HostControl& host) {
  headless::SoundCard* const card = host.Live().Card();
  if (!card) throw RefusedRequest("the sound card is no simulated one");
  return *card;
}

constexpr auto Card_Calls = std::to_array<std::string_view>({
    "wave_in_get_dev_caps",
    "wave_in_open",
    "wave_in_prepare_header",
    "wave_in_add_buffer",
    "wave_in_start",
    "wave_in_stop",
    "wave_in_reset",
    "wave_in_unprepare_header",
    "wave_in_close",
    "wave_out_open",
    "wave_out_prepare_header",
    "wave_out_write",
    "wave_out_unprepare_header",
    "wave_out_close",
});

}  // namespace

Json Play(HostControl& host, const Json& request) {
  headless::SoundCard& card = Simulated_Card(host);
  Play_Into_Microphone(card, Text(request, "file"), host.Live().Events().Now());
  return Json::object();
}

Json Set_Faults(HostControl& host, const Json& request) {
  constexpr std::int64_t Greatest = std::numeric_limits<std::int32_t>::max();
  headless::SoundCard& card = Simulated_Card(host);
  auto faults = card.faults;
  for (const auto& [name, answer] : request.items()) {
    if (name == "id" || name == "do") continue;
    if (std::ranges::find(Card_Calls, name) == Card_Calls.end()) {
      throw RefusedRequest("the sound card has no call " + Quoted(name));
    }
    const auto number = static_cast<WaveResult>(As_Whole_Number(answer, name, 0, Greatest));
    if (number == Wave_Ok) faults.erase(name);
    if (number != Wave_Ok) faults[name] = number;
  }
  card.faults = std::move(faults);
  return Json::object();
}

}  // namespace quillspeech::cli::host_card
