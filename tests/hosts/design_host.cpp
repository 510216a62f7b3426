// A container with a microphone that has all switched on which a design environment shows. It
// prints what is heard and seen: design_host LANGUAGE ENGINE [FOLDER FOR PICTURES]
//
// Whether it is a design environment lies in the name of its file. It asks for two words ("speak"),
// has a recording fail, begins anew, stops, and lets go of the control.
#include <atomic>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "examples/control/event_sink.hpp"
#include "examples/control/late_binding.hpp"
#include "platform/windows/text.hpp"
#include "presentation/status_pictures.hpp"
#include "tests/hosts/atl_host.hpp"
#include "tests/hosts/host_thread.hpp"
#include "tests/hosts/onlooker.hpp"
#include "tests/windows/person.hpp"

namespace quillspeech::tests {
namespace {

using example::EventConnection;
using example::LateBound;

// What the control's thread does for the one that looks on.
enum class Wish { None, Failure, Restart, Stop, End };

// On a thread of its own.
class Story {
 public:
  // The windows are those of the calling thread.
  explicit Story(std::wstring folder) : eyes_(GetCurrentThreadId(), std::move(folder)) {}

  void Go_Through() {
    try {
      See_The_Session();
      See_Its_End();
    } catch (const std::exception& trouble) {
      Tell(L"trouble:", windows::Wide(trouble.what()));
      person_.Leave();
    }
    wish = Wish::End;
  }
  bool Is_Nothing_Seen() const { return !eyes_.Status_Bar() && !eyes_.Graph(); }

  std::atomic<bool> listens = false;
  std::atomic<int> words = 0;  // heard so far
  std::atomic<Wish> wish = Wish::None;

 private:
  // StatusBar comes before the control listens, or not at all.
  void See_The_Session() {
    Await([&] { return listens.load(); });
    is_shown_ = eyes_.Status_Bar() != nullptr;
    if (is_shown_) Expect_Listening(L"listening");
    Tell(L"speak");
    if (is_shown_) {
      Expect_Busy(L"busy");
      Expect_Graph(L"graph");
    }
    Await([&] { return words >= 1; });
    if (is_shown_) Put_Away();
    Tell(L"speak");
    if (is_shown_) Expect_Graph();
    Await([&] { return words >= 2; });
  }

  void Put_Away() {
    Expect_Listening();
    const HWND status_bar = eyes_.Status_Bar();
    const HWND graph = eyes_.Graph();
    eyes_.Click_Picture();
    eyes_.Expect(L"StatusBar go with a click", [=] { return !IsWindow(status_bar); });
    eyes_.Expect(L"Graph stay", [&] { return eyes_.Graph() == graph; });
    Expect_Listening();
    eyes_.Close_Graph();
    eyes_.Expect(L"Graph close", [&] { return !eyes_.Graph(); });
    Expect_Listening();
  }

  // Stop_Real_Action leaves the session's windows to whoever ends the control.
  void See_Its_End() {
    wish = Wish::Failure;
    person_.Answer({SessionBox::Kind::Message, "Quillspeech RECORDING ERROR(Rare)",
                    "Problems Starting Recording, Check Your Settings and Sound Card", "", "OK"});
    eyes_.Expect(L"neither after a failure", [&] { return Is_Nothing_Seen(); });
    wish = Wish::Restart;
    if (is_shown_) Expect_Listening();
    Await([&] { return wish == Wish::None; });
    wish = Wish::Stop;
    Await([&] { return wish == Wish::None; });
    if (is_shown_) Expect_Busy();
  }

  static void Await(const std::function<bool()>& condition) {
    if (!Onlooker::Comes(condition)) throw std::runtime_error("nothing happens");
  }
  void Expect_Listening(const wchar_t* picture = L"") {
    eyes_.Expect(
        L"StatusBar listening", [&] { return eyes_.Status_Shows(Listening_Picture()); }, picture);
  }
  void Expect_Busy(const wchar_t* picture = L"") {
    eyes_.Expect(
        L"StatusBar busy", [&] { return eyes_.Status_Shows(Busy_Picture()); }, picture);
  }
  void Expect_Graph(const wchar_t* picture = L"") {
    eyes_.Expect(
        L"Graph with a word", [&] { return eyes_.Graph_Shows_A_Word(); }, picture);
  }

  Onlooker eyes_;
  Person person_;
  bool is_shown_ = false;
};

void Begin(const LateBound& members, const std::wstring& language, const std::wstring& engine) {
  members.Set(L"I_want_Status_Animation", L"YES");
  members.Set(L"Show_Audio_Graph", L"YES");
  members.Set(L"Consider_this_Lang_File_to_match", language);
  members.Set(L"Consider_this_Engine_for_Recognition", engine);
  members.Set(L"Sample_processing_resolution", 400);
  // So long that no capture ends during the test: a word that is heard just then would wait.
  members.Set(L"Speech_sampling_time_in_ms", 20'000);
  members.Call(L"Start_Real_Action");
}

// The next recording has more samples than there are numbers for, or as many as ever.
void Restart(const LateBound& members, bool is_to_fail) {
  members.Set(L"Speech_sampling_time_in_ms", is_to_fail ? 60'000 : 20'000);
  members.Set(L"Set_Recording_Frequency", is_to_fail ? 44'100 : 22'050);
  members.Call(L"Restart");
}

// Looks for wishes, until the last one.
void Grant_Wishes(const LateBound& members, Story& story, bool& is_done) {
  const Wish wish = story.wish.exchange(Wish::None);
  is_done = wish == Wish::End;
  if (is_done) return;
  if (wish == Wish::Failure || wish == Wish::Restart) Restart(members, wish == Wish::Failure);
  if (wish == Wish::Stop) members.Call(L"Stop_Real_Action");
  Do_After(20, [&] { Grant_Wishes(members, story, is_done); });
}

void Host_Session(const std::wstring& language, const std::wstring& engine, Story& story) {
  AtlHost host("");
  const WindowCount counts;
  {
    const LateBound members(host.Control().Get());
    const EventConnection connection(
        *host.Control(), [&](const std::wstring& event, const std::wstring& argument) {
          if (event.starts_with(L"PropertyStatus")) {
            story.listens = story.listens || members.Text(L"Operation_Status") == L"Alert";
            return;
          }
          Tell(event, argument);
          if (event == L"SpokenWordConvertedToText") ++story.words;
        });
    bool is_done = false;
    Begin(members, language, engine);
    std::thread onlooker([&] { story.Go_Through(); });
    Grant_Wishes(members, story, is_done);
    Wait_For(is_done);
    onlooker.join();
  }
  host.Close();
  Tell(story.Is_Nothing_Seen() ? L"neither is left" : L"one is left");
  Tell(L"StatusBar came up", std::to_wstring(counts.Status_Bars()));
  Tell(L"Graph came up", std::to_wstring(counts.Graphs()));
}

int Run(int count, wchar_t** arguments) {
  if (count != 3 && count != 4) return 2;
  Story story(count == 4 ? arguments[3] : L"");
  Host_Session(arguments[1], arguments[2], story);
  return 0;
}

}  // namespace
}  // namespace quillspeech::tests

int main() { return quillspeech::tests::Run_Host(quillspeech::tests::Run); }
