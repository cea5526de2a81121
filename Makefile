# Set-up and everyday commands. `make run` and `make test` work on a fresh
# Debian 12 machine: they install what is missing first.
BUILD      ?= build
SAN_BUILD  ?= build-sanitize
FUZZ_BUILD ?= build-fuzz
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 60
DEBS      := cmake g++ make pkgconf qt6-base-dev libgl-dev libgtest-dev libbenchmark-dev fonts-liberation2
# libFuzzer and the sanitizer run-times of clang: for `make fuzz` only
FUZZ_DEBS := clang libclang-rt-14-dev
# A compiler cache, when the machine has one, makes a second build cheap.
CCACHE    := $(shell command -v ccache 2>/dev/null)
LAUNCHER  := $(if $(CCACHE),-DCMAKE_CXX_COMPILER_LAUNCHER=$(CCACHE))
# The programs and the start directory they read (language files, catalogue,
# examples): what `make run` needs, without the tests and the benchmarks.
RUN_TARGETS := Zarvek zarvek-cli zarvek_data

.PHONY: all deps deps-fuzz configure build run test test-sanitize fuzz bench clean

all: build

deps:
	@scripts/deps.sh $(DEBS)

deps-fuzz:
	@scripts/deps.sh $(FUZZ_DEBS)

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

# Starts the program as a user does, from the start directory build/bin:
# the splash, the legal warning, then the main window. Without a display it
# says so and solves the shipped example project with zarvek-cli instead.
# Only the programs and the start directory are built.
run: configure
	cmake --build $(BUILD) -j $(JOBS) --target $(RUN_TARGETS)
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  cd $(BUILD)/bin && exec ./Zarvek; \
	else \
	  echo "No display (DISPLAY and WAYLAND_DISPLAY are unset): solving $(BUILD)/bin/EXAMPLE.DAT with zarvek-cli instead."; \
	  cd $(BUILD)/bin && ./zarvek-cli solve EXAMPLE.DAT; \
	fi

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The whole program under AddressSanitizer and UndefinedBehaviorSanitizer:
# the core, the windows, Zarvek, zarvek-cli and every test program, with the
# system's Qt; the window tests on the offscreen platform. Any report ends
# the program that makes it and fails its test. The suppression files of
# tests/sanitize hold only what lies inside Qt's own libraries.
SAN_SUPP := $(CURDIR)/tests/sanitize
test-sanitize: deps
	cmake -S . -B $(SAN_BUILD) -DZARVEK_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug \
	  -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g" $(LAUNCHER)
	cmake --build $(SAN_BUILD) -j $(JOBS)
	cd $(SAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1 \
	  LSAN_OPTIONS=suppressions=$(SAN_SUPP)/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1:suppressions=$(SAN_SUPP)/ubsan.supp \
	  ctest --output-on-failure -j $(JOBS)

# libFuzzer targets for the file readers, FUZZ_SECONDS each, on the seeds in
# tests/fuzz/corpus (grown in $(FUZZ_BUILD)/corpus from run to run).
fuzz: deps deps-fuzz
	cmake -S . -B $(FUZZ_BUILD) -DZARVEK_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++ \
	  -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER)
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target fuzz_all
	FUZZ_SECONDS=$(FUZZ_SECONDS) FUZZ_JOBS=$(JOBS) scripts/fuzz.sh $(FUZZ_BUILD)

bench: build
	$(BUILD)/bin/zarvek-bench

clean:
	rm -rf $(BUILD) $(SAN_BUILD) $(FUZZ_BUILD)
