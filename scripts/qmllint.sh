#!/usr/bin/env bash
# Lints every QML document against the built module. The documents reach the
# eight objects of the engine's root context by name, which qmllint cannot
# know; an unqualified access to one of those is the only warning allowed.
set -euo pipefail
cd "$(dirname "$0")/.."
build_dir=${1:-build}
context='appController|settingsManager|displayManager|drawingModel|renderBackendManager|macPermissions|winAcrylic|hotkeyManager'
mapfile -t files < <(git ls-files '*.qml')
[ ${#files[@]} -gt 0 ] || exit 0
out=$(/usr/lib/qt6/bin/qmllint -I "$build_dir/qml" "${files[@]}" 2>&1 || true)
bad=$(printf '%s\n' "$out" | awk -v ctx="^($context)([^A-Za-z0-9_]|\$)" '
  pending { pending = 0; if (substr($0, col) !~ ctx) print warning; next }
  /^Warning: / {
    if ($0 ~ /Unqualified access$/) {
      n = split($2, parts, ":"); col = parts[n - 1]; warning = $0; pending = 1
    } else print
  }')
if [ -n "$bad" ]; then
  printf '%s\n' "$bad"
  exit 1
fi
