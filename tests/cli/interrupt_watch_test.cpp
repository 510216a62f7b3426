#include "cli/interrupt_watch.hpp"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <functional>

#include "cli/files.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

// A pipe whose ends close with it.
class Pipe {
 public:
  Pipe() {
    if (::pipe2(ends_.data(), O_CLOEXEC) != 0)
      throw std::system_error(errno, std::generic_category());
  }
  ~Pipe() {
    for (const int end : ends_) ::close(end);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int In() const { return ends_[1]; }
  int Out() const { return ends_[0]; }
  void Put(const std::string& text) const {
    EXPECT_EQ(::write(In(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  // Waits for one byte; 0 when none will come.
  char Take() const {
    char byte = 0;
    return ::read(Out(), &byte, 1) == 1 ? byte : '\0';
  }

 private:
  std::array<int, 2> ends_{};
};

// A process of its own that runs `steps` and ends with their status. One that hangs is ended.
class Child {
 public:
  explicit Child(const std::function<int()>& steps) : number_(::fork()) {
    if (number_ != 0) return;
    constexpr unsigned Patience_s = 60;
    ::alarm(Patience_s);
    ::_exit(steps());
  }
  void Interrupt(int signal) const { EXPECT_EQ(::kill(number_, signal), 0); }
  // 130 and the like, or minus the signal that ended it.
  int Wait() const {
    int status = 0;
    EXPECT_EQ(::waitpid(number_, &status, 0), number_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
  }

 private:
  pid_t number_;
};

class InterruptWatch : public CommandTest {
 protected:
  // The program as its main function sets it up, with other streams.
  static int Run_Program(const std::vector<std::string>& arguments, int input, int output) {
    cli::InterruptWatch watch;
    cli::InterruptibleInput bytes(input, watch);
    std::istream in(&bytes);
    std::ofstream out_stream("/proc/self/fd/" + std::to_string(output));
    std::ostringstream err_stream;
    cli::Console console{in, out_stream, err_stream};
    console.interrupted = &watch.Flag();
    console.take_interrupts = [&] { watch.Take(); };
    return cli::Run_Command_Line(arguments, console);
  }
  std::string Make_Fifo(const std::string& name) const {
    EXPECT_EQ(::mkfifo(Path(name).c_str(), 0600), 0);
    return Path(name);
  }
};

constexpr std::array<int, 2> Signals = {SIGINT, SIGTERM};

TEST_F(InterruptWatch, Before_it_takes_interrupts_the_first_ends_the_program) {
  for (const int signal : Signals) {
    const Pipe told;
    const Child child([&] {
      const cli::InterruptWatch watch;
      told.Put("r");
      return ::pause();
    });
    EXPECT_EQ(told.Take(), 'r');
    child.Interrupt(signal);
    EXPECT_EQ(child.Wait(), 130);
  }
}

TEST_F(InterruptWatch, The_first_interrupt_raises_the_flag_and_the_second_ends_the_program) {
  for (const int signal : Signals) {
    const Pipe told;
    const Child child([&] {
      cli::InterruptWatch watch;
      watch.Take();
      watch.Take();  // changes nothing
      told.Put(watch.Flag() ? "x" : "r");
      pollfd event{watch.Descriptor(), POLLIN, 0};
      while (::poll(&event, 1, -1) != 1) continue;
      told.Put(watch.Flag() ? "f" : "x");
      return ::pause();
    });
    EXPECT_EQ(told.Take(), 'r');
    child.Interrupt(signal);
    EXPECT_EQ(told.Take(), 'f');
    child.Interrupt(signal);
    EXPECT_EQ(child.Wait(), 130);
  }
}

TEST_F(InterruptWatch, It_goes_without_an_interrupt_whether_it_took_them_or_not) {
  for (const bool takes : {false, true}) {
    const Child child([&] {
      cli::InterruptWatch watch;
      if (takes) watch.Take();
      return watch.Flag() ? 1 : 0;
    });
    EXPECT_EQ(child.Wait(), 0);
  }
}

TEST_F(InterruptWatch, An_interruptible_input_gives_all_bytes_up_to_the_end) {
  const std::string long_text(10'000, 'x');  // more than its buffer
  const auto file = Put_Text("long.txt", long_text);
  const int input = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  const Child child([&] {
    const cli::InterruptWatch watch;
    cli::InterruptibleInput bytes(input, watch);
    return std::string(std::istreambuf_iterator<char>(&bytes), {}) == long_text ? 0 : 1;
  });
  ::close(input);
  EXPECT_EQ(child.Wait(), 0);
}

TEST_F(InterruptWatch, Recognize_that_waits_for_names_ends_at_the_first_interrupt) {
  const auto sound = Put_Sound("low.wav", Low_Word());
  for (const int signal : Signals) {
    const Pipe names;
    const Pipe results;
    const Child child([&] {
      return Run_Program({"recognize", "--json", "-"}, names.Out(), results.In());
    });
    names.Put(sound + "\n");
    while (results.Take() != '\n') continue;  // the result stands, and no other name comes
    child.Interrupt(signal);
    EXPECT_EQ(child.Wait(), 130);
  }
}

TEST_F(InterruptWatch, A_command_that_waits_for_a_pipe_ends_at_the_first_interrupt) {
  const auto pipe = Make_Fifo("pipe.SAY");
  const std::vector<std::vector<std::string>> Commands = {
      {"dump", pipe},
      {"check", pipe},
      {"build", pipe, Path("out.SAY")},
      {"evaluate", "--language", Path("w.SAY"), "--labels", pipe, Path("low.wav")}};
  for (const auto& command : Commands) {
    const Pipe results;
    const Child child([&] { return Run_Program(command, STDIN_FILENO, results.In()); });
    const int writer = ::open(pipe.c_str(), O_WRONLY | O_CLOEXEC);  // waits for the reader
    child.Interrupt(SIGINT);
    EXPECT_EQ(child.Wait(), 130) << command.front();
    ::close(writer);
    EXPECT_FALSE(Exists("out.SAY"));
  }
}

TEST_F(InterruptWatch, A_build_that_waits_for_the_reader_of_its_pipe_ends_at_the_first_interrupt) {
  const auto pipe = Make_Fifo("out.SAY");
  std::string json = R"({"kind": "language", "records": [{})";
  for (int i = 0; i < 20; ++i) json += ",{}";  // more than a pipe holds
  const auto file = Put_Text("words.json", json + "]}");
  const Pipe results;
  const Child child([&] { return Run_Program({"build", file, pipe}, STDIN_FILENO, results.In()); });
  const int reader = ::open(pipe.c_str(), O_RDONLY | O_CLOEXEC);  // waits for the writer
  child.Interrupt(SIGTERM);
  EXPECT_EQ(child.Wait(), 130);
  ::close(reader);
}

TEST_F(InterruptWatch, A_graph_into_a_pipe_is_refused_and_waits_for_nobody) {
  const auto pipe = Make_Fifo("g.svg");
  EXPECT_EQ(Run({"recognize", "--graph", pipe, Put_Sound("low.wav", Low_Word())}), 1);
  EXPECT_NE(err.find(pipe + ": is a pipe, not a file"), std::string::npos) << err;
}

TEST_F(InterruptWatch, A_file_that_is_being_replaced_is_the_old_or_the_new_one_and_the_only_one) {
  constexpr int Times = 8;  // each almost surely meets a half-done file
  const std::vector<std::uint8_t> content(100'000, 'x');
  for (int i = 0; i < Times; ++i) {
    const Pipe told;
    const Child child([&] {
      const cli::InterruptWatch watch;
      for (bool is_first = true;; is_first = false) {
        cli::Write_Whole_File(Path("words.SAY"), content);
        if (is_first) told.Put("r");
      }
      return 0;
    });
    EXPECT_EQ(told.Take(), 'r');
    child.Interrupt(SIGINT);
    EXPECT_EQ(child.Wait(), 130);
    EXPECT_EQ(Content("words.SAY"), content);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder()), {}), 1);
  }
}

}  // namespace
}  // namespace quillspeech::tests
