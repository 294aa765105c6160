"""Disks of their own, as the torture tests fill and unplug them."""

import ctypes
import fcntl
import os
import struct
import subprocess
import tempfile
from pathlib import Path

SECTOR = 512  # bytes; what the kernel counts in
EXT4_IOC_SHUTDOWN = 0x8004587D
WITHOUT_LOG_FLUSH = 2
SYNC_FILE_RANGE_WRITE = 2


class Left(Exception):
    """What is wanted can't be tried here."""


def done(*command):
    return subprocess.run(command, capture_output=True, check=False).returncode == 0


class Disk:
    """An ext4 file system in a file, mounted at `folder`. Raises Left if this user may not mount
    one."""

    def __init__(self, size=256 << 20):
        self.home = tempfile.TemporaryDirectory(prefix="ostrel-torture-disk-")
        self.image = Path(self.home.name) / "image"
        self.folder = Path(self.home.name) / "folder"
        self.folder.mkdir()
        with open(self.image, "wb") as image:
            image.truncate(size)
        if not done("mkfs.ext4", "-q", "-F", str(self.image)):
            raise Left("needs mkfs.ext4")
        self.mount()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        done("umount", "--lazy", str(self.folder))
        self.home.cleanup()

    def mount(self):
        # The journal takes what has happened each second instead of each fifth.
        if not done("mount", "-o", "loop,commit=1", str(self.image), str(self.folder)):
            raise Left("needs the right to mount")

    def unmount(self):
        subprocess.run(["umount", str(self.folder)], check=True)

    def sync(self):
        subprocess.run(["sync", "--file-system", str(self.folder)], check=True)

    def written(self):
        """The bytes that the disk has been given so far."""
        device = self.folder.stat().st_dev
        path = Path(f"/sys/dev/block/{os.major(device)}:{os.minor(device)}/stat")
        return int(path.read_text().split()[6]) * SECTOR

    def cut_power(self):
        """From now on nothing reaches the disk any more, until it is mounted again. What runs there
        must be ended before that."""
        folder = os.open(self.folder, os.O_RDONLY)
        try:
            fcntl.ioctl(folder, EXT4_IOC_SHUTDOWN, struct.pack("I", WITHOUT_LOG_FLUSH))
        finally:
            os.close(folder)


def flush_names(folder):
    """Waits until the disk has the names of the folder's files."""
    descriptor = os.open(folder, os.O_RDONLY)
    try:
        os.fsync(descriptor)
    finally:
        os.close(descriptor)


def begin_to_write(path, offset, size):
    """Has the kernel give this part of a file to the disk, as it does when memory is short."""
    with open(path, "rb") as file:
        ctypes.CDLL(None).sync_file_range(
            file.fileno(),
            ctypes.c_int64(offset),
            ctypes.c_int64(size),
            SYNC_FILE_RANGE_WRITE,
        )
