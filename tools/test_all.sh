#!/usr/bin/env bash
# What ./test all runs: every step that looks for faults without a person, each one also after
# another has failed. Tells how long each took, and at the end which ones failed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

failed=()

# Runs one step by its name and command.
step() {
    local name=$1 start=$SECONDS result=passed
    shift
    echo "== $name"
    "$@" || { result=FAILED; failed+=("$name"); }
    printf '== %s: %s after %d min %02d s\n' "$name" "$result" \
        $(((SECONDS - start) / 60)) $(((SECONDS - start) % 60))
}

# The sanitizers lay out memory by themselves, and some kernels scatter it too widely for that.
still=(setarch -R)
"${still[@]}" true 2>/dev/null || still=()

step "tests" ./test
sanitized() { env TARVEX_PRESET="$1" "${still[@]}" ./test -E "^Tour$"; }
step "address, undefined behaviour and leak sanitizers" sanitized asan
step "thread sanitizer" sanitized tsan
step "fuzzers, a minute each" fuzz/run 60
step "clang-tidy" tools/lint
step "package" packaging/test

if [[ ${#failed[@]} -gt 0 ]]; then
    printf 'Failed: %s\n' "${failed[@]}" >&2
    exit 1
fi
printf 'All passed after %d min.\n' $((SECONDS / 60))
