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

# Solves the shipped example by the batch route, from the start directory.
run: build
	cd $(BUILD)/bin && rm -f Zarvek.TMP && ./Zarvek "$(CURDIR)/$(BUILD)/bin/EXAMPLE.ZVK"; \
	  status=$$?; echo "Result file $(BUILD)/bin/Zarvek.TMP:"; cat Zarvek.TMP; exit $$status

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	$(BUILD)/bin/zarvek-bench

clean:
	rm -rf $(BUILD)
