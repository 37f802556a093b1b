#!/usr/bin/env bash
# Installs the build into a temporary prefix and starts the installed program
# the way a user's desktop would find it: headless, with an empty home.
#   install_test.sh BUILD_DIR VERSION
set -euo pipefail
build=$1 version=$2
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
prefix=$root/usr home=$root/home
mkdir -p "$home"

fail() { echo "FAIL: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null
for f in bin/kestrovane share/kestrovane/KestrovaneTry.ksv share/kestrovane/Ksv_Remarks.txt \
         share/applications/kestrovane.desktop share/mime/packages/kestrovane.xml \
         share/icons/hicolor/scalable/apps/kestrovane.svg share/icons/hicolor/48x48/apps/kestrovane.png \
         share/man/man1/kestrovane.1.gz; do
  [ -f "$prefix/$f" ] || fail "$f is not installed"
done
[ "$(file -b --mime-type "$prefix/share/icons/hicolor/256x256/apps/kestrovane.png")" = image/png ] ||
  fail "the 256 px icon is no PNG"

# The installed program, with nothing of the build tree around it.
run() { env -i PATH=/usr/bin:/bin HOME="$home" LANG=C.UTF-8 QT_QPA_PLATFORM=offscreen "$prefix/bin/kestrovane" "$@"; }
[ "$(run --version)" = "Kestrovane $version" ] || fail "--version says: $(run --version)"
example=$prefix/share/kestrovane/KestrovaneTry.ksv
out=$(run check "$example") || fail "check on the installed example: $out"
grep -qx "Integrity: ok" <<<"$out" || fail "check says: $out"
# The installed example stays as shipped: check takes no lock.
[ ! -e "${example%.ksv}.lck" ] || fail "check left a lock file beside the installed example"

# An installed program keeps the user's files in the user's data folder, even
# when bin is writable, and gives it the example and the remark template.
own=$home/.local/share/kestrovane
[ -f "$own/KestrovaneTry.ksv" ] && [ -f "$own/Ksv_Remarks.txt" ] || fail "no copies in $own"
[ -z "$(ls "$prefix/bin" | grep -v '^kestrovane$')" ] || fail "files written into bin: $(ls "$prefix/bin")"

desktop-file-validate "$prefix/share/applications/kestrovane.desktop" || fail "desktop entry refused"
grep -q '^Exec=kestrovane %f$' "$prefix/share/applications/kestrovane.desktop" || fail "the entry passes no file"
update-mime-database "$prefix/share/mime" 2>/dev/null
grep -qx 'application/x-kestrovane-planning:\*.ksv' <(cut -d: -f2- "$prefix/share/mime/globs2") ||
  fail "the MIME type does not claim *.ksv"

# The manual page reads without a warning from man.
warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$prefix/share/man/man1/kestrovane.1.gz" 2>&1 >/dev/null)
[ -z "$warnings" ] || fail "man: $warnings"
echo "installed and started from $prefix"
