# The everyday commands. Everything is built below build/, nothing else in the tree changes.

SHELL := /bin/bash
.SHELLFLAGS := -eu -o pipefail -c

PREFIX ?= /usr/local
JOBS := $(shell nproc)
RELEASE := build/release
DEMO := build/demo
FXALGEN := $(RELEASE)/apps/fxalgen/fxalgen

.PHONY: help demo test bench install format tidy clean packages release

help:
	@echo "make demo      build, calculate, assess and draw the demo rivers and their seston, print results and explanations"
	@echo "make test      build and run all tests, with sanitizers and optimised"
	@echo "make bench     run the benchmarks, figures in build/bench.txt"
	@echo "make install   install below PREFIX=$(PREFIX)"
	@echo "make format    format the sources"
	@echo "make tidy      run the static checks"
	@echo "make clean     remove build/"

packages:
	@tools/install-packages

release: packages
	cmake --preset release
	cmake --build --preset release -j $(JOBS)

demo: packages
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target fxalgen
	@tools/demo $(FXALGEN) $(DEMO)

# The tests' own messages are part of the result, so both streams go one way.
test: packages
	@tools/run-tests asan release 2>&1

bench: packages
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target fx_bench
	$(RELEASE)/bench/fx_bench --benchmark_out=build/bench.json --benchmark_out_format=json | tee build/bench.txt

install: packages
	cmake --preset release
	cmake --build --preset release -j $(JOBS) --target FX_Algen FX_Algen_ui fxalgen
	cmake --install $(RELEASE) --prefix "$(PREFIX)"

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

tidy:
	cmake --preset dev
	cmake --build --preset dev -j $(JOBS)
	git ls-files 'src/*.cpp' 'apps/*.cpp' | xargs -n 1 -P $(JOBS) clang-tidy -p build/dev --quiet

clean:
	rm -rf build
