# Kelvora: a thin front for the CMake presets. All build logic lives in CMake.
PRESET ?= default
BUILD_DIR := build/$(PRESET)

.PHONY: all build run test unit lint bench clean configure

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

clean:
	rm -rf build
