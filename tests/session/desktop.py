"""A virtual display with a window manager, and the program on it: found through the accessibility bus, used by
mouse and keys. Nothing waits for a fixed time: every wait has a condition and a deadline."""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

DEADLINE = 20  # seconds
TITLE = "Brindlewick"


def missing_tools():
    tools = [tool for tool in ("Xvfb", "openbox", "xdotool", "xclip", "import", "dbus-daemon") if not shutil.which(tool)]
    try:
        import pyatspi  # noqa: F401, pylint: disable=unused-import
    except ImportError:
        tools.append("python3-pyatspi")
    if not os.path.exists("/usr/libexec/at-spi-bus-launcher"):
        tools.append("at-spi2-core")
    return tools


class Desktop:
    def __init__(self, program, out):
        self.program = program
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
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0", LC_ALL="C.UTF-8")
        os.environ["DISPLAY"] = ":" + self.serve(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"])
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.serve(["dbus-daemon", "--session", "--nofork", "--print-address"])
        self.servers.append(subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))
        # A window that comes up while the window manager does is shown by neither.
        self.wait("the window manager", lambda: self.xdotool("get_num_desktops"))
        import pyatspi
        self.bus = pyatspi
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

    # What a person does.

    def start(self):
        print("==> Starting the program")
        self.process = subprocess.Popen([self.program], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.wait("the window", lambda: self.xdotool("search", "--onlyvisible", "--pid", str(self.process.pid)))
        self.wait("the controls", lambda: self.find("Start Extracting"))
        self.wait("the keyboard", lambda: self.xdotool("getactivewindow"))

    def click(self, name):
        print(f"    click {name!r}")
        self.click_on(self.wait(f"the control {name!r}", lambda: self.find(name)))

    def click_row(self, name, row):
        print(f"    click row {row + 1} of {name!r}")
        self.click_on(self.find(name).queryTable().getAccessibleAt(row, 0))

    def click_on(self, control):
        box = control.queryComponent().getExtents(self.bus.DESKTOP_COORDS)
        self.xdotool("mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2), "click", "1")

    def keys(self, *keys):
        print(f"    keys {' '.join(keys)}")
        self.xdotool("key", *keys)

    def answer(self, text, button, picture=None):
        """Waits for a message that holds `text` and presses the button, as often as it comes."""
        self.wait(f"the message {text!r}", lambda: self.message(text))
        if picture:
            self.picture(picture)

        def none_is_left():
            dialog = self.message(text)
            if dialog:
                self.click_in(dialog, button)
                self.soon(lambda: not self.message(text), 0.3)
            # The next one may need a moment to come up.
            return dialog is None and not self.soon(lambda: self.message(text), 0.2)
        self.wait(f"the messages {text!r} to end", none_is_left)

    def choose_file(self, path, picture=None):
        def field():
            dialog = self.dialog()
            return dialog and next(self.walk(dialog, lambda one: one.getRoleName() == "text" and self.is_in(one, "focused")), None)
        self.wait("the file dialog", field)
        self.xdotool("key", "ctrl+a")
        self.xdotool("type", "--delay", "1", path)
        if picture:
            self.picture(picture)
        # A list of proposals takes the first Return in some dialogs.
        for _ in range(2):
            self.xdotool("key", "Return")
            if self.soon(lambda: not field()):
                return
        self.wait("the file dialog to close", lambda: not field())

    def clipboard(self):
        return subprocess.run(["xclip", "-selection", "clipboard", "-o"], stdout=subprocess.PIPE, check=True,
                              timeout=DEADLINE).stdout.decode()

    # What a person sees.

    def picture(self, name):
        subprocess.run(["import", "-window", "root", os.path.join(self.out, name + ".png")], check=False, timeout=DEADLINE)

    def row_count(self, name):
        table = self.find(name)
        return table.queryTable().nRows if table else 0

    def is_checked(self, name):
        control = self.find(name)
        return control is not None and self.is_in(control, "checked")

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

    # How things are found.

    def application(self):
        desktop = self.bus.Registry.getDesktop(0)
        for one in desktop:
            if one is not None and one.get_process_id() == self.process.pid:
                return one
        return None

    def walk(self, node, wanted, depth=12):
        """Every node for which `wanted` holds; tables are not entered, they may be long."""
        if node is None:
            return
        if wanted(node):
            yield node
        if depth == 0 or node.getRoleName() in ("table", "tree"):
            return
        for child in node:
            yield from self.walk(child, wanted, depth - 1)

    def find(self, name):
        try:
            window = self.window()
            return window and next(self.walk(window, lambda one: one.name.strip() == name), None)
        except Exception:  # pylint: disable=broad-except; what was being looked at has just gone
            return None

    def windows(self):
        application = self.application()
        return [one for one in application if one is not None] if application else []

    def window(self):
        return next((one for one in self.windows() if one.getRoleName() in ("frame", "window")), None)

    def dialog(self):
        try:
            return next((one for one in self.windows() if one.getRoleName() in ("dialog", "alert", "file chooser") and
                         self.is_in(one, "visible")), None)
        except Exception:  # pylint: disable=broad-except
            return None

    def message(self, text):
        """A dialog with buttons to answer it that shows the text, if one is up."""
        try:
            dialog = self.dialog()
            if dialog is None or next(self.walk(dialog, lambda one: one.name.replace("&", "") in ("OK", "Yes")), None) is None:
                return None
            return dialog if next(self.walk(dialog, lambda one: text in one.name), None) else None
        except Exception:  # pylint: disable=broad-except
            return None

    def click_in(self, dialog, name):
        try:
            button = next(self.walk(dialog, lambda one: one.name.replace("&", "") == name), None)
            if button is None:
                return
            self.click_on(button)
        except Exception:  # pylint: disable=broad-except
            return
        print(f"    press {name!r}")

    def is_in(self, control, state):
        return control.getState().contains(getattr(self.bus, "STATE_" + state.upper()))

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
