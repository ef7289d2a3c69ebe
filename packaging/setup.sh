# shellcheck shell=bash
# What run, test and .ci/run share; sourced with the root of the project as working directory.

setup_build_folder=build/release

# The packages of the given groups.
setup_packages_of() {
    local group
    for group in "$@"; do
        awk -v group="$group" '$1 == group { print $2 }' packaging/debian-packages.txt
    done
}

# Those of the given packages that are not installed.
setup_missing() {
    local installed
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        awk '$2 == "installed" { print $1 }') || true
    comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
}

# setup_install GROUP...: installs what is missing of these groups. Fails, having said what to do,
# when something is missing that cannot be installed.
setup_install() {
    local packages missing log privileged=()
    if ! command -v dpkg-query >/dev/null; then
        echo "This is not Debian: nothing is installed; the tools and libraries named in" \
            "packaging/debian-packages.txt are taken to be here." >&2
        return 0
    fi
    mapfile -t packages < <(setup_packages_of "$@")
    mapfile -t missing < <(setup_missing "${packages[@]}")
    ((${#missing[@]})) || return 0

    if ((EUID != 0)); then
        if command -v sudo >/dev/null && { [[ -t 0 ]] || sudo -n true 2>/dev/null; }; then
            privileged=(sudo)
        else
            echo "These packages are missing, and installing them needs root or sudo:" >&2
            echo "    apt-get install --no-install-recommends ${missing[*]}" >&2
            return 1
        fi
    fi
    echo "Installing ${missing[*]} ..." >&2
    log=$(mktemp)
    if ! "${privileged[@]}" bash packaging/install-packages.sh "${missing[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        echo "These packages could not be installed: ${missing[*]}" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# How many compilers may run at once: one for each processor, each with 1.5 GiB of memory.
setup_jobs() {
    local processors memory
    processors=$(nproc)
    memory=$(awk '/^MemAvailable:/ { print int($2 / 1572864) }' /proc/meminfo 2>/dev/null)
    memory=${memory:-1}
    ((memory >= 1)) || memory=1
    echo $((processors < memory ? processors : memory))
}

# setup_configure OPTION...: configures the optimised build.
setup_configure() {
    local log=$setup_build_folder/configure.log
    mkdir -p "$setup_build_folder"
    if ! cmake --preset release "$@" >"$log" 2>&1; then
        cat "$log" >&2
        echo "The build could not be configured." \
            "If this folder was copied or moved, remove build/ and try again." >&2
        return 1
    fi
}

# setup_build TARGET...: builds these targets, "all" for everything.
setup_build() {
    local progress=()
    [[ -t 1 ]] || progress=(-- --quiet)
    if ! cmake --build "$setup_build_folder" --parallel "$(setup_jobs)" --target "$@" \
        "${progress[@]}"; then
        echo "The build failed; the compiler's messages stand above." >&2
        return 1
    fi
}

# Whether windows can be opened.
setup_has_display() {
    [[ -n ${DISPLAY:-}${WAYLAND_DISPLAY:-} ]]
}

# No test opens a window on the screen of whoever runs it; Qt wants a folder for its sockets all the
# same, which a bare machine has not.
setup_hide_windows() {
    export QT_QPA_PLATFORM=offscreen
    [[ -z ${XDG_RUNTIME_DIR:-} ]] || return 0
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR
    # shellcheck disable=SC2064 # this folder, whatever the variable says by then
    trap "rm -rf '$XDG_RUNTIME_DIR'" EXIT
}
