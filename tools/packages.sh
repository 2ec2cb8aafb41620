# Sourced by the commands of this folder: installs the Debian packages that are missing, naming them.

packages_build="g++ cmake ninja-build ccache mold qt6-base-dev qt6-tools-dev libgl-dev libsqlite3-dev libcli11-dev nlohmann-json3-dev pkg-config libhunspell-dev mdbtools-dev libqpdf-dev"
packages_run="libqt6gui6 libqt6widgets6 libqt6printsupport6 libqt6help6 libqt6sql6-sqlite libmdb3 libqpdf29 fonts-liberation fonts-dejavu-core hunspell-en-us"
packages_test="libgtest-dev libgmock-dev libbenchmark-dev python3 sqlite3 desktop-file-utils appstream groff-base libglib2.0-bin"
packages_check="clang-format"

need_packages() {
    local missing=() package
    for package in "$@"; do
        case "$installed_packages" in
        *" $package "*) ;;
        *) missing+=("$package") ;;
        esac
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
        command -v sudo >/dev/null || {
            echo "These packages are missing and need root to install: ${missing[*]}" >&2
            return 1
        }
    fi
    echo "Installing packages that are missing: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2 &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# One question for all packages: a question a package would cost more than the programs' start.
installed_packages=" $(dpkg-query -W -f='${db:Status-Abbrev}${Package}\n' 2>/dev/null |
    sed -n 's/^ii \{1,\}//p' | tr '\n' ' ') "
