"""The program on a virtual display, its controls found through the accessibility bus."""
import os
import shutil

from display import Display, missing_display_tools


def missing_tools():
    tools = missing_display_tools() + [tool for tool in ("dbus-daemon",) if not shutil.which(tool)]
    try:
        import pyatspi  # noqa: F401, pylint: disable=unused-import
    except ImportError:
        tools.append("python3-pyatspi")
    if not os.path.exists("/usr/libexec/at-spi-bus-launcher"):
        tools.append("at-spi2-core")
    return tools


class Desktop(Display):
    def __init__(self, program, out):
        super().__init__([program], out)
        self.program = program
        self.bus = None

    def __enter__(self):
        os.environ.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0")
        super().__enter__()
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.serve(["dbus-daemon", "--session", "--nofork", "--print-address"])
        import pyatspi
        self.bus = pyatspi
        return self

    # What a person does.

    def start(self):
        self.launch()
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

    # What a person sees.

    def row_count(self, name):
        table = self.find(name)
        return table.queryTable().nRows if table else 0

    def is_checked(self, name):
        control = self.find(name)
        return control is not None and self.is_in(control, "checked")

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
