#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs a package of Quillon, does the demonstration with it, and removes it again.
#   packaging/try.sh build/package/quillon_VERSION_ARCHITECTURE.deb
# Only for a Debian that may be thrown away afterwards, as root: it installs without asking.
set -euo pipefail
package=$(readlink -f "$1")
cd "$(dirname "$(readlink -f "$0")")/.."
# shellcheck source=scripts/setup.sh
source scripts/setup.sh

export DEBIAN_FRONTEND=noninteractive
apt_quietly() {
    quietly apt-get -q -y "$@"
}

# What is not the package manager's own record of it, nor this repository.
left_of_quillon() {
    find / -xdev -path "$PWD" -prune -o -ipath /proc -prune -o -ipath '*quillon*' \
        ! -path '/var/lib/dpkg/*' ! -path '/var/log/*' -print
}

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
before=$(left_of_quillon)
say "Installing it with what it cannot do without"
apt_quietly update
apt_quietly install --no-install-recommends "$package"
quillon --version
say "Opening its window"
status=0
QT_QPA_PLATFORM=offscreen HOME=$folder timeout 10 quillon || status=$?
((status == 124)) || { echo "It ended by itself, with $status" >&2; exit 1; }
say "Installing it with what is recommended, and doing the demonstration"
apt_quietly remove quillon # what is installed already gets no recommended packages
apt_quietly install "$package"
install_packages demo
python3 demo/demo.py --program /usr/bin/quillon --into "$folder/demo"
rm -rf "$folder"
say "Removing it"
apt_quietly remove quillon
apt_quietly autoremove
left=$(comm -13 <(sort <<<"$before") <(left_of_quillon | sort))
[[ -z $left ]] || { echo "This is left of it: $left" >&2; exit 1; }
say "Nothing is left of it"
