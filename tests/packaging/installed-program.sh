#!/usr/bin/env bash
# Installs a build into a folder of its own and looks at it as a desktop and a user would.
#     installed-program.sh BUILD_FOLDER DESKTOP_ID
set -euo pipefail
build=$1
id=$2

scratch=$(mktemp -d)
program=
cleanUp() {
    [ -z "$program" ] || kill "$program" 2>/dev/null || true
    rm -rf "$scratch"
}
trap cleanUp EXIT
fail() {
    echo "FAILED: $*" >&2
    exit 1
}

prefix="$scratch/a prefix"
cmake --install "$build" --prefix "$prefix" >/dev/null
executable=$(readlink -e "$prefix/bin/brindlewick") || fail "the command leads nowhere"
for companion in Samples/zoo.json Splash/Brindlewick.png HAND-M.CUR drag.ico; do
    [ -s "$(dirname "$executable")/$companion" ] || fail "$companion is not beside the executable"
done

entry="$prefix/share/applications/$id.desktop"
metainfo="$prefix/share/metainfo/$id.metainfo.xml"
[ "$(sed -n 's/^Icon=//p' "$entry")" = "$id" ] || fail "the menu entry has another icon"
for size in 16x16 48x48 256x256 512x512; do
    [ -s "$prefix/share/icons/hicolor/$size/apps/$id.png" ] || fail "there is no icon of $size"
done
grep -q "<id>$id</id>" "$metainfo" || fail "the metainfo is about something else"

# The menu entry's command starts, finds its samples, and keeps nothing outside the user's settings.
command=$(sed -n 's/^Exec=//p' "$entry")
settings="$scratch/settings/Tessaly/Brindlewick.ini"
before=$(find "$prefix" | sort)
PATH="$prefix/bin:$PATH" XDG_CONFIG_HOME="$scratch/settings" QT_QPA_PLATFORM=offscreen "$command" &
program=$!
for ((tenths = 0; tenths < 200; ++tenths)); do
    if grep -qs '^Snapshot=.' "$settings"; then
        break
    fi
    kill -0 "$program" 2>/dev/null || fail "the program ended by itself"
    sleep 0.1
done
grep -qs '^Snapshot=.' "$settings" || fail "the samples were not recorded"
[ "$before" = "$(find "$prefix" | sort)" ] || fail "the program wrote into its own folder"
echo "The installed program is complete."
