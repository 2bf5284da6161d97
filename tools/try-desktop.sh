#!/usr/bin/env bash
# try-desktop.sh NAME…: builds the packages in a fresh Debian, installs them in another beside a real desktop, starts that without
# a screen, and does there with Palomet what a person does. NAME is xfce, sway, plasma-x11, plasma-wayland, gnome-x11,
# gnome-wayland, or one of these two with "-icons", with the extension that shows the icons of programs; "all" takes one after
# the other.
#
#   --base FOLDER       a root made by debootstrap earlier, to be copied instead of making one; it is not changed
#   --packages FOLDER   try the packages that lie there instead of building any
#   --keep              leave the roots in build/roots/desktop-NAME
#
# For root. Pictures and logs end up in build/desktops/NAME. It exits with 0 only when every step holds. Mounts, processes and the
# network of the desktop live in namespaces of their own and go with the script.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/setup.sh
. tools/roots.sh

suite=bookworm
password=sesame
desktops=(xfce sway plasma-x11 plasma-wayland gnome-x11 gnome-x11-icons gnome-wayland gnome-wayland-icons)

installDesktop() {
    local root=$roots/run
    step "Installing $name and Palomet in a fresh $suite"
    mkdir -p "$root/packages"
    cp "$output"/*.deb "$root/packages/"
    within "$root" apt-get update -qq
    within "$root" id somebody >/dev/null 2>&1 || within "$root" useradd --create-home --uid 1000 somebody
    echo "somebody:$password" | within "$root" chpasswd
    local packages
    mapfile -t packages < <(cd "$root" && printf '/%s\n' packages/palomet*.deb)
    # shellcheck disable=SC2046
    installInside "$root" "${packages[@]}" $(packagesOf desktop "$name")
}

# The desktop's processes see no network but a loopback of their own, where every port is free.
liveThere() {
    local root=$roots/run kept=$PWD/build/desktops/$name
    # Terminals are pseudo-terminals.
    mkdir -p "$root/dev/pts"
    mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$root/dev/pts"
    ln -sf pts/ptmx "$root/dev/ptmx"
    # GNOME asks the control groups whether a service manager has started it, and starts no X server where there are none.
    mkdir -p "$root/sys/fs/cgroup"
    mount -t cgroup2 cgroup2 "$root/sys/fs/cgroup"
    mkdir "$root/tmp/.X11-unix" "$root/tmp/.ICE-unix"
    chmod 1777 "$root/tmp/.X11-unix" "$root/tmp/.ICE-unix"
    # What its file gives KWin, the root may not have to give, and then nobody could start it. It does without.
    local granted
    granted=$(within "$root" sh -c 'getcap -r /usr/bin /usr/lib 2>/dev/null' | cut -d' ' -f1 || true)
    for file in $granted; do within "$root" setcap -r "$file"; done
    local result=0
    within "$root" unshare --net sh -c 'ip link set lo up && exec "$@"' sh \
        setpriv --reuid 1000 --regid 1000 --clear-groups env HOME=/home/somebody USER=somebody \
        PALOMET_PROGRAM=/usr/bin/palomet PALOMET_PASSWORD=$password PALOMET_DESKTOP=/tmp/desktop \
        /usr/share/palomet/bun /source/tests/desktops/try.ts "$name" || result=$?
    rm -rf "$kept"
    mkdir -p "$(dirname "$kept")"
    cp -r "$root/tmp/desktop" "$kept" || true
    return "$result"
}

if [ "${1:-}" = --inside ]; then
    shift
    name=$1 roots=$2 output=$3 isBuilding=$4
    mountInside "$roots/run"
    if [ "$isBuilding" = yes ]; then
        mountInside "$roots/build"
        buildPackages
    fi
    installDesktop
    step "Living on $name"
    liveThere || fail "not every step holds on $name; see build/desktops/$name"
    exit 0
fi

names=() base="" packages="" isKept=no
while [ $# -gt 0 ]; do
    case $1 in
    --base) base=$(realpath "${2:?which folder?}"); shift ;;
    --packages) packages=$(realpath "${2:?which folder?}"); shift ;;
    --keep) isKept=yes ;;
    -*) fail "unknown option $1; see the head of this file" ;;
    all) names+=("${desktops[@]}") ;;
    *) [[ " ${desktops[*]} " == *" $1 "* ]] || fail "no desktop $1; see the head of this file"
        names+=("$1") ;;
    esac
    shift
done
[ ${#names[@]} -gt 0 ] || fail "which desktop? see the head of this file"
[ "$(id -u)" -eq 0 ] || fail "only root can make a Debian inside this one"
installResources

# The first desktop's packages serve the others.
output=${packages:-$PWD/build/packages/$suite}
isBuilding=$([ -n "$packages" ] && echo no || echo yes)
removeRoots() { [ "$isKept" = yes ] || rm -rf --one-file-system "$roots"; }
failed=()
for name in "${names[@]}"; do
    roots=$PWD/build/roots/desktop-$name
    [ ! -e "$roots" ] || fail "$roots exists; remove it first"
    mkdir -p "$roots"
    trap removeRoots EXIT
    makeBase
    unshare --mount --propagation private --pid --fork --kill-child tools/try-desktop.sh --inside "$name" "$roots" "$output" "$isBuilding" ||
        failed+=("$name")
    isBuilding=no
    removeRoots
done
[ ${#failed[@]} -eq 0 ] || fail "not at home on ${failed[*]}"
step "At home on ${names[*]}"
