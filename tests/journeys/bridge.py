"""The local bridge of a journey, and what it has stored."""

import hashlib
import json
import re
import signal
import socket
import sqlite3
import subprocess
from dataclasses import dataclass
from pathlib import Path
from urllib.parse import urlsplit

HOST = "127.0.0.1"


class NoWayToBridge(Exception):
    """The client cannot reach a bridge of ours; says why in one sentence."""


@dataclass(frozen=True)
class StoredUpload:
    file_name: str
    label: str
    category: str
    media_type: str
    sha256: str


class Bridge:
    """A bridge with demo data, listening where the client of this build looks for it. `options` are more of its
    command line."""

    def __init__(self, build, data, desktop, options=()):
        self.data = data
        self._options = options
        self._desktop = desktop
        self._program = build / "bin" / "quorvel-bridge"
        self._port = _port_of(build)
        data.mkdir()
        _expect_free(self._port)
        self.start()
        self._database = data / "bridge.sqlite"

    @property
    def address(self):
        return f"https://{HOST}:{self._port}"

    @property
    def authority(self):
        """The certificate that makes the bridge trusted."""
        return self.data / "tls" / "ca.pem"

    def start(self):
        """Also again after `kill`, with what it has stored."""
        self._process = self._desktop.processes.start(
            [self._program, "--data", self.data, "--listen", f"{HOST}:{self._port}", "--demo", *self._options],
            self._desktop.environment, stdout=subprocess.PIPE, text=True)
        for line in self._process.stdout:
            if line.startswith("Listening on "):
                return
        raise NoWayToBridge("The local bridge did not start.")

    def newest_token_end(self):
        """When the ID token ends that was issued last, in seconds since 1970."""
        return self._rows("select max(expires_at) as ends from id_tokens")[0]["ends"] / 1000

    def freeze(self):
        """From now on it neither answers nor hangs up."""
        self._process.send_signal(signal.SIGSTOP)

    def thaw(self):
        """It goes on as if nothing had been."""
        self._process.send_signal(signal.SIGCONT)

    def kill(self):
        """As a power cut would: it has no time to finish anything."""
        self._process.kill()
        self._process.wait()

    def lost_files(self):
        """Stored files that no document names."""
        named = {row["path"] for row in self._rows("select path from uploads")}
        return [file.name for file in (self.data / "uploads").iterdir() if file.name not in named]

    def session_count(self):
        return len(self.sessions())

    def sessions(self):
        """All rows, the newest first, as every list of the interface has them."""
        return self._rows("select * from sessions order by id desc")

    def session(self, session_id):
        """Its row, or None."""
        return next((row for row in self.sessions() if row["id"] == session_id), None)

    def newest_session(self):
        """Its row, with the request that booked it as `request`."""
        row = self.sessions()[0]
        return row | {"request": json.loads(row["request_json"])}

    def visible_sessions(self, email):
        """The rows of the sessions of one client."""
        return [row for row in self.sessions() if row["owner_id"] == self.user(email)["id"]]

    def business_sessions(self, email):
        return [row for row in self.sessions() if row["business_id"] == self.user(email)["business_id"]]

    def business_clients(self, email):
        return self._rows("select * from business_clients where business_id = ? order by id desc",
                          self.user(email)["business_id"])

    def assigned_sessions(self, email):
        return [row for row in self.sessions() if row["notary_id"] == self.notary(email)["id"]]

    def open_calls(self):
        return [row for row in self.sessions()
                if row["notary_id"] is None and row["status"] in ("requested", "pending")]

    def history(self, session_id):
        """What became of a session, by whom, in this order."""
        return self._rows("select * from status_history where session_id = ? order by id", session_id)

    def walk_ins(self):
        return self._rows("select * from walkin_records order by id desc")

    def users(self):
        return self._rows("select * from users order by id")

    def user(self, email):
        """The row of an account, or None."""
        return next((row for row in self.users() if row["email"] == email), None)

    def notaries(self):
        return self._rows("select * from notaries order by name, id")

    def notary(self, email):
        """The row of a profile, or None."""
        return next((row for row in self.notaries() if row["email"] == email), None)

    def messages(self, session_id):
        """In the order in which they arrived."""
        return self._rows("select * from messages where session_id = ? order by id", session_id)

    def uploads(self, session_id):
        """In the order in which they arrived. The hash is of the bytes on disk, not the one that was noted."""
        rows = self._rows("select * from uploads where session_id = ? order by id", session_id)
        return [StoredUpload(row["original_filename"], row["label"], row["category"], row["mime_type"],
                             sha256(self.data / "uploads" / row["path"])) for row in rows]

    def give_role(self, email, role):
        """As its keeper can, past all its rules."""
        self._change("update users set role = ? where email = ?", role, email)

    def end_sign_ins(self):
        """Of everybody: no token counts any more."""
        for table in ("id_tokens", "refresh_tokens", "sign_ins"):
            self._change(f"delete from {table}")

    def _change(self, statement, *values):
        connection = sqlite3.connect(self._database)
        with connection:
            connection.execute(statement, values)
        connection.close()

    def _rows(self, query, *values):
        connection = sqlite3.connect(f"file:{self._database}?mode=ro", uri=True)
        try:
            connection.row_factory = sqlite3.Row
            return [dict(row) for row in connection.execute(query, values)]
        finally:
            connection.close()


def sha256(file: Path):
    with file.open("rb") as stream:
        return hashlib.file_digest(stream, "sha256").hexdigest()


def _port_of(build):
    """The port of this machine that the client of this build speaks to."""
    cache = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    addresses = {urlsplit(address).netloc for address in
                 re.findall(r"^QUORVEL_(?:WEBSITE|SECURE_TOKEN)_URL:\w+=(.*)$", cache, re.MULTILINE)}
    local = re.fullmatch(r"localhost:(\d+)", addresses.pop()) if len(addresses) == 1 else None
    if not local:
        raise NoWayToBridge("The journey needs a client that is built for https://localhost:PORT.")
    return int(local[1])


def _expect_free(port):
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind((HOST, port))
        except OSError:
            raise NoWayToBridge(
                f"Port {port} of this machine is taken, and the client is built to speak to it. Stop what "
                "listens there, or build with another QUORVEL_WEBSITE_URL and QUORVEL_SECURE_TOKEN_URL.") from None
