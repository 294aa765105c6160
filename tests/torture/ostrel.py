"""The real program with its own folder, as the torture tests run it."""

import json
import os
import resource
import signal
import subprocess
import tempfile
import time
import urllib.parse
import uuid
import zlib
from pathlib import Path


def monitor(name, url, interval=1.0, timeout=2.0, keyword=None, port=None):
    """A record of monitors.json."""
    record = {
        "id": str(uuid.uuid4()).upper(),
        "name": name,
        "url": url,
        "method": "GET",
        "interval": interval,
        "timeout": timeout,
        "isEnabled": True,
        "notifyOnDown": True,
        "notifyOnRecovery": True,
        "createdAt": "2026-01-01T00:00:00Z",
        "type": "http" if port is None else "port",
    }
    if keyword is not None:
        record["keyword"] = keyword
    if port is not None:
        record["port"] = port
    return record


def host_of(url):
    return urllib.parse.urlsplit(url).hostname or url


def png(side):
    """A black square."""
    rows = (b"\0" + bytes(3 * side)) * side
    chunks = [
        (b"IHDR", side.to_bytes(4, "big") * 2 + b"\x08\x02\0\0\0"),
        (b"IDAT", zlib.compress(rows)),
        (b"IEND", b""),
    ]
    return b"\x89PNG\r\n\x1a\n" + b"".join(
        len(data).to_bytes(4, "big") + kind + data + zlib.crc32(kind + data).to_bytes(4, "big")
        for kind, data in chunks
    )


ICON = png(16)


def wait_for(condition, patience=20.0):
    """Whether `condition` holds within `patience` seconds."""
    deadline = time.monotonic() + patience
    while time.monotonic() < deadline:
        if condition():
            return True
        time.sleep(0.02)
    return bool(condition())


class Ostrel:
    """A data folder, and at most one running program that uses it. The desktop is offscreen,
    without a bus, and its own home folder is removed at the end."""

    def __init__(self, program, data_dir=None, **environment):
        self.program = program
        self.home = tempfile.TemporaryDirectory(prefix="ostrel-torture-")
        self.folder = Path(data_dir) if data_dir else Path(self.home.name) / "data"
        self.process = None
        self.wrapper = []
        home = self.home.name
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": home,
            "XDG_DATA_HOME": f"{home}/share",
            "XDG_CONFIG_HOME": f"{home}/config",
            "XDG_CACHE_HOME": f"{home}/cache",
            "XDG_RUNTIME_DIR": home,
            "DBUS_SYSTEM_BUS_ADDRESS": f"unix:path={home}/no-such-bus",
            "QT_QPA_PLATFORM": "offscreen",
            "LC_ALL": "C.UTF-8",
            **environment,
        }
        self.folder.mkdir(parents=True, exist_ok=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process and self.process.poll() is None:
            self.kill()
        self.home.cleanup()

    # Files

    def write_monitors(self, monitors):
        # Each host's icon is there already, so that none is looked up.
        icons = self.folder / "favicons"
        icons.mkdir(exist_ok=True)
        for host in {host_of(record["url"]) for record in monitors}:
            (icons / f"{host}.png").write_bytes(ICON)
        (self.folder / "monitors.json").write_text(json.dumps(monitors))

    def monitors(self):
        return json.loads((self.folder / "monitors.json").read_text())

    def checks(self):
        """Each monitor's checks by its id; empty while there is no file."""
        try:
            flat = json.loads((self.folder / "checks.json").read_text())
        except FileNotFoundError:
            return {}
        return dict(zip(flat[::2], flat[1::2]))

    def checks_of(self, record):
        return self.checks().get(record["id"], [])

    def count(self):
        return sum(len(history) for history in self.checks().values())

    # The program

    def start(self):
        self.process = subprocess.Popen(
            [*self.wrapper, self.program, "--data-dir", str(self.folder)],
            env=self.environment,
            stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )

    def run(self, *arguments):
        """Runs one of the program's commands, such as `status`, and returns the outcome."""
        return subprocess.run(
            [self.program, *arguments],
            env=self.environment,
            stdin=subprocess.DEVNULL,
            capture_output=True,
            timeout=60,
            check=False,
        )

    def is_running(self):
        return self.process.poll() is None

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def stop(self):
        """Asks the program to end; returns the seconds that it took, or None if it didn't."""
        begin = time.monotonic()
        self.process.send_signal(signal.SIGTERM)
        try:
            self.process.wait(timeout=20)
        except subprocess.TimeoutExpired:
            self.kill()
            return None
        return time.monotonic() - begin

    def proc(self, name):
        return Path(f"/proc/{self.process.pid}/{name}")

    def status_field(self, name):
        """A number of /proc/PID/status: VmHWM in kB, Threads, …"""
        for line in self.proc("status").read_text().splitlines():
            if line.startswith(name + ":"):
                return int(line.split()[1])
        raise KeyError(name)

    def descriptors(self):
        return len(os.listdir(self.proc("fd")))

    def limit_address_space(self, size):
        """Limits it to `size` bytes; None lifts the limit again."""
        soft = resource.RLIM_INFINITY if size is None else size
        resource.prlimit(
            self.process.pid, resource.RLIMIT_AS, (soft, resource.RLIM_INFINITY)
        )
