"""The driver for Windows: the Windows program under Wine, which has no accessibility bus. Controls are reached by the Tab
key from the list of files, and a message is read by Ctrl+C, which copies its text."""
import os
import subprocess

from display import Display
from scenario import READING_ORDER

KEYS = {"OK": "Return", "Yes": "alt+y", "No": "alt+n"}


class WineProgram(Display):
    window, clicks = None, 0

    def __enter__(self):
        # A prefix of its own: Wine decides with the first window whether there is a display. And a new one each time:
        # it leads to folders below the home folder, and the file dialogs fail where those are gone.
        os.environ.update(WINEPREFIX=self.home + "/wine", WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=")
        super().__enter__()
        subprocess.run([self.command[0], "wineboot.exe", "--init"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       check=True, timeout=120)
        return self

    def __exit__(self, kind, error, trace):
        if kind is not None:
            self.picture("failure")
        server = os.path.join(os.path.dirname(os.path.realpath(self.command[0])), "wineserver")
        for what in ("--kill", "--wait"):
            subprocess.run([server, what], check=False, timeout=60)
        super().__exit__(None, None, None)

    def native(self, path):
        return "Z:" + path.replace("/", "\\")

    # What the user does.

    def start(self):
        super().start()
        self.window = self.expect("the window", lambda: self.xdotool("search", "--onlyvisible", "--name", "^Brindlewick$")
                                .split("\n")[0])
        self.expect("the keyboard", lambda: self.active() == self.window)
        self.soon(lambda: False)  # it is drawn once, and then with its rows

    def focus(self, name):
        # On the first and on the second row by turns, so that two clicks are not a double click.
        self.clicks += 1
        self.xdotool("mousemove", "--window", self.window, "100", str(42 + 18 * (self.clicks % 2)), "click", "1")
        self.xdotool("key", "--delay", "20", *["Tab"] * READING_ORDER.index(name))

    def press(self, name):
        print(f"    press {name!r}")
        self.focus(name)
        self.xdotool("key", "space")

    def select_first_row(self, table):
        self.focus(table)
        self.keys("Down", "Up")

    def answer(self, text, button, keep_clipboard=False):
        """The message can be read only if what was copied before may be replaced."""
        self.expect("a message", self.dialog)
        if not keep_clipboard:
            self.expect(f"the message {text!r}", lambda: self.copied_message_holds(text))
        dialog = self.dialog()

        def is_gone():
            self.xdotool("key", KEYS[button])
            return self.soon(lambda: self.dialog() != dialog)
        self.expect(button, is_gone)

    def choose_file(self, path):
        dialog = self.expect("the file dialog", self.dialog)
        self.soon(lambda: False)  # its list of the folder's files comes up after its field
        self.xdotool("key", "ctrl+a")
        self.xdotool("type", "--delay", "5", self.native(path))
        self.xdotool("key", "Return")
        self.expect("the file dialog closes", lambda: dialog not in self.windows())
        # Under Wine the keys do not always go back to the window.
        if not self.soon(lambda: self.active() in self.windows()):
            self.xdotool("windowactivate", "--sync", self.window)

    # What the user sees.

    def copied_message_holds(self, text):
        self.xdotool("key", "ctrl+c")
        return self.soon(lambda: text in self.clipboard(), 0.5)

    def clipboard(self):
        # Copied text gets plain line feeds on its way out of Wine.
        return super().clipboard().replace("\r\n", "\n").replace("\n", "\r\n")

    def sees_run(self):
        self.soon(lambda: False, 2)
        self.check("the run is under way", self.dialog() is None)

    def active(self):
        return self.xdotool("getactivewindow")

    def windows(self):
        return self.xdotool("search", "--onlyvisible", "--class", "brindlewick").split()

    def dialog(self):
        active = self.active()
        return active if active and active != self.window else None
