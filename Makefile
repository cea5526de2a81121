# Set-up and everyday commands. `make run` and `make test` work on a fresh
# Debian 12 machine: they install what is missing first.
BUILD      ?= build
SAN_BUILD  ?= build-sanitize
TSAN_BUILD ?= build-tsan
FUZZ_BUILD ?= build-fuzz
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 60
DEBS      := cmake g++ make pkgconf qt6-base-dev libgl-dev libgtest-dev libbenchmark-dev fonts-liberation2 \
             python3-dev python3-pybind11 python3-numpy python3-pytest python3-matplotlib qt6-translations-l10n
# The Debian package (`make package`) and its test: dpkg-shlibdeps, and the
# checkers of the desktop entry, the MIME type, the manual pages and the policy
DEBS      += dpkg-dev desktop-file-utils shared-mime-info man-db lintian
# libFuzzer and the sanitizer run-times of clang: for `make fuzz` only
FUZZ_DEBS := clang libclang-rt-14-dev
# A compiler cache, when the machine has one, makes a second build cheap.
CCACHE    := $(shell command -v ccache 2>/dev/null)
LAUNCHER  := $(if $(CCACHE),-DCMAKE_CXX_COMPILER_LAUNCHER=$(CCACHE))
# The programs and the start directory they read (language files, catalogue,
# examples): what `make run` needs, without the tests and the benchmarks.
RUN_TARGETS := Zarvek zarvek-cli zarvek_data

.PHONY: all deps deps-fuzz configure build run test test-sanitize test-threads fuzz bench package clean

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

# The Debian package of the programs and their data, in $(BUILD):
# zarvek_<version>_<arch>.deb. Only what the package holds is built (the
# package target of the build would build the tests and benchmarks too).
package: configure
	cmake --build $(BUILD) -j $(JOBS) --target $(RUN_TARGETS) zarvek_packaging
	cd $(BUILD) && cpack -G DEB

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

# Solves side by side under ThreadSanitizer: the core's tests of solves on
# several threads and of the sweep; any data race fails them.
test-threads: deps
	cmake -S . -B $(TSAN_BUILD) -DZARVEK_WITH_QT=OFF -DZARVEK_WITH_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug \
	  -DCMAKE_CXX_FLAGS="-fsanitize=thread -O1 -g" -DCMAKE_EXE_LINKER_FLAGS=-fsanitize=thread $(LAUNCHER)
	cmake --build $(TSAN_BUILD) -j $(JOBS) --target test_analysis
	TSAN_OPTIONS=halt_on_error=1 $(TSAN_BUILD)/tests/test_analysis --gtest_filter='Reentrancy.*:Sweep.*'

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
	rm -rf $(BUILD) $(SAN_BUILD) $(TSAN_BUILD) $(FUZZ_BUILD)
