#!/usr/bin/env bash
# The demonstration job: commissions a simulated mono camera and a colour one, and shows the result in figures and pictures.
set -euo pipefail
cd "$(dirname "$0")/.."

bin=build/bin
demo=build/demo
mkdir -p "$demo"
export ZLT_PROVIDER_PATH="$PWD/build/lib/zlt-simulation" # no search for real cameras
export ZLT_SIMULATION_STATE="${ZLT_SIMULATION_STATE:-$PWD/$demo/state}"
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"

status=0
commission() { # CAMERA NAME
  local camera=$1 name=$2 verdict region
  echo
  echo "== $name camera $camera, lens covered =="
  "$bin/zlt-simulation-ctl" cover "$camera" on
  "$bin/lorvane-cli" disable "$camera" User
  "$bin/lorvane-cli" grab "$camera" -o "$demo/$name-before.png"
  "$bin/lorvane-cli" commission "$camera" User >"$demo/$name.txt" || status=1
  tail -n 1 "$demo/$name.txt"
  "$bin/lorvane-cli" grab "$camera" -o "$demo/$name-after.png"
  # The same piece of the sensor before and after, enlarged, around the middle of the longest run.
  region=$("$bin/lorvane-cli" read "$camera" User | awk '
    $4 > longest { longest = $4; x = $2 + int($4 / 2) - 80; y = $3 - 60 }
    END { printf "%d,%d,160,120", x < 0 ? 0 : x, y < 0 ? 0 : y }')
  "$bin/lorvane-cli" crop "$demo/$name-before.png" --region "$region" --zoom 6 -o "$demo/$name-before-detail.png"
  "$bin/lorvane-cli" crop "$demo/$name-after.png" --region "$region" --zoom 6 -o "$demo/$name-after-detail.png"
  verdict=$(tail -n 1 "$demo/$name.txt")
  case "$verdict" in
    *", visible 0") ;;
    *) status=1 ;;
  esac
}

commission SIM-OSTREL-M1 mono
commission SIM-OSTREL-C1 colour

echo
echo "Pictures before and after, whole and enlarged:"
ls -1 "$demo"/*.png
echo
for name in mono colour; do
  echo "$name: $(tail -n 1 "$demo/$name.txt")"
done
exit "$status"
