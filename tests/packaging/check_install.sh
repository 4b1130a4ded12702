#!/usr/bin/env bash
# Installs the build folder $1 into a temporary DESTDIR and checks the installed tree: both programs,
# the data directory passing the data check, the desktop entry, the AppStream metadata, the manual
# pages, the icons, and the installed program starting on its installed data with no option.
set -euo pipefail
build="$1"
dest="$(mktemp -d)"
trap 'rm -rf "$dest"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

DESTDIR="$dest" cmake --install "$build" --prefix /usr > /dev/null
usr="$dest/usr"
id=org.studydesk.StudyDesk

for f in bin/studydesk bin/studydesk-data; do
  [ -x "$usr/$f" ] || fail "$f is not installed"
done
# Loaded on first use: the sound output and printing.
for m in sound print; do
  [ -n "$(find "$usr/lib" -path "*/studydesk/libstudydesk_$m.so" -size +0)" ] || fail "the $m module is not installed"
done
for f in share/applications/$id.desktop share/metainfo/$id.metainfo.xml \
         share/icons/hicolor/scalable/apps/$id.svg share/icons/hicolor/48x48/apps/$id.png \
         share/icons/hicolor/128x128/apps/$id.png share/icons/hicolor/256x256/apps/$id.png \
         share/man/man1/studydesk.1.gz share/man/man1/studydesk-data.1.gz \
         share/doc/studydesk/copyright share/doc/studydesk/changelog.gz share/doc/studydesk/README.md \
         share/doc/studydesk/docs/authoring.md; do
  [ -s "$usr/$f" ] || fail "$f is missing or empty"
done
for size in 48 128 256; do
  file "$usr/share/icons/hicolor/${size}x${size}/apps/$id.png" | grep -q "${size} x ${size}" \
    || fail "the ${size} px icon is not ${size} x ${size}"
done

"$usr/bin/studydesk-data" check "$usr/share/studydesk/data" > "$dest/check.txt" \
  || { cat "$dest/check.txt"; fail "the installed data does not pass the check"; }
desktop-file-validate "$usr/share/applications/$id.desktop" || fail "desktop entry"
grep -q '^Categories=Education;Languages;$' "$usr/share/applications/$id.desktop" || fail "desktop categories"
appstreamcli validate --no-net "$usr/share/metainfo/$id.metainfo.xml" > "$dest/appstream.txt" \
  || { cat "$dest/appstream.txt"; fail "AppStream metadata"; }
for page in "$usr"/share/man/man1/*.1.gz; do
  warnings="$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$page" 2>&1 > /dev/null)"
  [ -z "$warnings" ] || fail "$(basename "$page"): $warnings"
done

# The installed program, started with no option and no STUDYDESK_DATA, finds the installed data.
printf 'click lblPrac\nclick lblrcmc\nclick lblLevel1\nclick lblEx1\ndump\n' > "$dest/script.txt"
env -u STUDYDESK_DATA HOME="$dest/home" XDG_CONFIG_HOME="$dest/home/config" XDG_DATA_HOME="$dest/home/data" \
  "$usr/bin/studydesk" --script "$dest/script.txt" > "$dest/run.json" || fail "the installed program did not run"
grep -q '"screen":"rcmc"' "$dest/run.json" || fail "the installed program did not open an exercise"
grep -q '"LEVEL 1   Exercise 1"' "$dest/run.json" || fail "the exercise did not load"
version="$("$usr/bin/studydesk" --version)"
[[ "$version" == "studydesk "[0-9]* ]] || fail "--version said: $version"
"$usr/bin/studydesk" --help | grep -q STUDYDESK_DATA || fail "--help does not say where the data is looked for"
echo "installed tree is complete"
