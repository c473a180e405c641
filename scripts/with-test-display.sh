#!/usr/bin/env bash
# Runs a command against a private X server laid out like a presenter's desk:
# TigerVNC's server (it honours RandR monitors, where Xvfb ignores them) with a
# 3840x1080 framebuffer split into two 1920x1080 monitors LEFT and RIGHT, and
# xcompmgr so that transparent windows composite as on a desktop.
# GLIMMORA_TEST_COMPOSITOR picks another compositing manager: "xfwm4" or
# "mutter" (window managers that composite by themselves), or "none".
# The servers stop when the command ends; its exit code is returned.
set -euo pipefail

display_number=${GLIMMORA_TEST_DISPLAY:-}
if [ -z "$display_number" ]; then
  for n in $(seq 40 99); do
    if [ ! -e "/tmp/.X11-unix/X$n" ] && [ ! -e "/tmp/.X$n-lock" ]; then display_number=$n; break; fi
  done
fi
[ -n "$display_number" ] || { echo "with-test-display: no free display number" >&2; exit 1; }

runtime_dir=$(mktemp -d /tmp/glimmora-xserver.XXXXXX)
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$runtime_dir"
}
trap cleanup EXIT

# The output spans both monitors from the start: the server keeps the pointer
# on its output, and XTest must reach the right monitor too.
Xtigervnc ":$display_number" -geometry 3840x1080 -depth 24 -SecurityTypes None -localhost \
  -rfbport -1 -AlwaysShared >"$runtime_dir/xserver.log" 2>&1 &
pids+=($!)
export DISPLAY=":$display_number"
for _ in $(seq 100); do
  xdpyinfo >/dev/null 2>&1 && break
  sleep 0.1
done
xdpyinfo >/dev/null 2>&1 || { cat "$runtime_dir/xserver.log" >&2; echo "with-test-display: X server did not start" >&2; exit 1; }

xrandr --setmonitor LEFT 1920/508x1080/286+0+0 VNC-0 >/dev/null
xrandr --setmonitor RIGHT 1920/508x1080/286+1920+0 none >/dev/null
xsetroot -solid '#808080' 2>/dev/null || true

compositor=${GLIMMORA_TEST_COMPOSITOR:-xcompmgr}
case "$compositor" in
  xcompmgr) xcompmgr -n >"$runtime_dir/compositor.log" 2>&1 & pids+=($!) ;;
  xfwm4) xfwm4 --compositor=on >"$runtime_dir/compositor.log" 2>&1 & pids+=($!) ;;
  mutter) dbus-launch --exit-with-session mutter --x11 --replace >"$runtime_dir/compositor.log" 2>&1 & pids+=($!) ;;
  none) ;;
  *) echo "with-test-display: unknown compositor $compositor" >&2; exit 1 ;;
esac
# A window manager announces itself on the root window once it manages; its
# compositor is running by then.
if [ "$compositor" = xfwm4 ] || [ "$compositor" = mutter ]; then
  for _ in $(seq 100); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" && break
    sleep 0.1
  done
fi
sleep 0.3

set +e
"$@"
status=$?
set -e
exit $status
