#include "cli/ordered_batch.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <chrono>
#include <future>
#include <stdexcept>

namespace quillspeech::cli {
namespace {

// Squares of 0 to count - 1 with so many workers.
std::vector<int> Squares(int count, int workers) {
  std::vector<int> delivered;
  int next = 0;
  OrderedBatch<int, int> batch;
  batch.next = [&]() -> std::optional<int> {
    if (next == count) return std::nullopt;
    return next++;
  };
  batch.work = [](const int& item) { return item * item; };
  batch.deliver = [&](int&& result) { delivered.push_back(result); };
  batch.Run(workers);
  return delivered;
}

TEST(OrderedBatch, Results_come_in_the_order_of_the_items) {
  for (const int workers : {1, 2, 8}) {
    const auto squares = Squares(500, workers);
    ASSERT_EQ(squares.size(), 500U);
    for (int i = 0; i < 500; ++i) EXPECT_EQ(squares[static_cast<std::size_t>(i)], i * i);
  }
}

TEST(OrderedBatch, No_items_give_no_results) {
  EXPECT_TRUE(Squares(0, 1).empty());
  EXPECT_TRUE(Squares(0, 4).empty());
}

TEST(OrderedBatch, Two_workers_work_at_the_same_time) {
  std::barrier both(2);  // neither gets past it alone
  int next = 0;
  int delivered = 0;
  OrderedBatch<int, int> batch;
  batch.next = [&]() -> std::optional<int> {
    if (next == 2) return std::nullopt;
    return next++;
  };
  batch.work = [&](const int& item) {
    both.arrive_and_wait();
    return item;
  };
  batch.deliver = [&](int&&) { ++delivered; };
  batch.Run(2);
  EXPECT_EQ(delivered, 2);
}

TEST(OrderedBatch, A_result_is_delivered_while_the_next_item_is_awaited) {
  std::promise<void> first_delivered;
  auto status = std::future_status::timeout;
  int next = 0;
  OrderedBatch<int, int> batch;
  batch.next = [&]() -> std::optional<int> {
    if (next == 1) status = first_delivered.get_future().wait_for(std::chrono::seconds(10));
    if (next == 2) return std::nullopt;
    return next++;
  };
  batch.work = [](const int& item) { return item; };
  batch.deliver = [&](int&& result) {
    if (result == 0) first_delivered.set_value();
  };
  batch.Run(2);
  EXPECT_EQ(status, std::future_status::ready);
}

TEST(OrderedBatch, Only_a_few_items_are_taken_ahead_of_the_results) {
  std::atomic<int> taken = 0;
  std::atomic<int> delivered = 0;
  int most_ahead = 0;
  OrderedBatch<int, int> batch;
  batch.next = [&]() -> std::optional<int> {
    most_ahead = std::max(most_ahead, taken - delivered);
    if (taken == 1000) return std::nullopt;
    return taken++;
  };
  batch.work = [](const int& item) { return item; };
  batch.deliver = [&](int&&) { ++delivered; };
  batch.Run(2);
  EXPECT_EQ(delivered, 1000);
  EXPECT_LE(most_ahead, 9);  // four for each worker, and the one that waits
}

TEST(OrderedBatch, A_throw_ends_the_batch_and_comes_out) {
  for (const int workers : {1, 3}) {
    for (const int thrower : {0, 1, 2}) {
      int next = 0;
      OrderedBatch<int, int> batch;
      batch.next = [&]() -> std::optional<int> {
        if (thrower == 0 && next == 50) throw std::runtime_error("next");
        return next++;
      };
      batch.work = [&](const int& item) {
        if (thrower == 1 && item == 50) throw std::runtime_error("work");
        return item;
      };
      batch.deliver = [&](int&& result) {
        if (thrower == 2 && result == 50) throw std::runtime_error("deliver");
      };
      EXPECT_THROW(batch.Run(workers), std::runtime_error);
    }
  }
}

}  // namespace
}  // namespace quillspeech::cli
