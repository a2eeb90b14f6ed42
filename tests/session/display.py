"""What the drivers of both systems share: a virtual display with a window manager, keys, pictures, the clipboard.
A driver adds how controls are reached: `accessible.py` by the accessibility bus, `wine.py` by keys alone."""
import importlib.util
import os
import shutil
import subprocess
import sys
import tempfile
import time

DEADLINE = 20  # seconds


class Display:
    """`out` takes the pictures. The program finds a home folder of its own, `home`."""
    tools = ("Xvfb", "openbox", "xdotool", "xclip", "import")

    def __init__(self, command, out):
        self.command, self.out = command, out
        self.samples = os.path.join(os.path.dirname(command[-1]), "Samples")
        self.home = tempfile.mkdtemp(prefix="brindlewick-home-")
        self.servers, self.process = [], None

    def missing_tools(self):
        return [tool for tool in self.tools if not shutil.which(tool) and not importlib.util.find_spec(tool)]

    def __enter__(self):
        # Whatever the person at this machine has set up is left out.
        for name in ("WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "QT_STYLE_OVERRIDE", "XDG_CURRENT_DESKTOP", "XAUTHORITY"):
            os.environ.pop(name, None)
        os.environ.update(HOME=self.home, XDG_CONFIG_HOME=self.home + "/config", XDG_RUNTIME_DIR=self.home, LC_ALL="C.UTF-8")
        os.environ["DISPLAY"] = ":" + self.serve(
            "Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset")
        self.servers.append(subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        # A window that opens before the window manager is ready is never shown.
        self.expect("the window manager", lambda: self.xdotool("get_num_desktops"))
        return self

    def __exit__(self, kind, error, trace):
        if kind is not None:
            self.picture("failure")
        for process in ([self.process] if self.process else []) + self.servers[::-1]:
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        shutil.rmtree(self.home, ignore_errors=True)

    def serve(self, *command):
        """Starts a server and returns the line that it prints when it is ready."""
        self.servers.append(subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True))
        return self.servers[-1].stdout.readline().strip()

    # What the user does and sees.

    def start(self):
        print("==> Starting the program")
        self.process = subprocess.Popen(self.command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def keys(self, *keys):
        print(f"    keys {' '.join(keys)}")
        # By its code, 67: with the name some versions of xdotool press Alt as well.
        self.xdotool("key", *("67" if key == "F1" else key for key in keys))

    def close_by_keys(self, keys):
        self.keys(keys)
        self.check("the program ends without an error", self.process.wait(DEADLINE) == 0)
        self.process = None

    def sees_nothing(self, *words):
        """A driver that cannot look at controls: what they hold shows in what is saved, their order in reaching them."""

    sees_rows = sees_names = sees_nothing

    def native(self, path):
        """The path as the program shows it."""
        return path

    def clipboard(self):
        return subprocess.run(["xclip", "-selection", "clipboard", "-o", "-target", "UTF8_STRING"], check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=DEADLINE).stdout.decode()

    def picture(self, name):
        subprocess.run(["import", "-window", "root", f"{self.out}/{name}.png"], check=False, timeout=DEADLINE)

    # Checks and waits. Nothing waits for a fixed time where a condition can be asked for.

    def check(self, what, is_so):
        print(f"    {'ok' if is_so else 'FAILED'}: {what}")
        if not is_so:
            sys.exit(1)

    def expect(self, what, condition):
        found = self.soon(condition, DEADLINE, lambda: self.process is None or self.process.poll() is None)
        self.check(what, found)
        return found

    def soon(self, condition, seconds=1.0, goes_on=lambda: True):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = condition()
            if found or not goes_on():
                return found
            time.sleep(0.05)
        return None

    def xdotool(self, *words):
        done = subprocess.run(["xdotool", *words], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False,
                              timeout=DEADLINE)
        return done.stdout.strip() if done.returncode == 0 else ""
