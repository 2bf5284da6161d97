# Sourced by tools/try-*.sh: a fresh Debian in a folder, with its packages, and Palomet's built in it. For root.
#
# They say which by variables: suite, base (a root to be copied, or nothing), roots (the folder of the two roots build and run)
# and output (the folder of Palomet's packages).
# shellcheck shell=bash disable=SC2154

source=$PWD

# within ROOT COMMAND…: runs it inside, with the environment of an ordinary login and the host's network settings.
within() {
    local root=$1 settings
    shift
    settings=$(env | grep -E '^(https?|no|HTTPS?|NO)_(proxy|PROXY)=' || true)
    # Each setting is one word: no address has a blank in it.
    # shellcheck disable=SC2086
    chroot "$root" env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive $settings "$@"
}

# asUser ROOT COMMAND…: the same as somebody who is not root.
asUser() {
    local root=$1
    shift
    within "$root" setpriv --reuid 1000 --regid 1000 --clear-groups env HOME=/home/somebody "$@"
}

# The mirror that this host uses.
mirror() {
    apt-get indextargets --format '$(SITE)' 'Created-By: Packages' 2>/dev/null | grep -E 'debian/?$' | head -n 1
}

makeBase() {
    if [ -n "$base" ]; then
        cp -a "$base" "$roots/build"
    else
        step "Making a fresh $suite"
        command -v debootstrap >/dev/null || fail "debootstrap is missing"
        debootstrap --variant=minbase "$suite" "$roots/build" "$(mirror)" >"$roots/debootstrap.log" ||
            { tail -n 20 "$roots/debootstrap.log"; fail "debootstrap could not make $suite"; }
    fi
    local root=$roots/build
    rm -rf "$root"/etc/apt/sources.list "$root"/etc/apt/sources.list.d/*
    echo "deb $(mirror) $suite main" >"$root/etc/apt/sources.list"
    apt-config dump | grep -E '^Acquire::(http|https|ftp|Retries|Check)' >"$root/etc/apt/apt.conf.d/90host" || true
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    local certificates=/usr/local/share/ca-certificates
    [ -d $certificates ] && mkdir -p "$root$certificates" && cp -rL $certificates/. "$root$certificates/"
    local file
    for file in $(apt-config dump | sed -nE 's/^Acquire::[^ ]*(CaInfo|SslCert|SslKey) "(.+)";$/\2/Ip'); do
        mkdir -p "$root$(dirname "$file")" && cp -L "$file" "$root$file"
    done
    cp -a "$root" "$roots/run"
}

# Mounts of the namespace that this runs in; nobody else sees them.
mountInside() {
    local root=$1
    mount -t proc proc "$root/proc"
    mkdir -p "$root/dev/shm" "$root/source"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
    mount --bind "$source" "$root/source"
    mount -o remount,bind,ro "$root/source"
    # It may be a link to somewhere else on this host.
    if [ -L "$source/resources/node_modules" ]; then
        local packages
        packages=$(readlink -f "$source/resources/node_modules")
        mkdir -p "$root$packages"
        mount --bind "$packages" "$root$packages"
    fi
}

installInside() {
    local root=$1
    shift
    within "$root" apt-get install -y -qq --no-install-recommends "$@" >"$roots/apt.log" 2>&1 ||
        { tail -n 20 "$roots/apt.log"; fail "apt-get could not install: $*"; }
}

buildPackages() {
    local root=$roots/build
    step "Installing what the build needs"
    within "$root" apt-get update -qq
    # shellcheck disable=SC2046
    installInside "$root" $(packagesOf build package)
    step "Building the packages"
    within "$root" cmake -S /source -B /build -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" \
        -DBUILD_TESTING=OFF >"$roots/configure.log" 2>&1 || { tail -n 20 "$roots/configure.log"; fail "cmake could not configure"; }
    grep 'Echo canceller' "$roots/configure.log"
    within "$root" cmake --build /build --parallel "$(nproc)" --target palomet palomet-resources palomet-documents >"$roots/build.log" 2>&1 ||
        { tail -n 40 "$roots/build.log"; fail "the build failed"; }
    within "$root" sh -c 'cd /build && cpack -B /packages' >"$roots/cpack.log" 2>&1 ||
        { tail -n 20 "$roots/cpack.log"; fail "cpack failed"; }
    mkdir -p "$output"
    rm -f "$output"/*.deb
    cp "$root"/packages/*.deb "$output/"
}
