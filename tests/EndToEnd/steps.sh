# What the roads through the real program share. To be sourced by a test whose arguments are the folder of the programs and
# one for pictures, and whose $camera stands in row $row of the list, counted from 0. The set to be written is $set.

programs=$1
pictures=$2
mkdir -p "$pictures"
. "$(dirname "$0")/../../scripts/display.sh"

step() {
  echo "-- $*"
}
fail() {
  picture "$pictures/failed.png" 1600x1000+0+0 || true
  echo "FAILED: $*" >&2
  exit 1
}
expect() { # WHAT EXPECTED ACTUAL
  [ "$2" = "$3" ] || fail "$1: expected '$2', got '$3'"
}
answer() { # TITLE PICTURE [KEYS...]: by its default button, or by these keys
  local dialog
  dialog=$(window "$1") || fail "no dialog '$1'"
  [ -n "$dialog" ] || fail "no dialog '$1'"
  sleep 0.3
  picture "$pictures/$2.png"
  local keys=("${@:3}")
  xdotool key "${keys[@]:-Return}"
  gone "$1" || fail "the dialog '$1' stays"
}
loaded() {
  sleep 0.5
  gone '^Loading$' || fail "the loader stays"
  sleep 0.3
}
# How many pixels of the list's place are of this colour.
coloured() {
  import -window root "$work/list.png"
  convert "$work/list.png" -crop 280x200+1140+570 -fuzz 3% -fill white -opaque "$1" -fill black +opaque white \
    -format '%[fx:round(mean*w*h)]' info:
}
has_blue_rows() {
  [ "$(coloured 'rgb(57,130,223)')" -gt 0 ]
}
dark_frame() { # prints the defects that are seen in it
  "$programs/lorvane-cli" grab "$camera" -o "$work/dark.png" >/dev/null
  "$programs/lorvane-cli" detect "$work/dark.png"
}

start() {
  printf '[info]\nTutorialFinished=true\n' >"$work/Lorvane.ini"
  start_program "$programs/lorvane"
  sleep 1
}
pick_camera() {
  click 150 $((173 + 55 * row))
  loaded
  sleep 1.5
  loaded
}
choose_user_set() { # some cameras cannot read an empty set, and say so
  click 1103 289
  xdotool key Return sleep 1
  if xdotool search --onlyvisible --name '^Camera info$' >/dev/null 2>&1; then answer '^Camera info$' unreadable; fi
  loaded
}
# Until the camera has restarted and is picked again, with the set as it has it.
upload() { # TITLE_OF_THE_QUESTION [KEYS...]
  click 1104 733
  answer "$1" upload-confirm "${@:2}"
  sleep 0.5
  loaded
  answer '^Upload successful$' upload-successful
  step "the camera leaves and returns"
  answer '^Connection lost$' connection-lost
  for _ in $(seq 100); do
    [ "$("$programs/zlt-simulation-ctl" list | awk -v id="$camera" '$1 == id { print $3 }')" = plugged ] && break
    sleep 0.1
  done
  sleep 1.5
  pick_camera
  choose_user_set
  picture "$pictures/right-panel.png"
  expect "blue rows" 0 "$(coloured 'rgb(57,130,223)')"
  [ "$(coloured 'rgb(37,171,37)')" -gt 0 ] || fail "no green rows in the list"
}
correction_on() {
  click 1187 257
  loaded
  picture "$pictures/correction-on.png"
}
leave() {
  click 1231 16
  for _ in $(seq 100); do kill -0 "$program_process" 2>/dev/null || break; sleep 0.1; done
  wait "$program_process" || fail "the program ended with status $?"
  expect "enabled" yes "$("$programs/lorvane-cli" sets "$camera" | awk -v set="$set" '$1 == set { print $5 }')"
}
