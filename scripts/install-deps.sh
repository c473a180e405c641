#!/usr/bin/env bash
# Installs every Debian 12 package Glimmora needs to build, run and test.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi

build_packages=(
  build-essential cmake ninja-build pkg-config clang-format
  qt6-base-dev qt6-base-dev-tools qt6-declarative-dev qt6-declarative-dev-tools
  qt6-shadertools-dev qt6-shader-baker qt6-svg-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-image-formats-plugins qt6-l10n-tools libqt6opengl6-dev libgl-dev libglx-mesa0 libgl1-mesa-dri
  qml6-module-qtquick qml6-module-qtquick-controls qml6-module-qtquick-layouts
  qml6-module-qtquick-shapes qml6-module-qtquick-window qml6-module-qtquick-templates
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qttest
  libxcb1-dev libxcb-shape0-dev libxcb-xinput-dev libxcb-xkb-dev libxcb-xtest0-dev
  libxcb-randr0-dev libxcb-xfixes0-dev libxcb-shm0-dev libxcb-composite0-dev libxcb-render0-dev libxcb-image0-dev libxkbcommon-dev libxkbcommon-x11-dev
  libgstreamer1.0-dev libgstreamer-plugins-base1.0-dev gstreamer1.0-plugins-base
  gstreamer1.0-plugins-good gstreamer1.0-plugins-ugly gstreamer1.0-x
  # Chinese, Japanese and Korean glyphs for the translated chrome.
  fonts-wqy-microhei
)
test_packages=(
  tigervnc-standalone-server xcompmgr x11-xserver-utils x11-utils xdotool xclip
  imagemagick ffmpeg dbus-x11 procps xterm
  openbox i3-wm xfwm4 mutter trayer i3lock ssh-askpass
  g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev desktop-file-utils appstream
)

want=("${build_packages[@]}")
if [ "${1:-}" = "--with-tests" ]; then want+=("${test_packages[@]}"); fi

missing=()
for p in "${want[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update -qq
  $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
