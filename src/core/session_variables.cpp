#include "core/session_variables.hpp"

#include <algorithm>
#include <array>

#include "core/session_variable_rows.hpp"

namespace quillspeech {
namespace {

using namespace session_variables;

VariableValue Wave_Format(const Control& control, std::int64_t) {
  const WaveFormat& format = control.session.sample.Wave_Format;
  return VariableFields{
      {"format_tag", format.format_tag},
      {"channels", format.channels},
      {"samples_per_second", format.samples_per_second},
      {"average_bytes_per_second", format.average_bytes_per_second},
      {"block_alignment", format.block_alignment},
      {"bits_per_sample", format.bits_per_sample},
  };
}

VariableValue Wave_Header(const Control& control, std::int64_t) {
  const WaveHeader& header = control.session.sample.Wave_Header;
  return VariableFields{
      {"buffer_length", header.buffer_length}, {"bytes_recorded", header.bytes_recorded},
      {"user_data", header.user_data},         {"flags", header.flags},
      {"loop_count", header.loop_count},
  };
}

// The channel, 0 while nothing is open.
VariableValue Main_File_Number(const Control& control, std::int64_t) {
  return std::int64_t{control.session.data.Main_File_Number.Is_Open() ? 1 : 0};
}

VariableValue Play_File(const Control& control, std::int64_t) { return control.instance.Play_File; }

VariableValue Pump_Is_On(const Control& control, std::int64_t) { return control.Is_Timer1_On(); }

constexpr auto Rows = std::to_array<SessionVariable>({
    Variable<&Settings::Stop_everything_now>("Stop_everything_now"),
    Variable<&Settings::This_Audio_Process>("This_Audio_Process"),
    Variable<&Settings::Send_words_one_by_one>("Send_words_one_by_one"),
    Variable<&Settings::This_speech_sample_process_Start_only>(
        "This_speech_sample_process_Start_only"),
    Variable<&Settings::This_speech_sample_process_middle_only>(
        "This_speech_sample_process_middle_only"),
    Variable<&Settings::This_speech_sample_process_end_only>("This_speech_sample_process_end_only"),
    Variable<&Settings::Memory_Clean>("Memory_Clean"),
    Variable<&Settings::Keep_Digital_Signal_Processing_level>(
        "Keep_Digital_Signal_Processing_level"),
    Variable<&Settings::Digital_Signal_Processing_Level>("Digital_Signal_Processing_Level"),
    Variable<&Settings::Noise_Sensitivity>("Noise_Sensitivity"),
    Variable<&Settings::Noise_Word_No_CutOff>("Noise_Word_No_CutOff"),
    Variable<&Settings::Sample_processing_resolution>("Sample_processing_resolution"),
    Variable<&Settings::Sample_Overlap_Bytes>("Sample_Overlap_Bytes"),
    Variable<&Settings::Speech_sampling_time_in_ms>("Speech_sampling_time_in_ms"),
    Variable<&Settings::Set_Recording_Frequency>("Set_Recording_Frequency"),
    Variable<&Settings::Voice_Capture_Delay>("Voice_Capture_Delay"),
    Variable<&Settings::Voice_Processing_Delay>("Voice_Processing_Delay"),
    Variable<&Settings::Speech_echo_feature>("Speech_echo_feature"),
    Variable<&Settings::Open_this_Wave_File>("Open_this_Wave_File"),
    Variable<&Settings::Consider_this_Engine_for_Recognition>(
        "Consider_this_Engine_for_Recognition"),
    Variable<&Settings::Enable_Speech_Engine>("Enable_Speech_Engine"),
    Variable<&Settings::Enable_Artificial_Intelligence>("Enable_Artificial_Intelligence"),
    Variable<&Settings::Keep_Engine_Frequency_Input_Flow>("Keep_Engine_Frequency_Input_Flow"),
    Variable<&Settings::Filter_Pass_Value>("Filter_Pass_Value"),
    Variable<&Settings::Explode_out_all_Engine>("Explode_out_all_Engine"),
    Variable<&Settings::Engine_Explode_Limit>("Engine_Explode_Limit"),
    Variable<&Settings::Words_I_Want>("Words_I_Want"),
    Variable<&Settings::Words_to_Scan_Start>("Words_to_Scan_Start"),
    Variable<&Settings::Words_to_Scan>("Words_to_Scan"),
    Variable<&Settings::Consider_this_Lang_File_to_match>("Consider_this_Lang_File_to_match"),
    Variable<&Settings::Consider_this_Lang_File_to_Add>("Consider_this_Lang_File_to_Add"),
    Variable<&Settings::Add_To_Language>("Add_To_Language"),
    Variable<&Settings::Notify_if_no_language_match>("Notify_if_no_language_match"),
    Variable<&Settings::Direct_Add>("Direct_Add"),
    Variable<&Settings::Direct_Add_Enabled>("Direct_Add_Enabled"),
    Variable<&Settings::Show_Audio_Graph>("Show_Audio_Graph"),
    Variable<&Settings::I_want_Status_Animation>("I_want_Status_Animation"),
    Variable<&Settings::Show_this_Image_for_Start>("Show_this_Image_for_Start"),
    Variable<&Settings::Show_this_Image_for_Stop>("Show_this_Image_for_Stop"),
    Variable<&Settings::Play_this_file_for_Start>("Play_this_file_for_Start"),
    Variable<&Settings::Play_this_file_for_Stop>("Play_this_file_for_Stop"),
    Variable<&Settings::Play_this_file_on_Initialization>("Play_this_file_on_Initialization"),
    Variable<&Settings::Always_Restart_on_Error>("Always_Restart_on_Error"),
    Variable<&Settings::Send_of_no>("Send_of_no"),
    Variable<&Flags::Session_Started>("Session_Started"),
    Variable<&Flags::Session_Alive>("Session_Alive"),
    Variable<&Flags::Capture_Busy>("Capture_Busy"),
    Variable<&Flags::Analysis_Running>("Analysis_Running"),
    Variable<&Flags::Show_Activities>("Show_Activities"),
    Variable<&Flags::Stop_Sample_Flag>("Stop_Sample_Flag"),
    Variable<&Flags::File_Run_Active>("File_Run_Active"),
    Variable<&Flags::Settings_Ready_Count>("Settings_Ready_Count"),
    Variable<&Flags::Stopped_Marker>("Stopped_Marker"),
    Variable<&Flags::Stopped_Text>("Stopped_Text"),
    Variable<&Flags::Operation_Status>("Operation_Status"),
    Variable<&Flags::Sampling_Time_Set>("Sampling_Time_Set"),
    Variable<&Flags::Language_Editor_Loaded>("Language_Editor_Loaded"),
    Variable<&Flags::Design_Environment_Tested>("Design_Environment_Tested"),
    Variable<&Flags::Design_Environment_Result>("Design_Environment_Result"),
    Variable<&Recorder::Recording_Active>("Recording_Active"),
    Variable<&Recorder::Recording_Stopped>("Recording_Stopped"),
    Variable<&Recorder::Second_Recorder_Open>("Second_Recorder_Open"),
    Variable<&Recorder::Recording_Channels>("Recording_Channels"),
    Variable<&Recorder::Recording_Bits>("Recording_Bits"),
    Variable<&Recorder::Wave_In_Handle>("Wave_In_Handle"),
    Variable<&Recorder::Last_Recorded_Index>("Last_Recorded_Index"),
    Variable<&Recorder::Capture_Seconds>("Capture_Seconds"),
    Variable<&Recorder::Wave_Out_Handle>("Wave_Out_Handle"),
    Variable<&Recorder::Echo_Sample_Bytes>("Echo_Sample_Bytes"),
    Variable<&Sample::Speech_Sample_Bytes>("Speech_Sample_Bytes"),
    Variable<&Sample::Samples_Per_Capture>("Samples_Per_Capture"),
    Variable<&Sample::Wave_Header_Buffer_Length>("Wave_Header_Buffer_Length"),
    {"Wave_Format", false, Wave_Format},
    {"Wave_Header", false, Wave_Header},
    Variable<&WaveHeader::bytes_recorded>("Wave_Header_Bytes_Recorded"),
    Variable<&WaveHeader::flags>("Wave_Header_Flags"),
    Variable<&WordTables::Sample_Span>("Sample_Span"),
    Variable<&WordTables::Last_Sample_Index>("Last_Sample_Index"),
    Variable<&WordTables::Word_Table_Divisor>("Word_Table_Divisor"),
    Variable<&WordTables::Centred_Samples>("Centred_Samples"),
    Variable<&WordTables::Decimated_Samples>("Decimated_Samples"),
    Variable<&WordTables::Reversed_Decimated_Samples>("Reversed_Decimated_Samples"),
    Variable<&WordTables::Decimated_Count>("Decimated_Count"),
    Variable<&WordTables::Graph_Point_Count>("Graph_Point_Count"),
    Variable<&WordTables::Word_Start>("Word_Start"),
    Variable<&WordTables::Word_End>("Word_End"),
    Variable<&WordTables::Word_Length>("Word_Length"),
    Variable<&WordTables::Deep_Word_Start>("Deep_Word_Start"),
    Variable<&WordTables::Deep_Word_End>("Deep_Word_End"),
    Variable<&WordTables::Deep_Word_Length>("Deep_Word_Length"),
    Variable<&WordTables::Too_Deep_Word_Start>("Too_Deep_Word_Start"),
    Variable<&WordTables::Too_Deep_Word_End>("Too_Deep_Word_End"),
    Variable<&WordTables::Too_Deep_Word_Length>("Too_Deep_Word_Length"),
    Variable<&WordTables::Word_Count_Log>("Word_Count_Log"),
    Variable<&WordTables::Word_Entry_Number>("Word_Entry_Number"),
    Variable<&WordTables::Word_Entry_Length>("Word_Entry_Length"),
    Variable<&WordTables::Probable_no_of_words_recognized>("Probable_no_of_words_recognized"),
    Variable<&WordTables::Current_Word_no_Processed>("Current_Word_no_Processed"),
    Variable<&WordTables::Current_DeepWord_no_Processed>("Current_DeepWord_no_Processed"),
    Variable<&WordTables::Current_TooDeepWord_no_Processed>("Current_TooDeepWord_no_Processed"),
    Variable<&WordTables::Current_Vyanjana_no_Processed>("Current_Vyanjana_no_Processed"),
    Variable<&WordTables::No_of_Processings>("No_of_Processings"),
    Variable<&WordTables::Middle_Slice_Number>("Middle_Slice_Number"),
    Variable<&WordTables::Current_Processings_Available>("Current_Processings_Available"),
    Variable<&WordScanTables::Forward_Hit_Count>("Forward_Hit_Count"),
    Variable<&WordScanTables::Backward_Hit_Count>("Backward_Hit_Count"),
    Variable<&WordScanTables::Forward_Hits>("Forward_Hits"),
    Variable<&WordScanTables::Backward_Hits>("Backward_Hits"),
    Variable<&WordScanTables::Word_Gap_Threshold>("Word_Gap_Threshold"),
    Variable<&WordScanTables::Forward_Word_Count>("Forward_Word_Count"),
    Variable<&WordScanTables::Backward_Word_Count>("Backward_Word_Count"),
    Variable<&WordScanTables::Forward_Gap_Index>("Forward_Gap_Index"),
    Variable<&WordScanTables::Backward_Gap_Index>("Backward_Gap_Index"),
    Variable<&WordScanTables::Forward_Word_Starts>("Forward_Word_Starts"),
    Variable<&WordScanTables::Backward_Word_Ends>("Backward_Word_Ends"),
    Variable<&Slice::Engine_Category>("Engine_Category"),
    Variable<&Slice::Peak_Count>("Peak_Count"),
    Variable<&Slice::Span_Start>("Span_Start"),
    Variable<&Slice::Span_End>("Span_End"),
    Variable<&Slice::Noise_Gate_Limit>("Noise_Gate_Limit"),
    Variable<&Slice::Span_Samples>("Span_Samples"),
    Variable<&Slice::Autocorrelation>("Autocorrelation"),
    Variable<&Slice::Magnitude>("Magnitude"),
    Variable<&Slice::Magnitude_dB>("Magnitude_dB"),
    Variable<&Slice::Valley_dB>("Valley_dB"),
    Variable<&Slice::Valley_Bin>("Valley_Bin"),
    Variable<&Slice::Peak_dB>("Peak_dB"),
    Variable<&Slice::Peak_Bin>("Peak_Bin"),
    Variable<&Filter::Engine_Table>("Engine_Table"),
    Variable<&Filter::Current_Engine_Code>("Current_Engine_Code"),
    Variable<&Filter::Previous_Engine_Category>("Previous_Engine_Category"),
    Variable<&Filter::Filter_Run_Data>("Filter_Run_Data"),
    Variable<&Filter::Filter_Run_Codes>("Filter_Run_Codes"),
    Variable<&Filter::Filter_Run_Length>("Filter_Run_Length"),
    Variable<&Filter::Processings_Delivered>("Processings_Delivered"),
    Variable<&Filter::Engine_Category_Weight>("Engine_Category_Weight"),
    Variable<&Filter::Filter_Filled_Slots>("Filter_Filled_Slots"),
    Variable<&Filter::Filter_Slot_Table>("Filter_Slot_Table"),
    Variable<&Filter::Filter_Weight_Table>("Filter_Weight_Table"),
    Variable<&Filter::Voice_Magic_Elements>("Voice_Magic_Elements"),
    Variable<&Filter::Voice_Word_Table>("Voice_Word_Table"),
    Variable<&Filter::Voice_Word_Previous_Table>("Voice_Word_Previous_Table"),
    Variable<&Filter::Voice_Words_Explode_Count>("Voice_Words_Explode_Count"),
    Variable<&Filter::Current_Voice_Word>("Current_Voice_Word"),
    Variable<&Filter::Voice_Word_Matched_Table>("Voice_Word_Matched_Table"),
    Variable<&Filter::Voice_Words_Matched_Count>("Voice_Words_Matched_Count"),
    Variable<&Filter::Word_Check_Flags>("Word_Check_Flags"),
    Variable<&Results::Platinum_Words_Available>("Platinum_Words_Available"),
    Variable<&Results::Platinum_Word_Table>("Platinum_Word_Table"),
    Variable<&Results::Platinum_Score_Table>("Platinum_Score_Table"),
    Variable<&Results::Platinum_Rank_Table>("Platinum_Rank_Table"),
    Variable<&Results::Platinum_Best_Table>("Platinum_Best_Table"),
    Variable<&Results::Best_Word_Index>("Best_Word_Index"),
    Variable<&Results::Platinum_Word_Font>("Platinum_Word_Font"),
    Variable<&Results::Matched_Record_No>("Matched_Record_No"),
    Variable<&Results::Language_Matched>("Language_Matched"),
    Variable<&Results::No_Language_Match>("No_Language_Match"),
    Best_Word_Index<1>("Best_Word_Index_1"),
    Best_Word_Index<2>("Best_Word_Index_2"),
    Best_Word_Index<3>("Best_Word_Index_3"),
    Best_Word_Index<4>("Best_Word_Index_4"),
    Best_Word_Index<5>("Best_Word_Index_5"),
    Best_Word_Index<6>("Best_Word_Index_6"),
    Best_Word_Index<7>("Best_Word_Index_7"),
    Say_Field<std::int32_t, &datafiles::SayRecord::RecordNo>("SayRecord.RecordNo"),
    Say_Table<std::string_view, &datafiles::SayRecord::Words>("SayRecord.Words"),
    Say_Table<std::uint8_t, &datafiles::SayRecord::WordRatings>("SayRecord.WordRatings"),
    Say_Field<std::int16_t, &datafiles::SayRecord::WordCount>("SayRecord.WordCount"),
    Say_Field<std::string_view, &datafiles::SayRecord::WordFont>("SayRecord.WordFont"),
    Say_Table<std::int16_t, &datafiles::SayRecord::LikeRatings>("SayRecord.LikeRatings"),
    Say_Table<std::string_view, &datafiles::SayRecord::LikeProtocols>("SayRecord.LikeProtocols"),
    Say_Field<std::int16_t, &datafiles::SayRecord::LikeCount>("SayRecord.LikeCount"),
    Say_Table<std::string_view, &datafiles::SayRecord::EngineCodes>("SayRecord.EngineCodes"),
    Say_Table<std::uint8_t, &datafiles::SayRecord::SlotNumbers>("SayRecord.SlotNumbers"),
    Say_Table<std::int16_t, &datafiles::SayRecord::EngineCodeWeights>(
        "SayRecord.EngineCodeWeights"),
    Say_Field<std::int16_t, &datafiles::SayRecord::DifferentiatorCount>(
        "SayRecord.DifferentiatorCount"),
    Variable<&OpenDataFile::Main_Record_Count>("Main_Record_Count"),
    {"Main_File_Number", false, Main_File_Number},
    {"Play_File", false, Play_File},
    Latch<&Control::Text_Event_Raised>("Text_Event_Raised"),
    Latch<&Control::Detected_Event_Raised>("Detected_Event_Raised"),
    Latch<&Control::Pattern_Event_Raised>("Pattern_Event_Raised"),
    {"Timer1", false, Pump_Is_On},
    Form_Timer_Is_On<FormTimer::Timer1>("Form1.Timer1"),
    Form_Timer_Is_On<FormTimer::Timer2>("Form1.Timer2"),
    Form_Timer_Is_On<FormTimer::Timer3>("Form1.Timer3"),
    Form_Timer_Is_On<FormTimer::Timer4>("Form1.Timer4"),
    Form_Timer_Is_On<FormTimer::Timer5>("Form1.Timer5"),
});

}  // namespace

std::span<const SessionVariable> Session_Variables() { return Rows; }

const SessionVariable* Find_Variable(std::string_view name) {
  const auto row = std::ranges::find(Rows, name, &SessionVariable::name);
  return row == Rows.end() ? nullptr : &*row;
}

}  // namespace quillspeech
