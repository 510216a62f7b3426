// Events reach JScript, through the bridge: at once, and from the control's timer.
var heard = "";
var ticks = 0;
var control = new ActiveXObject("QuillspeechX.Quillspeech");
var bridge = new ActiveXObject("QuillspeechTests.Bridge");
bridge.Connect(control, {
  StartRecognitionActivity: function () { heard += "started "; },
  RestartRecognitionActivity: function () { heard += "restarted "; },
  // Any member may be called from inside an event.
  StopRecognitionActivity: function () { heard += "stopped [" + control.Operation_Status + "] "; },
  PropertyStatusBetweenDetectionToCoversion: function () { ++ticks; }
});

control.Speech_sampling_time_in_ms = 5000;
control.Words_I_Want = "*";
control.Start_Real_Action();
control.Stop_everything_now = "YES";  // so that nothing is recorded; the status goes on
bridge.Pump(600);
control.Restart();
control.Stop_everything_now = "YES";
control.Stop_Real_Action();
if (ticks < 4 || ticks > 16) WScript.Echo("ticks in 600 ms: " + ticks);
WScript.Echo(heard);
WScript.Echo("done");
