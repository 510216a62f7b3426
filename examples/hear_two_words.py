#!/usr/bin/env python3
"""Speaks two words of the samples to a control and prints what its host hears.

    examples/hear_two_words.py [PROGRAM [FOLDER OF THE SAMPLES]]
"""

import shutil
import sys
import tempfile
from pathlib import Path

from quillspeech_host import Host

ROOT = Path(__file__).resolve().parent.parent
WORDS = ["six_en-us_150_50.wav", "computer_en-us_150_50.wav"]


def prepare(host, samples, language):
    """A new control that listens for the words of the samples."""
    host.new()
    host.let("Consider_this_Lang_File_to_match", str(language))
    host.let("Consider_this_Engine_for_Recognition", str(samples / "demo.EGN"))
    host.let("Sample_processing_resolution", 400)


def tell(notification):
    """Prints the events, but not the one that comes with every tick."""
    event = notification.get("event")
    if event is None or event == "PropertyStatusBetweenDetectionToCoversion":
        return
    word = notification.get("TheBestPercentageWord", "")
    print(f"{notification['at_ms']:6} ms  {event} {word}".rstrip())


def hear(program, samples):
    with tempfile.TemporaryDirectory() as folder:
        # A scan writes to the file that it reads.
        language = shutil.copy(samples / "demo.SAY", folder)
        with Host(program, on_notification=tell) as host:
            prepare(host, samples, language)
            host.call("Start_Real_Action")
            for word in WORDS:
                host.run(1_000)
                host.request("play", file=str(samples / "test" / word))
                host.run(7_000)
                print(f"           pattern {host.get('Voice_Word')}")
            host.call("Stop_Real_Action")


if __name__ == "__main__":
    hear(
        sys.argv[1] if len(sys.argv) > 1 else str(ROOT / "build/linux/quillspeech"),
        Path(sys.argv[2]) if len(sys.argv) > 2 else ROOT / "samples",
    )
