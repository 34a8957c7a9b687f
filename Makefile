# The two everyday commands: `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=
MAKEFLAGS += --no-print-directory

.PHONY: all deps configure build run check-definitions test test-sanitize test-asan test-tsan ci-time bench clean

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
	@$(BUILD)/tools/gdtool/gdtool test data/host/syntax/tests

test: build
	@ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The headless suites under AddressSanitizer and UndefinedBehaviorSanitizer,
# and the tests that run threads under ThreadSanitizer. Each configuration
# builds its test programs and what they need, nothing else (see
# cmake/Sanitizers.cmake and orl_add_test in tests/CMakeLists.txt).
test-sanitize: test-asan test-tsan

# $(1) build folder, $(2) the option that chooses the sanitizer, $(3) its run-time options.
define sanitizer_tests
	@cmake -S . -B $(1) -D$(2)=ON $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(1) -j $(JOBS) --target orl_test_programs
	@$(3) ctest --test-dir $(1) --output-on-failure -j $(JOBS)
endef

test-asan: deps
	$(call sanitizer_tests,build-asan,ORL_SANITIZE,ASAN_OPTIONS=detect_leaks=1)

test-tsan: deps
	$(call sanitizer_tests,build-tsan,ORL_SANITIZE_THREAD,TSAN_OPTIONS=halt_on_error=1)

# Runs CI in a fresh clone of the committed tree and prints each stage's time;
# `make ci-time CI_TIME=--cold` starts from an empty compiler cache.
CI_TIME ?=
ci-time:
	@bash scripts/ci-time.sh $(CI_TIME)

# Each fuzz target for FUZZ_SECONDS with the code it tests instrumented; needs clang.
.PHONY: fuzz
FUZZ_SECONDS ?= 20
fuzz: deps
	@bash scripts/run-fuzz.sh $(FUZZ_SECONDS) $(JOBS)

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	@rm -rf $(BUILD) build-asan build-tsan
