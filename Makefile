# The two everyday commands: `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=

.PHONY: all deps configure build run check-definitions test test-sanitize bench clean

all: build

deps:
	@bash scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

run: build
	@$(BUILD)/host/GrammarDesk/grammardesk "$(BUILD)/host/syntax/C++.gdx"

check-definitions: build
	@$(BUILD)/tools/gdtool/gdtool check $(BUILD)/host/syntax/*.gdx

test: build
	@ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The headless suites under AddressSanitizer and UndefinedBehaviorSanitizer,
# and the thread tests of the engine under ThreadSanitizer.
SAN_TESTS = platform_tests definition_tests textstore_tests syntax_tests workbench_tests tool_tests editing_tests
test-sanitize: deps
	@cmake -S . -B build-asan -DORL_SANITIZE=ON -DORL_BUILD_BENCH=OFF >/dev/null
	@cmake --build build-asan -j $(JOBS) --target $(SAN_TESTS) gdtool stage_host
	@for t in $(SAN_TESTS); do f=$$(find build-asan/tests -name $$t -type f); \
	  ASAN_OPTIONS=detect_leaks=1 $$f --gtest_brief=1 || exit 1; done
	@cmake -S . -B build-tsan -DORL_BUILD_BENCH=OFF -DCMAKE_CXX_FLAGS=-fsanitize=thread \
	  -DCMAKE_EXE_LINKER_FLAGS=-fsanitize=thread >/dev/null
	@cmake --build build-tsan -j $(JOBS) --target textstore_tests
	@TSAN_OPTIONS=halt_on_error=1 build-tsan/tests/textstore/textstore_tests --gtest_filter='*Thread*' --gtest_brief=1

# Each fuzz target for FUZZ_SECONDS with the code it tests instrumented; needs clang.
.PHONY: fuzz
FUZZ_SECONDS ?= 20
fuzz: deps
	@bash scripts/run-fuzz.sh $(FUZZ_SECONDS) $(JOBS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	@rm -rf $(BUILD) build-asan build-tsan
