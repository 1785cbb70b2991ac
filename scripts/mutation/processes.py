"""Runs programs that may hang, in groups of their own that can all be ended at once."""

import os
import signal
import subprocess
import threading


class Stopped(Exception):
    pass


_running = set()
_stopped = threading.Event()


def _end(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def run(command, limit, **options):
    """Returns the exit code, or None for a program that was ended after `limit` seconds."""
    if _stopped.is_set():
        raise Stopped
    quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    with subprocess.Popen(command, start_new_session=True, **(quiet | options)) as process:
        _running.add(process)
        try:
            code = process.wait(limit)
        except subprocess.TimeoutExpired:
            code = None
        finally:
            _end(process)  # with whatever it has started and left
            _running.discard(process)
    if _stopped.is_set() or code in (-signal.SIGTERM, -signal.SIGKILL):  # by somebody else
        raise Stopped
    return code


def stop_all():
    _stopped.set()
    for process in list(_running):
        _end(process)
