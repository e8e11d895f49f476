# Shared by ./run, ./test and the scripts in tools/: installs what is missing and builds. Sourced, not run.
# Everything that it prints goes to standard error, so that standard output belongs to the program.

# ccache, where somebody has it, keeps files with precompiled headers only when it is told to.
export CCACHE_SLOPPINESS="${CCACHE_SLOPPINESS:+$CCACHE_SLOPPINESS,}pch_defines,time_macros"

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# missing_packages [SCOPE…]: the names in packages.txt that are not installed; those marked with a scope, such as "test",
# only where it is asked for.
missing_packages() {
    local names name status
    names=$(sed 's/#.*//' "$project/packages.txt" |
        awk -v scopes=" $* " 'NF == 1 || (NF == 2 && index(scopes, " " $2 " ")) {print $1}')
    status=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' $names 2>/dev/null || true)
    for name in $names; do
        grep -q "^$name installed" <<<"$status" || printf '%s ' "$name"
    done
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "This needs root or sudo: $*" >&2
        return 1
    fi
}

# ensure_packages [SCOPE…]
ensure_packages() {
    local missing
    missing=$(missing_packages "$@")
    [ -z "$missing" ] && return
    echo "Installing: $missing" >&2
    alone install_packages $missing >&2
}

install_packages() {
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@"
}

# alone COMMAND…: once nothing else sets this tree up or builds it. The lock ends with the shell that holds it; what the command
# leaves running does not inherit it.
alone() {
    mkdir -p "$project/build"
    {
        if ! flock --nonblock 9; then
            echo "Another set-up or build of this tree is running; waiting for it." >&2
            flock 9
        fi
        "$@" 9>&-
    } 9>"$project/build/lock"
}

configure_and_build() { # PRESET [TARGET…]
    local preset=$1 folder="$project/build/$1"
    shift
    [ "$folder/build.ninja" -nt "$project/CMakePresets.json" ] || (cd "$project" && cmake --preset "$preset")
    cmake --build "$folder" ${1:+--target "$@"}
}

# build PRESET [TARGET…]: configures where that was not done since the presets changed, then builds what changed.
build() {
    alone configure_and_build "$@" >&2
}
