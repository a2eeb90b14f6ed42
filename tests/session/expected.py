"""What the program must write for the samples, reckoned without it."""
import os
import re


def sample_rows(folder):
    """The path of the file and the text of every row that the tag "name" gives: the values of all keys with "name" in
    them, by a pattern over the samples' text, since some are not plain JSON."""
    rows = []
    for file in sorted(os.listdir(folder)):
        path = os.path.join(folder, file)
        with open(path, encoding="utf-8-sig") as text:
            for value in re.findall(r'"\w*name"\s*:\s*"([^"]*)"', text.read(), re.IGNORECASE):
                rows.append((path, value + " "))
    return rows


def aligned(rows):
    widths = [max(map(len, column)) for column in zip(*rows)]
    return ["".join(cell.ljust(width) + "\t" for cell, width in zip(row, widths)) for row in rows]


def joined(lines):
    return "".join(line + "\r\n" for line in lines)


def text_of(path):
    if not os.path.exists(path):
        return None
    with open(path, encoding="cp1252", newline="") as file:
        return file.read()
