# Sourced by ./run and ./soak, in the project's folder: what they need, with the set of clips; "$bun" runs them.
. tools/setup.sh

installPackages run ears
installResources
# The one that the program takes on this machine.
case "$(uname -m)" in
aarch64) bun=bun-linux-aarch64 ;;
*) if grep -q avx2 /proc/cpuinfo; then bun=bun-linux-x64; else bun=bun-linux-x64-baseline; fi ;;
esac
bun=resources/node_modules/@oven/$bun/bin/bun
if [ ! -e build/ears/set/digest ] || [ -n "$(find bench/ears/set -newer build/ears/set/digest)" ]; then
    step "Making the set of clips"
    "$bun" bench/ears/set/make.ts build/ears
fi
