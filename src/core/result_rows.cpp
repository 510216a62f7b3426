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

constexpr auto Results_Record = &Session::results;
constexpr auto Filter_Record = &Session::filter;
constexpr auto Words_Record = &Session::words;

constexpr auto Result_Rows = std::to_array<Member>({
    {"Platinum_Word_Best", Best<1>, nullptr},
    {"Platinum_Word_Second_Best", Best<2>, nullptr},
    {"Platinum_Word_Third_Best", Best<3>, nullptr},
    {"Platinum_Word_Fourth_Best", Best<4>, nullptr},
    {"Platinum_Word_Fifth_Best", Best<5>, nullptr},
    {"Platinum_Word_Sixth_Best", Best<6>, nullptr},
    {"Platinum_Word_Seventh_Best", Best<7>, nullptr},
    {"Platinum_Words", Platinum_Words_Of, nullptr},
    {"Platinum_Word_Percentage", Sent_Number<Results_Record, view::Platinum_Word_Percentage>,
     nullptr},
    {"Platinum_Words_Available", Field<Results_Record, &Results::Platinum_Words_Available>,
     nullptr},
    {"Platinum_Word_Font", Text_Result<Results_Record, view::Platinum_Word_Font>, nullptr},
    {"Voice_Word", Voice_Word_Of, nullptr},
    {"Voice_Word_Matched", Sent_Text<Filter_Record, view::Voice_Word_Matched>, nullptr},
    {"Voice_Words_Explode_Count", Number_Result<Filter_Record, view::Voice_Words_Explode_Count>,
     nullptr},
    {"Voice_Words_Matched_Count", Number_Result<Filter_Record, view::Voice_Words_Matched_Count>,
     nullptr},
    {"Voice_Magic_Elements", Text_Result<Filter_Record, view::Voice_Magic_Elements>, nullptr},
    {"Operation_Status", Text_Result<&Session::flags, view::Operation_Status>, nullptr},
    {"Words_I_Check", Words_I_Check_Of, nullptr},
    {"Engine_Category", Engine_Category_Of, nullptr},
    {"Engine_Category_Weight", Field<Filter_Record, &Filter::Engine_Category_Weight>, nullptr},
    {"Engine_Category_Code", Engine_Category_Code_Of, nullptr},
    {"Filter_Filled_Slots", Field<Filter_Record, &Filter::Filter_Filled_Slots>, nullptr},
    {"Filter_Slot_Data", Sent_Text<Filter_Record, view::Filter_Slot_Data>, nullptr},
    {"Filter_Slot_Data_Weight", Sent_Number<Filter_Record, view::Filter_Slot_Data_Weight>, nullptr},
    {"Probable_no_of_words_recognized",
     Field<Words_Record, &WordTables::Probable_no_of_words_recognized>, nullptr},
    {"Current_Processings_Available",
     Field<Words_Record, &WordTables::Current_Processings_Available>, nullptr},
    {"No_of_Processings", Field<Words_Record, &WordTables::No_of_Processings>, nullptr},
    {"Current_Vyanjana_no_Processed",
     Number_Result<Words_Record, view::Current_Vyanjana_no_Processed>, nullptr},
    {"Current_Word_no_Processed", Number_Result<Words_Record, view::Current_Word_no_Processed>,
     nullptr},
    {"Current_DeepWord_no_Processed",
     Number_Result<Words_Record, view::Current_DeepWord_no_Processed>, nullptr},
    {"Current_TooDeepWord_no_Processed",
     Number_Result<Words_Record, view::Current_TooDeepWord_no_Processed>, nullptr},
    {"Current_Word_no_Timelength", Number_Result<Words_Record, view::Current_Word_no_Timelength>,
     nullptr},
    {"Current_DeepWord_no_Timelength",
     Number_Result<Words_Record, view::Current_DeepWord_no_Timelength>, nullptr},
    {"Current_TooDeepWord_no_Timelength",
     Number_Result<Words_Record, view::Current_TooDeepWord_no_Timelength>, nullptr},
    {"Audio_Data", Zero, nullptr},
});

}  // namespace

std::span<const Member> Result_Members() { return Result_Rows; }

}  // namespace quillspeech
