# Shell functions shared by ./run, ./test and ./bench; sourced, with $root set to the checkout.

say() { printf '%s\n' "$*" >&2; }
fail() { say "$(basename "$0"): $*"; exit 1; }

# missing_packages SCOPE...: names in tools/packages.txt of these scopes that are not installed
missing_packages() {
    local name scope wanted
    while read -r name scope; do
        case $name in '' | '#'*) continue ;; esac
        for wanted in "$@"; do
            if [ "$scope" = "$wanted" ] && ! dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null | grep -qx installed; then
                printf '%s\n' "$name"
            fi
        done
    done <"$root/tools/packages.txt"
}

# install_packages SCOPE...: brings what is missing; asks the package manager nothing when all is there
install_packages() {
    local missing system
    system=$(. /etc/os-release 2>/dev/null && printf '%s %s' "$ID" "${VERSION_ID:-}") || system=unknown
    if [ "$system" != 'debian 12' ]; then
        say "This is $system; only Debian 12 is set up by itself. Needed here: the packages of tools/packages.txt."
        return
    fi
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    say "Installing:" $missing
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null || fail "packages are missing and there is no sudo; as root: apt-get install" $missing
        as_root=(sudo)
    fi
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update -q &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        rm -f "$log"
        fail "the packages could not be installed"
    fi
    rm -f "$log"
}

# configure PRESET [-DNAME=VALUE...]: speaks only when it fails
configure() {
    local preset=$1 log
    shift
    mkdir -p "$root/build"
    log=$root/build/configure-$preset.log
    (cd "$root" && cmake --preset "$preset" "$@") >"$log" 2>&1 || { cat "$log" >&2; fail "configuring $preset failed"; }
}

# build PRESET [TARGET...]: ninja's own progress on stderr; silent when there is nothing to do
build() {
    local tree=$root/build/$1
    shift
    ninja -C "$tree" "$@" | sed -u -e '/^ninja: Entering/d' -e '/Re-checking globbed/d' -e '/no work to do/d' >&2
    [ "${PIPESTATUS[0]}" = 0 ] || fail "the build failed"
}

# Qt complains of a session without a private folder for sockets
private_runtime_folder() {
    if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
        XDG_RUNTIME_DIR=$(mktemp -d)
        chmod 700 "$XDG_RUNTIME_DIR"
        export XDG_RUNTIME_DIR
        trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT
    fi
}

# virtual_display COMMAND...: runs it under an X server of its own, its two output streams kept apart
virtual_display() {
    xvfb-run -a -s '-screen 0 1600x1200x24' bash -c '"$@" 2>&3' virtual_display "$@" 3>&2
}
