// A run-time failure and the number by which hosts know it.
#pragma once

#include <exception>

namespace quillspeech {

enum class Failure : int {
  Invalid_Call = 5,
  Overflow = 6,
  Out_Of_Memory = 7,
  Subscript_Out_Of_Range = 9,
  Division_By_Zero = 11,
  Type_Mismatch = 13,
  Bad_File_Name = 52,
  File_Not_Found = 53,
  Device_Failure = 57,
  Disk_Full = 61,
  Past_End_Of_File = 62,
  Bad_Record_Number = 63,
  Permission_Denied = 70,
  Path_Access = 75,
  Path_Not_Found = 76,
  Bad_Pattern = 93,
};

class RunTimeFailure : public std::exception {
 public:
  explicit RunTimeFailure(Failure failure) noexcept : failure_(failure) {}
  Failure What() const noexcept { return failure_; }
  int Number() const noexcept { return static_cast<int>(failure_); }
  const char* what() const noexcept override;

 private:
  Failure failure_;
};

// Ends the running operation.
[[noreturn]] void Fail(Failure failure);

// A short plain sentence for a failure number, for people at a command line; never empty.
const char* Failure_Text(int number) noexcept;

// The number of the exception being handled: its own for a RunTimeFailure, 7 when memory ran out,
// 5 for any other. Call it in a catch block only.
int Current_Failure_Number() noexcept;

}  // namespace quillspeech
