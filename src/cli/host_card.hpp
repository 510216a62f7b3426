// The requests of a scripted host that have to do with its simulated sound card. Without one they
// are refused.
#pragma once

#include <nlohmann/json.hpp>

#include "cli/host_control.hpp"

namespace quillspeech::cli::host_card {

// Each gives what the reply holds beside its id and ok.
nlohmann::ordered_json Play(HostControl& host, const nlohmann::ordered_json& request);
nlohmann::ordered_json Set_Faults(HostControl& host, const nlohmann::ordered_json& request);

}  // namespace quillspeech::cli::host_card
