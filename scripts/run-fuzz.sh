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
  [definition_fuzz]="data/host/syntax tests/fuzz/seeds/definition"
  [line_store_fuzz]="tests/fuzz/seeds/line_store"
  [tokeniser_fuzz]="tests/fuzz/corpus tests/fuzz/seeds/tokeniser"
  [memo_commands_fuzz]="tests/fuzz/seeds/memo_commands"
)

cmake -S . -B "$build" -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ -DORL_FUZZ=ON \
  -DORL_BUILD_BENCH=OFF >/dev/null
cmake --build "$build" -j "$jobs" --target fuzz_targets

# One target from its corpus and seeds; its output goes to a log beside the build.
fuzz_target() {
  local target=$1 corpus="$build/corpus/$1"
  mkdir -p "$corpus"
  # shellcheck disable=SC2086 # the seed folders are a list
  "$build/tests/fuzz/$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -artifact_prefix="$build/$target-" "$corpus" ${seeds[$target]} >"$build/$target.log" 2>&1
}

report() {
  local target=$1 status=$2
  if [ "$status" != 0 ]; then
    tail -n 40 "$build/$target.log"
    echo "fuzz: $target failed; the input is under $build/"
    return 1
  fi
  echo "fuzz: $target $(grep -E "^#[0-9]+.*DONE" "$build/$target.log" | tail -n 1 || true)"
}

# As many targets at a time as there are build jobs, each for the full time.
mapfile -t targets < <(printf '%s\n' "${!seeds[@]}" | sort)
echo "fuzz: ${targets[*]}, $seconds s each, $jobs at a time"
declare -A running=()
failed=0
for target in "${targets[@]}"; do
  if [ "${#running[@]}" -ge "$jobs" ]; then
    wait -n -p done_pid && status=0 || status=$?
    report "${running[$done_pid]}" "$status" || failed=1
    unset "running[$done_pid]"
  fi
  fuzz_target "$target" &
  running[$!]=$target
done
while [ "${#running[@]}" -gt 0 ]; do
  wait -n -p done_pid && status=0 || status=$?
  report "${running[$done_pid]}" "$status" || failed=1
  unset "running[$done_pid]"
done
exit "$failed"
