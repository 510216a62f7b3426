// How a control comes back from its container as it was left: the record of 70 keys, its values at
// initialisation, its loading and its saving. docs/members.md tells the members behind the keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "core/control.hpp"
#include "core/member_value.hpp"
#include "session/session.hpp"

namespace quillspeech {

// What the container keeps for a control.
class PropertyBag {
 public:
  virtual ~PropertyBag() = default;

  // The value kept under the key, of whatever type, or the default.
  virtual MemberValue ReadProperty(std::string_view key, const MemberValue& unless_kept) = 0;
  // Keeps the value when it differs from the default; one of another type differs.
  virtual void WriteProperty(std::string_view key, const MemberValue& value,
                             const MemberValue& unless_kept) = 0;
};

// A value in the columns of the record.
using KeyDefault = std::variant<std::string_view, std::int16_t>;

enum class StoredType { Text, Number16, Number32, Byte };

// One key of the record. The same variable may hold other values at initialisation, when a load
// finds no key, and when a save leaves it out.
struct RecordKey {
  std::string_view key;
  StoredType type;
  KeyDefault on_read;
  KeyDefault on_write;
  std::optional<KeyDefault> at_start;  // nothing: the initialisation leaves the variable alone
  // Converts and stores, answers. Failure 9 when Send_of_no or a word number indexes a table out of
  // its bounds, 6 and 13 when the value cannot be converted.
  void (*store)(Session&, ControlInstance&, const MemberValue&);
  MemberValue (*current)(Session&, ControlInstance&);
};

constexpr std::size_t Record_Key_Count = 70;

// In the order in which they are loaded and saved.
std::span<const RecordKey, Record_Key_Count> Record_Keys();

// Gives all variables of the record, and those that are derived from them, the zero values of a
// process in which no control was initialised or loaded. A new session has the values of a new
// control instead.
void Forget_Settings(Session& session);

// A control is new. A failure ends it silently. At the end the help window shows, modally.
void UserControl_InitProperties(Control& control);

// A control comes back. A failure ends the load where it stands and goes to the container: 9 when
// Send_of_no indexes a table out of its bounds, 6 and 13 when a value cannot be converted.
void UserControl_ReadProperties(Control& control, PropertyBag& bag);
void UserControl_ReadProperties(Session& session, ControlInstance& instance, PropertyBag& bag);

// A control is saved, which also brings the processing level in line with its text. Failure 9 as
// above, and when Current_Word_no_Processed lies outside 0 to 100.
void UserControl_WriteProperties(Control& control, PropertyBag& bag);
void UserControl_WriteProperties(Session& session, ControlInstance& instance, PropertyBag& bag);

}  // namespace quillspeech
