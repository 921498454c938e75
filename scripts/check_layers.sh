#!/usr/bin/env bash
# Checks that the framework's areas depend on one another in one direction:
# derives the area-to-area graph from the #include "osi/<area>/..." and
# "persist/..." lines of each area's sources, and fails on a cycle or on an
# include of an area that comes later in the declared order.
set -euo pipefail
cd "$(dirname "$0")/.."

# Bottom to top: an area includes only itself and areas before it.
order=(osi/base osi/osd osi/containers osi/runtime osi/pool osi/services persist osi/numerics osi/text)

declare -A rank
for i in "${!order[@]}"; do
  rank[${order[$i]}]=$i
done

status=0
edges=()
for area in osi/* persist; do
  [ -d "$area" ] || continue
  if [ -z "${rank[$area]+set}" ]; then
    echo "layers: $area is not in the declared order (scripts/check_layers.sh)"
    status=1
    continue
  fi
  # file:to for every include of a framework area.
  while IFS=: read -r file to; do
    [ "$to" = "$area" ] && continue
    edges+=("$area $to")
    if [ -z "${rank[$to]+set}" ] || [ "${rank[$to]}" -gt "${rank[$area]}" ]; then
      echo "layers: $file includes $to, which is above $area"
      status=1
    fi
  done < <(grep -rHoE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"(osi/[a-z_]+|persist)/' \
    --include='*.h' --include='*.cpp' "$area" |
    sed -E 's/#[[:space:]]*include[[:space:]]*"//; s|/$||; s/:[[:space:]]*/:/')
done

# tsort fails on a cycle and names the areas in it.
if ! printf '%s\n' "${edges[@]}" | sort -u | tsort >/dev/null; then
  echo "layers: the areas include one another in a cycle (above)"
  status=1
fi
if [ "$status" -eq 0 ]; then
  echo "layers: $(printf '%s\n' "${edges[@]}" | sort -u | wc -l) area dependencies, all downward, no cycle"
fi
exit $status
