"""The bridge under strain: a process of its own with many sessions, and connections to it."""

import http.client
import json
import re
import socket
import ssl
import subprocess
import tempfile
from pathlib import Path

BASE = "/mobile-bridge/v1"
CLIENT = "priya.raman@example.com"
PASSWORD = "quorvel-demo"
PATIENCE_SECONDS = 60


class Refused(Exception):
    """An answer that is no success."""


class Server:
    """A bridge on a free port, with so many sessions of one client; as a context manager."""

    def __init__(self, program, sessions):
        self._command = [program, "--listen", "127.0.0.1:0", "--demo", "--demo-sessions", str(sessions), "--data"]

    def __enter__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="quorvel-strain-")
        self._process = subprocess.Popen([*self._command, self._folder.name], stdout=subprocess.PIPE, text=True)
        for line in self._process.stdout:
            if found := re.match(r"Listening on https://127\.0\.0\.1:(\d+)", line):
                self.port = int(found[1])
                break
        else:
            raise RuntimeError("The bridge did not start.")
        self._trust = ssl.create_default_context(cafile=Path(self._folder.name) / "tls" / "ca.pem")
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait()
        self._folder.cleanup()

    @property
    def is_running(self):
        return self._process.poll() is None

    def connection(self):
        """Opens itself with its first request, and again after the server has closed it in good order."""
        return http.client.HTTPSConnection("127.0.0.1", self.port, timeout=PATIENCE_SECONDS, context=self._trust)

    def socket(self):
        """A bare connection behind its handshake."""
        plain = socket.create_connection(("127.0.0.1", self.port), timeout=PATIENCE_SECONDS)
        return self._trust.wrap_socket(plain, server_hostname="127.0.0.1")

    def token(self):
        """Of the client with the many sessions."""
        connection = self.connection()
        answer = ask(connection, "POST", "/auth/password-login", {"Content-Type": "application/json"}, json.dumps(
            {"email": CLIENT, "password": PASSWORD, "role_hint": "auto", "platform": "macos_desktop"}))
        connection.close()
        return json.loads(answer)["firebase"]["idToken"]

    def peak_mib(self):
        """The most memory that the server has had in its life."""
        status = Path(f"/proc/{self._process.pid}/status").read_text(encoding="ascii")
        return int(re.search(r"VmHWM:\s+(\d+)", status)[1]) // 1024


def ask(connection, method, path, headers, body=None):
    """The body of the answer, which must be a success."""
    connection.request(method, BASE + path, body, headers)
    answer = connection.getresponse()
    content = answer.read()
    if answer.status >= 300:
        raise Refused(f"{method} {path} was answered {answer.status}.")
    return content
