#!/usr/bin/env bash
# Each room sees only itself and the rooms before it.  The .cpp files of platform/ are leaves that may name a report.
set -euo pipefail
cd "$(dirname "$0")/.."
rooms=(platform frame compare balance navigate update diagnostics range)

failed=0
for i in "${!rooms[@]}"; do
    room=${rooms[i]}
    allowed=$(IFS='|'; echo "ovant\.h|(${rooms[*]:0:i+1})/.*")
    [ "$room" != platform ] || allowed="$allowed|frame/report\.hpp"
    found=$(grep -nE '^ *# *include *"' -r "$room" | grep -vE "include *\"($allowed)\"" || true)
    [ "$room" != platform ] || found+=$(grep -nE 'include *"frame/' "$room"/*.hpp 2>/dev/null || true)
    [ -z "$found" ] || { failed=1; printf 'against the order of the rooms: %s\n' "$found" >&2; }
done
exit $failed
