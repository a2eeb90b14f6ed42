#!/usr/bin/env bash
# Has a file that a desktop or a manual reads judged by the program made for that; any remark fails.
#     shipped-text.sh FILE.desktop | FILE.metainfo.xml | FILE.1
# Exit status 77: the judge is not installed.
set -euo pipefail
file=$1

need() {
    if ! command -v "$1" >/dev/null; then
        echo "skipped: there is no $1 here"
        exit 77
    fi
}

case "$file" in
*.desktop)
    need desktop-file-validate
    remarks=$(desktop-file-validate --warn-kde "$file" 2>&1) || true
    ;;
*.metainfo.xml)
    need appstreamcli
    # Without the network: the pictures' addresses are not looked up.
    if remarks=$(appstreamcli validate --no-net --no-color "$file" 2>&1); then
        remarks=
    fi
    ;;
*.1)
    need man
    # The width is fixed, so that the words break as they would on any terminal. Pages go to nobody.
    remarks=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings --encoding=UTF-8 --local-file "$file" 2>&1 >/dev/null) || true
    if [ -z "$(LC_ALL=C.UTF-8 MANWIDTH=80 man --local-file "$file" 2>/dev/null)" ]; then
        remarks+=" The page is empty."
    fi
    ;;
*)
    echo "nobody is known who judges $file" >&2
    exit 2
    ;;
esac
if [ -n "$remarks" ]; then
    echo "$remarks" >&2
    exit 1
fi
echo "No remarks about $(basename "$file")."
