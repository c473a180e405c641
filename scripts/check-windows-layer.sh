#!/usr/bin/env bash
# Compiles the Windows platform layer with the MinGW-w64 cross compiler in
# syntax-only mode against the Qt headers installed here, with the warnings of
# the Linux build turned into errors. Stops at the first file that fails.
#
#   check-windows-layer.sh <Qt header folder> [warning flags...]
#
# Every .cpp of src/platform/windows/ is checked (and src/platform/*.cpp, the
# neutral half of the adapters), with all the project headers they include.
set -uo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ] || [ ! -f "$1/QtCore/qglobal.h" ]; then
  echo "check-windows-layer: give the Qt 6 header folder (with QtCore/qglobal.h) first" >&2
  exit 2
fi
qt_headers=$1
shift
warnings=("$@")

cxx=x86_64-w64-mingw32-g++-posix
if ! command -v "$cxx" >/dev/null; then
  echo "check-windows-layer: $cxx is missing; scripts/install-deps.sh --with-tests installs it" \
       "(g++-mingw-w64-x86-64-posix, mingw-w64-x86-64-dev)" >&2
  exit 1
fi

# Files that cannot be checked here, with the reason. The C++/WinRT projection
# (winrt/*.h) and the Graphics Capture interop headers come with the Windows
# SDK only; no Debian package provides them.
declare -A skipped=(
  [src/platform/windows/WgcSession.cpp]="needs the C++/WinRT projection (Windows SDK only)"
)

# What Qt's own CMake gives every target of a 64-bit MinGW build.
defines=(-DUNICODE -D_UNICODE -DWIN32 -DWIN64 -D_WIN64 -D_ENABLE_EXTENDED_ALIGNED_STORAGE
         -DMINGW_HAS_SECURE_API=1)
# Qt's headers are system headers, as in the real build: their own warnings
# are not ours to fix.
includes=(-Isrc -isystem "$qt_headers")
for module in QtCore QtGui QtWidgets QtQml QtQmlIntegration QtQuick; do
  includes+=(-isystem "$qt_headers/$module")
done

for file in "${!skipped[@]}"; do
  if [ ! -f "$file" ]; then
    echo "check-windows-layer: $file is on the skip list but does not exist" >&2
    exit 1
  fi
done

flags=(-fsyntax-only -std=c++20 -Werror -Wfatal-errors "${warnings[@]}" "${defines[@]}"
       "${includes[@]}")
files=()
for file in src/platform/*.cpp src/platform/windows/*.cpp; do
  if [ -n "${skipped[$file]:-}" ]; then
    echo "SKIPPED $file: ${skipped[$file]}"
  else
    files+=("$file")
  fi
done

# Two compilers at a time; a failure stops the launching of further files.
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
failed=false
for i in "${!files[@]}"; do
  ( "$cxx" "${flags[@]}" "${files[$i]}" >"$results/$i.log" 2>&1; echo $? >"$results/$i.rc" ) &
  while [ "$(jobs -rp | wc -l)" -ge 2 ]; do wait -n; done
  if grep -qv '^0$' "$results"/*.rc 2>/dev/null; then failed=true; break; fi
done
wait

checked=0
for i in "${!files[@]}"; do
  [ -f "$results/$i.rc" ] || continue
  if [ "$(cat "$results/$i.rc")" != 0 ]; then
    echo "FAILED ${files[$i]} does not compile for Windows:"
    cat "$results/$i.log"
    exit 1
  fi
  echo "ok ${files[$i]}"
  checked=$((checked + 1))
done
if $failed || [ "$checked" -ne "${#files[@]}" ]; then
  echo "check-windows-layer: stopped before every file was checked" >&2
  exit 1
fi
echo "check-windows-layer: $checked files compile for Windows; ${#skipped[@]} skipped"
