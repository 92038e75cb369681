"""Somebody else who uses the same bridge from another machine, through its interface."""

import json
import ssl
from urllib.request import Request, urlopen

from passwords import DEMO_PASSWORD

BASE = "/mobile-bridge/v1"


class SomeoneElse:
    """Is signed in from the start; raises urllib's HTTPError when the bridge refuses that, or anything later."""

    def __init__(self, bridge, email, password=DEMO_PASSWORD):
        self._base = bridge.address + BASE
        self._trust = ssl.create_default_context(cafile=bridge.authority)
        answer = self._post("/auth/password-login", {"email": email, "password": password})
        self._token = answer["firebase"]["idToken"]

    def accept_open_call(self, session_id):
        self._post(f"/notary/open-calls/{session_id}/accept", {})

    def _post(self, path, body):
        headers = {"Content-Type": "application/json"}
        if hasattr(self, "_token"):
            headers["Authorization"] = f"Bearer {self._token}"
        request = Request(self._base + path, json.dumps(body).encode(), headers)
        with urlopen(request, context=self._trust) as answer:
            return json.load(answer)
