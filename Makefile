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

# Solves the shipped example by the batch route, from the start directory,
# and shows the result file: mucr, Mmax (daN.cm), its position x/L, message.
run: build
	@cd $(BUILD)/bin && rm -f Zarvek.TMP && ./Zarvek "$(CURDIR)/$(BUILD)/bin/EXAMPLE.ZVK" >/dev/null; \
	  status=$$?; echo "Zarvek $(BUILD)/bin/EXAMPLE.ZVK -> $(BUILD)/bin/Zarvek.TMP:"; cat Zarvek.TMP; \
	  awk 'NR==1{mu=$$1} NR==2{m=$$1<0?-$$1:$$1} END{if (mu>0) printf "Mcr = mucr x |Mmax| = %.2f kN.m\n", mu*m/10000}' Zarvek.TMP; \
	  exit $$status

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	$(BUILD)/bin/zarvek-bench

clean:
	rm -rf $(BUILD)
