"""The driver for Linux: controls are found by name on the accessibility bus and used by mouse and keys."""
import functools
import os

from display import Display


def seen(look):
    """Makes `look` return None when what it looks at is not there, or goes in the meantime."""
    @functools.wraps(look)
    def careful(*words):
        try:
            return look(*words)
        except Exception:  # pylint: disable=broad-except; the bus has many kinds
            return None
    return careful


class AccessibleProgram(Display):
    tools = Display.tools + ("dbus-daemon", "/usr/libexec/at-spi-bus-launcher", "pyatspi", "pyfuse3")

    def __enter__(self):
        os.environ.update(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE="0")
        super().__enter__()
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.serve("dbus-daemon", "--session", "--nofork", "--print-address")
        import pyatspi
        self.bus = pyatspi  # pylint: disable=attribute-defined-outside-init
        return self

    # What the user does.

    def start(self):
        super().start()
        self.expect("the window", lambda: self.xdotool("search", "--onlyvisible", "--pid", str(self.process.pid)))
        self.expect("the controls", lambda: self.find("Start Extracting"))
        self.expect("the keyboard", lambda: self.xdotool("getactivewindow"))

    def press(self, name):
        self.click(self.expect(f"click {name!r}", lambda: self.find(name)))

    def select_first_row(self, table):
        self.click(self.find(table).queryTable().getAccessibleAt(0, 0))

    def answer(self, text, button, keep_clipboard=False):  # pylint: disable=unused-argument
        dialog = self.expect(f"the message {text!r}", lambda: self.message(text))

        def is_gone():
            self.press_in(dialog, button)
            return self.soon(lambda: self.message(text) != dialog)
        self.expect(button, is_gone)

    def choose_file(self, path):
        self.expect("the file dialog", self.file_field)
        self.xdotool("key", "ctrl+a")
        self.xdotool("type", "--delay", "1", path)
        dialog = self.xdotool("getwindowfocus")

        def is_gone():
            self.xdotool("key", "Return")  # a list of proposals takes the first one in some dialogs
            # A second Return must not reach the window.
            return self.soon(lambda: self.xdotool("getwindowfocus") not in ("", "1", dialog), 5)
        self.expect("the file dialog closes", is_gone)

    def click(self, control):
        box = control.queryComponent().getExtents(self.bus.DESKTOP_COORDS)
        self.xdotool("mousemove", str(box.x + box.width // 2), str(box.y + box.height // 2), "click", "1")

    @seen
    def press_in(self, dialog, name):
        self.click(next(self.walk(dialog, lambda one: one.name.replace("&", "") == name)))

    # What the user sees.

    def sees_rows(self, table, count):
        self.expect(f"{count} rows in {table!r}", lambda: self.row_count(table) == count)

    def sees_run(self):
        self.expect("the run is under way", lambda: self.find("Progress"))

    def sees_names(self, reading_order):
        """Every control that takes the focus has a name, and Tab visits those given in their order."""
        window = self.window()
        nameless = [one.getRoleName() for one in self.walk(window, lambda one: self.is_in(one, "focusable"))
                    if one != window and self.is_in(one, "showing") and not one.name.strip()]
        self.check(f"no control without a name: {nameless}", not nameless)
        name = self.expect("a control with the focus", self.focused)
        while name != reading_order[0]:  # wherever the focus is at first
            before = name
            self.xdotool("key", "Tab")
            name = self.expect("Tab", lambda: self.focused() != before and self.focused())
        for name in reading_order[1:]:
            self.xdotool("key", "Tab")
            self.expect(f"Tab to {name!r}", lambda: self.focused() == name)

    # How things are found. Roles, and which part of a message has its text, depend on the toolkit's version.

    def windows(self):
        return [window for program in self.bus.Registry.getDesktop(0) if program is not None
                and program.get_process_id() == self.process.pid for window in program if window is not None]

    @seen
    def window(self):
        return next(one for one in self.windows() if one.getRoleName() in ("frame", "window"))

    def walk(self, node, wanted, depth=12):
        """Every node for which `wanted` holds; tables are not entered, they may be long."""
        if wanted(node):
            yield node
        if depth > 0 and node.getRoleName() not in ("table", "tree"):
            for child in node:
                if child is not None:
                    yield from self.walk(child, wanted, depth - 1)

    def walk_dialogs(self, wanted):
        """Every node for which `wanted` holds, with its dialog."""
        main = self.window()
        for dialog in self.windows():
            if dialog != main and self.is_in(dialog, "visible"):
                yield from ((dialog, one) for one in self.walk(dialog, wanted))

    @seen
    def find(self, name):
        return next(self.walk(self.window(), lambda one: one.name.strip() == name))

    @seen
    def focused(self):
        window = self.window()
        return next(self.walk(window, lambda one: self.is_in(one, "focused") and one != window)).name.strip()

    @seen
    def file_field(self):
        return next(self.walk_dialogs(lambda one: self.is_in(one, "focused") and self.is_in(one, "editable")))

    @seen
    def message(self, text):
        return next(self.walk_dialogs(lambda one: text in one.name or text in one.description or
                                      "Text" in one.get_interfaces() and text in one.queryText().getText(0, -1)))[0]

    @seen
    def row_count(self, table):
        return self.find(table).queryTable().nRows

    def is_in(self, control, state):
        return control is not None and control.getState().contains(getattr(self.bus, "STATE_" + state.upper()))
