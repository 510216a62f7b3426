#include "base/run_time_failure.hpp"

#include <new>
#include <stdexcept>

namespace quillspeech {

const char* RunTimeFailure::what() const noexcept { return Failure_Text(Number()); }

void Fail(Failure failure) { throw RunTimeFailure(failure); }

const char* Failure_Text(int number) noexcept {
  switch (static_cast<Failure>(number)) {
    case Failure::Invalid_Call:
      return "invalid call";
    case Failure::Overflow:
      return "a number is too large for its field";
    case Failure::Out_Of_Memory:
      return "out of memory";
    case Failure::Subscript_Out_Of_Range:
      return "an index lies outside its table";
    case Failure::Division_By_Zero:
      return "division by zero";
    case Failure::Type_Mismatch:
      return "the text is no number";
    case Failure::Bad_File_Name:
      return "bad file name";
    case Failure::File_Not_Found:
      return "file not found";
    case Failure::Device_Failure:
      return "the device or disk failed";
    case Failure::Disk_Full:
      return "disk full";
    case Failure::Past_End_Of_File:
      return "read past the end of the file";
    case Failure::Bad_Record_Number:
      return "bad record number";
    case Failure::Permission_Denied:
      return "permission denied";
    case Failure::Path_Access:
      return "the path cannot be opened";
    case Failure::Path_Not_Found:
      return "path not found";
    case Failure::Bad_Pattern:
      return "bad pattern";
  }
  return "unknown failure";
}

int Current_Failure_Number() noexcept {
  try {
    throw;
  } catch (const RunTimeFailure& failure) {
    return failure.Number();
  } catch (const std::bad_alloc&) {
    return static_cast<int>(Failure::Out_Of_Memory);
  } catch (const std::length_error&) {
    return static_cast<int>(Failure::Out_Of_Memory);
  } catch (...) {
    return static_cast<int>(Failure::Invalid_Call);
  }
}

}  // namespace quillspeech
