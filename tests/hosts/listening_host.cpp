// A container with a microphone, which prints what it hears of the control.
//
//   listening_host words LANGUAGE ENGINE   until two words were heard, or for a minute and a half
//   listening_host teach LANGUAGE ENGINE   until a word is recognised, or as long: a person enters
//                                          the first one that is not in the Language Editor
//   listening_host cost SECONDS            what the control takes of a core, at rest and listening
//   listening_host close                   closes its window in the midst of a recording
#include <cstdio>
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <utility>

#include "examples/control/event_sink.hpp"
#include "examples/control/late_binding.hpp"
#include "platform/windows/text.hpp"
#include "tests/hosts/atl_host.hpp"
#include "tests/hosts/host_thread.hpp"
#include "tests/support/editor_steps.hpp"
#include "tests/windows/person.hpp"

namespace quillspeech::tests {
namespace {

using example::EventConnection;
using example::LateBound;

using Settings = std::map<std::wstring, std::wstring>;

// Until an event is the last one.
void Hear(const Settings& settings, const std::function<bool(const std::wstring& event)>& is_last) {
  AtlHost host("");
  const LateBound members(host.Control().Get());
  for (const auto& [member, value] : settings) members.Set(member.c_str(), value);
  members.Set(L"Sample_processing_resolution", 400);
  // So long that no capture ends during the test: a word that is heard just then would wait.
  members.Set(L"Speech_sampling_time_in_ms", 20'000);
  bool is_done = false;
  const auto stop = [&] {
    if (!is_done) members.Call(L"Stop_Real_Action");
    is_done = true;
  };
  std::wstring status;
  const EventConnection connection(*host.Control(),
                                   [&](const std::wstring& event, const std::wstring& argument) {
                                     if (event.starts_with(L"PropertyStatus")) {
                                       const std::wstring now = members.Text(L"Operation_Status");
                                       if (now != status) Tell(L"status", status = now);
                                       return;
                                     }
                                     Tell(event, argument);
                                     if (is_last(event)) Do_After(100, stop);
                                   });
  members.Call(L"Start_Real_Action");
  Do_After(90'000, stop);
  Wait_For(is_done);
  Tell(L"done", L"");
}

void Hear_Words(const std::wstring& language, const std::wstring& engine) {
  int words = 0;
  Hear({{L"Consider_this_Lang_File_to_match", language},
        {L"Consider_this_Engine_for_Recognition", engine}},
       [&](const std::wstring& event) {
         return event.starts_with(L"SpokenWordConverted") && ++words == 2;
       });
}

// Says yes to the question, and keeps of the pattern in memory its last letter, which the next
// utterance will share.
void Enter_Word(Person& person, const std::string& file) {
  const std::string save = "Are you ready to save data to file " + file + " ?";
  const std::string save_word = "Are you ready to save  data to file " + file + " ?";
  person.Answer({SessionBox::Kind::Question, "Quillspeech Language Development",
                 "You have enabled Artificial Intelligence matching. And no match was found in the "
                 "specified Lang file : " +
                     file +
                     "  Do you want to add the characters to Quillspeech Language Database ? ",
                 "", "Yes"});
  person.Do(EditorSteps()
                .Look("TFNam", file)
                .Type("Combo5", "six")
                .Type("Combo10", "100")
                .Click("Command14")
                .Asks(save_word, "Yes")
                .Click("Command3")
                .Look("Combo3", "100")
                .All());
  const std::string heard = person.Seen({EditorStep::Act::Look, "Database", "Combo2"});
  person.Do(EditorSteps()
                .Type("Combo2", "*" + heard.substr(heard.empty() ? 0 : heard.size() - 1))
                .Type("Combo3", "90")
                .Click("Command16")
                .Asks(save, "Yes")
                .Look("Label7", "1")
                .Click("Command8")
                .All());
  std::printf("entered %s\n", heard.c_str());
  std::fflush(stdout);
}

void Teach_Word(const std::wstring& language, const std::wstring& engine) {
  Person person;
  std::thread hands;
  int times_unknown = 0;
  const auto enter = [&] {
    try {
      Enter_Word(person, windows::Narrow(language));
    } catch (const std::exception& trouble) {
      std::printf("not entered: %s\n", trouble.what());
      person.Leave();
    }
  };
  Hear({{L"Consider_this_Lang_File_to_match", language},
        {L"Consider_this_Lang_File_to_Add", language},
        {L"Consider_this_Engine_for_Recognition", engine},
        {L"Notify_if_no_language_match", L"YES"}},
       [&](const std::wstring& event) {
         if (event == L"SpokenWordDetected" && !hands.joinable()) hands = std::thread(enter);
         const bool is_still_unknown = event == L"NoMatchFoundinFile" && ++times_unknown == 2;
         if (is_still_unknown) {
           hands.join();
           hands = std::thread([&] { person.Leave(); });
         }
         return is_still_unknown || event == L"SpokenWordConvertedToText";
       });
  if (hands.joinable()) hands.join();
}

// Of this process, in the kernel and outside, in ms.
double Processor_Time() {
  FILETIME made, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &made, &ended, &kernel, &user);
  const auto milliseconds = [](const FILETIME& time) {
    return (time.dwHighDateTime * 4294967296.0 + time.dwLowDateTime) / 10'000;
  };
  return milliseconds(kernel) + milliseconds(user);
}

void Measure(const std::string& name, UINT seconds, std::function<void()> then) {
  const double before = Processor_Time();
  const DWORD begun = GetTickCount();
  Do_After(seconds * 1000, [=] {
    const double took = Processor_Time() - before;
    const DWORD passed = GetTickCount() - begun;
    std::printf("%s %.1f percent of a core in %lu ms\n", name.c_str(), 100 * took / passed, passed);
    std::fflush(stdout);
    then();
  });
}

void Measure_Cost(UINT seconds) {
  AtlHost host("");
  const LateBound members(host.Control().Get());
  bool is_done = false;
  const auto stop = [&] {
    members.Call(L"Stop_Real_Action");
    is_done = true;
  };
  const auto listen = [&] {
    const bool listens = members.Text(L"Operation_Status") == L"Alert";
    Measure(listens ? "listening" : "not listening", seconds, stop);
  };
  const auto start = [&] {
    members.Call(L"Start_Real_Action");
    Do_After(2000, listen);
  };
  Do_After(1000, [&] { Measure("idle", seconds, start); });
  Wait_For(is_done);
}

// The container closes while a recording waits for its end, further up the stack.
void Close_While_Recording() {
  AtlHost host("");
  bool is_done = false;
  int looks = 0;
  std::function<void()> look = [&] {
    auto* const ask = reinterpret_cast<HRESULT(WINAPI*)()>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"Quillspeech.ocx"), "DllCanUnloadNow")));
    is_done = ask && ask() == S_OK;
    if (!is_done && ++looks < 50) return Do_After(100, look);
    std::printf(is_done ? "nothing is left\n" : "something is left\n");
    is_done = true;
  };
  const auto close = [&] {
    const bool records = LateBound(host.Control().Get()).Text(L"Operation_Status") == L"Alert";
    host.Close();
    std::printf(records ? "closed while recording\n" : "no recording\n");
    look();
  };
  LateBound(host.Control().Get()).Call(L"Start_Real_Action");
  Do_After(2000, close);
  Wait_For(is_done);
}

int Run(int count, wchar_t** arguments) {
  const std::wstring command = count > 1 ? arguments[1] : L"";
  if (command == L"words" && count == 4) {
    Hear_Words(arguments[2], arguments[3]);
  } else if (command == L"teach" && count == 4) {
    Teach_Word(arguments[2], arguments[3]);
  } else if (command == L"cost" && count == 3) {
    Measure_Cost(static_cast<UINT>(std::stoul(arguments[2])));
  } else if (command == L"close") {
    Close_While_Recording();
  } else {
    return 2;
  }
  return 0;
}

}  // namespace
}  // namespace quillspeech::tests

int main() { return quillspeech::tests::Run_Host(quillspeech::tests::Run); }
