#!/usr/bin/env bash
# empty_machine.sh [COMMAND ...]: makes the smallest Debian there is in a folder, puts a clone of the last commit into
# it, and runs both commands of the README there, or the COMMANDs, each a line for the shell. It shows whether the
# scripts install all that they need. Wants root, debootstrap, and this machine's own sources of packages.
#
# SUITE (bookworm) and ROOT (a temporary folder, which is removed at the end) can be set in the environment.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_program debootstrap debootstrap
need_program unshare util-linux
install_missing_packages

commands=("$@")
if [ ${#commands[@]} -eq 0 ]; then
    commands=(scripts/run.sh scripts/test.sh)
fi
suite=${SUITE:-bookworm}
machine=${ROOT:-}
if [ -z "$machine" ]; then
    machine=$(mktemp -d)
    trap 'rm -rf --one-file-system "$machine"' EXIT
fi

# The first place that this machine takes its packages from.
mirror=$({ sed -n 's/^URIs: *\([^ ]*\).*/\1/p' /etc/apt/sources.list.d/*.sources
    sed -n 's/^deb \(\[[^]]*\] *\)\?\([^ ]*\) .*/\2/p' /etc/apt/sources.list /etc/apt/sources.list.d/*.list
} 2>/dev/null | head -n 1 || true)

if [ ! -e "$machine/etc/debian_version" ]; then
    debootstrap --variant=minbase "$suite" "$machine" "${mirror:?no source of packages found in /etc/apt}"
fi
cp -a /etc/apt/. "$machine/etc/apt/"
cp /etc/resolv.conf /etc/hosts "$machine/etc/"
cp -a /usr/local/share/ca-certificates "$machine/usr/local/share/" 2>/dev/null || true
rm -rf "$machine/work"
git clone -q --no-hardlinks . "$machine/work"

for command in "${commands[@]}"; do
    echo "=== $command"
    unshare --mount --pid --fork bash -euc '
        mount -t proc proc "$1/proc"
        mount --rbind /dev "$1/dev"
        exec chroot "$1" env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
            bash -euc "cd /work && $2"
    ' bash "$machine" "$command"
done
