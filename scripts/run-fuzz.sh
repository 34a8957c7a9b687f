#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a while from its
# seeds: run-fuzz.sh [seconds per target] [build jobs]. A crash, a leak, a
# hang past 10 s on one input or a failed property stops the run with the
# input that caused it. Without clang there is nothing to run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-20}
jobs=${2:-2}
build=build-fuzz

if ! command -v clang++ >/dev/null; then
  echo "fuzz: clang++ not found, nothing fuzzed"
  exit 0
fi

declare -A seeds=(
  [convert_fuzz]="tests/fuzz/corpus"
  [definition_fuzz]="data/host/syntax"
  [line_store_fuzz]="tests/fuzz/seeds/line_store"
  [tokeniser_fuzz]="tests/fuzz/corpus tests/fuzz/seeds/tokeniser"
  [memo_commands_fuzz]="tests/fuzz/seeds/memo_commands"
)

cmake -S . -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DORL_FUZZ=ON \
  -DORL_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j "$jobs" --target fuzz_targets

for target in convert_fuzz definition_fuzz line_store_fuzz tokeniser_fuzz memo_commands_fuzz; do
  corpus="$build/corpus/$target"
  mkdir -p "$corpus"
  echo "fuzz: $target for $seconds s"
  # shellcheck disable=SC2086 # the seed folders are a list
  if ! "$build/tests/fuzz/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
      -artifact_prefix="$build/" "$corpus" ${seeds[$target]} >"$build/$target.log" 2>&1; then
    tail -n 40 "$build/$target.log"
    echo "fuzz: $target failed; the input is under $build/"
    exit 1
  fi
  grep -E "^#[0-9]+.*DONE" "$build/$target.log" | tail -n 1 || true
done
