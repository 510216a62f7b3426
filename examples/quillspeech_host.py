"""Drives a control of quillspeech line by line (docs/host_protocol.md).

    with Host("quillspeech") as host:
        host.new()
        host.request("call", member="Start_Real_Action")
        host.request("run", ms=1000)
        for notification in host.notifications():
            print(notification)

Needs nothing but Python's standard library.
"""

import json
import subprocess
from collections import deque


class HostError(Exception):
    """A request that the host answered with an error."""

    def __init__(self, number, text):
        super().__init__(f"{text} ({number})")
        self.number = number
        self.text = text


class Host:
    """One running host. Options are those of the command: "--clock", "real", ..."""

    def __init__(self, program="quillspeech", *options, on_notification=None, on_line=None):
        """on_notification is called with each notification as it comes, and may make requests;
        without it they are kept for notifications(). on_line is called before with every line,
        replies too."""
        self._process = subprocess.Popen(
            [program, "host", *options],
            stdin=subprocess.PIPE,
            stdout=subprocess.PIPE,
            text=True,
            encoding="utf-8",
        )
        self._on_notification = on_notification
        self._on_line = on_line
        self._kept = deque()
        self._replies = {}
        self._last_id = 0

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.close()

    def send(self, do, **fields):
        """Sends a request and gives its id, without waiting for the reply."""
        self._last_id += 1
        request = {"id": self._last_id, "do": do, **fields}
        self._process.stdin.write(json.dumps(request) + "\n")
        self._process.stdin.flush()
        return self._last_id

    def reply(self, request_id):
        """Waits for the reply: its value or bag, or None when it has neither."""
        while not self.is_answered(request_id):
            self.read_line()
        reply = self._replies.pop(request_id)
        if "error" in reply:
            raise HostError(reply["error"]["number"], reply["error"]["text"])
        return reply.get("value", reply.get("bag"))

    def is_answered(self, request_id):
        """Whether the reply has come and is still to be asked for."""
        return request_id in self._replies

    def request(self, do, **fields):
        """Sends a request and waits for its reply."""
        return self.reply(self.send(do, **fields))

    def notifications(self):
        """Yields what the host has told so far, oldest first."""
        while self._kept:
            yield self._kept.popleft()

    def close(self):
        """Ends the input, and with it the host; gives its exit status."""
        if not self._process.stdin.closed:
            self._process.stdin.close()
            for line in self._process.stdout:
                self._take(json.loads(line))
            self._process.stdout.close()
        return self._process.wait()

    def new(self):
        """A new control. It greets with its help window, which is closed here; as every request
        that opens a modal window, this one is answered then."""
        made = self.send("new")
        self.request("close", on="Help")
        self.reply(made)

    def get(self, member):
        return self.request("get", member=member)

    def let(self, member, value):
        self.request("let", member=member, value=value)

    def call(self, member):
        self.request("call", member=member)

    def peek(self, name, index=None):
        return self.request("peek", name=name, **({} if index is None else {"index": index}))

    def run(self, ms):
        self.request("run", ms=ms)

    def read_line(self):
        """Waits for the next line of the host."""
        line = self._process.stdout.readline()
        if not line:
            raise EOFError("the host has ended")
        self._take(json.loads(line))

    def _take(self, line):
        if self._on_line:
            self._on_line(line)
        if "id" in line:
            self._replies[line["id"]] = line
        elif self._on_notification:
            self._on_notification(line)
        else:
            self._kept.append(line)
