#!/usr/bin/env bash
# try-package.sh SUITE: builds the packages in a fresh Debian of that suite (bookworm, trixie, …), installs them in another,
# and tries them there: version, a picture of the window, a whole rehearsal as an ordinary user, an upgrade, a purge.
#
#   --base FOLDER       a root made by debootstrap earlier, to be copied instead of making one; it is not changed
#   --packages FOLDER   try the packages that lie there instead of building any
#   --keep              leave the two roots in build/roots/SUITE
#   --no-rehearsal      leave the rehearsal out
#
# For root. The packages end up in build/packages/SUITE. Mirror, proxy and certificates are the host's own: what apt and npm
# use here, they use inside. Mounts and processes live in namespaces of their own and go with the script.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/setup.sh
. tools/roots.sh

lookAtPackages() {
    ls -l "$output"/*.deb | awk '{ print "    " $9 ", " int($5 / 1024) " KiB" }'
    if command -v lintian >/dev/null; then
        step "Looking for mistakes in the packages"
        lintian --allow-root --fail-on error --tag-display-limit 0 "$output"/*.deb
    fi
}

tryPackages() {
    local root=$roots/run version
    mkdir -p "$root/packages"
    cp "$output"/*.deb "$root/packages/"
    step "Installing them in a fresh $suite"
    within "$root" apt-get update -qq
    within "$root" id somebody >/dev/null 2>&1 || within "$root" useradd --create-home --uid 1000 somebody
    local packages
    mapfile -t packages < <(cd "$root" && printf '/%s\n' packages/palomet*.deb)
    installInside "$root" "${packages[@]}"
    version=$(asUser "$root" palomet --version)
    step "It says: $version"
    step "Its engine $(asUser "$root" palomet-engine hearing)"
    asUser "$root" env QT_QPA_PLATFORM=offscreen palomet --preview now --capture /tmp/now.png
    [ -s "$root/tmp/now.png" ] || fail "the picture of the window is missing"
    cp "$root/tmp/now.png" "$output/now.png"
    step "It draws its window: $output/now.png"
    if [ "$isRehearsing" = yes ]; then
        step "Rehearsing"
        # shellcheck disable=SC2046
        installInside "$root" $(packagesOf rehearsal)
        asUser "$root" env PALOMET_PROGRAM=/usr/bin/palomet PALOMET_REHEARSAL=/tmp/rehearsal PALOMET_SOUND_SERVER_KILLS=2 \
            /usr/share/palomet/bun /source/tests/rehearsal/rehearse.ts ||
            { cp -r "$root/tmp/rehearsal" "$output/" || true; fail "the rehearsal failed; see $output/rehearsal"; }
    fi

    step "Upgrading"
    local package next
    next=$(within "$root" dpkg-query -W -f '${Version}' palomet)+next
    for package in palomet palomet-engine; do
        within "$root" sh -ec "dpkg-deb -R /packages/${package}_*.deb /tmp/$package
            sed -i -E 's/^Version: .*/Version: $next/; s/palomet \(= [^)]*\)/palomet (= $next)/' /tmp/$package/DEBIAN/control
            dpkg-deb --root-owner-group -Zgzip -z1 -b /tmp/$package /tmp/$package.deb >/dev/null"
    done
    installInside "$root" /tmp/palomet.deb /tmp/palomet-engine.deb
    [ "$(within "$root" dpkg-query -W -f '${Version}' palomet palomet-engine)" = "$next$next" ] || fail "the upgrade did not happen"
    asUser "$root" palomet --version >/dev/null

    step "Purging"
    within "$root" dpkg -L palomet palomet-engine | sort -u >"$roots/files.txt"
    within "$root" apt-get purge -y -qq palomet palomet-engine >"$roots/apt.log" 2>&1 || { tail -n 20 "$roots/apt.log"; fail "the purge failed"; }
    local left path
    left=$(find "$root" -xdev \( -path "$root/home" -o -path "$root/packages" -o -path "$root/tmp" -o -path "$root/source" \
        -o -path "$root/proc" \) -prune -o -iname '*palomet*' -print)
    while read -r path; do
        # A folder may be somebody else's too.
        { [ -d "$root$path" ] && within "$root" dpkg -S "$path" >/dev/null 2>&1; } || [ ! -e "$root$path" ] || left+=" $path"
    done < <(grep -vxE '(/\.)?' "$roots/files.txt")
    left+=$(within "$root" dpkg-query -W -f '${Package} ${db:Status-Status}\n' 'palomet*' 2>/dev/null | grep -v not-installed || true)
    [ -z "$left" ] || fail "this is left: $left"
    step "Nothing of it is left"
}

if [ "${1:-}" = --inside ]; then
    shift
    suite=$1 roots=$2 output=$3 isBuilding=$4 isRehearsing=$5
    mountInside "$roots/run"
    if [ "$isBuilding" = yes ]; then
        mountInside "$roots/build"
        buildPackages
    fi
    lookAtPackages
    tryPackages
    exit 0
fi

suite="" base="" packages="" isKept=no isRehearsing=yes
while [ $# -gt 0 ]; do
    case $1 in
    --base) base=$(realpath "${2:?which folder?}"); shift ;;
    --packages) packages=$(realpath "${2:?which folder?}"); shift ;;
    --keep) isKept=yes ;;
    --no-rehearsal) isRehearsing=no ;;
    -*) fail "unknown option $1; see the head of this file" ;;
    *) suite=$1 ;;
    esac
    shift
done
[ -n "$suite" ] || fail "which suite? see the head of this file"
[ "$(id -u)" -eq 0 ] || fail "only root can make a Debian inside this one"
installResources

roots=$PWD/build/roots/$suite
output=${packages:-$PWD/build/packages/$suite}
isBuilding=$([ -n "$packages" ] && echo no || echo yes)
[ ! -e "$roots" ] || fail "$roots exists; remove it first"
mkdir -p "$roots"
removeRoots() { [ "$isKept" = yes ] || rm -rf --one-file-system "$roots"; }
trap removeRoots EXIT
makeBase
unshare --mount --propagation private --pid --fork --kill-child tools/try-package.sh --inside "$suite" "$roots" "$output" "$isBuilding" "$isRehearsing"
step "Everything happened in a fresh $suite"
