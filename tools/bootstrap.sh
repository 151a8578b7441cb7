#!/usr/bin/env bash
# Installs the Debian packages that Tidewright C++ needs to build and test,
# and only those that are missing. Quiet when everything is there; runs
# `apt-get update` only when something must be installed.
#
#   tools/bootstrap.sh          build and test dependencies
#   tools/bootstrap.sh --list   print the package list and exit
set -euo pipefail

PACKAGES=(
  g++            # the compiler (C++20)
  cmake          # the build (3.25 or newer)
  ninja-build    # the build tool
  make           # the top-level Makefile
  libgtest-dev   # GoogleTest
  libgmock-dev   # GoogleMock (GoogleTest's CMake package expects it)
  libbenchmark-dev # Google Benchmark
  libcli11-dev   # command-line parsing for the tidewright tool
  libinih-dev    # reading the per-user settings file (INI)
  libdtl-dev     # the line diff behind --diff
  libpugixml-dev # reading MSBuild projects (.vcxproj)
  nlohmann-json3-dev # reading compilation databases (compile_commands.json)
  patch          # tests apply --diff output with patch -p0
  qt6-base-dev   # the desktop application (Qt 6 Widgets, QtTest)
  xvfb           # a test runs the desktop application on a virtual X server
  xauth          # xvfb-run needs it
  help2man       # the man pages, written from the programs' --help
  gzip           # the man pages and the Debian changelog are installed compressed
  dpkg-dev       # make package: dpkg-shlibdeps finds the package's dependencies
  lintian        # make package: checks the Debian package against the policy
  git            # a test runs the git pre-commit hook on a temporary repository
)

if [ "${1:-}" = "--list" ]; then
  printf '%s\n' "${PACKAGES[@]}"
  exit 0
fi

missing=()
for pkg in "${PACKAGES[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null || true)
  case "$status" in
    *" installed") ;;
    *) missing+=("$pkg") ;;
  esac
done

[ ${#missing[@]} -eq 0 ] && exit 0

echo "bootstrap: installing ${missing[*]}" >&2
if [ "$(id -u)" -eq 0 ]; then
  SUDO=()
elif command -v sudo >/dev/null 2>&1; then
  SUDO=(sudo)
else
  echo "bootstrap: these packages are missing and I am not root: ${missing[*]}" >&2
  echo "bootstrap: install them with: apt-get install ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
"${SUDO[@]}" apt-get update -qq
"${SUDO[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
echo "bootstrap: done" >&2
