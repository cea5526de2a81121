# Set-up and everyday commands. `make run` and `make test` work on a fresh
# Debian 12 machine: they install what is missing first.
BUILD ?= build
JOBS  ?= $(shell nproc 2>/dev/null || echo 2)
DEBS  := cmake g++ make pkgconf qt6-base-dev libgl-dev libgtest-dev libbenchmark-dev fonts-liberation2

.PHONY: all deps configure build run test bench clean

all: build

deps:
	@scripts/deps.sh $(DEBS)

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: configure
	cmake --build $(BUILD) -j $(JOBS)

# Starts the program as a user does, from the start directory build/bin:
# the splash, the legal warning, then the main window. Without a display it
# says so and solves the shipped example project with zarvek-cli instead.
run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  cd $(BUILD)/bin && exec ./Zarvek; \
	else \
	  echo "No display (DISPLAY and WAYLAND_DISPLAY are unset): solving $(BUILD)/bin/EXAMPLE.DAT with zarvek-cli instead."; \
	  cd $(BUILD)/bin && ./zarvek-cli solve EXAMPLE.DAT; \
	fi

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	$(BUILD)/bin/zarvek-bench

clean:
	rm -rf $(BUILD)
