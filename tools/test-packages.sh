#!/bin/sh
# The Debian packages in a bare Debian 12: test-packages.sh [BUILD FOLDER]
# Made twice, read by lintian, installed into a root of its own (one package after the other, so that each brings what it
# needs), used there, removed again: not one file is left. Needs root and the network.
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh packages
work=$(mktemp -d)
root=$work/root
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM

sh tools/package.sh "$work/once" "$@" >/dev/null
sh tools/package.sh "$work/twice" "$@" >/dev/null
for package in "$work"/once/*.deb; do
    cmp "$package" "$work/twice/${package##*/}"
done
# It closes no bug of a distribution that it is no part of.
lintian --allow-root --suppress-tags initial-upload-closes-no-bugs --fail-on error,warning "$work"/once/*.deb

mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Component: main' | head -n 1)
mmdebstrap --quiet --variant=minbase --mode=root bookworm "$root" "$mirror"
cp /etc/resolv.conf "$root/etc"
mkdir -p "$root/korvex/tests"
cp -r README.md docs examples tools "$root/korvex"
cp -r tests/consumer "$root/korvex/tests"
cp "$work"/once/*.deb "$root/korvex"

# inside COMMANDS: in the root, by a shell; what they say is shown where one fails
inside() {
    chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        sh -eux -c "cd /korvex; $1" </dev/null >"$work/log" 2>&1 || { cat "$work/log" >&2; exit 1; }
}
install="apt-get install -y --no-install-recommends"
# Every file but the caches, lists and logs of apt and dpkg, and what was copied there.
files() {
    (cd "$root" && find . \( -path ./korvex -o -path ./var/log -o -path ./var/cache -o -path ./var/lib/apt \
        -o -path ./var/lib/dpkg -o -path ./tmp \) -prune -o -print | LC_ALL=C sort)
}
inside "apt-get update"
files >"$work/before"

echo "korvex"
inside "$install ./korvex_*.deb
korvex --version
sh tools/example.sh
grep CompanyName out/order.json"

echo "python3-korvex"
inside "$install ./python3-korvex_*.deb
python3 -c 'import korvex; print(korvex.load_definition(\"out/orders.db\", \"Orders\").value_names)'"

echo "libkorvex-dev"
inside "$install ./libkorvex-dev_*.deb g++ cmake ninja-build
sh tests/consumer/run.sh packages out/consumer"

inside "apt-get purge -y --autoremove korvex libkorvex-dev python3-korvex g++ cmake ninja-build"
files >"$work/after"
diff "$work/before" "$work/after"
echo "removed: nothing is left"
