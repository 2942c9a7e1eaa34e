# SPDX-License-Identifier: GPL-3.0-or-later
# What ./run and ./check share. Sourced.

say() {
    printf '\033[1m==>\033[0m %s\n' "$*"
}

# Whether this release has the package.
is_offered() {
    apt-cache show "$1" >/dev/null 2>&1
}

# install_packages GROUP...: installs what is missing of these groups.
install_packages() {
    local groups=" $* " group package missing=()
    while read -r group package; do
        [[ -n $package && $groups == *" ${group%\?} "* ]] || continue
        [[ $group != *\? ]] || is_offered "$package" || continue
        dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^.i' || missing+=("$package")
    done < <(grep -v '^#' packages.txt)
    if ((${#missing[@]} == 0)); then
        return
    fi
    say "Installing ${#missing[@]} Debian packages"
    local as_root=()
    ((EUID == 0)) || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# quietly COMMAND...: says something only if it fails.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        tail -n 60 "$log"
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}

# build PRESET: configures and builds it.
build() {
    quietly cmake --preset "$1"
    quietly cmake --build --preset "$1"
}
