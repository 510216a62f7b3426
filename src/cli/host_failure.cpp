#include "cli/host_failure.hpp"

#include "base/host_text.hpp"
#include "base/run_time_failure.hpp"
#include "cli/data_file_json.hpp"
#include "cli/files.hpp"

namespace quillspeech::cli {

nlohmann::ordered_json Current_Failure_Json() {
  const auto told = [](int number, const char* text) {
    return nlohmann::ordered_json{{"number", number}, {"text", text}};
  };
  try {
    throw;
  } catch (const RefusedRequest& refusal) {
    return told(refusal.Number(), refusal.what());
  } catch (const FileError& error) {
    return told(0, error.what());
  } catch (const BadJson& error) {
    return told(0, error.what());
  } catch (...) {
    const int number = Current_Failure_Number();
    return told(number, Host_Text(number));
  }
}

}  // namespace quillspeech::cli
