#include "cli/host.hpp"

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/exit_status.hpp"
#include "cli/host_control.hpp"
#include "cli/host_on_real_clock.hpp"
#include "cli/host_on_virtual_clock.hpp"
#include "cli/live_options.hpp"
#include "cli/option_checks.hpp"

namespace quillspeech::cli {

namespace {

constexpr int Standard_Input = 0;

// A host whose lines get lost has nobody to work for.
template <class Requests>
int Host_Until_End(HostControl& host, Requests&& requests) {
  while (!requests.Have_Ended()) {
    if (host.Is_Heard()) {
      host.Wait_For_Events();
    } else {
      requests.End();
    }
  }
  return host.Is_Heard() ? Exit_Done : Exit_File_Failed;
}

}  // namespace

int Host_Control(const LiveOptions& options, Console& console, int input) {
  const auto host = std::make_unique<HostControl>(options, console.out);
  if (host->Live().Virtual_Clock()) {
    return Host_Until_End(*host, RequestsOnVirtualClock(*host, console.in));
  }
  return Host_Until_End(*host, RequestsOnRealClock(*host, input));
}

int Host_Control(const LiveOptions& options, Console& console) {
  return Host_Control(options, console, Standard_Input);
}

CLI::App& Add_Host_Command(CLI::App& app, Console& console, int& exit_status) {
  struct Typed {
    std::string clock = "virtual";
    std::vector<std::string> microphone;
    std::string device;
  };
  const auto typed = std::make_shared<Typed>();
  CLI::App& command = *app.add_subcommand(
      "host", "Host a control: requests in, answers and events out, one JSON object a line");
  command
      .add_option("--clock", typed->clock,
                  "Whose time passes: that of the requests, or real; virtual when not given")
      ->check(One_Of({"virtual", "real"}), "")
      ->type_name("virtual|real");
  command
      .add_option("--microphone", typed->microphone,
                  "Have a simulated card hear this WAV from that second on; may be repeated")
      ->check(File_Name(), "")
      ->type_name("FILE[@SECONDS]")
      ->allow_extra_args(false);
  command.add_option("--device", typed->device, "Input device, with the real clock")
      ->check(File_Name(), "")
      ->type_name("NAME")
      ->excludes("--microphone");
  command.callback([typed, &console, &exit_status] {
    LiveOptions options;
    options.clock = typed->clock == "real" ? ClockKind::Real : ClockKind::Virtual;
    options.device = typed->device;
    for (const std::string& clip : typed->microphone) {
      options.microphone.push_back(Clip_From(clip));
    }
    if (!typed->device.empty() && options.clock == ClockKind::Virtual) {
      throw CLI::ValidationError("--device", "a device needs --clock real");
    }
    exit_status = Host_Control(options, console);
  });
  return command;
}

}  // namespace quillspeech::cli
