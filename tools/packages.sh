# shellcheck shell=bash
# Debian packages of this project, and a function that installs the missing ones. Sourced, not run.

declare -A PACKAGES=(
    [build]="g++ cmake ninja-build qtbase5-dev qtdeclarative5-dev qtdeclarative5-dev-tools libpcap-dev"
    # busybox is for tools/bin/ping. Unlike other packages with a ping, it replaces no package.
    [run]="qml-module-qtqml qml-module-qtquick2 qml-module-qtquick-window2 qml-module-qtquick-templates2
        qml-module-qtquick-controls2 qml-module-qt-labs-folderlistmodel fonts-dejavu-core busybox"
    [wayland]="qtwayland5"
    [test]="ccache qml qml-module-qttest busybox iproute2 nftables tshark desktop-file-utils mandoc bash-completion"
    # The manual; pandoc converts the guides. qhelpgenerator brings the SQLite driver of Qt, which a test uses.
    [reference]="qdoc-qt5 qhelpgenerator-qt5 pandoc"
    # tools/make-sysroot fetches further packages into its folder.
    [arm]="g++-arm-linux-gnueabihf qemu-user-static mmdebstrap fakechroot fakeroot"
    [package]="dpkg-dev lintian mmdebstrap iproute2 uidmap"
    [coverage]="gcovr"
    [analysis]="clang-14 clang-tidy-14 clang-format-14 clazy libclang-rt-14-dev llvm-14"
)

# is_installed PACKAGE: queries dpkg only, which is fast.
is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# install_missing GROUP...: installs the missing packages of these groups. Prints one line and returns 1 when it
# cannot. Never removes a package: apt-get fails instead.
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
        echo "missing, and there is no apt-get to install them: ${missing[*]}" >&2
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
    # Continue with old package lists: the installation below names the packages that it cannot find.
    "${as_root[@]}" apt-get update -q || echo "the package lists could not be refreshed; the old ones are used" >&2
    if ! "${as_root[@]}" apt-get install -y -q --no-remove --no-install-recommends "${missing[@]}"; then
        echo "these packages could not be installed: ${missing[*]}" >&2
        return 1
    fi
}
