"""What strains a server. Each load is a process of its own, behind the server and the client that measures in the queue
for the processor, so that what it takes itself is not what is measured."""

import multiprocessing
import os
import ssl
import threading

from server import ask

CLIENTS = 50
IDLE = 300
SLOW = 300
LISTS = 8
# Of each of the clients.
PAUSE_SECONDS = 0.5
# A slow body and an idle connection are looked after as often as this.
BEAT_SECONDS = 1.0
_processes = multiprocessing.get_context("fork")


class Load:
    """As a context manager: whoever enters finds it at work. Afterwards `done` and `failures` tell of its own
    requests."""

    def __init__(self, work, server, token):
        self._is_over = _processes.Event()
        self._is_at_work = _processes.Event()
        self._counts = _processes.Array("q", 2)
        self._process = _processes.Process(target=self._run, args=(work, server, token), daemon=True)

    def __enter__(self):
        self._process.start()
        if not self._is_at_work.wait(timeout=120):
            raise RuntimeError("The load never came to work.")
        return self

    def __exit__(self, *_):
        self._is_over.set()
        self._process.join()

    @property
    def done(self):
        return self._counts[0]

    @property
    def failures(self):
        return self._counts[1]

    def _run(self, work, server, token):
        os.nice(10)
        work(self, server, token)

    def is_over(self, seconds=0.0):
        """Whether it is to end, now or within so many seconds."""
        return self._is_over.wait(seconds) if seconds else self._is_over.is_set()

    def is_at_work(self):
        self._is_at_work.set()

    def request(self, connection, path, token):
        """One request of the load's own, which is counted."""
        try:
            ask(connection, "GET", path, {"Authorization": f"Bearer {token}"})
            failed = 0
        except Exception:  # whatever it is, the next request begins afresh
            connection.close()
            failed = 1
        with self._counts.get_lock():
            self._counts[0] += 1
            self._counts[1] += failed


def nothing(load, server, token):
    """So that to measure alone takes the same steps."""
    del server, token
    load.is_at_work()
    while not load.is_over(BEAT_SECONDS):
        pass


def clients_and_idle_connections(load, server, token):
    """Fifty people at work, and six connections of each that nobody uses, opened anew as the server closes them."""
    def client(number):
        connection = server.connection()
        load.is_over(PAUSE_SECONDS * number / CLIENTS)
        while not load.is_over(PAUSE_SECONDS):
            load.request(connection, "/profile", token)

    idle = [server.socket() for _ in range(IDLE)]
    people = _start(client, CLIENTS)
    load.is_at_work()
    while not load.is_over(BEAT_SECONDS / 4):
        idle = [server.socket() if _is_closed(connection) else connection for connection in idle]
    _join(people)


def slow_bodies(load, server, token):
    """Each is stated to be long and comes a byte a second; one that the server gives up begins again."""
    head = (f"POST /mobile-bridge/v1/profile HTTP/1.1\r\nHost: localhost\r\nAuthorization: Bearer {token}\r\n"
            "Content-Type: application/json\r\nContent-Length: 100000\r\n\r\n{").encode()

    def begun():
        connection = server.socket()
        connection.sendall(head)
        return connection

    slow = [begun() for _ in range(SLOW)]
    load.is_at_work()
    while not load.is_over(BEAT_SECONDS):
        for index, connection in enumerate(slow):
            try:
                connection.sendall(b" ")
            except OSError:
                connection.close()
                slow[index] = begun()


def large_lists(load, server, token):
    """Each asks for all sessions as soon as it has them."""
    def reader(_):
        connection = server.connection()
        while not load.is_over():
            load.request(connection, "/remote-notary/sessions", token)

    readers = _start(reader, LISTS)
    load.is_at_work()
    _join(readers)


def _is_closed(connection):
    """By the server. What it has sent of its own accord, as tickets of TLS, is passed over."""
    connection.settimeout(0)
    try:
        connection.recv(1)
    except ssl.SSLWantReadError:
        return False
    except OSError:
        pass
    connection.close()
    return True


def _start(work, count):
    threads = [threading.Thread(target=work, args=(number,)) for number in range(count)]
    for thread in threads:
        thread.start()
    return threads


def _join(threads):
    for thread in threads:
        thread.join()
