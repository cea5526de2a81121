#!/usr/bin/env bash
# Runs the libFuzzer targets built in BUILD_DIR/fuzz, each for FUZZ_SECONDS,
# JOBS of them at a time. Each works on a corpus of its own in
# BUILD_DIR/corpus/<target>, started from the seeds in tests/fuzz/corpus and
# grown by earlier runs; the seeds themselves are left as they are. A crash,
# a sanitizer report, a leak or a time-out leaves its input in
# BUILD_DIR/findings/<target>/ and fails the run.
#   usage: scripts/fuzz.sh BUILD_DIR [target ...]
set -uo pipefail
cd "$(dirname "$0")/.."
build=${1:?usage: scripts/fuzz.sh BUILD_DIR [target ...]}
shift
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(problem project language catalogue)
seconds=${FUZZ_SECONDS:-60}
jobs=${FUZZ_JOBS:-2}
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:allocator_may_return_null=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}

run_one() {
  local t=$1 corpus="$build/corpus/$1" out="$build/findings/$1"
  mkdir -p "$corpus" "$out"
  "$build/fuzz/fuzz_$t" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -max_len=65536 -print_final_stats=1 -artifact_prefix="$out/" \
    "$corpus" "tests/fuzz/corpus/$t" >"$build/fuzz_$t.log" 2>&1
  local rc=$?
  local execs
  execs=$(grep -o 'stat::number_of_executed_units: *[0-9]*' "$build/fuzz_$t.log" | grep -o '[0-9]*$')
  if [ $rc -eq 0 ]; then
    echo "fuzz_$t: ${seconds} s, ${execs:-?} runs, no finding"
  else
    echo "fuzz_$t: FAILED (exit $rc), see $build/fuzz_$t.log and $out/"
    grep -m3 -E 'ERROR|runtime error|==[0-9]+==' "$build/fuzz_$t.log" | sed 's/^/  /'
  fi
  return $rc
}

status=0
pids=()
names=()
for t in "${targets[@]}"; do
  [ -x "$build/fuzz/fuzz_$t" ] || { echo "no fuzz target $build/fuzz/fuzz_$t"; exit 2; }
  run_one "$t" &
  pids+=($!)
  names+=("$t")
  if [ ${#pids[@]} -ge "$jobs" ]; then
    wait "${pids[0]}" || status=1
    pids=("${pids[@]:1}")
  fi
done
for p in "${pids[@]}"; do wait "$p" || status=1; done
exit $status
