#!/usr/bin/env bash
# Times CI as CI runs it: clones the committed tree into a new folder, runs
# .ci/run there and prints the wall time of each stage. With --cold the run
# gets an empty compiler cache of its own (the shared cache is not touched),
# so the figures are those of a first run. The clone is removed afterwards
# unless --keep is given.
set -euo pipefail
cd "$(dirname "$0")/.."

usage="usage: scripts/ci-time.sh [--cold] [--keep]"
cold=0
keep=0
for arg in "$@"; do
  case $arg in
    --cold) cold=1 ;;
    --keep) keep=1 ;;
    *) echo "$usage" >&2; exit 2 ;;
  esac
done

work=$(mktemp -d "${TMPDIR:-/tmp}/orl-ci-time.XXXXXX")
[ "$keep" = 1 ] || trap 'rm -rf "$work"' EXIT
[ "$cold" = 1 ] && export CCACHE_DIR="$work/ccache"

git clone --quiet --no-hardlinks . "$work/clone"
times="$work/stage-times"
log="$work/ci.log"
: >"$times"
start=$SECONDS
status=0
ORL_CI_TIMES="$times" "$work/clone/.ci/run" >"$log" 2>&1 || status=$?
total=$((SECONDS - start))

tail -n 5 "$log"
[ "$status" = 0 ] || { echo "CI failed (status $status); its output: $log"; keep=1; trap - EXIT; }
echo
echo "CI stages, $( [ "$cold" = 1 ] && echo cold || echo warm ) compiler cache, $(git rev-parse --short HEAD) in $work/clone:"
# CPU time divided by the cores is what the stage would take alone on the
# machine; the wall time grows with whatever else runs beside it.
minutes() { printf '%d:%02d' $(($1 / 60)) $(($1 % 60)); }
cores=$(nproc)
cpu_total=0
printf '  %-6s %8s %8s %14s\n' stage wall cpu "cpu/$cores cores"
while read -r name wall cpu; do
  printf '  %-6s %8s %8s %14s\n' "$name" "$(minutes "$wall")" "$(minutes "$cpu")" "$(minutes $((cpu / cores)))"
  cpu_total=$((cpu_total + cpu))
done <"$times"
printf '  %-6s %8s %8s %14s\n' total "$(minutes "$total")" "$(minutes "$cpu_total")" "$(minutes $((cpu_total / cores)))"
exit "$status"
