#!/usr/bin/env bash
# service_file_test.sh SYSTEMD_ANALYZE PROGRAM FILE: systemd finds nothing wrong with the file.
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
grep -q '^ExecStart=/usr/bin/app_workplace ' "$3"
sed "s|^ExecStart=/usr/bin/app_workplace |ExecStart=$2 |" "$3" >"$folder/haitor-workplace.service"
said=$("$1" verify --man=no "$folder/haitor-workplace.service" 2>&1) || { printf '%s\n' "$said"; exit 1; }
# It also tells of other units of the machine.
! grep haitor-workplace <<<"$said"
