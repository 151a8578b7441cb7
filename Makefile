# Tidewright C++ — the two commands of the Quick start, and a few more.
#
#   make run [FILE=path]   install what is missing, build, format FILE (default: the bundled sample)
#   make test              install what is missing, build, run every test (also under the sanitizers)
#   make bench             build a release and run the benchmarks
#   make package           build a release and make the Debian package (build/package/*.deb)
#   make install           build a release and install it (PREFIX=/usr/local; DESTDIR honoured)
#   make clean

FILE ?= examples/sample.cpp
PREFIX ?= /usr/local
CMAKE ?= cmake
CTEST ?= ctest

.PHONY: all bootstrap build release asan run test test-dev test-asan bench package install clean

all: build

bootstrap:
	@tools/bootstrap.sh

build: bootstrap
	@$(CMAKE) --preset dev >/dev/null
	@$(CMAKE) --build --preset dev

release: bootstrap
	@$(CMAKE) --preset release >/dev/null
	@$(CMAKE) --build --preset release >&2

asan: bootstrap
	@$(CMAKE) --preset asan >/dev/null
	@$(CMAKE) --build --preset asan

run: release
	@build/release/cli/tidewright "$(FILE)"

test: test-dev test-asan

test-dev: build
	@$(CTEST) --preset dev

test-asan: asan
	@$(CTEST) --preset asan

bench: release
	@build/release/bench/tw_bench

package: release
	@cpack --config build/release/CPackConfig.cmake -G DEB -B build/package >&2
	@ls build/package/*.deb
	@if command -v lintian >/dev/null 2>&1; then lintian build/package/*.deb; fi

install: release
	@$(CMAKE) --install build/release --prefix "$(PREFIX)"

clean:
	rm -rf build
