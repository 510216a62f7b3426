#include "cli/device_list.hpp"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/report_text.hpp"

namespace quillspeech::cli {
namespace {

using backend::SoundDevice;
using Json = nlohmann::ordered_json;

// One way that sound takes: which devices go it, and which of them is the default.
struct Direction {
  const char* heading;
  int SoundDevice::*channels;
  bool SoundDevice::*is_default;
};
constexpr Direction In{"Inputs", &SoundDevice::input_channels, &SoundDevice::is_default_input};
constexpr Direction Out{"Outputs", &SoundDevice::output_channels, &SoundDevice::is_default_output};

std::vector<SoundDevice> Those_Of(const std::vector<SoundDevice>& devices,
                                  const Direction& direction) {
  std::vector<SoundDevice> those;
  for (const SoundDevice& device : devices) {
    if (device.*direction.channels > 0) those.push_back(device);
  }
  return those;
}

std::string Section(const std::vector<SoundDevice>& devices, const Direction& direction,
                    bool colour) {
  const auto those = Those_Of(devices, direction);
  std::string text = Inked(direction.heading, Ink::Bold, colour) + "\n";
  if (those.empty()) return text + "  (none)\n";
  std::size_t width = 0;
  for (const SoundDevice& device : those) width = std::max(width, Character_Count(device.name));
  for (const SoundDevice& device : those) {
    const bool is_default = device.*direction.is_default;
    const std::string number = std::to_string(device.index);
    text += std::string(is_default ? "* " : "  ") + Padded(number, 4) +
            Inked(Padded(device.name, width), is_default ? Ink::Green : Ink::Plain, colour) + "  " +
            Padded(device.host, 6) + std::to_string(std::lround(device.rate)) + " Hz\n";
  }
  return text;
}

Json List(const std::vector<SoundDevice>& devices, const Direction& direction) {
  Json list = Json::array();
  for (const SoundDevice& device : Those_Of(devices, direction)) {
    list.push_back({{"number", device.index},
                    {"name", device.name},
                    {"system", device.host},
                    {"channels", device.*direction.channels},
                    {"rate", std::lround(device.rate)},
                    {"default", device.*direction.is_default}});
  }
  return list;
}

}  // namespace

std::string Device_Lines(const std::vector<SoundDevice>& devices, bool colour) {
  return Section(devices, In, colour) + Section(devices, Out, colour);
}

std::string Devices_Json(const std::vector<SoundDevice>& devices) {
  const Json both = {{"inputs", List(devices, In)}, {"outputs", List(devices, Out)}};
  return both.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace quillspeech::cli
