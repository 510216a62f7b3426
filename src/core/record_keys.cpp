// The rows of the record, in the order of its routines.
#include <array>
#include <string>

#include "base/checked.hpp"
#include "core/conversions.hpp"
#include "core/persistence.hpp"
#include "core/session_field.hpp"

namespace quillspeech {
namespace {

using Instance = ControlInstance;

void Assign(std::string& field, const MemberValue& value) { field = To_Text(value); }
void Assign(Checked16& field, const MemberValue& value) { field = To_Number16(value); }
void Assign(Checked32& field, const MemberValue& value) { field = To_Number32(value); }
void Assign(CheckedByte& field, const MemberValue& value) { field = To_Byte(value); }
void Assign(std::uint8_t& field, const MemberValue& value) { field = To_Byte(value); }

MemberValue Value_Of(const std::string& field) { return field; }
MemberValue Value_Of(const Checked16& field) { return field.Raw(); }
MemberValue Value_Of(const Checked32& field) { return field.Raw(); }
MemberValue Value_Of(const CheckedByte& field) { return std::int16_t{field.Raw()}; }
MemberValue Value_Of(std::uint8_t field) { return std::int16_t{field}; }

constexpr StoredType Stored_As(const std::string*) { return StoredType::Text; }
constexpr StoredType Stored_As(const Checked16*) { return StoredType::Number16; }
constexpr StoredType Stored_As(const Checked32*) { return StoredType::Number32; }
constexpr StoredType Stored_As(const CheckedByte*) { return StoredType::Byte; }
constexpr StoredType Stored_As(const std::uint8_t*) { return StoredType::Byte; }

// Where a value goes. Each place gives a reference to its variable.

template <auto field>
struct Variable {
  static auto& At(Session& session, Instance&) { return Field<field>(session); }
};
template <auto table, int index>
struct Element {
  static auto& At(Session& session, Instance&) { return Field<table>(session)[index]; }
};
// The element that Send_of_no names when the key's turn comes.
template <auto table>
struct SentElement {
  static auto& At(Session& session, Instance&) {
    return Field<table>(session)[session.settings.Send_of_no];
  }
};
struct PlayFile {
  static std::string& At(Session&, Instance& instance) { return instance.Play_File; }
};
struct WordWanted {
  static std::string& At(Session& session, Instance&) { return session.settings.Words_I_Want[1]; }
};
// A save takes the word that the last sample stopped at.
struct WordOfSample {
  static std::string& At(Session& session, Instance&) {
    return session.settings.Words_I_Want[session.words.Current_Word_no_Processed];
  }
};

struct Not_Set {};

template <class Place>
void Store(Session& session, Instance& instance, const MemberValue& value) {
  Assign(Place::At(session, instance), value);
}
template <class Place>
MemberValue Current(Session& session, Instance& instance) {
  return Value_Of(Place::At(session, instance));
}

constexpr KeyDefault As_Default(std::string_view text) { return text; }
// One that does not fit is no constant, so the table of the keys refuses it.
constexpr KeyDefault As_Default(int number) { return Narrow<std::int16_t>(number); }
constexpr std::optional<KeyDefault> As_Start(Not_Set) { return std::nullopt; }
template <class Value>
constexpr std::optional<KeyDefault> As_Start(Value value) {
  return As_Default(value);
}

template <class Place, class SavedPlace = Place, class Read, class Write, class Start>
constexpr RecordKey Key(std::string_view key, Read on_read, Write on_write, Start at_start) {
  using Stored = std::remove_reference_t<decltype(Place::At(std::declval<Session&>(),
                                                            std::declval<Instance&>()))>;
  return {key,
          Stored_As(static_cast<Stored*>(nullptr)),
          As_Default(on_read),
          As_Default(on_write),
          As_Start(at_start),
          Store<Place>,
          Current<SavedPlace>};
}
// The three columns agree.
template <class Place, class SavedPlace = Place, class Value>
constexpr RecordKey Key(std::string_view key, Value value) {
  return Key<Place, SavedPlace>(key, value, value, value);
}
template <auto field, class... Columns>
constexpr RecordKey Of(std::string_view key, Columns... columns) {
  return Key<Variable<field>>(key, columns...);
}

using S = Settings;
using F = Filter;
using R = Results;
using W = WordTables;

constexpr std::array<RecordKey, Record_Key_Count> Keys = {{
    Of<&S::Stop_everything_now>("Stop_everything_now", "NO"),
    Of<&S::Add_To_Language>("Add_to_Language", "NO"),
    Of<&S::Always_Restart_on_Error>("Always_Restart_on_Error", "NO"),
    Of<&S::Consider_this_Engine_for_Recognition>("Consider_this_Engine_for_Recognition", ""),
    Of<&S::Consider_this_Lang_File_to_Add>("Consider_this_Lang_File_to_Add", "User.SAY", "User.SAY",
                                           "UserTemp.SAY"),
    Of<&S::Consider_this_Lang_File_to_match>("Consider_this_Lang_File_to_match", "User.SAY",
                                             "User.SAY", "UserTemp.SAY"),
    Of<&W::Current_Processings_Available>("Current_Processings_Available", 0),
    Of<&W::Current_Vyanjana_no_Processed>("Current_Vyanjana_no_Processed", 0),
    Of<&W::Current_Word_no_Processed>("Current_Word_no_Processed", 0),
    Of<&S::Direct_Add_Enabled>("Direct_Add", 0, 1, "0"),
    Of<&S::Enable_Artificial_Intelligence>("Enable_Artificial_Intelligence", "YES"),
    Of<&S::Enable_Speech_Engine>("Enable_Speech_Engine", "YES"),
    Of<&Slice::Engine_Category>("Engine_Category", 0),
    Of<&F::Engine_Category_Weight>("Engine_Category_Weight", 0),
    Of<&S::Engine_Explode_Limit>("Engine_Explode_Limit", 10),
    Of<&S::Explode_out_all_Engine>("Explode_out_all_Engine", "YES"),
    Of<&F::Filter_Filled_Slots>("Filter_Filled_Slots", 0),
    Of<&S::Filter_Pass_Value>("Filter_Pass_Value", 1),
    Key<SentElement<&F::Filter_Slot_Table>>("Filter_Slot_Data", "", "", Not_Set()),
    Key<SentElement<&F::Filter_Weight_Table>>("Filter_Slot_Data_Weight", 0, 0, Not_Set()),
    Of<&S::I_want_Status_Animation>("I_want_Status_Animation", "NO"),
    Of<&S::Keep_Digital_Signal_Processing_level>("Keep_Digital_Signal_Processing_level", "Up", "Up",
                                                 Not_Set()),
    Of<&S::Keep_Engine_Frequency_Input_Flow>("Keep_Engine_Frequency_Input_Flow", "Filter All"),
    Of<&S::Memory_Clean>("Memory_Clean", "YES"),
    Of<&W::No_of_Processings>("No_of_Processings", 0),
    Of<&S::Noise_Sensitivity>("Noise_Sensitivity", 3),
    Of<&S::Noise_Word_No_CutOff>("Noise_Word_No_CutOff", 4),
    Of<&S::Notify_if_no_language_match>("Notify_if_no_language_match", "NO"),
    Of<&S::Open_this_Wave_File>("Open_this_Wave_File", ""),
    Of<&Flags::Operation_Status>("Operation_Status", ""),
    Key<Element<&R::Platinum_Word_Table, 1>>("Platinum_Words", ""),
    Key<Element<&R::Platinum_Best_Table, 1>>("Platinum_Word_Best", ""),
    Key<Element<&R::Platinum_Best_Table, 5>>("Platinum_Word_Fifth_Best", ""),
    Of<&R::Platinum_Word_Font>("Platinum_Word_Font", "Arial", "", "MS Sans Serif"),
    Key<Element<&R::Platinum_Best_Table, 4>>("Platinum_Word_Fourth_Best", ""),
    Key<SentElement<&R::Platinum_Score_Table>>("Platinum_Word_Percentage", 0, 0, Not_Set()),
    Key<Element<&R::Platinum_Best_Table, 2>>("Platinum_Word_Second_Best", "", "", Not_Set()),
    Key<Element<&R::Platinum_Best_Table, 7>>("Platinum_Word_Seventh_Best", "", "", Not_Set()),
    Key<Element<&R::Platinum_Best_Table, 6>>("Platinum_Word_Sixth_Best", "", "", Not_Set()),
    Key<Element<&R::Platinum_Best_Table, 3>>("Platinum_Word_Third_Best", "", "", Not_Set()),
    Of<&R::Platinum_Words_Available>("Platinum_Words_Available", 0),
    Key<PlayFile>("Play_File", ""),
    Of<&S::Play_this_file_for_Start>("Play_this_file_for_Start", "", "", "start.wav"),
    Of<&S::Play_this_file_for_Stop>("Play_this_file_for_Stop", "", "", "stop.wav"),
    Of<&S::Play_this_file_on_Initialization>("Play_this_file_on_Initialization", "", "",
                                             "backon.wav"),
    Of<&W::Probable_no_of_words_recognized>("Probable_no_of_words_recognized", 0),
    Of<&S::Sample_Overlap_Bytes>("Sample_Overlap_Bytes", 0),
    Of<&S::Sample_processing_resolution>("Sample_processing_resolution", 500),
    Of<&S::Send_of_no>("Send_of_no", 0),
    Of<&S::Send_words_one_by_one>("Send_words_one_by_one", "YES"),
    Of<&S::Set_Recording_Frequency>("Set_Recording_Frequency", 22050),
    Of<&S::Show_Audio_Graph>("Show_Audio_Graph", "YES"),
    Of<&S::Show_this_Image_for_Start>("Show_this_Image_for_Start", ""),
    Of<&S::Show_this_Image_for_Stop>("Show_this_Image_for_Stop", ""),
    Of<&S::Speech_echo_feature>("Speech_echo_feature", "NO"),
    Of<&S::Speech_sampling_time_in_ms>("Speech_sampling_time_in_ms", 7000),
    Of<&S::This_Audio_Process>("This_Audio_Process", "YES"),
    Of<&S::This_speech_sample_process_end_only>("This_speech_sample_process_end_only", "NO"),
    Of<&S::This_speech_sample_process_middle_only>("This_speech_sample_process_middle_only", "NO"),
    Of<&S::This_speech_sample_process_Start_only>("This_speech_sample_process_Start_only", "NO"),
    Of<&S::Voice_Capture_Delay>("Voice_Capture_Delay", 5),
    Of<&F::Voice_Magic_Elements>("Voice_Magic_Elements", ""),
    Of<&S::Voice_Processing_Delay>("Voice_Processing_Delay", 15000),
    Key<Element<&F::Voice_Word_Table, 1>>("Voice_Word", ""),
    Key<SentElement<&F::Voice_Word_Matched_Table>>("Voice_Word_Matched", ""),
    Of<&F::Voice_Words_Explode_Count>("Voice_Words_Explode_Count", 0),
    Of<&F::Voice_Words_Matched_Count>("Voice_Words_Matched_Count", 0),
    Key<SentElement<&F::Word_Check_Flags>>("Words_I_Check", 0),
    Key<WordWanted, WordOfSample>("Words_I_Want", "*"),
    Of<&S::Words_to_Scan>("Words_to_Scan", 1),
}};

}  // namespace

std::span<const RecordKey, Record_Key_Count> Record_Keys() { return Keys; }

}  // namespace quillspeech
