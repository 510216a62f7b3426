' Events reach VBScript, through the bridge: at once, and from the control's timer.
Option Explicit

Class Listener
  Public Heard
  Public Ticks
  Public Sub StartRecognitionActivity()
    Heard = Heard & "started "
  End Sub
  Public Sub RestartRecognitionActivity()
    Heard = Heard & "restarted "
  End Sub
  Public Sub StopRecognitionActivity()
    Heard = Heard & "stopped "
  End Sub
  Public Sub PropertyStatusBetweenDetectionToCoversion()
    Ticks = Ticks + 1
  End Sub
End Class

Dim Control, Bridge, Ear
Set Control = CreateObject("QuillspeechX.Quillspeech")
Set Bridge = CreateObject("QuillspeechTests.Bridge")
Set Ear = New Listener
Bridge.Connect Control, Ear

Control.Speech_sampling_time_in_ms = 5000
Control.Words_I_Want = "*"
Control.Start_Real_Action
Control.Stop_everything_now = "YES"   ' so that nothing is recorded; the status goes on
Bridge.Pump 600
Control.Restart
Control.Stop_everything_now = "YES"
Control.Stop_Real_Action
If Ear.Ticks < 4 Or Ear.Ticks > 16 Then WScript.Echo "ticks in 600 ms: " & Ear.Ticks
WScript.Echo Ear.Heard

Ear.Ticks = 0
Bridge.Pump 200
If Ear.Ticks <> 0 Then WScript.Echo "ticks after the stop: " & Ear.Ticks

Bridge.Disconnect
Control.Stop_Real_Action
If Ear.Heard <> "started restarted stopped " Then WScript.Echo "afterwards: " & Ear.Heard
WScript.Echo "done"
