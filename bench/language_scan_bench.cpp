// The scan of a large language file, and the mere reading of it record by record. The file's name
// is in QUILLSPEECH_LANGUAGE_FILE; script/bench makes one.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

#include "platform/headless/dialogs.hpp"
#include "platform/headless/event_loop.hpp"
#include "platform/headless/form_view.hpp"
#include "platform/headless/host_program.hpp"
#include "platform/headless/message_boxes.hpp"
#include "platform/headless/riff_file.hpp"
#include "platform/headless/shell.hpp"
#include "platform/headless/sound_cues.hpp"
#include "platform/headless/wave_input.hpp"
#include "platform/headless/wave_output.hpp"
#include "platform/linux/data_file.hpp"
#include "recognition/language_matching.hpp"

namespace quillspeech::bench {
namespace {

using datafiles::SayRecord;

struct Bench_Session {
  headless::EventLoop events;
  headless::MessageBoxes boxes;
  headless::HostProgram host;
  headless::SoundCues cues;
  headless::Shell shell;
  headless::RiffFiles riff_files;
  headless::NoWaveInput wave_input;
  headless::WaveOutput wave_output;
  linux::DataFileStore data_files;
  headless::Dialogs dialogs;
  headless::FormViews views;
  Session session{Ports{events, boxes, host, cues, shell, riff_files, wave_input, wave_output,
                        data_files, dialogs, views}};
};

const char* File_Name(benchmark::State& state) {
  const char* name = std::getenv("QUILLSPEECH_LANGUAGE_FILE");
  if (!name) state.SkipWithError("QUILLSPEECH_LANGUAGE_FILE names no file");
  return name;
}

void Language_Scan(benchmark::State& state) {
  const char* const name = File_Name(state);
  if (!name) return;
  const auto on_files = std::make_unique<Bench_Session>();
  Session& session = on_files->session;
  session.settings.Consider_this_Lang_File_to_match = name;
  session.filter.Current_Voice_Word = "aAAAkgHfthjjsoaaAA";
  for (auto _ : state) {
    session.results.Platinum_Words_Available = 0;
    Match_Language(session);
  }
  if (!session.trace.failures.empty()) state.SkipWithError("the scan failed");
  state.counters["words"] = static_cast<double>(session.results.Platinum_Words_Available);
  state.counters["records"] = static_cast<double>(session.data.Main_Record_Count);
}
BENCHMARK(Language_Scan)->Unit(benchmark::kMillisecond);

void Language_Read(benchmark::State& state) {
  const char* const name = File_Name(state);
  if (!name) return;
  SayRecord record;
  std::int64_t total = 0;
  for (auto _ : state) {
    const int file = open(name, O_RDONLY | O_CLOEXEC);
    ssize_t got = 0;
    while ((got = read(file, record.Bytes().data(), SayRecord::Record_Bytes)) > 0) {
      total += got;
      benchmark::DoNotOptimize(record);
      benchmark::ClobberMemory();
    }
    close(file);
  }
  if (total == 0) state.SkipWithError("the file cannot be read");
  state.counters["bytes"] = static_cast<double>(total) / static_cast<double>(state.iterations());
}
BENCHMARK(Language_Read)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillspeech::bench
