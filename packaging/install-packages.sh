#!/usr/bin/env bash
# install-packages.sh PACKAGE...: installs Debian packages without questions. Needs root.
#
# Database servers come as services that Debian would start at once and at every boot. The tests
# run private servers of their own, so none of that is wanted: nothing is started here, and the
# services that this call brought are left disabled.
set -euo pipefail

policy=/usr/sbin/policy-rc.d
if [[ ! -e $policy ]]; then
    trap 'rm -f "$policy"' EXIT
    printf '#!/bin/sh\nexit 101\n' >"$policy"
    chmod 755 "$policy"
fi

export DEBIAN_FRONTEND=noninteractive
apt-get -qq update || echo "The package lists could not be refreshed; trying with the old ones." >&2
apt-get -qq -y --no-install-recommends install "$@"

for package in "$@"; do
    case $package in
        postgresql) service=postgresql ;;
        mariadb-server) service=mariadb ;;
        *) continue ;;
    esac
    if command -v systemctl >/dev/null; then
        systemctl disable --quiet "$service" 2>/dev/null || true
    fi
done
