# Cadernia: the two commands a newcomer needs are `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc)
# Ninja and ccache when the machine has them (scripts/install-deps installs
# both); paths relative to the checkout, so that another clone hits the cache.
GENERATOR = $(if $(shell command -v ninja),-G Ninja)
LAUNCHER  = $(if $(shell command -v ccache),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
export CCACHE_BASEDIR := $(CURDIR)

.PHONY: all deps configure build test run screenshots bench format format-check clean reliability fuzz sanitize package package-test

all: build

deps:
	@scripts/install-deps

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) $(GENERATOR) $(LAUNCHER) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

run:
	@scripts/run $(BUILD)

screenshots:
	@scripts/screenshots $(BUILD) screenshots

# A Debian package of the installed layout (CPack), then its checks.
package: build
	cd $(BUILD) && cpack -G DEB

package-test: package
	scripts/package-test $(BUILD)

bench: build
	$(BUILD)/bin/cadernia-bench

# The crash test with 200 kills per slot instead of the 20 of `make test`.
reliability: configure
	cmake --build $(BUILD) -j $(JOBS) --target test_reliability
	cd $(BUILD) && CADERNIA_RELIABILITY_TRIALS=200 ctest --output-on-failure -R '^test_reliability$$'

# Each libFuzzer target for FUZZ_SECONDS, built with clang in build-fuzz/.
FUZZ_SECONDS ?= 120
fuzz: deps
	FUZZ_SECONDS=$(FUZZ_SECONDS) JOBS=$(JOBS) scripts/fuzz

# Every test under ASan (with leak checks) and UBSan, built in build-asan/.
sanitize: deps
	JOBS=$(JOBS) scripts/sanitize

FORMATTED = find src tests bench fuzz -name '*.cpp' -o -name '*.h'

format:
	$(FORMATTED) | xargs clang-format -i

# Fails when a file is not as `make format` leaves it.
format-check:
	$(FORMATTED) | xargs clang-format --dry-run -Werror

clean:
	rm -rf $(BUILD)
