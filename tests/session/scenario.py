"""What the session does with the program, the same on every system: from the samples to saved files, a second start, and
closing in the middle of a run. What must be written is worked out here, without the program."""
import os
import pathlib
import re

# The controls as Tab visits them.
READING_ORDER = [
    "JSON files", "Add JSON Files", "Add All JSON Files In Folder", "Load JSON Files From Text File",
    "Load Sample/Example Files", "Clear the JSON files",
    "Tags", "Add Tag", "Load Tags From Text File", "Delete Selected Tag", "Clear the tags",
    "Extract value and tag", "Explain the extraction modes", "Include filename in extraction results",
    "Start Extracting", "Help",
    "Results", "Save Results As Text File", "Save As Comma Delimited", "Copy Results To Clipboard", "Clear the results"]
SAVE = READING_ORDER[17]


def sample_rows(folder):
    """The path of the file and the text of every row that the tag "name" gives: the values of all keys with "name" in
    them, by a pattern over the samples' text, since some are not plain JSON."""
    for path in sorted(os.path.join(folder, file) for file in os.listdir(folder)):
        with open(path, encoding="utf-8-sig") as text:
            for value in re.findall(r'"\w*name"\s*:\s*"([^"]*)"', text.read(), re.IGNORECASE):
                yield path, value + " "


def aligned(rows):
    widths = [max(map(len, column)) for column in zip(*rows)]
    return ["".join(cell.ljust(width) + "\t" for cell, width in zip(row, widths)) for row in rows]


def joined(lines):
    return "".join(line + "\r\n" for line in lines)


def expect_text(user, what, path, expected):
    user.expect(what, lambda: os.path.exists(path) and pathlib.Path(path).read_bytes().decode("cp1252") == expected)


def load_samples(user):
    user.press("Load Sample/Example Files")
    user.answer("open the folder", "No")
    user.sees_rows("JSON files", len(os.listdir(user.samples)))


def choose_one_file(user, path):
    user.keys("ctrl+o")
    user.choose_file(path)
    user.sees_rows("JSON files", 1)


def save_by_keys(user, path):
    user.keys("ctrl+s")
    user.choose_file(path)


def from_samples_to_files(user, rows):
    user.start()
    user.picture("1-empty")
    user.sees_names(READING_ORDER)
    user.keys("F1")
    user.answer("If you need some extraction features added to this software, please email", "OK")
    load_samples(user)
    user.picture("2-samples")
    user.press("Start Extracting")
    user.answer("Done.", "OK")
    values = [row[1:] for row in rows]
    user.sees_rows("Results", len(values))

    text_file = os.path.join(user.out, "results.txt")
    lines = aligned([("Results",), *values])
    save_by_keys(user, text_file)
    expect_text(user, "the text file", text_file, joined(lines))
    # The first row without its tick, so that what is written now differs.
    user.select_first_row("Results")
    user.keys("space")
    user.press(SAVE)
    user.choose_file(text_file)
    user.answer("Are you sure you wish to overwrite " + user.native(text_file) + " ?", "Yes")
    # The row is left out, and still counts for the width.
    expect_text(user, "the text file without the row", text_file, joined(lines[:1] + lines[2:]))

    user.press("Include filename in extraction results")
    user.press("Copy Results To Clipboard")
    user.answer("Results have been copied to the clipboard.", "OK", keep_clipboard=True)
    copied = joined(row[0].rstrip(" ") for row in values[1:])
    user.expect("the copied rows", lambda: user.clipboard() == copied)
    user.picture("3-before-closing")
    user.close_by_keys("alt+F4")


def second_start(user, rows):
    user.start()
    user.sees_rows("Tags", 1)
    load_samples(user)
    user.keys("ctrl+Return")
    user.answer("Done.", "OK")
    # The tag came back and was added a second time, and every tag that a line holds gives it a row.
    twice = [(user.native(path), text) for path, text in rows for _ in range(2)]
    user.sees_rows("Results", len(twice))
    text_file = os.path.join(user.out, "results-with-file-names.txt")
    user.picture("4-with-file-names")
    save_by_keys(user, text_file)
    expect_text(user, "twice the rows beside their files", text_file, joined(aligned([("Filename", "Results"), *twice])))
    user.close_by_keys("ctrl+q")


def close_in_a_run(user):
    """The run would take minutes: the program ends at once."""
    user.start()
    endless = os.path.join(user.home, "endless.json")
    with open(endless, "wb") as file:
        file.truncate(60 << 30)  # bytes take minutes to read; sparse, the file takes no room
    choose_one_file(user, endless)
    user.keys("ctrl+Return")
    user.sees_run()
    user.picture("5-closing-in-the-middle")
    user.close_by_keys("alt+F4")


def wait_for_a_slow_file(user, slow):
    """The window goes on while bytes are long in coming, the run goes on once they come, and closing does not wait."""
    def start_waiting():
        slow.asked.clear()
        slow.may_come.clear()  # only now: the file dialog looks into files as well
        user.keys("ctrl+Return")
        user.expect("the read that does not end", slow.asked.is_set)
        user.sees_run()

    user.start()
    user.sees_rows("Tags", 2)  # closing in a run loses none
    choose_one_file(user, slow.path)
    user.press("Extract all")
    start_waiting()
    user.keys("ctrl+Return")  # a second press is ignored
    slow.may_come.set()
    user.answer("Done.", "OK")
    user.sees_rows("Results", 2)
    start_waiting()
    user.close_by_keys("alt+F4")
    user.check("the bytes have not come", not slow.may_come.is_set())


def run(user):
    rows = list(sample_rows(user.samples))
    user.check("the samples have names", rows)
    from_samples_to_files(user, rows)
    second_start(user, rows)
    close_in_a_run(user)
