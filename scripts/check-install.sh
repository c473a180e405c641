#!/usr/bin/env bash
# Installs a built tree into a throw-away prefix and checks what a desktop
# reads of it: the program, a valid application entry, its icon and valid
# AppStream metadata. Usage: check-install.sh <build dir>
set -euo pipefail
build_dir=$1
prefix=$(mktemp -d /tmp/glimmora-install.XXXXXX)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build_dir" --prefix "$prefix" >/dev/null
test -x "$prefix/bin/glimmora"
test -f "$prefix/share/icons/hicolor/scalable/apps/glimmora.svg"
desktop-file-validate "$prefix/share/applications/glimmora.desktop"
grep -qx 'Exec=glimmora' "$prefix/share/applications/glimmora.desktop"
grep -qx 'Icon=glimmora' "$prefix/share/applications/glimmora.desktop"
appstreamcli validate --no-net "$prefix/share/metainfo/org.orvelline.Glimmora.metainfo.xml"
echo "check-install: installed and valid under $prefix"
