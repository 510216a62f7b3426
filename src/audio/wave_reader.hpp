// Takes one RIFF WAVE file into the sample store, whole.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.hpp"

namespace quillspeech {

// True when the file was taken in. Then Speech_Sample_Bytes has as many bytes as the "data" chunk
// claims, those that the file lacks being 0, and Samples_Per_Capture and Wave_Header_Buffer_Length
// tell how many it has. Samples are stored byte for byte, whatever their width and channels.
//
// False with a message box when the file cannot be taken in, and False without one when the session
// is stopped. What the steps before the failing one stored stays. Failure 6 when the chunk claims
// 2^31 bytes or more, 7 when the store finds no memory.
std::int16_t Open_Wave_File(Session& session, const std::string& path);

}  // namespace quillspeech
