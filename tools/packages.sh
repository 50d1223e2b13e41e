# shellcheck shell=bash
# Debian packages this project needs, and how to get the missing ones. Sourced, not run.

declare -A PACKAGES=(
    [build]="g++ cmake ninja-build qtbase5-dev qtdeclarative5-dev qtdeclarative5-dev-tools"
    # The module waits for the engine with ping and reads the summary that inetutils prints.
    [run]="qml-module-qtqml qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qtquick-templates2
        qml-module-qtquick-controls2 qml-module-qt-labs-folderlistmodel fonts-dejavu-core inetutils-ping"
    [wayland]="qtwayland5"
    [test]="qml-module-qttest inetutils-ping iproute2 nftables"
    # What tools/make-sysroot fetches comes on top.
    [arm]="g++-arm-linux-gnueabihf qemu-user-static mmdebstrap fakechroot fakeroot"
    [package]="dpkg-dev lintian mmdebstrap iproute2 uidmap"
    [coverage]="gcovr"
    [analysis]="clang-14 clang-tidy-14 clang-format-14 clazy libclang-rt-14-dev llvm-14"
)

# is_installed PACKAGE: asks dpkg alone, so that a complete machine costs no time.
is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# install_missing GROUP...: installs what is missing of the groups above; 1 with a clear line when it cannot.
install_missing() {
    local group package
    local -a missing=() as_root=()
    for group in "$@"; do
        if [ -z "${PACKAGES[$group]+set}" ]; then
            echo "unknown package group: $group" >&2
            return 1
        fi
        for package in ${PACKAGES[$group]}; do
            is_installed "$package" || missing+=("$package")
        done
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if ! command -v apt-get >/dev/null; then
        echo "missing, and there is no apt-get to install them with: ${missing[*]}" >&2
        return 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "missing, please install as root: apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing Debian packages: ${missing[*]}"
    as_root+=(env DEBIAN_FRONTEND=noninteractive)
    # A stale package list is no reason to stop: the install below says what cannot be had.
    "${as_root[@]}" apt-get update -q || echo "the package lists could not be refreshed; going on with the old ones" >&2
    if ! "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"; then
        echo "these packages could not be installed: ${missing[*]}" >&2
        return 1
    fi
}
