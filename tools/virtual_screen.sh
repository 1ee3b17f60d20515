# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# For scripts that show the editor in an X server of its own; they source this. All that is started
# ends with the script.

virtual_work=$(mktemp -d)
virtual_pids=()
virtual_finish() {
  for ((i = ${#virtual_pids[@]} - 1; i >= 0; i--)); do
    kill "${virtual_pids[$i]}" 2>/dev/null && wait "${virtual_pids[$i]}" 2>/dev/null || true
  done
  virtual_pids=()
}
trap 'virtual_finish; rm -rf "$virtual_work"' EXIT

# start_screen SIZE: an X server with a window manager, as DISPLAY.
start_screen() {
  rm -f "$virtual_work/display" "$virtual_work/managed"
  Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp 3>"$virtual_work/display" >/dev/null 2>&1 &
  virtual_pids+=($!)
  for ((i = 0; i < 200; i++)); do
    [ ! -s "$virtual_work/display" ] || break
    sleep 0.1
  done
  [ -s "$virtual_work/display" ] || { echo "$0: Xvfb does not start" >&2; exit 1; }
  DISPLAY=:$(cat "$virtual_work/display")
  export DISPLAY
  openbox --sm-disable --startup "touch $virtual_work/managed" >/dev/null 2>&1 &
  virtual_pids+=($!)
  for ((i = 0; i < 200; i++)); do
    [ ! -e "$virtual_work/managed" ] || break
    sleep 0.1
  done
}

# write_palette light|dark: the colours of the desktop, as the editor finds them below
# XDG_CONFIG_HOME. Settings and recent files of the user stay out of the picture.
write_palette() {
  rm -rf "$virtual_work/config"
  mkdir "$virtual_work/config"
  export XDG_CONFIG_HOME=$virtual_work/config
  unset XDG_CURRENT_DESKTOP KDE_FULL_SESSION KDE_SESSION_VERSION
  [ "$1" = dark ] || return 0
  export XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5
  cat >"$virtual_work/config/kdeglobals" <<'COLOURS'
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=252,252,252
ForegroundLink=61,174,233
ForegroundVisited=155,89,182
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=61,90,140
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[KDE]
widgetStyle=Fusion
COLOURS
}

# open_editor KELMAR [ARGUMENT ...]: waits until an ECU is open; `window` is then the window, or
# empty. Ends the script when the editor ends.
open_editor() {
  "$@" 2>"$virtual_work/errors" &
  local kelmar=$!
  virtual_pids+=("$kelmar")
  # The caption names the ECU once it is open.
  window=
  for ((i = 0; i < 300; i++)); do
    if ! kill -0 "$kelmar" 2>/dev/null; then
      cat "$virtual_work/errors" >&2
      echo "$0: the editor ended before it showed an ECU" >&2
      exit 1
    fi
    window=$(xdotool search --onlyvisible --name '^Kelmar Xml v[0-9.]+: ' 2>/dev/null | head -n 1) ||
      true
    [ -z "$window" ] || break
    sleep 0.1
  done
  [ -z "$window" ] || sleep 1 # the last things are drawn after the caption
}

# median_ecu SITE: an ECU file of a size that shows something.
median_ecu() {
  local ecus
  mapfile -t ecus < <(find "$1/vehicles" -name '*.xml' -printf '%s %p\n' 2>/dev/null |
    sort -n | cut -d' ' -f2-)
  [ ${#ecus[@]} -gt 0 ] || { echo "$0: the site has no ECU file" >&2; exit 1; }
  echo "${ecus[$((${#ecus[@]} / 2))]}"
}
