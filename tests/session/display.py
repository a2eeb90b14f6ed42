"""A virtual display with a window manager, and a program on it that is used by mouse and keys. Nothing waits for a
fixed time: every wait has a condition and a deadline."""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

DEADLINE = 20  # seconds


def missing_display_tools():
    return [tool for tool in ("Xvfb", "openbox", "xdotool", "xclip", "import") if not shutil.which(tool)]


class Display:
    """`out` takes the pictures. The program finds a home folder of its own, `home`."""

    def __init__(self, command, out):
        self.command = command
        self.out = out
        self.home = tempfile.mkdtemp(prefix="brindlewick-home-")
        self.servers = []
        self.process = None

    def __enter__(self):
        # Whatever the person at this machine has set up stays out of it.
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE", "XDG_CURRENT_DESKTOP", "XAUTHORITY"):
            os.environ.pop(name, None)
        runtime = os.path.join(self.home, "run")
        os.mkdir(runtime, 0o700)
        os.environ.update(HOME=self.home, XDG_CONFIG_HOME=os.path.join(self.home, "config"), XDG_RUNTIME_DIR=runtime,
                          LC_ALL="C.UTF-8")
        os.environ["DISPLAY"] = ":" + self.serve(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"])
        self.servers.append(subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        # A window that comes up while the window manager does is shown by neither.
        self.wait("the window manager", lambda: self.xdotool("get_num_desktops"))
        return self

    def __exit__(self, kind, error, trace):
        if kind is not None:
            self.picture("9-failure")
        for process in ([self.process] if self.process else []) + self.servers[::-1]:
            process.send_signal(signal.SIGTERM)
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        shutil.rmtree(self.home, ignore_errors=True)

    def serve(self, command):
        """Starts a server and gives the line that it prints when it is ready."""
        server = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.servers.append(server)
        return server.stdout.readline().strip()

    def launch(self):
        print("==> Starting the program")
        self.process = subprocess.Popen(self.command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    # What a person does.

    def keys(self, *keys):
        print(f"    keys {' '.join(keys)}")
        self.xdotool("key", *keys)

    # What a person sees.

    def clipboard(self):
        return subprocess.run(["xclip", "-selection", "clipboard", "-o"], stdout=subprocess.PIPE, check=True,
                              timeout=DEADLINE).stdout.decode()

    def picture(self, name):
        subprocess.run(["import", "-window", "root", os.path.join(self.out, name + ".png")], check=False, timeout=DEADLINE)

    def expect(self, what, condition):
        self.wait(what, condition)
        self.check(what, True)

    def wait_for_the_end(self):
        self.check("the program ends without an error", self.process.wait(DEADLINE) == 0)
        self.process = None

    def check(self, what, is_so):
        print(f"    {'ok' if is_so else 'FAILED'}: {what}")
        if not is_so:
            sys.exit(1)

    def soon(self, condition, seconds=1.0):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if condition():
                return True
            time.sleep(0.05)
        return False

    def wait(self, what, condition):
        end = time.monotonic() + DEADLINE
        while time.monotonic() < end:
            found = condition()
            if found:
                return found
            if self.process is not None and self.process.poll() is not None:
                break
            time.sleep(0.05)
        self.check(f"waiting for {what}", False)
        return None

    def xdotool(self, *words):
        done = subprocess.run(["xdotool", *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False,
                              timeout=DEADLINE)
        return done.stdout.strip() if done.returncode == 0 else ""
