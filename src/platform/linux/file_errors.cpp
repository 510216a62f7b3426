#include "platform/linux/file_errors.hpp"

#include <cerrno>

namespace quillspeech::linux {

Failure Failure_To_Open(int error) {
  switch (error) {
    case ENAMETOOLONG:
    case EINVAL:
      return Failure::Bad_File_Name;
    case ENOENT:
    case ENOTDIR:
      return Failure::Path_Not_Found;
    case EPERM:
    case EROFS:
    case ETXTBSY:
      return Failure::Permission_Denied;
    case ENOSPC:
    case EDQUOT:
      return Failure::Disk_Full;
    case ENOMEM:
      return Failure::Out_Of_Memory;
    case EIO:
    case ENXIO:
    case ENODEV:
      return Failure::Device_Failure;
    default:  // EACCES, EISDIR and ELOOP among them
      return Failure::Path_Access;
  }
}

Failure Failure_To_Transfer(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Failure::Disk_Full;
    case EPERM:
    case EACCES:
      return Failure::Permission_Denied;
    default:
      return Failure::Device_Failure;
  }
}

bool Is_Without_Locks(int error) {
  return error == EOPNOTSUPP || error == ENOLCK || error == ENOSYS;
}

}  // namespace quillspeech::linux
