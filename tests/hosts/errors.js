// Run-time failures reach JScript with their numbers and words.
var control = new ActiveXObject("QuillspeechX.Quillspeech");

function expect(what, number, description, action) {
  try {
    action();
    WScript.Echo(what + ": no failure");
  } catch (e) {
    if ((e.number & 0xFFFF) != number) WScript.Echo(what + ": number " + (e.number & 0xFFFF));
    if (e.description != description) WScript.Echo(what + ": " + e.description);
  }
}

expect("a text for a number", 13, "Type mismatch", function () {
  control.Noise_Sensitivity = "quiet";
});
expect("40000 for 16 bits", 6, "Overflow", function () { control.Noise_Sensitivity = 40000; });
expect("300 for a byte", 6, "Overflow", function () { control.Noise_Word_No_CutOff = 300; });

control.Words_I_Want = "*";
control.Explode_out_all_Engine = "YES";
control.Noise_Sensitivity = 3;
control.Noise_Word_No_CutOff = 4;
control.Sample_processing_resolution = 400;
control.Filter_Pass_Value = 1;
control.Keep_Engine_Frequency_Input_Flow = "Filter All";
control.This_Audio_Process = "YES";
control.This_speech_sample_process_Start_only = "NO";
control.This_speech_sample_process_middle_only = "NO";
control.This_speech_sample_process_end_only = "NO";
control.Send_words_one_by_one = "YES";
control.Enable_Speech_Engine = "YES";
control.Enable_Artificial_Intelligence = "YES";
control.Words_to_Scan = 1;
control.Consider_this_Lang_File_to_match = WScript.Arguments(1);
control.Consider_this_Engine_for_Recognition = WScript.Arguments(2);
control.Open_this_Wave_File = WScript.Arguments(0);
control.Open_Specified_Wave_File_And_Process();

expect("element 101 of 100", 9, "Subscript out of range", function () {
  control.Send_of_no = 101;
  return control.Voice_Word_Matched;
});
control.Send_of_no = 1;
WScript.Echo(control.Voice_Word + " " + control.Platinum_Word_Best + " " +
             control.Platinum_Word_Percentage + " %");
WScript.Echo("done");
