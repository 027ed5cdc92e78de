# Cadernia: the two commands a newcomer needs are `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc)

.PHONY: all deps configure build test run screenshots bench format clean

all: build

deps:
	@scripts/install-deps

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

run:
	@scripts/run $(BUILD)

screenshots:
	@scripts/screenshots $(BUILD) screenshots

bench: build
	$(BUILD)/bin/cadernia-bench

format:
	find src tests bench -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD)
