# A virtual display with the window of the program on it, worked by mouse and keyboard. To be sourced; starts the display at
# once, in a folder of its own that is $work, and ends everything when the shell ends. Places are those of a window of
# 1254 x 766, the size at first start.

work=$(mktemp -d)
export ZLT_SIMULATION_STATE=$work/state
export QT_QPA_PLATFORM=xcb
started=()
finish() {
  for process in "${started[@]}"; do kill "$process" 2>/dev/null || true; done
  wait 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

# The server chooses a free number and tells it.
mkfifo "$work/number"
Xvfb -displayfd 3 -dpi 96 -screen 0 1600x1000x24 -nolisten tcp 3>"$work/number" >"$work/xvfb.log" 2>&1 &
started+=($!)
read -r number <"$work/number"
export DISPLAY=:$number
openbox >"$work/openbox.log" 2>&1 &
started+=($!)
xcompmgr -n >"$work/xcompmgr.log" 2>&1 &
started+=($!)
xsetroot -solid '#3b4a5a'

# The window whose title matches, once it is there.
window() {
  timeout 20 xdotool search --sync --onlyvisible --name "$1" 2>/dev/null | tail -n 1
}

start_program() { # PROGRAM
  cd "$work"
  "$1" >"$work/lorvane.log" 2>&1 &
  program_process=$!
  started+=("$program_process")
  main=$(window '^Lorvane$')
}

# Waits until no window has this title any more.
gone() {
  for _ in $(seq 300); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  return 1
}

# At a place of the main window.
click() { # X Y
  xdotool mousemove --window "$main" "$1" "$2" sleep 0.2 click 1 sleep 0.4
}
drag() { # X Y TO_X TO_Y
  xdotool mousemove --window "$main" "$1" "$2" sleep 0.2 mousedown 1
  xdotool mousemove --window "$main" $((($1 + $3) / 2)) $((($2 + $4) / 2)) sleep 0.1
  xdotool mousemove --window "$main" "$3" "$4" sleep 0.2 mouseup 1 sleep 0.3
}
wheel() { # X Y TIMES, negative: toward the user, away from the image
  local button=4 times=$3
  if [ "$times" -lt 0 ]; then button=5 times=$((-times)); fi
  xdotool mousemove --window "$main" "$1" "$2" click --repeat "$times" --delay 60 "$button" sleep 0.5
}
picture() { # FILE [AREA]
  import -window root -crop "${2:-1300x830+150+60}" +repage -strip "$1"
}
