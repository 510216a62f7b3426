#include "platform/windows/file_errors.hpp"

namespace quillspeech::windows {

namespace {

constexpr DWORD Error_Disk_Quota_Exceeded = 1295;  // which the system's headers lack here

}  // namespace

Failure Failure_To_Open(DWORD error) {
  switch (error) {
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_INVALID_PARAMETER:
      return Failure::Bad_File_Name;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_DIRECTORY:
      return Failure::Path_Not_Found;
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_NETWORK_ACCESS_DENIED:
      return Failure::Permission_Denied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case Error_Disk_Quota_Exceeded:
      return Failure::Disk_Full;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
      return Failure::Out_Of_Memory;
    case ERROR_BAD_UNIT:
    case ERROR_NOT_READY:
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_IO_DEVICE:
      return Failure::Device_Failure;
    default:  // ERROR_ACCESS_DENIED and ERROR_TOO_MANY_OPEN_FILES among them
      return Failure::Path_Access;
  }
}

Failure Failure_To_Transfer(DWORD error) {
  switch (error) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case Error_Disk_Quota_Exceeded:
    case ERROR_FILE_TOO_LARGE:
      return Failure::Disk_Full;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return Failure::Permission_Denied;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
      return Failure::Out_Of_Memory;
    default:
      return Failure::Device_Failure;
  }
}

bool Is_Without_Locks(DWORD error) {
  return error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION ||
         error == ERROR_CALL_NOT_IMPLEMENTED;
}

}  // namespace quillspeech::windows
