// Random records through load, save, load and save, against the rules told plainly over texts.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>

#include "core/persistence.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/plain_record.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::KeepingBag;
using tests::Kind;
using tests::Plain_Keys;
using tests::PlainKey;
using tests::PlainRecord;
using tests::TypedRecord;

// The rules.

// What a process holds before a load, of all that the load and the save after it depend on.
struct Before {
  std::int32_t Send_of_no = 0;
  std::int32_t Direct_Add = 0;
};

struct Kept {
  int failure = 0;
  TypedRecord record;  // what the save after the load stores
};

std::string Without_Blanks(std::string text) {
  while (!text.empty() && text.front() == ' ') text.erase(text.begin());
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

MemberValue Typed(const PlainKey& key, const std::string& text) {
  if (key.kind == Kind::Text) return text;
  if (key.kind == Kind::N32) return static_cast<std::int32_t>(std::stoll(text));
  return static_cast<std::int16_t>(std::stoll(text));
}

// The number as the key stores it, or the failure. A text is a decimal number with an optional
// fraction, or none.
int Round_For(const PlainKey& key, std::string& text) {
  if (text.find_first_not_of("0123456789.-") != std::string::npos || text.empty()) return 13;
  const double number = std::nearbyint(std::stod(text));
  const double least = key.kind == Kind::Byte ? 0 : key.kind == Kind::N16 ? -32768 : -2147483648.0;
  const double greatest = key.kind == Kind::Byte  ? 255
                          : key.kind == Kind::N16 ? 32767
                                                  : 2147483647.0;
  if (number < least || number > greatest) return 6;
  text = std::to_string(static_cast<std::int64_t>(number));
  return 0;
}

bool Lies_In(const std::string& index, std::int64_t upper) {
  return std::stoll(index) >= 0 && std::stoll(index) <= upper;
}

// Loads the values, all of them texts still. The failure of the first key that has one.
int Load_Values(const PlainRecord& record, const Before& before, PlainRecord& values) {
  for (const PlainKey& key : Plain_Keys) {
    const std::string name = key.key;
    if (name == "Filter_Slot_Data" && !Lies_In(std::to_string(before.Send_of_no), 1000)) return 9;
    if (name == "Voice_Word_Matched" && !Lies_In(values["Send_of_no"], 100)) return 9;
    const auto given = record.find(name);
    values[name] = Without_Blanks(given == record.end() ? key.on_read : given->second);
    if (key.kind == Kind::Text) continue;
    if (const int failure = Round_For(key, values[name])) return failure;
  }
  const auto product = std::stoll(values["Speech_sampling_time_in_ms"]) *
                       std::stoll(values["Set_Recording_Frequency"]);
  return product > INT32_MAX || product < INT32_MIN ? 6 : 0;
}

// What a process whose tables are empty saves after it loaded the record.
Kept Load_And_Save(const PlainRecord& record, const Before& before) {
  PlainRecord values;
  if (const int failure = Load_Values(record, before, values)) return {failure, {}};
  if (!Lies_In(values["Current_Word_no_Processed"], 100)) return {9, {}};
  // These were loaded where Send_of_no pointed before, and are saved from where it points now.
  if (std::stoll(values["Send_of_no"]) != before.Send_of_no) {
    values["Filter_Slot_Data"] = "";
    values["Filter_Slot_Data_Weight"] = "0";
    values["Platinum_Word_Percentage"] = "0";
  }
  values["Direct_Add"] = before.Direct_Add > 0 ? "YES" : "NO";
  values["Words_I_Want"] = values["Current_Word_no_Processed"] == "1" ? "*" : "";
  Kept kept;
  for (const PlainKey& key : Plain_Keys) {
    // The text of Direct_Add never equals its default, which is a number.
    const bool differs = values[key.key] != key.on_write || key.key == std::string("Direct_Add");
    if (differs) kept.record[key.key] = Typed(key, values[key.key]);
  }
  return kept;
}

// Records.

class RandomRecords {
 public:
  KeepingBag Next() {
    KeepingBag bag;
    for (const PlainKey& key : Plain_Keys) {
      if (Below(3) == 0) bag.kept[key.key] = Value(key);
    }
    if (Below(8) == 0) Spoil(bag);
    return bag;
  }

  Before Next_Before() {
    constexpr std::int32_t Ends[] = {-1, 1001, 1000, 101, INT32_MIN, INT32_MAX};
    constexpr std::int32_t Numbers[] = {0, 1, -1, 5, INT32_MIN, INT32_MAX};
    Before before;
    before.Send_of_no = Below(20) == 0 ? Ends[Below(6)] : Below(3) == 0 ? Below(3) : Below(101);
    before.Direct_Add = Numbers[Below(6)];
    return before;
  }

 private:
  int Below(std::size_t count) { return static_cast<int>(random_() % count); }

  MemberValue Value(const PlainKey& key) {
    if (key.kind == Kind::Text) return Text(key);
    const std::int32_t number = Number(key);
    switch (Below(4)) {
      case 0:
        return " " + std::to_string(number) + "  ";
      case 1:  // half more than the greatest number does not fit
        return std::to_string(number) + (Below(2) == 0 ? ".25" : ".5");
      default:
        return number;
    }
  }

  // Gives one number a value that it cannot take, or nearly cannot.
  void Spoil(KeepingBag& bag) {
    const PlainKey& key = Plain_Keys[static_cast<std::size_t>(Below(Plain_Keys.size()))];
    const MemberValue values[] = {std::string("many"),
                                  std::string(),
                                  MemberValue(),
                                  true,
                                  std::string("-0.5"),
                                  std::string("256"),
                                  std::string("255.5"),
                                  std::string("32768"),
                                  std::string("-32769"),
                                  std::string("32767.5"),
                                  std::string("-2147483649"),
                                  std::string("2147483648"),
                                  std::string("2147483647.5")};
    if (key.kind != Kind::Text) bag.kept[key.key] = values[Below(std::size(values))];
  }

  MemberValue Text(const PlainKey& key) {
    const std::string words[] = {
        "",      "YES",        "NO",        "Up",       "Top",          "*",
        "0",     "1",          " a ",       " b c  d ", "UserTemp.SAY", key.on_read,
        "Arial", key.on_write, "\xE9t\xE9", "  ",       "a\tb"};
    return words[Below(std::size(words))];
  }

  std::int32_t Number(const PlainKey& key) {
    const std::string name = key.key;
    const bool is_index = name == "Send_of_no" || name == "Current_Word_no_Processed";
    if (is_index && Below(10) != 0) return Below(3) == 0 ? Below(3) : Below(101);
    if (name == "Speech_sampling_time_in_ms") return Below(60001);
    if (name == "Set_Recording_Frequency") return Below(45000);
    const auto bits = static_cast<std::int32_t>(random_());
    if (key.kind == Kind::Byte) return bits & 0xFF;
    return key.kind == Kind::N16 ? bits >> 16 : bits;
  }

  std::mt19937 random_{20};
};

// A process of its own for each load. The session is large, so all share one.
class Process {
 public:
  int Load(KeepingBag& bag, const Before& before) {
    session_.filter = Filter();
    session_.results = Results();
    Forget_Settings(session_);
    session_.settings.Send_of_no = before.Send_of_no;
    session_.settings.Direct_Add = before.Direct_Add;
    instance_ = {};
    return Failure_Of([&] { UserControl_ReadProperties(session_, instance_, bag); });
  }
  int Save(KeepingBag& bag) {
    return Failure_Of([&] { UserControl_WriteProperties(session_, instance_, bag); });
  }

 private:
  tests::TestSession test_;
  Session& session_ = test_.session;
  ControlInstance instance_;
};

TEST(PersistenceRoundTrip, Ten_thousand_random_records_are_loaded_and_saved_as_the_rules_say) {
  const auto process = std::make_unique<Process>();
  RandomRecords records;
  int whole_trips = 0;
  std::map<int, int> failures;
  for (int trip = 0; trip < 10'000; ++trip) {
    KeepingBag bag = records.Next();
    for (int round = 1; round <= 2; ++round) {
      const Before before = records.Next_Before();
      const Kept expected = Load_And_Save(In_Plain_Texts(bag), before);
      KeepingBag saved;
      int failure = process->Load(bag, before);
      if (failure == 0) failure = process->Save(saved);
      ASSERT_EQ(failure, expected.failure) << "trip " << trip << ", round " << round;
      ++failures[failure];
      if (failure != 0) break;
      ASSERT_EQ(saved.kept, expected.record) << "trip " << trip << ", round " << round;
      bag = std::move(saved);
      whole_trips += round - 1;
    }
  }
  EXPECT_GT(whole_trips, 6'000);
  for (const int number : {6, 9, 13}) EXPECT_GT(failures[number], 50) << number;
}

}  // namespace
}  // namespace quillspeech
