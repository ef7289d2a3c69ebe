#!/usr/bin/env bash
# hardening.sh PROGRAM...: whether programs are built so that a fault in them is hard to use.
set -u
failures=0
for program in "$@"; do
    headers=$(readelf -Whld "$program") symbols=$(readelf -W --dyn-syms "$program")
    has() {  # has TEXT PATTERN NAME
        grep -Eq "$2" <<<"$1" && return
        echo "FAILED: $program: $3"
        failures=$((failures + 1))
    }
    has "$headers" 'Type: +DYN' "no position-independent executable"
    has "$headers" 'FLAGS_1.* PIE' "no position-independent executable"
    has "$headers" 'GNU_RELRO' "no read-only relocations"
    has "$headers" 'BIND_NOW|FLAGS_1.* NOW' "symbols are bound late, so not all relocations are read-only"
    has "$headers" 'GNU_STACK .* RW ' "the stack can be executed"
    has "$symbols" '__stack_chk_fail' "no stack protector"
    has "$symbols" '__[a-z]+_chk@' "no fortified library functions"
done
((failures == 0)) && echo "All as expected."
exit $((failures > 0))
