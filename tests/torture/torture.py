#!/usr/bin/env python3
"""Does to the real program what the world may do, and says what was lost. For scripts/torture."""

import argparse
import collections
import contextlib
import json
import os
import random
import shutil
import statistics
import subprocess
import sys
import time
import unicodedata
import uuid
from pathlib import Path

import servers
from disks import Disk, Left, begin_to_write, flush_names
from ostrel import Ostrel, monitor, wait_for
from servers import Server


class Row:
    """One kind of torture: how often it was done, and what was lost."""

    def __init__(self):
        self.tried = ""
        self.lost = []

    def expect(self, holds, otherwise):
        if not holds:
            self.lost.append(otherwise)


def check_record(monitor_id, number):
    return {
        "id": str(uuid.UUID(int=number + 1)).upper(),
        "monitorId": monitor_id,
        "timestamp": "2026-01-01T00:00:00Z",
        "responseTime": number / 7,
        "isUp": True,
        "statusCode": 200,
    }


# Kills and files


def kills(row, program, is_short):
    """kill -9 at random moments, while the history grows past a megabyte."""
    count = 25 if is_short else 200
    with Server(servers.answer(servers.HELLO)) as server, Ostrel(program) as ostrel:
        monitors = [monitor(f"Monitor {i}", server.url, 0.1) for i in range(8)]
        ostrel.write_monitors(monitors)
        # Just below a megabyte, so that this size is passed again and again.
        flat = []
        for record in monitors[:3]:
            flat += [record["id"], [check_record(record["id"], i) for i in range(1780)]]
        text = json.dumps(flat, separators=(",", ":"))
        (ostrel.folder / "checks.json").write_text(text)
        size = len(text)
        for kill in range(count):
            before = ostrel.checks()
            ostrel.start()
            grown = wait_for(lambda: ostrel.count() > sum(map(len, before.values())))
            row.expect(grown, f"start {kill} made no check")
            time.sleep(random.random() * 0.15)
            seen = ostrel.checks()
            ostrel.kill()
            after = ostrel.checks()
            for monitor_id, history in seen.items():
                kept = {check["id"] for check in after.get(monitor_id, [])}
                missing = [check for check in history[-100:] if check["id"] not in kept]
                row.expect(not missing, f"kill {kill} lost {len(missing)} checks")
            row.expect(ostrel.monitors() == monitors, f"kill {kill} changed the monitors")
            if row.lost:
                break
        grown = (ostrel.folder / "checks.json").stat().st_size
        row.tried = f"{count} kills, history {size:,} to {grown:,} bytes"


def full_disk(row, program, is_short):
    """The disk is full for a while, and then has room again."""
    with contextlib.ExitStack() as stack:
        disk = stack.enter_context(small_disk())
        server = stack.enter_context(Server(servers.answer(servers.HELLO)))
        ostrel = stack.enter_context(Ostrel(program, data_dir=f"{disk}/data"))
        record = monitor("Shop", server.url, 0.2)
        ostrel.write_monitors([record])
        ostrel.start()
        row.expect(wait_for(lambda: ostrel.count() > 3), "no check before")
        filler = Path(disk) / "filler"
        fill(filler)
        time.sleep(3)
        during = ostrel.checks_of(record)
        row.expect(ostrel.is_running(), "the program ended on a full disk")
        filler.unlink()
        enough = len(during) + 10
        row.expect(
            wait_for(lambda: len(ostrel.checks_of(record)) >= enough),
            "what was checked meanwhile is missing",
        )
        kept = [check["id"] for check in ostrel.checks_of(record)]
        row.expect(
            kept[: len(during)] == [check["id"] for check in during], "the history has a gap"
        )
        row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
        row.expect(ostrel.monitors() == [record], "the monitors changed")
        row.tried = "3 s without room"


@contextlib.contextmanager
def small_disk():
    """A file system of 1.5 megabytes; raises Left if this user may not mount one."""
    folder = Path(f"/tmp/ostrel-torture-disk-{os.getpid()}")
    folder.mkdir()
    mount = ["mount", "-t", "tmpfs", "-o", "size=1536k", "none", str(folder)]
    made = subprocess.run(mount, capture_output=True, check=False).returncode == 0
    try:
        if not made:
            raise Left("needs the right to mount")
        yield folder
    finally:
        if made:
            subprocess.run(["umount", "-l", str(folder)], check=False)
        folder.rmdir()


def fill(path):
    with contextlib.suppress(OSError), open(path, "wb", buffering=0) as file:
        while True:
            file.write(b"x" * 65536)
    with contextlib.suppress(OSError), open(path, "ab", buffering=0) as file:
        while True:
            file.write(b"x" * 512)


def fill_histories(ostrel, records):
    """Gives each monitor its 2000 checks; returns the size of the file in bytes."""
    flat = []
    for record in records:
        flat += [record["id"], [check_record(record["id"], i) for i in range(2000)]]
    text = json.dumps(flat, separators=(",", ":"))
    (ostrel.folder / "checks.json").write_text(text)
    return len(text)


def power_cuts(row, program, is_short):
    """The disk takes nothing any more at random moments, while full histories are recorded."""
    count = 8 if is_short else 200
    left = collections.Counter()
    with contextlib.ExitStack() as stack:
        disk = stack.enter_context(Disk())
        server = stack.enter_context(Server(servers.answer(servers.HELLO)))
        ostrel = stack.enter_context(Ostrel(program, data_dir=f"{disk.folder}/data"))
        records = [monitor(f"Monitor {i}", server.url, 0.5) for i in range(8)]
        ostrel.write_monitors(records)
        size = fill_histories(ostrel, records)
        disk.sync()
        for cut in range(count):
            flushed = record_until_cut(row, disk, ostrel, size)
            left[what_is_left(ostrel)] += 1
            judge_cut(row, ostrel, flushed, f"cut {cut}")
            row.expect(ostrel.monitors() == records, f"cut {cut} changed the monitors")
            if row.lost:
                break
        kinds = ", ".join(f"{number} {kind}" for kind, number in sorted(left.items()))
        row.tried = f"{count} cuts, which left the history {kinds}"


def record_until_cut(row, disk, ostrel, size):
    """Runs the program for some seconds, cuts the power and mounts the disk again. Returns the
    history that had been flushed."""
    path = ostrel.folder / "checks.json"
    copy = ostrel.folder / "checks.json.flushed"
    saved_before, copied_before = version_of(path), version_of(copy)
    flushed = histories_in(copy if copied_before else path)
    ostrel.start()
    # What the last cut has left is replaced by then.
    row.expect(wait_for(lambda: version_of(path) != saved_before), "no check was saved")
    if random.random() < 0.75:
        is_flushed = wait_for(lambda: version_of(copy) != copied_before)
        row.expect(is_flushed, "no copy was flushed")
        flush_names(ostrel.folder)
        flushed = histories_in(copy)
    end = time.monotonic() + random.random() * 4
    while time.monotonic() < end:
        # A reader at any moment: fails if the file is missing or half-written.
        ostrel.count()
        if random.random() < 0.3:
            begin_to_write(path, random.randrange(size), random.randrange(size))
    disk.cut_power()
    ostrel.kill()
    disk.unmount()
    disk.mount()
    return flushed


def version_of(path):
    """None if there is no such file."""
    with contextlib.suppress(FileNotFoundError):
        status = path.stat()
        return status.st_ino, status.st_mtime_ns
    return None


def histories_in(path):
    flat = json.loads(path.read_text())
    return dict(zip(flat[::2], flat[1::2]))


def what_is_left(ostrel):
    content = (ostrel.folder / "checks.json").read_bytes()
    if not content:
        return "empty"
    with contextlib.suppress(ValueError):
        json.loads(content)
        return "whole"
    return "with zeros" if 0 in content else "cut off"


def judge_cut(row, ostrel, flushed, prefix):
    """Expects what is left of the history if that is whole, and in any case what was flushed;
    removes what the program has kept."""
    exported = ostrel.run("export", "--history", "--data-dir", str(ostrel.folder))
    row.expect(exported.returncode == 0, f"{prefix}: {exported.stderr.decode()}")
    if exported.returncode != 0:
        return
    histories = json.loads(exported.stdout)["checks"]
    if what_is_left(ostrel) == "whole":
        row.expect(count_in(histories) == ostrel.count(), f"{prefix}: the whole file isn't read")
    for monitor_id, history in flushed.items():
        kept = {check["id"] for check in histories.get(monitor_id, [])}
        missing = [check for check in history[-1000:] if check["id"] not in kept]
        row.expect(not missing, f"{prefix} lost {len(missing)} flushed checks")
    for path in ostrel.folder.glob("checks.json.unreadable-*"):
        path.unlink()


def bytes_written(row, program, is_short):
    """Checks of 20 monitors with full histories, and what they put on the disk."""
    interval = 0.5 if is_short else 3
    with contextlib.ExitStack() as stack:
        disk = stack.enter_context(Disk())
        server = stack.enter_context(Server(servers.answer(servers.HELLO)))
        ostrel = stack.enter_context(Ostrel(program, data_dir=f"{disk.folder}/data"))
        records = [monitor(f"Monitor {i}", server.url, interval) for i in range(20)]
        for record in records[1:]:
            record["isEnabled"] = False
        ostrel.write_monitors(records)
        size = fill_histories(ostrel, records)
        ostrel.start()
        copy = ostrel.folder / "checks.json.flushed"
        row.expect(wait_for(copy.exists), "no copy was flushed")
        disk.sync()
        before = disk.written()
        first = newest(ostrel, records[0])
        time.sleep(20 * interval)
        written = disk.written() - before
        ids = [check["id"] for check in ostrel.checks_of(records[0])]
        saves = len(ids) - 1 - ids.index(first)
        row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
    saved = saves * size
    row.expect(saves > 10, f"only {saves} checks")
    row.expect(written < saved / 10, f"{written:,} bytes were written")
    row.tried = f"{saves} saves of {size:,} bytes, {written:,} bytes on the disk"


def count_in(histories):
    return sum(map(len, histories.values()))


def newest(ostrel, record):
    return ostrel.checks_of(record)[-1]["id"]


def folder_deleted(row, program, is_short):
    """The data folder is deleted under the running program."""
    count = 2 if is_short else 10
    with Server(servers.answer(servers.HELLO)) as server, Ostrel(program) as ostrel:
        records = [monitor(f"Monitor {i}", server.url, 0.3) for i in range(3)]
        ostrel.write_monitors(records)
        ostrel.start()
        for _ in range(count):
            row.expect(wait_for(lambda: ostrel.count() >= 6), "no checks")
            had = ostrel.checks()
            shutil.rmtree(ostrel.folder)
            is_back = wait_for(
                lambda: (ostrel.folder / "monitors.json").exists() and ostrel.count() > 6
            )
            row.expect(is_back, "the files didn't come back")
            if not is_back:
                break
            # Monitors that have been written again have all of their keys.
            same = [
                {key: now.get(key) for key in record}
                for now, record in zip(ostrel.monitors(), records)
            ]
            row.expect(same == records, "the monitors changed")
            for monitor_id, history in had.items():
                now = [check["id"] for check in ostrel.checks().get(monitor_id, [])]
                row.expect(
                    now[: len(history)] == [check["id"] for check in history],
                    "checks of before are missing",
                )
            mode = ostrel.folder.stat().st_mode & 0o777
            row.expect(mode == 0o700, f"the folder's mode is {mode:o}")
        row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
        row.tried = f"deleted {count} times"


# Servers


def bombs(row, program, is_short):
    """Decompression bombs beside a healthy server, with and without keywords."""
    seconds = 8 if is_short else 30
    pages = servers.bombs()
    for keyword in (None, "well"):
        with contextlib.ExitStack() as stack:
            healthy_server = stack.enter_context(
                Server(servers.answer(servers.page(b"all is well"), delay=0.002))
            )
            hostile = [
                stack.enter_context(Server(servers.answer(pages[i % len(pages)])))
                for i in range(10)
            ]
            ostrel = stack.enter_context(Ostrel(program))
            healthy = monitor("Healthy", healthy_server.url, 1, 2, keyword)
            others = [
                monitor(f"Bomb {i}", server.url, 1, 2, keyword)
                for i, server in enumerate(hostile)
            ]
            ostrel.write_monitors([healthy, *others])
            ostrel.start()
            time.sleep(seconds)
            peak = ostrel.status_field("VmHWM") // 1024
            row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
            name = "with keywords" if keyword else "without keywords"
            judge_healthy(row, ostrel.checks_of(healthy), seconds * 0.6, f"{name}: ", 50, keyword)
            judge_ends(row, ostrel.checks(), 2000)
            row.tried += f"{name} {len(ostrel.checks_of(healthy))} checks, peak {peak} MB; "


def judge_healthy(row, checks, at_least, prefix="", median=50, keyword=None):
    down = [check for check in checks if not check["isUp"]]
    row.expect(len(checks) >= at_least, f"{prefix}the healthy one had {len(checks)} checks")
    row.expect(not down, f"{prefix}{len(down)} of {len(checks)} healthy checks were down: {down[:1]}")
    if keyword:
        unknown = [check for check in checks if not check.get("keywordFound")]
        row.expect(not unknown, f"{prefix}{len(unknown)} healthy keywords weren't found")
    times = [check["responseTime"] for check in checks] or [0]
    row.expect(
        statistics.median(times) < median,
        f"{prefix}the healthy one took {statistics.median(times):.0f} ms in the median",
    )


def judge_ends(row, checks, timeout):
    """No check ends later than half a second after its time-out."""
    times = [check["responseTime"] for history in checks.values() for check in history]
    row.expect(
        max(times, default=0) <= timeout + 500, f"a check took {max(times, default=0):.0f} ms"
    )


def hostile_servers(row, program, is_short):
    """176 hostile servers beside healthy ones."""
    seconds = 10 if is_short else 40
    with contextlib.ExitStack() as stack:
        healthy_servers = [
            stack.enter_context(Server(servers.answer(servers.HELLO, delay=0.002)))
            for _ in range(4)
        ]
        hostile = [
            stack.enter_context(Server(servers.HOSTILE[i % len(servers.HOSTILE)]))
            for i in range(176)
        ]
        ostrel = stack.enter_context(Ostrel(program))
        healthy = [monitor(f"Healthy {i}", s.url, 1, 2) for i, s in enumerate(healthy_servers)]
        others = [monitor(f"Hostile {i}", s.url, 1, 2) for i, s in enumerate(hostile)]
        ostrel.write_monitors(healthy + others)
        ostrel.start()
        time.sleep(seconds)
        row.expect(ostrel.is_running(), "the program ended")
        row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
        for record in healthy:
            # Servers, program and this judging process share one machine here.
            judge_healthy(row, ostrel.checks_of(record), seconds * 0.3, median=500)
        judge_ends(row, ostrel.checks(), 2000)
        unchecked = [record for record in others if not ostrel.checks_of(record)]
        row.expect(not unchecked, f"{len(unchecked)} were never checked")
        row.tried = f"176 servers, {ostrel.count()} checks in {seconds} s"


def dead_name_server(row, program, is_short):
    """300 monitors whose names can't be resolved, beside one with an address."""
    if os.geteuid() != 0 or subprocess.run(["unshare", "-m", "true"], check=False).returncode != 0:
        raise Left("needs the right to give the program a resolver of its own")
    seconds = 15 if is_short else 60
    with contextlib.ExitStack() as stack:
        name_server = servers.DeadNameServer()
        stack.callback(name_server.close)
        server = stack.enter_context(Server(servers.answer(servers.HELLO, delay=0.002)))
        ostrel = stack.enter_context(Ostrel(program))
        configuration = Path(ostrel.home.name) / "resolv.conf"
        configuration.write_text(f"nameserver {name_server.ADDRESS}\n")
        ostrel.wrapper = [
            "unshare",
            "-m",
            "sh",
            "-c",
            f'mount --bind "{configuration}" /etc/resolv.conf && ulimit -n 1024 && exec "$@"',
            "sh",
        ]
        address = monitor("Address", server.url, 1, 2)
        names = [monitor(f"Name {i}", f"http://host{i}.dead.test/", 1, 2) for i in range(300)]
        ostrel.write_monitors([address, *names])
        ostrel.start()
        threads = descriptors = 0
        end = time.monotonic() + seconds
        while time.monotonic() < end and ostrel.is_running():
            with contextlib.suppress(OSError, KeyError):
                threads = max(threads, ostrel.status_field("Threads"))
                descriptors = max(descriptors, ostrel.descriptors())
            time.sleep(0.2)
        row.expect(ostrel.is_running(), "the program ended")
        row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
        judge_healthy(row, ostrel.checks_of(address), seconds * 0.5)
        row.expect(threads < 400, f"{threads} threads")
        row.expect(descriptors < 1024, f"{descriptors} descriptors")
        row.tried = f"300 names for {seconds} s: {threads} threads, {descriptors} descriptors"


def little_memory(row, program, is_short):
    """The address space is limited while large pages are read, and the limit lifted again."""
    rounds = 2 if is_short else 10
    large = servers.page(b"<p>all is very well</p>" * 400_000)
    with contextlib.ExitStack() as stack:
        server = stack.enter_context(Server(servers.answer(large)))
        ostrel = stack.enter_context(Ostrel(program))
        records = [monitor(f"Large {i}", server.url, 0.3, 10, "absent") for i in range(4)]
        ostrel.write_monitors(records)
        ostrel.start()
        row.expect(wait_for(lambda: ostrel.count() >= 4), "no check before")
        for _ in range(rounds):
            size = ostrel.status_field("VmSize") * 1024
            ostrel.limit_address_space(size + (6 << 20))
            time.sleep(1.5)
            ostrel.limit_address_space(None)
            if not ostrel.is_running():
                break
            before = {record["id"]: len(ostrel.checks_of(record)) for record in records}
            for record in records:
                goes_on = wait_for(
                    lambda record=record: len(ostrel.checks_of(record)) > before[record["id"]] + 1
                )
                row.expect(goes_on, "a monitor isn't watched any more")
        row.expect(ostrel.is_running(), "the program ended for want of memory")
        if ostrel.is_running():
            row.expect(ostrel.stop() is not None, "SIGTERM didn't end it")
        row.tried = f"{rounds} times within 6 MB of its size"


# The desktop


def silent_buses(row, program, is_short):
    """A session bus and a system bus that accept and never answer."""
    times = {}
    with contextlib.ExitStack() as stack:
        server = stack.enter_context(Server(servers.answer(servers.HELLO)))
        for kind in ("none", "session", "system", "both"):
            with Ostrel(program) as ostrel:
                silent = {}
                for bus in ("session", "system"):
                    if kind in (bus, "both"):
                        path = f"{ostrel.home.name}/{bus}"
                        silent[bus] = servers.SilentSocket(path)
                        name = f"DBUS_{bus.upper()}_BUS_ADDRESS"
                        ostrel.environment[name] = f"unix:path={path}"
                ostrel.write_monitors([monitor("Shop", server.url, 1)])
                begin = time.monotonic()
                ostrel.start()
                row.expect(wait_for(lambda: ostrel.count() > 0), f"{kind}: no check")
                times[kind] = time.monotonic() - begin
                end = ostrel.stop()
                row.expect(end is not None and end < 1, f"{kind}: SIGTERM took {end} s")
                for silent_socket in silent.values():
                    silent_socket.close()
    for kind, duration in times.items():
        row.expect(
            duration < times["none"] + 1, f"{kind}: the first check came after {duration:.1f} s"
        )
    row.tried = ", ".join(f"{kind} {duration:.2f} s" for kind, duration in times.items())


# Texts

FOREIGN_TEXTS = [
    "two\nlines",
    "a\rb\tc\vd\fe",
    "\x1b[31mred\x1b[0m \x07",
    "cut\0off",
    "\u202eevil\u202c \u2066more\u2069",
    "\u200f" * 120_000,
    "x" * 1_000_000,
    "e" + "\u0301" * 100_000,
    "line\u2028paragraph\u2029next\u0085end",
    "%1 %2 %n %s",
    "<b>bold</b> &amp; <img src=x>",
    "\U0001f1e9\U0001f1ea" * 5000,
    "\ufeff\u200b\u200d" * 5000,
    "",
    " " * 5000,
]


def foreign_texts(row, program, is_short):
    """Absurd monitor names, in the window and on the command line."""
    with Server(servers.answer(servers.HELLO)) as server, Ostrel(program) as ostrel:
        records = [monitor(text, server.url, 1) for text in FOREIGN_TEXTS]
        ostrel.write_monitors(records)
        begin = time.monotonic()
        ostrel.start()
        row.expect(
            wait_for(lambda: ostrel.count() >= len(records)), "the window hangs on these names"
        )
        duration = time.monotonic() - begin
        row.expect(duration < 5, f"the first checks came after {duration:.1f} s")
        end = ostrel.stop()
        row.expect(end is not None and end < 2, f"SIGTERM took {end} s")
        row.expect(
            [record["name"] for record in ostrel.monitors()] == FOREIGN_TEXTS, "a name was changed"
        )
        printed = ostrel.run("status", "--data-dir", str(ostrel.folder)).stdout.decode()
        lines = printed.removesuffix("\n").split("\n")
        row.expect(len(lines) == len(records), f"status prints {len(lines)} lines")
        row.expect(max(map(len, lines)) < 500, "status prints a line without end")
        forbidden = {c for c in printed if unicodedata.category(c) in ("Cc", "Zl", "Zp")} - {"\n"}
        row.expect(not forbidden, f"status prints {sorted(map(ascii, forbidden))}")
        row.tried = f"{len(records)} names, first checks after {duration:.2f} s"


ROWS = {
    "kill -9": kills,
    "disk full and back": full_disk,
    "power cut": power_cuts,
    "bytes written": bytes_written,
    "folder deleted": folder_deleted,
    "bombs beside a healthy server": bombs,
    "176 hostile servers": hostile_servers,
    "dead name server": dead_name_server,
    "little memory": little_memory,
    "silent buses": silent_buses,
    "foreign texts": foreign_texts,
}


def try_row(function, program, is_short):
    row = Row()
    begin = time.monotonic()
    try:
        function(row, program, is_short)
    except Left as reason:
        row.tried = f"not tried: {reason}"
    return row, time.monotonic() - begin


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--short", action="store_true", help="the form for CI, under 3 minutes")
    parser.add_argument("--program", required=True, help="the program to torture")
    parser.add_argument("rows", nargs="*", help="only the rows whose names hold one of these texts")
    arguments = parser.parse_args()
    random.seed(1)

    failed = 0
    for name, function in ROWS.items():
        if arguments.rows and not any(text in name for text in arguments.rows):
            continue
        row, duration = try_row(function, arguments.program, arguments.short)
        failed += bool(row.lost)
        outcome = "nothing lost" if not row.lost else "LOST"
        print(f"{name:30}  {outcome:12}  {duration:4.0f} s  {row.tried}", flush=True)
        for loss in row.lost[:10]:
            print(f"{'':30}  - {loss}", flush=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
