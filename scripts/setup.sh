#!/usr/bin/env bash
# Installs what is missing on a Debian 12 machine, builds, then runs the program
# (`run`), the tests (`test`), makes the Debian package (`package`), or only
# builds (`build`).
set -euo pipefail
cd "$(dirname "$0")/.."

PACKAGES=(g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libgl-dev fonts-dejavu-core
  libsqlite3-dev sqlite3 libcurl4-openssl-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  poppler-utils python3-pyftpdlib xvfb xauth
  librsvg2-bin desktop-file-utils shared-mime-info man-db dpkg-dev file)

install_missing() {
  local missing=()
  for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  $sudo apt-get update -q
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
}

build() {
  cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  cmake --build build -j "$(nproc)"
}

case "${1:-}" in
  run)
    install_missing
    build
    shift
    exec ./build/app/kestrovane --example "$@"
    ;;
  test)
    install_missing
    build
    cd build
    QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)"
    ;;
  package)
    install_missing
    build
    (cd build && cpack -G DEB)
    ;;
  build)
    install_missing
    build
    ;;
  *)
    echo "usage: scripts/setup.sh run|test|package|build" >&2
    exit 2
    ;;
esac
