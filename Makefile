# The two everyday commands: `make run` and `make test`.
BUILD ?= build
JOBS  ?= $(shell nproc 2>/dev/null || echo 2)
CMAKE_FLAGS ?=

.PHONY: all deps configure build run check-definitions test bench clean

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

bench: build
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done

clean:
	@rm -rf $(BUILD)
