// The requests of a scripted host that do what a person does with the control's windows, or look at
// them.
#pragma once

#include <nlohmann/json.hpp>

#include "cli/host_control.hpp"

namespace quillspeech::cli::host_forms {

using Json = nlohmann::ordered_json;

// Each gives what the reply holds beside its id and ok. What a person could not do is refused: on a
// window that is not on show or waits for a modal one, and on what is disabled or hidden.
Json Click(HostControl& host, const Json& request);
Json Choose_Menu(HostControl& host, const Json& request);
Json Type(HostControl& host, const Json& request);
Json Select(HostControl& host, const Json& request);
Json Press_Key(HostControl& host, const Json& request);
Json Close(HostControl& host, const Json& request);
Json Read(HostControl& host, const Json& request);
Json Windows(HostControl& host, const Json& request);

// Refuses when a modal window is on show: whoever is to act is the host's own user.
void Require_Free_Host(HostControl& host);

}  // namespace quillspeech::cli::host_forms
