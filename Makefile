# make run    builds Tessel and starts it under Wine (ARGS='...' go to its command line)
# make test   builds everything and runs every test
# make bench  builds everything and runs the benchmarks
# make fuzz   builds the fuzz targets and runs each for FUZZ_SECONDS (default 60)
# make dist   builds Tessel and packs the release zip with its checksum into build/dist
# Each installs what is missing first (Debian 12, apt) and can be run again safely.
SHELL := /bin/bash
ARGS ?=

.PHONY: deps native win64 run test bench fuzz dist clean

deps:
	@scripts/install-deps.sh

native: deps
	@cmake --preset native >/dev/null
	@cmake --build --preset native

win64: deps
	@cmake --preset win64 >/dev/null
	@cmake --build --preset win64

run: win64
	@scripts/run.sh $(ARGS)

test: native win64
	@scripts/test.sh

bench: native win64
	@scripts/bench.sh

fuzz:
	@scripts/install-deps.sh fuzz
	@cmake --preset fuzz >/dev/null
	@cmake --build --preset fuzz
	@scripts/fuzz.sh

dist: win64
	@scripts/dist.sh

clean:
	rm -rf build
