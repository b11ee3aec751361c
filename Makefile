# Kelvora: a thin front for the CMake presets. All build logic lives in CMake.
PRESET ?= default
BUILD_DIR := build/$(PRESET)

FUZZ_SECONDS ?= 60

.PHONY: all build run test unit lint bench asan-build asan fuzz package dist clean configure windows

all: build

configure:
	@tools/packages.sh
	@test -f $(BUILD_DIR)/build.ninja || cmake --preset $(PRESET)

build: configure
	cmake --build --preset $(PRESET)

run: build
	$(BUILD_DIR)/kelvora

test:
	@tools/packages.sh test
	@test -f $(BUILD_DIR)/build.ninja || cmake --preset $(PRESET)
	cmake --build --preset $(PRESET)
	ctest --preset $(PRESET)

# The unit tests alone: offscreen, in seconds, without the X server and the printer set-up.
unit: configure
	cmake --build --preset $(PRESET)
	ctest --preset unit

# The Debian package kelvora_<version>_<arch>.deb and the source archive, in the build folder.
package: build
	cmake --build --preset $(PRESET) --target package

dist: configure
	cmake --build --preset $(PRESET) --target dist

# clang-format and clang-tidy over every source file.
lint: build
	tools/lint.sh $(BUILD_DIR)

# The performance figures next to bare Qt windows, on the Xorg dummy server and offscreen (a
# benchmark, not a test: it prints, it does not judge).
bench:
	@tools/packages.sh bench
	@test -f $(BUILD_DIR)/build.ninja || cmake --preset $(PRESET)
	cmake --build --preset $(PRESET) --target kelvora_bench
	bench/run.sh $(BUILD_DIR)

# The sanitizer tree (clang, build/asan): the unit tests under AddressSanitizer, LeakSanitizer and
# UndefinedBehaviorSanitizer, then each fuzz target for FUZZ_SECONDS seconds.
asan-build:
	@tools/packages.sh sanitize
	@test -f build/asan/build.ninja || cmake --preset asan
	cmake --build --preset asan

asan: asan-build
	ctest --preset asan

fuzz: asan-build
	tools/fuzz.sh build/asan $(FUZZ_SECONDS)

# Kelvora for Windows, cross-built with MinGW-w64: Qt for Windows once into a cache
# (~/.cache/kelvora/qt-6.4.2-mingw64, or $KELVORA_QT_WINDOWS), then in build/windows the programme
# and its tests, run under Wine, the installer Kelvora-<version>-win64.exe and the portable
# Kelvora-<version>-win64.zip. WINDOWS_TESTS_EXCLUDE, a regular expression, leaves tests out.
WINDOWS_TESTS_EXCLUDE ?=
windows:
	@tools/packages.sh windows
	tools/qt-windows.sh
	@test -f build/windows/build.ninja || cmake --preset windows
	cmake --build --preset windows
	ctest --preset windows $(if $(WINDOWS_TESTS_EXCLUDE),--exclude-regex '$(WINDOWS_TESTS_EXCLUDE)')

clean:
	rm -rf build
