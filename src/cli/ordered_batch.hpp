// Work on many items by several threads, with the results in the order of the items.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace quillspeech::cli {

// The caller's thread asks for the items, the workers work on them, and each result is delivered as
// soon as all results before it were. Never more than a few items a worker are under way, so a
// stream of any length takes little memory.
template <class Item, class Result>
class OrderedBatch {
 public:
  std::function<std::optional<Item>()> next;  // on the caller's thread; may wait
  std::function<Result(const Item&)> work;    // on any thread
  std::function<void(Result&&)> deliver;      // one call at a time, on any thread

  // Comes back when all is delivered. What one of the three throws ends the batch and comes out.
  void Run(int workers) {
    if (workers <= 1) {
      while (auto item = next()) deliver(work(*item));
      return;
    }
    std::vector<std::thread> threads = Start(workers);
    Feed(workers);
    for (std::thread& thread : threads) thread.join();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  using Lock = std::unique_lock<std::mutex>;

  // As many threads as the system gives, one at least.
  std::vector<std::thread> Start(int workers) {
    std::vector<std::thread> threads;
    try {
      for (int i = 0; i < workers; ++i) threads.emplace_back([this] { Work_On_Items(); });
    } catch (const std::system_error&) {
      if (threads.empty()) throw;
    }
    return threads;
  }

  void Feed(int workers) {
    const std::int64_t most_under_way = 4 * std::int64_t{workers};
    try {
      while (auto item = next()) {
        Lock lock(mutex_);
        delivered_one_.wait(lock, [&] { return fed_ - delivered_ < most_under_way || failure_; });
        if (failure_) break;
        items_.emplace_back(fed_++, std::move(*item));
        fed_one_.notify_one();
      }
    } catch (...) {
      Keep_Failure();
    }
    const Lock lock(mutex_);
    is_fed_ = true;
    fed_one_.notify_all();
  }

  void Work_On_Items() {
    try {
      while (auto item = Take_Item()) Deliver(item->first, work(item->second));
    } catch (...) {
      Keep_Failure();
    }
  }

  std::optional<std::pair<std::int64_t, Item>> Take_Item() {
    Lock lock(mutex_);
    fed_one_.wait(lock, [&] { return !items_.empty() || is_fed_ || failure_; });
    if (items_.empty() || failure_) return std::nullopt;
    auto item = std::move(items_.front());
    items_.pop_front();
    return item;
  }

  void Deliver(std::int64_t number, Result&& result) {
    const Lock lock(mutex_);
    results_.emplace(number, std::move(result));
    while (!failure_ && !results_.empty() && results_.begin()->first == delivered_) {
      deliver(std::move(results_.begin()->second));
      results_.erase(results_.begin());
      ++delivered_;
    }
    delivered_one_.notify_one();
  }

  void Keep_Failure() {
    const Lock lock(mutex_);
    if (!failure_) failure_ = std::current_exception();
    fed_one_.notify_all();
    delivered_one_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable fed_one_;
  std::condition_variable delivered_one_;
  std::deque<std::pair<std::int64_t, Item>> items_;
  std::map<std::int64_t, Result> results_;
  std::int64_t fed_ = 0;
  std::int64_t delivered_ = 0;
  bool is_fed_ = false;
  std::exception_ptr failure_;
};

}  // namespace quillspeech::cli
