#include "platform/linux/event_loop.hpp"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <ctime>
#include <deque>
#include <map>
#include <system_error>
#include <utility>
#include <vector>

namespace quillspeech::linux {

namespace {

using Time = EventLoop::Time;

constexpr Time Time_Between_Looks{1'000};
constexpr timespec No_Time{};

timespec As_Timespec(Time time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(time - seconds);
  timespec result{};
  result.tv_sec = static_cast<decltype(result.tv_sec)>(seconds.count());
  result.tv_nsec = static_cast<decltype(result.tv_nsec)>(rest.count());
  return result;
}

}  // namespace

// The descriptors that are watched, those found ready whose handlers have yet to run, and the
// counter that wakes. Nested yields share the ready ones, so that no handler runs for nothing.
class EventLoop::Descriptors final : public EventSource {
 public:
  Descriptors() : waker_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (waker_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  }
  ~Descriptors() override { ::close(waker_); }
  Descriptors(const Descriptors&) = delete;
  Descriptors& operator=(const Descriptors&) = delete;

  void Watch(int descriptor, std::function<void()> ready) {
    watched_[descriptor] = std::make_shared<const std::function<void()>>(std::move(ready));
    last_look_.reset();
  }
  void Unwatch(int descriptor) { watched_.erase(descriptor); }

  void Wake() const noexcept {
    const int error = errno;  // a signal handler leaves it as it was
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(waker_, &one, sizeof one);
    errno = error;
  }

  std::optional<Time> Next_Due() const override {
    return ready_.empty() ? std::nullopt : std::optional(Time{0});
  }

  void Serve(Time now) override {
    const bool is_time = !last_look_ || now - *last_look_ >= Time_Between_Looks;
    if (ready_.empty() && !watched_.empty() && is_time) Look(now, &No_Time, false);
    while (!ready_.empty()) {
      const auto [descriptor, handler] = std::move(ready_.front());
      ready_.pop_front();
      const auto found = watched_.find(descriptor);
      if (found != watched_.end() && found->second == handler) (*handler)();
    }
  }

  // Sleeps for at most that long, without end when there is no limit, and notes what is ready. True
  // when something has ended the sleep: not the limit, nor a signal.
  bool Look(Time now, const timespec* limit, bool can_be_woken) {
    std::vector<pollfd> polled;
    for (const auto& watch : watched_) polled.push_back({watch.first, POLLIN, 0});
    if (can_be_woken) polled.push_back({waker_, POLLIN, 0});
    last_look_ = now;
    ready_.clear();
    if (::ppoll(polled.data(), polled.size(), limit, nullptr) <= 0) return false;
    for (const pollfd& one : polled) Note(one);
    return true;
  }

 private:
  using Handler = std::shared_ptr<const std::function<void()>>;

  void Note(const pollfd& polled) {
    if (polled.revents == 0) return;
    if (polled.fd == waker_) {
      std::uint64_t wakes = 0;
      [[maybe_unused]] const auto got = ::read(waker_, &wakes, sizeof wakes);
    } else if (polled.revents & POLLNVAL) {
      watched_.erase(polled.fd);  // it is closed, and would end every sleep
    } else {
      ready_.emplace_back(polled.fd, watched_.at(polled.fd));
    }
  }

  int waker_;
  std::map<int, Handler> watched_;
  std::deque<std::pair<int, Handler>> ready_;
  std::optional<Time> last_look_;
};

EventLoop::EventLoop() : descriptors_(std::make_unique<Descriptors>()) {
  Add_Source(*descriptors_);
}

EventLoop::~EventLoop() { Remove_Source(*descriptors_); }

EventLoop::Time EventLoop::Now() const {
  return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - made_);
}

void EventLoop::Watch(int descriptor, std::function<void()> ready) {
  descriptors_->Watch(descriptor, std::move(ready));
}

void EventLoop::Unwatch(int descriptor) { descriptors_->Unwatch(descriptor); }

void EventLoop::Wake() noexcept { descriptors_->Wake(); }

// A signal alone does not end the sleep: whoever handles one can wake the loop.
void EventLoop::Sleep_Until(std::optional<Time> moment) {
  for (Time now = Now(); !moment || now < *moment; now = Now()) {
    const timespec left = As_Timespec(moment ? *moment - now : Time{0});
    if (descriptors_->Look(now, moment ? &left : nullptr, true)) return;
  }
}

}  // namespace quillspeech::linux
