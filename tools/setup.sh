# Sourced by ./run and ./test: says what is being done, and installs what is missing.

step() { printf '\033[1m==>\033[0m %s\n' "$*"; }
fail() { printf 'palomet: %s\n' "$*" >&2; exit 1; }

# packagesOf SECTION…: the Debian packages listed under these headings of tools/packages.txt.
packagesOf() {
    local section
    for section in "$@"; do
        awk -v wanted="[$section]" '/^\[/ { on = ($0 == wanted); next } on && NF && !/^#/ { print $1 }' tools/packages.txt
    done
}

# installPackages SECTION…: those of them that this machine lacks, through apt.
installPackages() {
    command -v dpkg-query >/dev/null || { step "Not a Debian system: taking the packages of tools/packages.txt as installed"; return 0; }
    local name missing=()
    for name in $(packagesOf "$@"); do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null)" = installed ] || missing+=("$name")
    done
    command -v npm >/dev/null || missing+=(nodejs npm)
    [ ${#missing[@]} -eq 0 ] && return 0
    step "Installing ${#missing[@]} packages: ${missing[*]}"
    local asRoot=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "these packages are missing, and there is no sudo to install them: ${missing[*]}"
        asRoot=(sudo)
    fi
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq || fail "apt-get update failed"
    "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null ||
        fail "apt-get could not install: ${missing[*]}"
}

# installResources: the runtime, the engine's ears, the faces and the icons, exactly as the lock file has them.
installResources() {
    local stamp=resources/node_modules/.installed
    if [ ! -e "$stamp" ] || [ resources/package-lock.json -nt "$stamp" ]; then
        step "Installing the runtime, the ears, the faces and the icons from npm: 310 MB to fetch, 680 MB on the disk"
        # A link leads to another's folder, which npm would empty.
        [ ! -L resources/node_modules ] || rm resources/node_modules
        (cd resources && npm ci --no-audit --no-fund --loglevel=error) || fail "npm could not install what resources/package-lock.json lists"
        touch "$stamp"
    fi
    if [ ! -e resources/ears ] || [ resources/ears.mjs -nt resources/ears ] || [ resources/mathematics.mjs -nt resources/ears ] || [ "$stamp" -nt resources/ears ]; then
        (cd resources && npm run --silent ears) || fail "the engine's ears could not be laid out"
        touch resources/ears
    fi
}

# buildPreset PRESET [TARGET…], with the tests unless withTests=OFF: they need packages of their own.
buildPreset() {
    local preset=$1
    shift
    step "Building the $preset preset"
    cmake --preset "$preset" -DBUILD_TESTING="${withTests:-ON}" >"build-$preset.log" 2>&1 || { cat "build-$preset.log"; rm -f "build-$preset.log"; fail "cmake could not configure"; }
    rm -f "build-$preset.log"
    cmake --build --preset "$preset" ${1:+--target "$@"} || fail "the build failed"
}
