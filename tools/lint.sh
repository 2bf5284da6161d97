#!/usr/bin/env bash
# lint.sh format | package MANUAL… | tidy BUILD_FOLDER: exits 0 when there is nothing to complain of.
set -euo pipefail
cd "$(dirname "$0")/.."

sources() { git ls-files -co --exclude-standard -- "$@" | while read -r file; do [ -f "$file" ] && echo "$file"; done; }

case "$1" in
format)
    sources '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
    ;;
package)
    desktop-file-validate packaging/org.palomet.Palomet.desktop
    appstreamcli validate --no-net packaging/org.palomet.Palomet.metainfo.xml
    # What groff finds wrong with a manual it says and does not count.
    problems=$(groff -man -ww -z "${@:2}" 2>&1)
    [ -z "$problems" ] || { echo "$problems"; exit 1; }
    sh -n packaging/palomet-engine
    for completion in packaging/bash-completion/*; do bash -n "$completion"; done
    ;;
tidy)
    build=$2
    # A source is looked at again only when it, or anything that it includes of ours, has changed.
    cache=$build/tidy
    mkdir -p "$cache"
    tidy() {
        local file=$1 build=$2 cache=$3 stamp
        grep -q "\"file\": \".*/$file\"" "$build/compile_commands.json" || return 0
        stamp=$cache/$( (cat .clang-tidy "$file"; ourHeaders "$file") | sha256sum | cut -c1-32)
        [ -e "$stamp" ] && return 0
        if clang-tidy --quiet -p "$build" "$file" >"$stamp.out" 2>&1; then
            rm -f "$stamp.out"
            : >"$stamp"
        else
            cat "$stamp.out"
            rm -f "$stamp.out"
            return 1
        fi
    }
    # The contents of every header of ours that a source includes, directly or not.
    ourHeaders() {
        local seen="" queue=$1 file header
        while [ -n "$queue" ]; do
            file=${queue%% *}
            queue=${queue#"$file"}
            queue=${queue# }
            while read -r header; do
                case " $seen " in *" $header "*) continue ;; esac
                [ -f "$header" ] || continue
                seen="$seen $header"
                queue="$queue $header"
                cat "$header"
            done < <(sed -n 's/^ *# *include "\(.*\)"/\1/p' "$file")
            queue=${queue# }
        done
    }
    export -f tidy ourHeaders
    sources 'app/*.cpp' 'audio/*.cpp' 'base/*.cpp' 'command/*.cpp' 'doctor/*.cpp' 'localization/*.cpp' 'model/*.cpp' \
        'platform/*.cpp' 'shortcuts/*.cpp' 'ui/*.cpp' |
        xargs -P "${LINT_JOBS:-1}" -I{} bash -c 'tidy "$@"' _ {} "$build" "$cache"
    ;;
esac
