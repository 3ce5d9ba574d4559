#!/usr/bin/env bash
# Makes the Debian packages and the source archive, installs the packages into an empty root, and uses them there.
# test_packages.sh [FOLDER]: with a built folder, configured with -DCMAKE_INSTALL_PREFIX=/usr, nothing is built anew.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

need_build_packages
need_program dpkg-shlibdeps dpkg-dev
need_program xz xz-utils
install_missing_packages

build=${1:-build/packages}
if [ $# = 0 ]; then
    cmake -G Ninja -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr -DZVXMLLIB_BUILD_TESTS=OFF \
        -DZVXMLLIB_BUILD_BENCHMARKS=OFF >/dev/null
    cmake --build "$build"
fi
build=$(cd "$build" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
    echo "test_packages.sh: $*" >&2
    exit 1
}

(cd "$build" && cpack -G DEB -B "$scratch/made") >"$scratch/cpack.log" 2>&1 || { cat "$scratch/cpack.log"; fail "cpack"; }
packages=("$scratch"/made/*.deb)
[ ${#packages[@]} = 4 ] || fail "four packages are expected, not ${packages[*]}"

# An empty root: the packages know what they need of the system, which is not in there.
empty=$scratch/root
mkdir -p "$empty"/var/lib/dpkg/{info,updates,triggers}
touch "$empty"/var/lib/dpkg/{status,available}
dpkg --root="$empty" --force-depends --force-not-root --force-script-chrootless --log=/dev/null \
    -i "${packages[@]}" >"$scratch/dpkg.log" 2>&1 || { cat "$scratch/dpkg.log"; fail "dpkg"; }
dpkg --root="$empty" -l 'libzvxmllib*' zvxml | awk '/^ii/ { print $2, $3, $4 }'

library=$(find "$empty/usr/lib" -name 'libzvxmllib.so.*' -type l)
[ "$(objdump -p "$library" | awk '/SONAME/ { print $2 }')" = "$(basename "$library")" ] || fail "the SONAME"
for package in "${packages[@]}"; do
    name=$(dpkg-deb -f "$package" Package)
    [ -s "$empty/usr/share/doc/$name/copyright" ] || fail "$name has no licence"
    needs=$(dpkg-deb -f "$package" Depends)
    case $name in
        libzvxmllib[0-9]* | zvxml) [[ $needs == *libexpat1* && $needs == *libc6* ]] || fail "$name needs '$needs'" ;;
        libzvxmllib-dev) [[ $needs == *libzvxmllib[0-9]* ]] || fail "$name needs '$needs'" ;;
    esac
done
for file in bin/zvxml bin/zvxml-gen share/man/man1/zvxml.1 share/man/man1/zvxml-gen.1 \
    share/bash-completion/completions/zvxml share/zsh/site-functions/_zvxml \
    share/fish/vendor_completions.d/zvxml.fish share/doc/zvxmllib/README.md share/doc/zvxmllib/docs/tool.md; do
    [ -s "$empty/usr/$file" ] || fail "$file is missing"
done

# A program outside the tree, and the tools.
export LD_LIBRARY_PATH=${library%/*} PATH=$empty/usr/bin:$PATH
cp -r tests/package/consumer "$scratch/consumer"
cmake -G Ninja -S "$scratch/consumer" -B "$scratch/consumer/build" -DCMAKE_PREFIX_PATH="$empty/usr" >/dev/null
cmake --build "$scratch/consumer/build" >/dev/null
(cd "$scratch/consumer/build" && ctest --output-on-failure)
cd "$scratch"
echo '<a><b>1</b><b>2</b></a>' >in.xml
zvxml convert in.xml out.json
[ "$(cat out.json)" = '{"a": {"b": ["1","2"]}}' ] || fail "zvxml wrote $(cat out.json)"
zvxml-gen --version

# The source archive is complete: it can be configured.
(cd "$build" && cpack --config CPackSourceConfig.cmake -B "$scratch/source") >"$scratch/cpack.log" 2>&1 ||
    { cat "$scratch/cpack.log"; fail "cpack of the sources"; }
tar -xJf "$scratch"/source/*.tar.xz -C "$scratch/source"
cmake -G Ninja -S "$scratch"/source/zvxmllib-*/ -B "$scratch/source/build" -DZVXMLLIB_BUILD_TESTS=OFF >/dev/null
echo "The packages work."
