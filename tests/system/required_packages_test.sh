#!/usr/bin/env bash
# required_packages_test.sh ROOT: what ./run and ./test do about missing packages, with the system's tools replaced by
# ones that say what they are asked for. Nothing is installed.
set -uo pipefail
root=$1
tools=$(mktemp -d)
trap 'rm -rf "$tools"' EXIT
failures=0

# tool NAME SCRIPT: puts a tool of that name in front of the system's.
tool() {
    printf '#!/bin/bash\n%s\n' "$2" >"$tools/$1"
    chmod +x "$tools/$1"
}

# require NAME…: what require_packages says and does; its status is in $status.
require() {
    said=$(PATH="$tools:/usr/bin:/bin" bash -c '
        set -euo pipefail
        root=$1; . "$1/scripts/common.sh"; root=$2; shift 2
        require_packages "$@"' bash "$root" "$tools" "$@" 2>&1 </dev/null)
    status=$?
}

expect() {
    if [ "$2" != "$3" ]; then
        printf 'FAIL: %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3"
        failures=$((failures + 1))
    fi
}

# As the real one: tells of what it knows, which may be no more than that others suggest it, and fails when it does not
# know one.
tool dpkg-query 'for name in "${@:3}"; do
    [ "$name" = known ] && echo "installed known"
    [ "$name" = suggested ] && echo "not-installed suggested"
done
for name in "${@:3}"; do [ "$name" = known ] || [ "$name" = suggested ] || exit 1; done'
tool apt-get 'echo "apt-get $*" >>"$(dirname "$0")/asked"'
tool id 'echo 0'

require known
expect "nothing is done when nothing is missing" "0|" "$status|$said"

require known absent
expect "root installs what is missing" "0|Installing: absent" "$status|$said"
expect "only what is missing is asked for" "apt-get install -y -q --no-install-recommends absent" \
    "$(tail -n 1 "$tools/asked")"

require known suggested
expect "what others only suggest is missing" "0|Installing: suggested" "$status|$said"

tool id 'echo 1000'
tool sudo 'exit 1'
require known absent other
expect "a user without rights is told, with status 3" "3" "$status"
expect "the one command names all that is missing" \
    "    sudo apt-get update && sudo apt-get install -y --no-install-recommends absent other" "$(tail -n 1 <<<"$said")"

tool sudo '[ "$1" = -n ] && exit 0; "$@"'
rm -f "$tools/asked"
require absent
expect "a user with sudo installs what is missing" "0" "$status"
expect "through sudo" "apt-get install -y -q --no-install-recommends absent" "$(tail -n 1 "$tools/asked")"

tool apt-get 'echo "no network" >&2; exit 100'
require absent
expect "a failed installation ends with status 3" "3" "$status"
expect "and says why" "no network" "$(sed -n 2p <<<"$said")"

[ "$failures" -eq 0 ] && echo "all as expected"
exit "$failures"
