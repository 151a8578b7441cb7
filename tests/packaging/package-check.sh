#!/bin/sh
# Makes the Debian package from a build with CPack, reads it with dpkg-deb,
# extracts it into a throwaway root and runs both programs from there
# (run-installed.sh). With lintian installed, the package must give no error.
# Exit 77 (a skipped test for CTest) when dpkg-deb is missing.
#   package-check.sh CPACK BUILD-DIR
set -eu
cpack=$1
build=$2
here=$(cd "$(dirname "$0")" && pwd)
if ! command -v dpkg-deb >/dev/null 2>&1 || ! command -v dpkg-shlibdeps >/dev/null 2>&1; then
    echo "SKIPPED: dpkg-deb or dpkg-shlibdeps is missing (Debian packages dpkg, dpkg-dev); the package is not checked" >&2
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail=0
say() { echo "package-check: $*" >&2; fail=1; }

"$cpack" --config "$build/CPackConfig.cmake" -G DEB -B "$work/out" >"$work/cpack.log" 2>&1 \
    || { cat "$work/cpack.log" >&2; say "cpack failed"; exit 1; }
deb=$(find "$work/out" -maxdepth 1 -name 'tidewright_*.deb' | head -n 1)
[ -n "$deb" ] || { cat "$work/cpack.log" >&2; say "cpack made no tidewright_*.deb"; exit 1; }
echo "package-check: $(basename "$deb"), $(du -k "$deb" | cut -f1) KiB"

# The control fields.
info=$(dpkg-deb -I "$deb")
for field in 'Package: tidewright' 'Section: devel' 'Priority: optional' 'Architecture: '; do
    printf '%s\n' "$info" | grep -q "^ $field" || say "the control file lacks: $field"
done
depends=$(printf '%s\n' "$info" | sed -n 's/^ Depends: //p')
for library in libc6 libstdc++6 libqt6widgets6 libinih1 libpugixml1v5; do
    printf '%s\n' "$depends" | grep -q "$library" || say "Depends lacks $library: $depends"
done

# The contents.
# The listing's sixth column on is the path (which may hold spaces).
contents=$(dpkg-deb -c "$deb" | sed -E 's/^([^ ]+ +){5}//')
for file in ./usr/bin/tidewright ./usr/bin/tidewright-gui ./usr/share/tidewright/schemes/default.tws \
            ./usr/share/doc/tidewright/copyright ./usr/share/doc/tidewright/changelog.Debian.gz \
            ./usr/share/doc/tidewright/README.md ./usr/share/man/man1/tidewright.1.gz \
            ./usr/share/man/man1/tidewright-gui.1.gz ./usr/share/applications/tidewright-gui.desktop \
            ./usr/share/bash-completion/completions/tidewright "./usr/share/tidewright/schemes/Leave as is.tws"; do
    printf '%s\n' "$contents" | grep -qxF "$file" || say "the package lacks $file"
done
printf '%s\n' "$contents" | grep -v '^\./usr/' | grep -v '^\./$' | sed 's/^/package-check: outside \/usr: /' | grep . >&2 \
    && fail=1
# No empty directory: each one holds a file somewhere below it.
for dir in $(printf '%s\n' "$contents" | grep '/$' | grep -v ' '); do
    printf '%s\n' "$contents" | grep -v '/$' | grep -qF "$dir" || say "empty directory in the package: $dir"
done

# Installed into a throwaway root, the programs work from there.
dpkg-deb -x "$deb" "$work/root"
"$here/run-installed.sh" "$work/root/usr" || fail=1

if command -v lintian >/dev/null 2>&1; then
    lintian --tag-display-limit 0 "$deb" >"$work/lintian.log" 2>&1 || true
    cat "$work/lintian.log"
    if grep -q '^E: ' "$work/lintian.log"; then
        say "lintian reports errors"
    fi
else
    echo "package-check: lintian is not installed; the package's policy check is left out" >&2
fi
exit $fail
