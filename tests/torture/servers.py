"""Servers that behave and misbehave, each on a loopback port of its own."""

import contextlib
import gzip
import socket
import threading
import time
import zlib

HELLO = b"HTTP/1.1 200 OK\r\nContent-Length: 5\r\nConnection: close\r\n\r\nhello"


class Server:
    """Answers each connection with `behave(connection)`, on a thread of its own."""

    def __init__(self, behave, address="127.0.0.1"):
        self.behave = behave
        self.listener = socket.create_server((address, 0), backlog=256)
        self.address = address
        self.port = self.listener.getsockname()[1]
        self.is_over = False
        threading.Thread(target=self._accept, daemon=True).start()

    @property
    def url(self):
        return f"http://{self.address}:{self.port}/"

    def close(self):
        self.is_over = True
        with contextlib.suppress(OSError):
            self.listener.shutdown(socket.SHUT_RDWR)
        self.listener.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def _accept(self):
        while not self.is_over:
            try:
                connection, _ = self.listener.accept()
            except OSError:
                return
            threading.Thread(target=self._serve, args=(connection,), daemon=True).start()

    def _serve(self, connection):
        with connection, contextlib.suppress(OSError, ValueError):
            connection.settimeout(30)
            self.behave(connection)


def read_request(connection):
    request = b""
    while b"\r\n\r\n" not in request:
        piece = connection.recv(4096)
        if not piece:
            raise OSError("gone")
        request += piece
    return request


def answer(response, delay=0.0):
    """Sends the whole `response`, `delay` seconds after the request."""

    def behave(connection):
        read_request(connection)
        time.sleep(delay)
        connection.sendall(response)
        with contextlib.suppress(OSError):
            connection.shutdown(socket.SHUT_WR)
            connection.recv(1)

    return behave


def page(body, *headers):
    lines = ["HTTP/1.1 200 OK", f"Content-Length: {len(body)}", "Connection: close", *headers]
    return "\r\n".join(lines).encode() + b"\r\n\r\n" + body


# Hostile behaviours


def silence(connection):
    connection.recv(65536)
    time.sleep(20)


def drip_headers(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\n")
    while True:
        connection.sendall(b"X: y\r\n")
        time.sleep(0.2)


def drip_body(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\n\r\n")
    while True:
        connection.sendall(b"x")
        time.sleep(0.05)


def endless_headers(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\n")
    while True:
        connection.sendall(b"X-Long: " + b"y" * 8000 + b"\r\n")


def endless_body(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n")
    piece = b"<p>all is well</p>" * 4096
    while True:
        connection.sendall(piece)


def endless_chunks(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n")
    while True:
        connection.sendall(b"1;" + b"e" * 1000 + b"\r\nx\r\n")


def reset(connection):
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")


def rubbish(connection):
    connection.recv(65536)
    connection.sendall(bytes(range(256)) * 64)


def cut(connection):
    read_request(connection)
    connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nhalf")


def redirect_to_itself(connection):
    read_request(connection)
    connection.sendall(
        b"HTTP/1.1 302 Found\r\nLocation: /again\r\nContent-Length: 0\r\nConnection: close\r\n\r\n"
    )


HOSTILE = [
    silence,
    drip_headers,
    drip_body,
    endless_headers,
    endless_body,
    endless_chunks,
    reset,
    rubbish,
    cut,
    redirect_to_itself,
]


# Bombs: a megabyte or less that becomes a gigabyte or more


def gzip_bomb():
    return gzip.compress(bytes(1 << 26), 9) * 32


def deflate_bomb():
    return zlib.compress(bytes(1 << 28), 9)


def brotli_bomb():
    import brotli

    compressor = brotli.Compressor(quality=1)
    pieces = [compressor.process(bytes(1 << 24)) for _ in range(64)]
    return b"".join([*pieces, compressor.finish()])


def zstd_bomb():
    import zstandard

    return zstandard.ZstdCompressor().compress(bytes(1 << 26)) * 32


def bombs():
    """A page of each kind, with its encoding."""
    return [
        page(bomb, f"Content-Encoding: {encoding}", "Content-Type: text/html")
        for encoding, bomb in [
            ("gzip", gzip_bomb()),
            ("br", brotli_bomb()),
            ("zstd", zstd_bomb()),
            ("deflate", deflate_bomb()),
        ]
    ]


# Other services


class SilentSocket:
    """A local socket that accepts connections and never sends anything."""

    def __init__(self, path):
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(path)
        self.listener.listen(64)
        self.accepted = []
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        with contextlib.suppress(OSError):
            while True:
                self.accepted.append(self.listener.accept()[0])

    def close(self):
        self.listener.close()
        for connection in self.accepted:
            connection.close()


class DeadNameServer:
    """Receives queries on port 53 of a loopback address, and answers none."""

    ADDRESS = "127.0.0.99"

    def __init__(self):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind((self.ADDRESS, 53))

    def close(self):
        self.socket.close()
