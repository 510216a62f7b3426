' Recognises one sound file and prints the ranked words with their percentages:
'
'   cscript //nologo recognise_file.vbs HELLO.wav WORDS.SAY [ENGINE.EGN]
'
' The control must be registered (regsvr32 Quillspeech.ocx) and is a 32-bit one: on 64-bit Windows run
' the script with %windir%\SysWOW64\cscript.exe. The sound is an 8-bit mono WAV. A pause is a share of
' the whole sound, so leave some silence around the word: 7 seconds in all, as of a live capture, suit
' the settings below.
Option Explicit

Dim Control
Set Control = CreateObject("QuillspeechX.Quillspeech")

' A form gives a control its settings. A script has no form and gives them itself.
Sub Give_Settings(Control, Language, Engine)
  Control.Words_I_Want = "*"                    ' any word
  Control.Speech_sampling_time_in_ms = 7000
  Control.Set_Recording_Frequency = 22050
  Control.Sample_processing_resolution = 400    ' bytes a slice; as the language file was taught
  Control.Sample_Overlap_Bytes = 0
  Control.Noise_Sensitivity = 3
  Control.Noise_Word_No_CutOff = 4
  Control.Filter_Pass_Value = 1
  Control.Keep_Engine_Frequency_Input_Flow = "Filter All"
  Control.Keep_Digital_Signal_Processing_level = "Up"
  Control.This_Audio_Process = "YES"
  Control.This_speech_sample_process_Start_only = "NO"
  Control.This_speech_sample_process_middle_only = "NO"
  Control.This_speech_sample_process_end_only = "NO"
  Control.Send_words_one_by_one = "YES"
  Control.Explode_out_all_Engine = "YES"
  Control.Enable_Speech_Engine = "YES"
  Control.Enable_Artificial_Intelligence = "YES"
  Control.Memory_Clean = "YES"
  Control.Words_to_Scan = 1
  Control.Consider_this_Lang_File_to_match = Language
  Control.Consider_this_Engine_for_Recognition = Engine
End Sub

' The highest percentage at which a word was entered, and takes that entry out: a word that was entered
' twice has two places. Send_of_no chooses the entry that the members speak of.
Function Take_Percentage(Control, Word, Taken)
  Dim Entry, Best
  Best = 0
  For Entry = 1 To Control.Platinum_Words_Available
    Control.Send_of_no = Entry
    If Trim(Control.Platinum_Words) = Word And Not Taken(Entry) Then
      If Best = 0 Then
        Best = Entry
        Take_Percentage = Control.Platinum_Word_Percentage
      ElseIf Control.Platinum_Word_Percentage > Take_Percentage Then
        Best = Entry
        Take_Percentage = Control.Platinum_Word_Percentage
      End If
    End If
  Next
  Taken(Best) = True
End Function

Sub Print_Words(Control)
  Dim Best, Place, Taken(1000)
  Best = Array(Control.Platinum_Word_Best, Control.Platinum_Word_Second_Best, _
    Control.Platinum_Word_Third_Best, Control.Platinum_Word_Fourth_Best, _
    Control.Platinum_Word_Fifth_Best, Control.Platinum_Word_Sixth_Best, _
    Control.Platinum_Word_Seventh_Best)
  For Place = 0 To 6
    If Best(Place) <> "" Then
      WScript.Echo Place + 1 & "  " & Best(Place) & "  " & _
        Take_Percentage(Control, Best(Place), Taken) & " %"
    End If
  Next
  If Best(0) = "" Then WScript.Echo "(no word)"
End Sub

If WScript.Arguments.Count < 2 Then
  WScript.Echo "cscript //nologo recognise_file.vbs SOUND.wav WORDS.SAY [ENGINE.EGN]"
  WScript.Quit 2
End If

Dim Engine
Engine = ""
If WScript.Arguments.Count > 2 Then Engine = WScript.Arguments(2)
Give_Settings Control, WScript.Arguments(1), Engine
Control.Open_this_Wave_File = WScript.Arguments(0)
Control.Open_Specified_Wave_File_And_Process    ' returns when the file is done

WScript.Echo "pattern " & Control.Voice_Word
Print_Words Control
