#!/usr/bin/env bash
# setup_test.sh SETUP CASE: sources SETUP and runs one case on a project made for it; prints what differs and fails.
set -euo pipefail
source "$1"
project=$(mktemp -d)
trap 'rm -rf "$project"' EXIT

expect() { # WHAT EXPECTED ACTUAL
    [ "$2" = "$3" ] || { echo "$1: expected \"$2\", got \"$3\""; exit 1; }
}

# A project that prints while it is configured and built, with a word from its preset.
write_project() {
    cat >"$project/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.22)
project(Small LANGUAGES NONE)
add_custom_target(word ALL COMMAND ${CMAKE_COMMAND} -E echo "building" COMMAND ${CMAKE_COMMAND} -E touch built_${WORD})
END
    cat >"$project/CMakePresets.json" <<END
{"version": 3, "configurePresets": [{"name": "dev", "generator": "Ninja", "binaryDir": "\${sourceDir}/build/dev",
 "cacheVariables": {"WORD": "$1"}}]}
END
}

standard_output() {
    write_project one
    local printed
    printed=$(build dev word 2>"$project/errors")
    expect "standard output" "" "$printed"
    expect "standard error" 1 "$(grep -c 'building$' "$project/errors")"
    [ -e "$project/build/dev/built_one" ]
}

newer_presets() {
    write_project one
    touch -d '1 minute ago' "$project/CMakePresets.json" "$project/CMakeLists.txt"
    build dev 2>/dev/null
    expect "a second configuration" "" "$(build dev 2>&1 | grep 'Configuring done' || true)"
    touch -d '1 minute ago' "$project/build/dev/build.ninja"
    write_project two
    build dev 2>/dev/null
    [ -e "$project/build/dev/built_two" ]
    expect "a third configuration" "" "$(build dev 2>&1 | grep 'Configuring done' || true)"
}

# A target that fails where another of its kind is at work.
write_project_for_one() {
    write_project one
    cat >>"$project/CMakeLists.txt" <<'END'
add_custom_target(exclusive COMMAND mkdir busy COMMAND sleep 1 COMMAND rmdir busy WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
END
}

one_build_at_a_time() {
    write_project_for_one
    local first
    build dev exclusive 2>"$project/first" &
    first=$!
    build dev exclusive 2>"$project/second" || { cat "$project/second"; exit 1; }
    wait "$first" || { cat "$project/first"; exit 1; }
    expect "who waited" 1 "$(cat "$project/first" "$project/second" | grep -c '^Another set-up or build of this tree is running')"
}

a_build_outlived_by_its_child() {
    write_project one
    alone bash -c 'sleep 30 >/dev/null 2>&1 & echo $! >'"$project/child"
    alone true 2>"$project/errors"
    kill "$(cat "$project/child")"
    expect "standard error" "" "$(cat "$project/errors")"
}

package_scopes() {
    printf '%s\n' '# a remark' 'always-missing # why' 'test-missing test # why' 'fuzz-missing fuzz' >"$project/packages.txt"
    expect "without a scope" "always-missing" "$(missing_packages | xargs)"
    expect "for the tests" "always-missing test-missing" "$(missing_packages test | xargs)"
    expect "for both" "always-missing test-missing fuzz-missing" "$(missing_packages test fuzz | xargs)"
}

"$2"
