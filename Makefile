# Lumora's front: each target installs what is missing, configures, builds and runs. `make help` lists them.
#   PREFIX=/usr/local  where to install      DESTDIR=      staging root      PRESET=release  what is installed      JOBS=  parallel jobs

PRESET = release
JOBS := $(shell nproc)
GENERATOR := $(if $(shell command -v ninja),Ninja,Unix Makefiles)
export CMAKE_CXX_COMPILER_LAUNCHER ?= $(shell command -v ccache)

packages = @scripts/install-packages
build = @cmake --build build/$(1) --parallel $(JOBS)
# What g++ checks is what the tests use, too, where nobody minds that warnings end its build.
gcc = $(if $(CI),dev,check-gcc)
tests = ctest --preset $(1) -j $(JOBS) --no-tests=error

.PHONY: help demo test check format tidy sanitize fuzz bench peers docs install deb uninstall clean
help: ## lists the targets
	@sed -n 's/^\([a-z]*\):.*## /make \1	/p' Makefile

demo: ## builds the gallery and shows it; without a display it leaves pictures in build/screenshots
	$(packages) build test
	@$(MAKE) -s --no-print-directory build/dev/configured
	$(call build,dev)
	@scripts/demo build/dev

test: ## builds everything and runs every test
	$(packages) build test
	@$(MAKE) -s --no-print-directory build/dev/configured
	$(call build,dev)
	@$(call tests,dev)

sanitize: ## the same with AddressSanitizer and UndefinedBehaviorSanitizer
	$(packages) build test
	@$(MAKE) -s --no-print-directory build/asan/configured
	$(call build,asan)
	@$(call tests,asan)

check: ## format, includes, headers, documents, binary interface; a build without any warning by g++ and by clang++
	$(packages) build test check
	@scripts/check-format
	@scripts/check-includes
	@scripts/check-docs
	@$(MAKE) -s --no-print-directory build/$(gcc)/configured build/check-clang/configured
	@scripts/check-headers build/$(gcc) g++ clang++
	$(call build,$(gcc)) --target zentalm
	@scripts/check-abi build/$(gcc)
	$(call build,check-clang)

format: ## puts every C++ file into the form that check wants
	$(packages) check
	@scripts/check-format --fix

tidy: ## clang-tidy over the library
	$(packages) build test check
	@$(MAKE) -s --no-print-directory build/check-clang/configured
	@find support geometry platform base utils process components -name '*.cpp' -print0 | \
	    xargs -0 -r -n 4 -P $(JOBS) clang-tidy -p build/check-clang --quiet --warnings-as-errors='*'

fuzz: ## random inputs for everything that reads files, a minute for each target
	$(packages) build check
	@$(MAKE) -s --no-print-directory build/fuzz/configured
	@cmake --build build/fuzz --parallel $(JOBS) --target fuzz_targets
	@scripts/fuzz build/fuzz

bench: ## the measurements of bench/
	$(packages) build test bench
	@$(MAKE) -s --no-print-directory build/bench/configured
	@cmake --build build/bench --parallel $(JOBS) --target bench

peers: ## the same jobs with FLTK, GTK 3 and Lumora, as a table
	$(packages) build test peers
	@$(MAKE) -s --no-print-directory build/peers/configured
	@cmake --build build/peers --parallel $(JOBS) --target peers

docs: ## the reference of every public name: HTML and manual pages in build/docs
	$(packages) docs
	@scripts/build-docs

install: ## installs library, headers, data, CMake package and pkg-config module
	$(packages) build
	@$(MAKE) -s --no-print-directory build/$(PRESET)/configured
	$(if $(PREFIX),@cmake -DCMAKE_INSTALL_PREFIX=$(PREFIX) build/$(PRESET) >/dev/null)
	$(call build,$(PRESET))
	@cmake --install build/$(PRESET)

deb: ## Debian packages in build/deb, checked and tried
	$(packages) build test docs deb
	@scripts/build-deb
	@scripts/test-deb

uninstall: ## removes what the last install from here installed; same DESTDIR
	@scripts/uninstall build/$(PRESET)/install_manifest.txt $(DESTDIR)

clean: ## removes everything that was built
	rm -rf build

# --- configuring: once, and again when the presets change ----------------------------------------------------------------------
LIBRARY_ONLY = -DLUMORA_TESTS=OFF -DLUMORA_EXAMPLES=OFF
build/check-gcc/configured: OPTIONS = --preset dev -DLUMORA_WERROR=ON -DCMAKE_CXX_COMPILER=g++ $(LIBRARY_ONLY)
build/dev/configured: OPTIONS = --preset dev $(if $(CI),-DLUMORA_WERROR=ON)
build/check-clang/configured: OPTIONS = --preset dev -DCMAKE_BUILD_TYPE=Debug -DLUMORA_WERROR=ON -DCMAKE_CXX_COMPILER=clang++ $(LIBRARY_ONLY)
build/bench/configured: OPTIONS = --preset release -DLUMORA_BENCH=ON
build/peers/configured: OPTIONS = --preset release -DLUMORA_PEERS=ON -DLUMORA_EXAMPLES=OFF
build/%/configured: OPTIONS = --preset $*
build/%/configured: CMakePresets.json
	@cmake $(OPTIONS) -B build/$* $(if $(wildcard build/$*/CMakeCache.txt),,-G "$(GENERATOR)")
	@touch $@
