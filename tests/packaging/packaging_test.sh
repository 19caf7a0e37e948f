#!/usr/bin/env bash
# Checks that RosterDesk installs like a desktop program. Usage:
#   packaging_test.sh SOURCE_DIR BUILD_DIR CHECK
# CHECK is one of: desktop-file, metainfo, install, deb.
set -euo pipefail
src=$1
build=$2
check=$3
app_id=org.rosterdesk.RosterDesk
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() { echo "FAIL: $*" >&2; exit 1; }

# Runs an installed rosterdesk offscreen as a user meets it, with a home folder and a settings
# folder of the test's own: on a workspace named by ROSTERDESK_ROOT; then from the menu, started in
# a workspace (an installed program has no workspace in its own folder, and the current folder is
# never taken silently): it asks for the launcher's folder (the first-start window, printed and
# answered as an input box), ends when cancelled, uses and remembers the folder given, takes the
# remembered folder at the next start, and asks again when started by the desktop entry's action
# "Choose Launcher Folder…".
starts() {
    local exe=$1 desktop=$2
    mkdir -p "$scratch/workspace/Plug-Ins/Eraser" "$scratch/here/Game-Paths" "$scratch/home" "$scratch/config"
    local report
    run() {
        (cd "$scratch/here" && env -u WINEPREFIX HOME="$scratch/home" XDG_CONFIG_HOME="$scratch/config" \
            QT_QPA_PLATFORM=offscreen ROSTERDESK_REPORT_START=1 ROSTERDESK_PROMPTS=print "$@")
    }
    report=$(run env ROSTERDESK_ROOT="$scratch/workspace" "$exe")
    grep -qx 'screen=frmMain' <<<"$report" || fail "$exe did not open its main window: $report"
    grep -qx "root=$scratch/workspace" <<<"$report" || fail "$exe did not take ROSTERDESK_ROOT: $report"
    grep -qx 'rootFrom=ROSTERDESK_ROOT' <<<"$report" || fail "$exe did not say how it found its workspace: $report"
    local asked='^prompt: input title="Choose Launcher Folder"'
    report=$(run env -u ROSTERDESK_ROOT "$exe")
    grep -q "$asked" <<<"$report" || fail "$exe did not ask for the launcher's folder: $report"
    ! grep -q '^root=' <<<"$report" || fail "$exe took a workspace without asking: $report"
    [ ! -e "$scratch/config/RosterDesk" ] || fail "$exe wrote settings although cancelled"
    report=$(run env -u ROSTERDESK_ROOT ROSTERDESK_INPUTS="$scratch/here" "$exe")
    grep -qx "root=$scratch/here" <<<"$report" || fail "$exe did not take the folder given: $report"
    grep -qx 'rootFrom=chosen' <<<"$report" || fail "$exe did not report the folder as chosen: $report"
    report=$(run env -u ROSTERDESK_ROOT "$exe")
    ! grep -q "$asked" <<<"$report" || fail "$exe asked again: $report"
    grep -qx "root=$scratch/here" <<<"$report" || fail "$exe did not remember the folder: $report"
    grep -qx 'rootFrom=remembered' <<<"$report" || fail "$exe did not report the folder as remembered: $report"
    local action
    action=$(sed -n '/^\[Desktop Action choose-launcher-folder\]/,/^\[/s/^Exec=//p' "$desktop")
    [ -n "$action" ] || fail "$desktop has no action choose-launcher-folder"
    report=$(run env -u ROSTERDESK_ROOT ${action/%rosterdesk/$exe})
    grep -q "$asked" <<<"$report" || fail "the action \"$action\" did not ask for the launcher's folder: $report"
}

case $check in
desktop-file)
    desktop-file-validate "$src/packaging/$app_id.desktop"
    grep -qx 'Name=Choose Launcher Folder…' "$src/packaging/$app_id.desktop" ||
        fail "the desktop entry has no action Choose Launcher Folder…"
    ;;
metainfo)
    # The file the build installs, and the same file listing its screenshots at a web address (an
    # address kept for examples): each one a picture the guide shows and the package installs.
    appstreamcli validate --no-net "$build/packaging/$app_id.metainfo.xml"
    cmake -DOUT="$scratch/$app_id.metainfo.xml" -DSCREENSHOTS_URL=https://example.org/rosterdesk/screenshots/ \
        -P "$src/packaging/metainfo.cmake"
    appstreamcli validate --no-net "$scratch/$app_id.metainfo.xml"
    pictures=$(grep -o '<image>[^<]*</image>' "$scratch/$app_id.metainfo.xml" | sed 's|</image>||; s|.*/||')
    [ "$(wc -l <<<"$pictures")" -ge 3 ] || fail "the metainfo lists too few screenshots: $pictures"
    for picture in $pictures; do
        [ -f "$src/docs/guide/screenshots/$picture" ] || fail "the metainfo lists $picture, which the guide does not have"
    done
    grep -q '<screenshot type="default">' "$scratch/$app_id.metainfo.xml" || fail "no default screenshot"
    ;;
install)
    cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
    for f in bin/rosterdesk bin/rosterdesk-cli share/applications/$app_id.desktop \
             share/icons/hicolor/scalable/apps/$app_id.svg share/metainfo/$app_id.metainfo.xml \
             share/doc/rosterdesk/guide/index.html share/doc/rosterdesk/guide/screenshots/frmMain.png; do
        [ -e "$scratch/prefix/$f" ] || fail "not installed: $f"
    done
    "$scratch/prefix/bin/rosterdesk-cli" --help | grep -q 'doctor\|bots' || fail "installed rosterdesk-cli --help"
    starts "$scratch/prefix/bin/rosterdesk" "$scratch/prefix/share/applications/$app_id.desktop"
    ;;
deb)
    (cd "$scratch" && cpack -G DEB -B "$scratch/out" --config "$build/CPackConfig.cmake" >/dev/null)
    deb=$(ls "$scratch"/out/rosterdesk_*.deb)
    listing=$(dpkg-deb -c "$deb" | awk '{print $6}')
    for f in ./usr/bin/rosterdesk ./usr/bin/rosterdesk-cli ./usr/share/applications/$app_id.desktop \
             ./usr/share/icons/hicolor/scalable/apps/$app_id.svg ./usr/share/metainfo/$app_id.metainfo.xml \
             ./usr/share/doc/rosterdesk/guide/index.html; do
        grep -qx "$f" <<<"$listing" || fail "the package lacks $f"
    done
    depends=$(dpkg-deb -f "$deb" Depends)
    grep -q 'libqt6widgets6' <<<"$depends" || fail "the package does not depend on Qt Widgets: $depends"
    grep -q 'libqt6svg6' <<<"$depends" || fail "the package does not depend on Qt's SVG plug-ins (the icon): $depends"
    dpkg-deb -x "$deb" "$scratch/root"
    "$scratch/root/usr/bin/rosterdesk-cli" --help >/dev/null || fail "packaged rosterdesk-cli --help"
    starts "$scratch/root/usr/bin/rosterdesk" "$scratch/root/usr/share/applications/$app_id.desktop"
    ;;
*)
    fail "unknown check $check"
    ;;
esac
echo "ok: $check"
