#include "core/persistence.hpp"

#include <memory>
#include <string>

#include "audio/live_capture.hpp"
#include "base/text.hpp"
#include "core/conversions.hpp"
#include "recognition/engine_table.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

// A number is of the key's width; for a text it is a number all the same.
MemberValue Default_Value(const KeyDefault& column, StoredType type) {
  if (const auto* text = std::get_if<std::string_view>(&column)) return std::string(*text);
  const auto number = std::get<std::int16_t>(column);
  if (type == StoredType::Number32) return std::int32_t{number};
  return number;
}

void Read_Key(const RecordKey& key, Session& session, ControlInstance& instance, PropertyBag& bag) {
  const MemberValue value = bag.ReadProperty(key.key, Default_Value(key.on_read, key.type));
  key.store(session, instance, Trimmed(To_Text(value)));
}

// The stop is read and initialised first, and once more in the midst of the others.
const RecordKey& Stop_Key() { return Record_Keys().front(); }
constexpr std::size_t Keys_Before_Second_Stop_At_Start = 55;  // behind the echo
constexpr std::size_t Keys_Before_Second_Stop_On_Read = 56;   // behind the sampling time

template <class Procedure>
void For_Each_Key(std::size_t keys_before_second_stop, Procedure procedure) {
  const auto keys = Record_Keys();
  for (const RecordKey& key : keys.first(keys_before_second_stop)) procedure(key);
  procedure(Stop_Key());
  for (const RecordKey& key : keys.subspan(keys_before_second_stop)) procedure(key);
}

// What follows from the variables of the record. The number Direct_Add is not among them, so its
// text is always that of the process.
void Derive(Session& session) {
  Settings& settings = session.settings;
  session.sample.Samples_Per_Capture = Promised_Samples(settings);
  session.flags.Settings_Ready_Count = 2;
  settings.Direct_Add_Enabled = settings.Direct_Add > 0 ? "YES" : "NO";
}

void Initialise(Session& session, ControlInstance& instance) {
  For_Each_Key(Keys_Before_Second_Stop_At_Start, [&](const RecordKey& key) {
    if (key.at_start) key.store(session, instance, Default_Value(*key.at_start, key.type));
  });
  session.settings.Digital_Signal_Processing_Level = 128;
  Derive(session);
}

void Follow_Level_Text(Settings& settings) {
  const auto text = Trim(settings.Keep_Digital_Signal_Processing_level);
  if (text == "Top") settings.Digital_Signal_Processing_Level = 256;
  if (text == "Up") settings.Digital_Signal_Processing_Level = 128;
  if (text == "Middle") settings.Digital_Signal_Processing_Level = 100;
  if (text == "Down") settings.Digital_Signal_Processing_Level = 80;
}

}  // namespace

void Forget_Settings(Session& session) {
  ControlInstance nobody;
  Settings& settings = session.settings;
  settings.Send_of_no = 0;  // it names where the values of some keys go
  for (const RecordKey& key : Record_Keys()) key.store(session, nobody, MemberValue());
  settings.Digital_Signal_Processing_Level = 0;
  settings.Direct_Add = 0;
  settings.Words_to_Scan_Start = 0;
  session.sample.Samples_Per_Capture = 0;
  session.flags.Settings_Ready_Count = 0;
}

void UserControl_InitProperties(Control& control) {
  const auto self = control.shared_from_this();
  Session& session = control.session;
  Run_Silently_Trapped(session, [&] {
    Initialise(session, control.instance);
    Load_Default_Engine_Table(session);
    session.operations.Show_Help(session);
  });
}

void UserControl_ReadProperties(Session& session, ControlInstance& instance, PropertyBag& bag) {
  For_Each_Key(Keys_Before_Second_Stop_On_Read,
               [&](const RecordKey& key) { Read_Key(key, session, instance, bag); });
  Derive(session);
  // No word filter survives a load.
  session.settings.Words_I_Want[1].assign(1, '*');
}

void UserControl_ReadProperties(Control& control, PropertyBag& bag) {
  const auto self = control.shared_from_this();
  UserControl_ReadProperties(control.session, control.instance, bag);
}

void UserControl_WriteProperties(Session& session, ControlInstance& instance, PropertyBag& bag) {
  for (const RecordKey& key : Record_Keys()) {
    bag.WriteProperty(key.key, key.current(session, instance),
                      Default_Value(key.on_write, key.type));
  }
  Follow_Level_Text(session.settings);
  Derive(session);
}

void UserControl_WriteProperties(Control& control, PropertyBag& bag) {
  const auto self = control.shared_from_this();
  UserControl_WriteProperties(control.session, control.instance, bag);
}

}  // namespace quillspeech
