#!/usr/bin/env bash
# Fuzzes the RTF reader for SECONDS (default 600) with libFuzzer, ASan and UBSan.
# Usage: tools/fuzz-rtf.sh [SECONDS]    (FUZZ_MAX_LEN=N for longer inputs than 8 KB)
# Builds the reader and the fuzzer alone in build-fuzz with clang, starts from tests/rtf/corpus (and the shared samples when
# they are there), keeps what it learns in build-fuzz/fuzz-corpus and puts crashing inputs in
# build-fuzz/crashes. Exits 1 when it found any: add them to tests/rtf/corpus once fixed.
set -euo pipefail

seconds="${1:-600}"
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$root/build-fuzz"

command -v clang++ >/dev/null || { echo "fuzz-rtf: clang++ is needed (apt-get install clang)" >&2; exit 2; }

cmake -S "$root/tests/fuzz" -B "$build" -G Ninja \
  -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DSTUDYDESK_FUZZ=ON -DSTUDYDESK_SANITIZE=ON >/dev/null
cmake --build "$build" -j2 --target fuzz_rtf

mkdir -p "$build/fuzz-corpus" "$build/crashes"
seeds=("$root/tests/rtf/corpus/pass" "$root/tests/rtf/corpus/fail")
[[ -d "$root/../shared/rtf-samples" ]] && seeds+=("$root/../shared/rtf-samples")

before=$(find "$build/crashes" -type f | wc -l)
set +e
# Qt keeps caches for the life of the program, so leak reports would only be noise.
ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1 \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  "$build/bin/fuzz_rtf" "$build/fuzz-corpus" "${seeds[@]}" \
    -dict="$root/tests/fuzz/rtf.dict" -max_total_time="$seconds" -timeout=10 \
    -rss_limit_mb=4096 -max_len="${FUZZ_MAX_LEN:-8192}" -print_final_stats=1 \
    -artifact_prefix="$build/crashes/" 2>&1 | tee "$build/fuzz.log" | grep -E '^#[0-9]+.*(pulse|DONE)|ERROR|stat::|crash-|timeout-|oom-'
set -e

after=$(find "$build/crashes" -type f | wc -l)
echo "fuzz-rtf: $((after - before)) new crashing inputs in $seconds s ($after in $build/crashes)"
[[ "$after" -eq "$before" ]]
