# shellcheck shell=bash
#
# What ./run and ./test share: installing what is missing, and configuring the build. Sourced by bash, with the root of
# the checkout as working directory. Everything that is said goes to standard error.

say() {
    printf '%s\n' "$*" >&2
}

# The packages that are listed for one of the purposes, "run", "test" and "lane", in alphabetical order.
packages_for() {
    local package purpose
    while read -r package purpose _; do
        if [[ -n $purpose && " $* " == *" $purpose "* ]]; then
            printf '%s\n' "$package"
        fi
    done < <(grep -v '^#' scripts/packages) | sort
}

installed_packages() {
    dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u
}

is_debian_12() (
    [[ -r /etc/os-release ]] && . /etc/os-release && [[ ${ID:-} == debian && ${VERSION_ID:-} == 12 ]]
)

# install_packages PURPOSE...: installs what is missing, or fails with the line that an administrator has to run. Elsewhere
# than on Debian 12 what is needed is named, and the build is tried with what there is.
install_packages() {
    local missing apt=(env)
    if ! is_debian_12; then
        mapfile -t missing < <(packages_for "$@")
        say "This is not Debian 12, so nothing is installed. The packages needed are called there: ${missing[*]}"
        return
    fi

    mapfile -t missing < <(comm -23 <(packages_for "$@") <(installed_packages))
    ((${#missing[@]})) || return 0
    if ((EUID == 0)) || type -P sudo >/dev/null; then
        ((EUID == 0)) || apt=(sudo env)
        apt+=(DEBIAN_FRONTEND=noninteractive apt-get)
        say "Installing what is missing: ${missing[*]}"
        "${apt[@]}" update >&2 && "${apt[@]}" install --yes --no-install-recommends "${missing[@]}" >&2 && return
    fi
    say "Packages are missing, and neither root nor sudo could install them. Let an administrator run this, then try" \
        "again:"
    say "apt-get update && apt-get install --no-install-recommends ${missing[*]}"
    return 1
}

# configure PRESET [CMAKE_OPTION...]: quick when nothing changed, and quiet when it works.
configure() {
    local preset=$1 output
    shift
    # A checkout that was moved or copied takes its build along, with paths that are no longer right.
    if ! grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$preset/CMakeCache.txt"; then
        rm -rf "build/$preset"
    fi
    if ! mkdir -p "build/$preset" 2>/dev/null || [[ ! -w build/$preset ]]; then
        say "Cannot build here: $PWD/build/$preset cannot be written to. If root has built here, remove $PWD/build" \
            "as root; else use a checkout of your own"
        return 1
    fi
    output=$(cmake --preset "$preset" "$@" 2>&1) || { say "$output"; return 1; }
}

# build PRESET [TARGET...]: says nothing when there is nothing to do.
build() {
    local arguments=(--preset "$1" ${2:+--target "${@:2}"})
    [[ $(cmake --build "${arguments[@]}" -- -n) == *"no work to do"* ]] || cmake --build "${arguments[@]}" >&2
}
