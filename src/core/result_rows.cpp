// The rows of the results.
#include <array>

#include "core/results_view.hpp"
#include "core/settings_table.hpp"

namespace quillspeech {

namespace {

namespace view = results_view;

template <int place>
std::string Best(Session& session, ControlInstance&) {
  return view::Platinum_Best(session.results, place);
}

// A result that its record answers alone.
template <auto record, auto getter>
std::string Text_Result(Session& session, ControlInstance&) {
  return getter(session.*record);
}
template <auto record, auto getter>
std::string Number_Result(Session& session, ControlInstance&) {
  return std::to_string(getter(session.*record));
}
// A result that Send_of_no chooses.
template <auto record, auto getter>
std::string Sent_Text(Session& session, ControlInstance&) {
  return getter(session.*record, session.settings.Send_of_no);
}
template <auto record, auto getter>
std::string Sent_Number(Session& session, ControlInstance&) {
  return std::to_string(getter(session.*record, session.settings.Send_of_no));
}
// A plain field of a record.
template <auto record, auto field>
std::string Field(Session& session, ControlInstance&) {
  return std::to_string((session.*record.*field).Raw());
}

// The reads of these two tell the container of a change.
std::string Platinum_Words_Of(Session& session, ControlInstance& instance) {
  auto word = view::Platinum_Words(session.results, session.settings.Send_of_no);
  instance.Property_Changed("Platinum_Words");
  return word;
}
std::string Voice_Word_Of(Session& session, ControlInstance& instance) {
  auto word = view::Voice_Word(session.filter, session.settings.Send_of_no);
  instance.Property_Changed("");
  return word;
}

std::string Words_I_Check_Of(Session&, ControlInstance&) {
  return std::to_string(view::Words_I_Check());
}
std::string Engine_Category_Of(Session& session, ControlInstance&) {
  return std::to_string(view::Engine_Category(session.slice.Engine_Category.Raw()));
}
std::string Engine_Category_Code_Of(Session& session, ControlInstance&) {
  return view::Engine_Category_Code(session.filter, session.slice.Engine_Category.Raw());
}
std::string Zero(Session&, ControlInstance&) { return "0"; }

constexpr auto Text = MemberType::Text;
constexpr auto Number16 = MemberType::Number16;
constexpr auto Number32 = MemberType::Number32;
constexpr auto Results_Record = &Session::results;
constexpr auto Filter_Record = &Session::filter;
constexpr auto Words_Record = &Session::words;

constexpr auto Result_Rows = std::to_array<Member>({
    {"Platinum_Word_Best", Text, Best<1>, nullptr},
    {"Platinum_Word_Second_Best", Text, Best<2>, nullptr},
    {"Platinum_Word_Third_Best", Text, Best<3>, nullptr},
    {"Platinum_Word_Fourth_Best", Text, Best<4>, nullptr},
    {"Platinum_Word_Fifth_Best", Text, Best<5>, nullptr},
    {"Platinum_Word_Sixth_Best", Text, Best<6>, nullptr},
    {"Platinum_Word_Seventh_Best", Text, Best<7>, nullptr},
    {"Platinum_Words", Text, Platinum_Words_Of, nullptr},
    {"Platinum_Word_Percentage", Number16,
     Sent_Number<Results_Record, view::Platinum_Word_Percentage>, nullptr},
    {"Platinum_Words_Available", Number32,
     Field<Results_Record, &Results::Platinum_Words_Available>, nullptr},
    {"Platinum_Word_Font", Text, Text_Result<Results_Record, view::Platinum_Word_Font>, nullptr},
    {"Voice_Word", Text, Voice_Word_Of, nullptr},
    {"Voice_Word_Matched", Text, Sent_Text<Filter_Record, view::Voice_Word_Matched>, nullptr},
    {"Voice_Words_Explode_Count", Number32,
     Number_Result<Filter_Record, view::Voice_Words_Explode_Count>, nullptr},
    {"Voice_Words_Matched_Count", Number32,
     Number_Result<Filter_Record, view::Voice_Words_Matched_Count>, nullptr},
    {"Voice_Magic_Elements", Text, Text_Result<Filter_Record, view::Voice_Magic_Elements>, nullptr},
    {"Operation_Status", Text, Text_Result<&Session::flags, view::Operation_Status>, nullptr},
    {"Words_I_Check", Number16, Words_I_Check_Of, nullptr},
    {"Engine_Category", Number16, Engine_Category_Of, nullptr},
    {"Engine_Category_Weight", Number16, Field<Filter_Record, &Filter::Engine_Category_Weight>,
     nullptr},
    {"Engine_Category_Code", Text, Engine_Category_Code_Of, nullptr},
    {"Filter_Filled_Slots", Number32, Field<Filter_Record, &Filter::Filter_Filled_Slots>, nullptr},
    {"Filter_Slot_Data", Text, Sent_Text<Filter_Record, view::Filter_Slot_Data>, nullptr},
    {"Filter_Slot_Data_Weight", Number32, Sent_Number<Filter_Record, view::Filter_Slot_Data_Weight>,
     nullptr},
    {"Probable_no_of_words_recognized", Number32,
     Field<Words_Record, &WordTables::Probable_no_of_words_recognized>, nullptr},
    {"Current_Processings_Available", Number32,
     Field<Words_Record, &WordTables::Current_Processings_Available>, nullptr},
    {"No_of_Processings", Number32, Field<Words_Record, &WordTables::No_of_Processings>, nullptr},
    {"Current_Vyanjana_no_Processed", Number32,
     Number_Result<Words_Record, view::Current_Vyanjana_no_Processed>, nullptr},
    {"Current_Word_no_Processed", Number32,
     Number_Result<Words_Record, view::Current_Word_no_Processed>, nullptr},
    {"Current_DeepWord_no_Processed", Number32,
     Number_Result<Words_Record, view::Current_DeepWord_no_Processed>, nullptr},
    {"Current_TooDeepWord_no_Processed", Number32,
     Number_Result<Words_Record, view::Current_TooDeepWord_no_Processed>, nullptr},
    {"Current_Word_no_Timelength", Number32,
     Number_Result<Words_Record, view::Current_Word_no_Timelength>, nullptr},
    {"Current_DeepWord_no_Timelength", Number32,
     Number_Result<Words_Record, view::Current_DeepWord_no_Timelength>, nullptr},
    {"Current_TooDeepWord_no_Timelength", Number32,
     Number_Result<Words_Record, view::Current_TooDeepWord_no_Timelength>, nullptr},
    {"Audio_Data", Number32, Zero, nullptr},
});

}  // namespace

std::span<const Member> Result_Members() { return Result_Rows; }

}  // namespace quillspeech
