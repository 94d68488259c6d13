"""What the host can be put in front of: a terminal, a real X server, and one that only notices who asks it."""

import fcntl
import os
import pty
import select
import socket
import subprocess
import termios

from visex import *


class Terminal:
    """The host with a controlling terminal of its own, and with standard output and error elsewhere."""

    def __init__(self, *arguments, **variables):
        self.screen, side = pty.openpty()
        self.process = subprocess.Popen(
            [HOST, *arguments], env=environment(**{"LC_ALL": "C.UTF-8", **variables}), stdin=side,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY))
        os.close(side)

    def read_until(self, end):
        """What is shown until `end` is; an error when that does not come."""
        shown = b""
        while not shown.endswith(end.encode()):
            if not select.select([self.screen], [], [], TIMEOUT)[0]:
                raise TimeoutError(shown)
            shown += os.read(self.screen, 4096)
        return shown.decode()

    def type(self, text):
        os.write(self.screen, text.encode())

    def read_rest(self):
        """What is shown until the host ends."""
        shown = b""
        while True:
            try:
                shown += os.read(self.screen, 4096)
            except OSError:  # nobody has the terminal open any more
                return shown.decode()

    def hang_up(self):
        os.close(self.screen)
        self.screen = None

    def finish(self):
        outcome = outcome_of(self.process)
        if self.screen is not None:
            os.close(self.screen)
        return outcome


class ScreenThatNoticesOnly:
    """Where an X server would be: whoever asks for a screen here is noticed, and gets no answer."""

    def __init__(self):
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.listener.settimeout(TIMEOUT)
        self.display = f"127.0.0.1:{self.listener.getsockname()[1] - 6000}"  # as X counts its ports

    def close(self):
        self.listener.close()


class XServer:
    """An X server without a screen to look at."""

    def __init__(self, *options, stderr=subprocess.DEVNULL):
        reader, writer = os.pipe()
        self.process = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1024x768x24", "-nolisten", "tcp", *options],
            pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=stderr)
        os.close(writer)
        with os.fdopen(reader) as number:  # which the server writes when it is ready
            self.display = ":" + number.readline().strip()

    def tool(self, *arguments):
        """The output of xdotool on this display, or None when it failed."""
        result = subprocess.run(["xdotool", *arguments], env=environment(DISPLAY=self.display), text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=TIMEOUT)
        return result.stdout if result.returncode == 0 else None

    def window(self, title):
        """The number of the window with this title, as soon as it is there."""
        found = None
        while not found:  # the search fails when some other window goes while it looks
            found = self.tool("search", "--sync", "--onlyvisible", "--name", title)
        return found.split()[0]

    def close(self):
        self.process.terminate()
        self.process.wait(TIMEOUT)

    def break_down(self):
        self.process.kill()
        self.process.wait(TIMEOUT)
