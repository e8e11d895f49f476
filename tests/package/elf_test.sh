#!/usr/bin/env bash
# elf_test.sh CASE FOLDER [PATH]: looks at every program and shared library below FOLDER; prints what is wrong and fails.
#   search_paths  libraries are looked for in absolute folders or from where the program stands, never in the current one
#   hardening     position independent, relocations read-only and resolved at the start, stack protector, branch tracking
#   fortified     calls the checking variants of the C library (of an optimised build alone)
#   no_path       PATH stands nowhere
set -euo pipefail
folder=$2 path=${3:-} faults=0 seen=0

fault() { # FILE WHAT
    echo "$1: $2"
    faults=$((faults + 1))
}

has() { # FILE WHAT PATTERN READELF-OPTIONS…
    local file=$1 what=$2 pattern=$3
    shift 3
    grep -Eq -- "$pattern" <<<"$(LC_ALL=C readelf -W "$@" "$file")" || fault "$file" "$what"
}

search_paths() {
    local entries entry
    entries=$(LC_ALL=C readelf -dW "$1" | sed -nE 's/.*\((RPATH|RUNPATH)\).*\[(.*)\]$/:\2:/p')
    while [ "${#entries}" -gt 1 ]; do
        entries=${entries#:}
        entry=${entries%%:*}
        entries=:${entries#*:}
        [[ $entry == /* || $entry == '$ORIGIN' || $entry == '$ORIGIN/'* ]] || fault "$1" "searches \"$entry\""
    done
}

hardening() {
    has "$1" "not position independent" 'Type: +DYN' -h
    has "$1" "no read-only relocations" 'GNU_RELRO' -l
    has "$1" "resolves functions late" 'BIND_NOW|Flags:.* NOW' -d
    [[ $1 == *.so* ]] || has "$1" "no program that is position independent" 'Flags:.* PIE' -d
    [[ $1 == */tests/* || $1 == */fuzz/* ]] || has "$1" "no stack protector" '__stack_chk_fail' --dyn-syms
    [ "$(uname -m)" != x86_64 ] || [ "$(objdump -d --no-show-raw-insn "$1" | grep -cm 21 endbr64)" -gt 20 ] ||
        fault "$1" "no branch tracking"
}

fortified() {
    has "$1" "nothing fortified" '__[a-z_]+_chk@' --dyn-syms
}

no_path() {
    ! strings -a "$1" | grep -F -- "$path" | head -n 3 || fault "$1" "names $path"
}

cd "$folder"
while read -r file; do # a client's programs in tests/package are built as the client likes
    grep -Eq 'Type: +(DYN|EXEC)' <<<"$(LC_ALL=C readelf -h "$file" 2>/dev/null)" || continue
    seen=$((seen + 1))
    "$1" "$file"
done < <(find . -type f \( -perm -u+x -o -name '*.so*' \) -not -path '*/CMakeFiles/*' -not -path './tests/package/*')

[ "$seen" -gt 0 ] || { echo "no program below $folder"; exit 1; }
[ "$faults" = 0 ]
