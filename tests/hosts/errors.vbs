' Run-time failures reach VBScript with their numbers, words and source.
Option Explicit
Dim Control, Value

Sub Expect(What, Number, Description)
  If Err.Number <> Number Then WScript.Echo What & ": number " & Err.Number & ", not " & Number
  If Err.Description <> Description Then WScript.Echo What & ": " & Err.Description
  If Err.Source <> "Quillspeech" Then WScript.Echo What & ": source " & Err.Source
  Err.Clear
End Sub

Set Control = CreateObject("QuillspeechX.Quillspeech")
On Error Resume Next

Control.Noise_Word_No_CutOff = 300
Expect "300 for a byte", 6, "Overflow"

Control.Noise_Sensitivity = "quiet"
Expect "a text for a number", 13, "Type mismatch"

Control.Noise_Sensitivity = 40000
Expect "40000 for 16 bits", 6, "Overflow"

' An index beyond its table, from a result: made below by a recognised file.
Control.Words_I_Want = "*"
Control.Sample_processing_resolution = 400
Control.Noise_Sensitivity = 3
Control.Noise_Word_No_CutOff = 4
Control.Filter_Pass_Value = 1
Control.Keep_Engine_Frequency_Input_Flow = "Filter All"
Control.This_Audio_Process = "YES"
Control.This_speech_sample_process_Start_only = "NO"
Control.This_speech_sample_process_middle_only = "NO"
Control.This_speech_sample_process_end_only = "NO"
Control.Send_words_one_by_one = "YES"
Control.Enable_Speech_Engine = "YES"
Control.Enable_Artificial_Intelligence = "YES"
Control.Words_to_Scan = 1
Control.Consider_this_Lang_File_to_match = WScript.Arguments(1)
Control.Consider_this_Engine_for_Recognition = WScript.Arguments(2)
Control.Open_this_Wave_File = WScript.Arguments(0)
Control.Open_Specified_Wave_File_And_Process
If Err.Number <> 0 Then WScript.Echo "the file: " & Err.Number & " " & Err.Description

Control.Send_of_no = 101
Value = Control.Voice_Word_Matched
Expect "element 101 of 100", 9, "Subscript out of range"

Control.Send_of_no = 1
Value = Control.Voice_Word_Matched
If Err.Number <> 0 Then WScript.Echo "element 1: " & Err.Number

Value = Control.There_Is_No_Such_Member
If Err.Number <> 438 Then WScript.Echo "no such member: " & Err.Number

WScript.Echo "done"
