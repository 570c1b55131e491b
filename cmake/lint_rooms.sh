#!/usr/bin/env bash
# Who may include whom.  The engine sees only itself, the typed face the engine.  A room of the C face sees the engine,
# itself and the rooms before it; the .cpp files of platform/ are leaves that may name a report.
set -euo pipefail
cd "$(dirname "$0")/.."
rooms=(platform frame compare navigate update diagnostics range)
failed=0

only() { # only FOLDER ALLOWED: a regular expression over the names between the quotes
    local found
    found=$(grep -rnE '^ *# *include *"' "$1" | grep -vE "include *\"($2)\"" || true)
    [ -z "$found" ] || { failed=1; printf 'against the order of the rooms: %s\n' "$found" >&2; }
}

only include/ovant/engine '[a-z_]+\.hpp'
only include/ovant/typed '(\.\./engine/)?[a-z_]+\.hpp'
for i in "${!rooms[@]}"; do
    allowed=$(IFS='|'; echo "ovant\.h|ovant/engine/[a-z_]+\.hpp|(${rooms[*]:0:i+1})/.*")
    [ "${rooms[i]}" != platform ] || allowed='ovant\.h|platform/.*|frame/report\.hpp'
    only "c/${rooms[i]}" "$allowed"
done
diff <(printf 'c/%s/\n' "${rooms[@]}" | sort) <(printf '%s\n' c/*/ | sort) >&2 || failed=1 # all rooms, and no others
if grep -nE 'include "frame/' c/platform/*.hpp >&2; then failed=1; fi
exit $failed
