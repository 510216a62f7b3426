#include "cli/recognition_run.hpp"

#include <cstdint>

#include "analysis/captured_sample.hpp"
#include "audio/padding.hpp"
#include "audio/wave_reader.hpp"
#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "core/operations.hpp"
#include "presentation/audio_graph.hpp"

namespace quillspeech::cli {

RecognitionRun::RecognitionRun(const RunOptions& options, std::shared_ptr<AngleTables> angle_tables)
    : options_(options), on_files_(std::make_unique<SessionOnFiles>()) {
  Session& session = on_files_->session;
  Prepare_Session(session);
  session.slice.angle_tables = std::move(angle_tables);
  Apply_Options(options, session);
  on_files_->boxes.shown.clear();  // what the settings had to say was said before the run
  session.trace.Keep_Slices = options.keep_slices;
  Hook_Up();
}

void RecognitionRun::Hook_Up() {
  Operations& operations = on_files_->session.operations;
  if (options_.pad_ms > 0) {
    operations.Wave_File_Was_Read = [this](Session& session) {
      Pad_With_Silence(session.sample, options_.pad_ms);
    };
  }
  if (!options_.keep_graph) return;
  // The control draws its graph only in a design environment, so the host says that it is one. No
  // result changes by it: whoever else asks wants to know how a window opens, and there is none.
  on_files_->host.path = "vb6.exe";
  operations.Show_Status_Image = [](Session&, int) {};
  operations.Draw_Audio_Graph = [this](Session& session) {
    if (graph_) return;  // long words of a file are drawn later, one over the other
    graph_ = Audio_Graph_Drawing(session.words);
  };
  operations.Print_On_Graph = [this](Session& session, std::string_view text) {
    if (graph_) Print_On_Graph(session.words, *graph_, text);
  };
}

void RecognitionRun::Recognize(const std::string& file) {
  Session& session = on_files_->session;
  file_ = file;
  session.settings.Open_this_Wave_File = file;
  try {
    if (options_.path == SoundPath::Live) {
      Recognize_Captured();
    } else {
      Open_Specified_Wave_File_And_Process(session);
    }
  } catch (...) {
    session.trace.Note_Failure(Current_Failure_Number());
  }
}

namespace {

// The recorder's buffer is longer than the capture by the level, and was never reached there.
void Shape_As_Capture(Session& session) {
  Sample& sample = session.sample;
  const std::int64_t length = sample.Samples_Per_Capture;
  const std::int64_t buffer = length + session.settings.Digital_Signal_Processing_Level;
  sample.Speech_Sample_Bytes.Resize(length - 1);
  sample.Speech_Sample_Bytes.Resize(buffer - 1);
  Point_Wave_Header(sample, sample.Speech_Sample_Bytes.Write_Range(0, buffer - 1), buffer);
}

}  // namespace

void RecognitionRun::Recognize_Captured() {
  Session& session = on_files_->session;
  Begin_Session(session);
  if (!Open_Wave_File(session, session.settings.Open_this_Wave_File)) return;
  if (options_.pad_ms > 0) Pad_With_Silence(session.sample, options_.pad_ms);
  Shape_As_Capture(session);
  Process_Captured_Sample(session);
}

namespace {

// The box of an engine file that cannot be found has no icon.
bool Tells_Of_Failure(const MessageBox& box) {
  if (box.title == "Quillspeech CRITICAL USER ERROR") return true;
  return box.icon == BoxIcon::Stop &&
         (box.title == "Quillspeech Wave ERROR" || box.title == "Quillspeech FATAL ERROR" ||
          box.title == "Quillspeech ERROR" || box.title == "Quillspeech USER ERROR");
}

std::string Failure_Sentence(int number, const Session& session) {
  constexpr std::int64_t Hit_Limit = 32767;
  const auto& scan = session.words.scan;
  const bool full = scan.Forward_Hit_Count >= Hit_Limit || scan.Backward_Hit_Count >= Hit_Limit;
  std::string sentence = "run-time failure " + std::to_string(number) + ": ";
  if (number == static_cast<int>(Failure::Overflow) && full) {
    return sentence +
           "the word scan takes less than 32,767 loud points, about 37 seconds of unbroken sound; "
           "cut the recording or raise Noise_Sensitivity";
  }
  sentence += Failure_Text(number);
  if (number >= 52 && number <= 76) sentence += " (while reading a language or engine file)";
  if (number == static_cast<int>(Failure::Bad_Pattern)) sentence += " in the language file";
  return sentence;
}

}  // namespace

std::vector<std::string> RecognitionRun::Complaints() const {
  std::vector<std::string> complaints;
  for (const auto& shown : Boxes()) {
    if (Tells_Of_Failure(shown.box)) complaints.push_back(To_Utf8(Trim(shown.box.text)));
  }
  for (const int number : on_files_->session.trace.failures) {
    complaints.push_back(Failure_Sentence(number, on_files_->session));
  }
  return complaints;
}

}  // namespace quillspeech::cli
