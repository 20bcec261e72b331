"""What a screen reader says: Orca, and in place of its speech service one that keeps the texts."""

import html
import re
import socketserver
import threading
import time

SPEECH_LIMIT = 30  # seconds, on a loaded machine

# What Orca says of keys as they are typed.
KEY = re.compile(
    r"(tab|space|up|down|left|right|return|escape|f\d+|.|(left |right )?(shift|control|alt))\s*",
    re.IGNORECASE,
)


class _Client(socketserver.StreamRequestHandler):
    """Answers in the protocol of speech-dispatcher (SSIP) that all is well, and is done at once."""

    ANSWERS = {
        "LIST OUTPUT_MODULES": "250-none\r\n250 OK MODULE LIST SENT",
        "LIST SYNTHESIS_VOICES": "249-English\ten\tnone\r\n249 OK VOICE LIST SENT",
        "LIST VOICES": "249-MALE1\r\n249 OK VOICE LIST SENT",
        "GET OUTPUT_MODULE": "251-none\r\n251 OK GET RETURNED",
        "HISTORY GET": "245-1\r\n245 OK CLIENT ID SENT",
    }

    def handle(self):
        while True:
            words = self._line().split()
            if not words or words[0].upper() == "QUIT":
                return
            command = " ".join(words[:2]).upper()
            if words[0].upper() == "SPEAK":
                self._answer("230 OK RECEIVING DATA")
                text = []
                for line in iter(self._line, "."):
                    text.append(line)
                self.server.keep(html.unescape(re.sub("<[^>]*>", "", " ".join(text))))
                self._answer("225-1\r\n225 OK MESSAGE QUEUED\r\n701-1\r\n701-1\r\n701 BEGIN")
                self._answer("702-1\r\n702-1\r\n702 END")
            elif words[0].upper() in ("CHAR", "KEY", "SOUND_ICON"):
                self._answer("225-1\r\n225 OK MESSAGE QUEUED")
            else:
                self._answer(self.ANSWERS.get(command, "200 OK"))

    def _line(self):
        return self.rfile.readline().decode("utf-8", "replace").rstrip("\r\n")

    def _answer(self, text):
        self.wfile.write(text.encode() + b"\r\n")
        self.wfile.flush()


class Speech(socketserver.ThreadingMixIn, socketserver.UnixStreamServer):
    """The speech service at the socket PATH. close() ends it."""

    daemon_threads = True

    def __init__(self, path):
        super().__init__(path, _Client)
        self._texts = []
        self._spoken = threading.Condition()
        self._thread = threading.Thread(target=self.serve_forever)
        self._thread.start()

    def close(self):
        """Ends the service."""
        self.shutdown()
        self._thread.join()
        self.server_close()

    def keep(self, text):
        """Somebody wants TEXT to be said."""
        text = " ".join(text.split())
        with self._spoken:
            if text and not KEY.fullmatch(text):
                self._texts.append(text)
            self._spoken.notify_all()

    def clear(self):
        """Forgets what was said."""
        with self._spoken:
            self._texts.clear()

    def texts(self):
        """What was said, in its order."""
        with self._spoken:
            return list(self._texts)

    def wait_for(self, *texts):
        """Waits until all of TEXTS were said, in this order, maybe among others; whether they were."""
        deadline = time.monotonic() + SPEECH_LIMIT
        with self._spoken:
            while not self._said(texts):
                if not self._spoken.wait(deadline - time.monotonic()):
                    return self._said(texts)
            return True

    def _said(self, texts):
        rest = " ".join(self._texts)
        for text in texts:
            _, found, rest = rest.partition(text)
            if not found:
                return False
        return True
