# Makes the manual page from docs/manual.md, after the part that packaging/brindlewick.1.in contains.
# Understands the Markdown that the manual uses: headings, paragraphs, items, tables, indented examples, `code`, **bold**.

function roff(text, parts, pieces, i, out) {
    gsub(/\\/, "\\e", text)
    gsub(/-/, "\\-", text)
    gsub(/\*\*/, "`", text)
    pieces = split(text, parts, "`")
    out = parts[1]
    for (i = 2; i <= pieces; ++i)
        out = out (i % 2 ? "\\fR" : "\\fB") parts[i]
    return (out ~ /^[.']/ ? "\\&" : "") out
}
function become(next_kind, i) {
    if (kind == "table" && next_kind != "table") print ".TE"
    if (kind == "example" && next_kind != "example") print ".EE\n.RE"
    if (next_kind == "table" && kind != "table") {
        print ".TS"
        for (i = 1; i < count; ++i) printf "lw(15) "
        print "lx."
    }
    if (next_kind == "example" && kind != "example") print ".RS 4\n.EX"
    kind = next_kind
}

/^# / { print ".SH DESCRIPTION"; next }
/^## / { become("text"); print ".SH " toupper(substr($0, 4)); next }
/^$/ { become("text"); print ".PP"; next }
/^\|/ {
    if ($0 ~ /^\|-/) next
    gsub(/^\| ?| ?\|$/, "")
    count = split($0, cells, / ?\| /)
    become("table")
    line = ""
    for (i = 1; i <= count; ++i)
        line = line (i > 1 ? "\t" : "") "T{\n" roff(cells[i]) "\nT}"
    print line
    next
}
/^    / { become("example"); print roff(substr($0, 5)); next }
/^- / { become("text"); print ".IP \\(bu 2"; $0 = substr($0, 3) }
{ become("text"); sub(/^ +/, ""); print roff($0) }
END { become("text") }
