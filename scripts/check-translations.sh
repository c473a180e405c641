#!/usr/bin/env bash
# Fails when a translation file lacks a text that the translated documents
# show, still holds one they no longer show, or leaves one untranslated.
# Usage: check-translations.sh <lupdate> <file.ts>... -- <document>...
# The files themselves are left alone: lupdate works on copies.
set -euo pipefail
lupdate=$1
shift
ts_files=()
while [ $# -gt 0 ] && [ "$1" != "--" ]; do ts_files+=("$1"); shift; done
shift
[ ${#ts_files[@]} -gt 0 ] && [ $# -gt 0 ] || { echo "check-translations: nothing to check" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
for ts in "${ts_files[@]}"; do
  copy="$work/$(basename "$ts")"
  cp "$ts" "$copy"
  "$lupdate" -silent -locations none "$@" -ts "$copy" >/dev/null
  # A message lupdate had to add, or one whose text has gone, is marked;
  # so is one whose translation is still empty.
  bad=$(grep -B3 -E '<translation type="(unfinished|vanished|obsolete)"|<translation>\s*</translation>|<translation/>' "$copy" \
    | grep -o '<source>.*</source>' | sed -e 's/<[^>]*>//g' || true)
  if [ -n "$bad" ]; then
    echo "$(basename "$ts"): unfinished, missing or stale messages:"
    sed 's/^/  - /' <<<"$bad"
    status=1
  fi
done
exit $status
