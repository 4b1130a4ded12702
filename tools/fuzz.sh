#!/usr/bin/env bash
# Fuzzes one reader for SECONDS (default 600) with libFuzzer, ASan and UBSan.
# Usage: tools/fuzz.sh rtf|records [SECONDS]    (FUZZ_MAX_LEN=N for longer inputs than the default,
#        FUZZ_TIMEOUT=S for a slower limit per input on a busy machine; 10 s by default)
#   rtf      the RTF reader, and the writer on whatever it reads
#   records  every data file's record reader, through the checker and the program's key searches
#            (the first byte of an input picks the data file)
# Builds the readers and the fuzzers alone in build-fuzz with clang, starts from the seed corpus in
# the repository (tests/rtf/corpus, tests/fuzz/records-corpus), keeps what it learns in
# build-fuzz/corpus-TARGET and puts crashing inputs in build-fuzz/crashes. Exits 1 when it found any:
# add them to the seed corpus once fixed.
set -euo pipefail

target="${1:-}"
seconds="${2:-600}"
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$root/build-fuzz"

case "$target" in
  rtf)
    seeds=("$root/tests/rtf/corpus/pass" "$root/tests/rtf/corpus/fail")
    [[ -d "$root/../shared/rtf-samples" ]] && seeds+=("$root/../shared/rtf-samples")
    extra=(-dict="$root/tests/fuzz/rtf.dict" -max_len="${FUZZ_MAX_LEN:-8192}")
    ;;
  records)
    seeds=("$root/tests/fuzz/records-corpus")
    extra=(-max_len="${FUZZ_MAX_LEN:-16384}")
    ;;
  *)
    echo "usage: tools/fuzz.sh rtf|records [SECONDS]" >&2
    exit 2
    ;;
esac

command -v clang++ >/dev/null || { echo "fuzz: clang++ is needed (apt-get install clang)" >&2; exit 2; }

cmake -S "$root/tests/fuzz" -B "$build" -G Ninja \
  -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DSTUDYDESK_FUZZ=ON -DSTUDYDESK_SANITIZE=ON >/dev/null
cmake --build "$build" -j2 --target "fuzz_$target"

mkdir -p "$build/corpus-$target" "$build/crashes"
# Slow inputs are written beside the crashes; only crashes, timeouts and running out of memory count.
failures() { find "$build/crashes" -type f \( -name '*crash-*' -o -name '*timeout-*' -o -name '*oom-*' \) | wc -l; }
before=$(failures)
set +e
# Qt keeps caches for the life of the program, so leak reports would only be noise.
ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1 \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  "$build/bin/fuzz_$target" "$build/corpus-$target" "${seeds[@]}" "${extra[@]}" \
    -max_total_time="$seconds" -timeout="${FUZZ_TIMEOUT:-10}" -rss_limit_mb=4096 -print_final_stats=1 \
    -artifact_prefix="$build/crashes/$target-" 2>&1 | tee "$build/fuzz-$target.log" \
    | grep -E '^#[0-9]+.*(pulse|DONE)|ERROR|stat::|crash-|timeout-|oom-'
set -e

after=$(failures)
echo "fuzz $target: $((after - before)) new crashing inputs in $seconds s ($after in $build/crashes)"
[[ "$after" -eq "$before" ]]
