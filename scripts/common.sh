# Shared by ./run, ./test and .ci/run: packages of the system, and building. Everything said here goes to standard error,
# so that what the started program prints stands alone.

packages_to_build="g++ cmake ninja-build qtbase5-dev qtdeclarative5-dev libqt5serialport5-dev qttools5-dev qttools5-dev-tools"
packages_to_build+=" libqt5sql5-sqlite" # the history
packages_to_build+=" qml-module-qtquick2 qml-module-qtquick-controls2 qml-module-qtquick-templates2" # the window
packages_to_build+=" qml-module-qtquick-window2 libqt5svg5 fonts-dejavu-core"
packages_to_test="python3 python3-jsonschema procps sqlite3"
packages_to_test+=" zsh mandoc man-db" # completion, manual pages
packages_to_check="clang-format clazy libclang-rt-14-dev"
packages_to_check_leaks="valgrind"
packages_to_tidy="clang-tidy-22" # without the security updates of Debian there is only the one below, which takes twice as long
packages_to_tidy_slowly="clang-tidy"
packages_to_package="appstream binutils desktop-file-utils dpkg-dev lintian python3" # scripts/make-packages
packages_to_try="debootstrap" # scripts/check-packages
packages_to_fuzz="clang-14 libclang-rt-14-dev python3" # scripts/fuzz only

say() { printf '%s\n' "$*" >&2; }

# require_packages NAME…: installs what is missing, as root or with sudo; otherwise says what to do and ends with 3.
require_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "This is not a Debian system. Install by hand what these Debian packages hold: $*"
        exit 3
    fi
    local installed missing="" package
    # It fails when it does not know one of them, and has told of the others all the same: also of some that are not
    # installed, because others suggest them.
    installed=" $(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null |
        sed -n 's/^installed //p' | tr '\n' ' ' || true) "
    for package in "$@"; do
        case "$installed" in *" $package "*) ;; *) missing="$missing $package" ;; esac
    done
    [ -n "$missing" ] || return 0

    local as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
            as_root="sudo"
        else
            refuse_packages "$missing"
        fi
    fi
    say "Installing:$missing"
    mkdir -p "$root/build"
    local log="$root/build/packages.log"
    if ! { $as_root apt-get update -q && $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends $missing; } >"$log" 2>&1; then
        tail -n 5 "$log" >&2
        refuse_packages "$missing"
    fi
}

refuse_packages() {
    say "These Debian packages are missing:$1"
    say "Install them, then call this again:"
    say "    sudo apt-get update && sudo apt-get install -y --no-install-recommends$1"
    exit 3
}

# build PRESET [TARGET…]: configures once, then builds the targets (all when none is named).
build() {
    local preset=$1
    shift
    local folder="$root/build/$preset" log
    log="$root/build/$preset.log"
    mkdir -p "$root/build"
    if [ ! -e "$folder/build.ninja" ]; then
        say "Building ($preset) for the first time; this takes a few minutes."
        if ! (cd "$root" && cmake --preset "$preset") >"$log" 2>&1; then
            cat "$log" >&2
            exit 1
        fi
    fi
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    if [ -t 2 ]; then
        cmake --build "$folder" "${targets[@]}" >&2
    elif ! cmake --build "$folder" "${targets[@]}" >"$log" 2>&1; then
        tail -n 100 "$log" >&2
        exit 1
    fi
}

# run_tests PRESET [CTEST ARGS…]: more at a time than there are processors, because the long ones wait for a wrench's time
# limits and not for a processor.
run_tests() {
    local preset=$1
    shift
    ctest --test-dir "$root/build/$preset" --output-on-failure --no-tests=error -j "$((2 * $(nproc)))" "$@"
}
