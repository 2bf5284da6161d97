#!/usr/bin/env bash
# under-load.sh LOAD COMMAND…: runs a command while LOAD processes do nothing but compute, and exits as the command does.
set -euo pipefail
load=${1:?how many processes?}
shift
burners=()
trap 'kill "${burners[@]}" 2>/dev/null || true' EXIT
for ((count = 0; count < load; ++count)); do
    (while :; do :; done) &
    burners+=($!)
done
status=0
"$@" || status=$?
printf 'under-load: %s beside %s processes; the load was %s\n' "$1" "$load" "$(cut -d' ' -f1-3 /proc/loadavg)"
exit $status
