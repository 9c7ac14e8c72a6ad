# What ./run, ./test and ./bench share; sourced by them from the root of the tree.
#
# A bare Debian 12 is enough to start from: what is missing is installed, as root or through sudo. The
# Windows programs run under Wine in a prefix inside the build tree, on a virtual display unless the caller
# wants the real one; both are ended when the script ends, however it ends.

root=$PWD
export LC_ALL=C.UTF-8 # Wine takes the names of files in it
wine_prefix=$root/build/wine

say() { printf '%s\n' "== $*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo -- "$@"; fi
}

# Installs those of the named Debian packages that are not there.
need_packages() {
  local package missing=()
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done
  [ ${#missing[@]} = 0 ] && return
  command -v apt-get >/dev/null || die "Please install: ${missing[*]}"
  say "Installing ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(g++ cmake ninja-build g++-mingw-w64-x86-64-posix libcli11-dev libeigen3-dev googletest)
bench_packages=(python3 libbenchmark-dev libicu-dev libpcre2-dev libcairo2-dev libopencv-imgproc-dev pkg-config libfftw3-dev)
wine_packages=(wine wine64 fonts-wine fonts-liberation libgl1-mesa-dri xvfb)
sound_packages=(gstreamer1.0-plugins-base gstreamer1.0-plugins-good) # what Wine decodes music with
film_packages=(ffmpeg imagemagick)

# Configures and builds a preset in silence, or shows what went wrong.
build_preset() {
  local preset=$1 log=$root/build/$1.log
  shift
  mkdir -p build
  say "Building $preset"
  { cmake --preset "$preset" && cmake --build --preset "$preset" "$@"; } >"$log" 2>&1 || { tail -n 60 "$log"; die "Building $preset failed; the whole log is $log"; }
}

display_process=
end_environment() {
  local status=$?
  trap - EXIT
  if [ -n "${WINEPREFIX-}" ]; then wineserver -k 2>/dev/null || true; fi
  if [ -n "$display_process" ]; then kill "$display_process" 2>/dev/null || true; fi
  exit "$status"
}
trap end_environment EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# A virtual display of its own, of that size, at a number that is free.
start_virtual_display() { # [WIDTHxHEIGHT]
  local number_file
  number_file=$(mktemp)
  Xvfb -displayfd 3 -screen 0 "${1-1920x1080}x24" -nolisten tcp 3>"$number_file" >/dev/null 2>&1 &
  display_process=$!
  local tries
  for ((tries = 0; tries < 200; ++tries)); do
    [ -s "$number_file" ] && break
    sleep 0.05
  done
  [ -s "$number_file" ] || die "The virtual display did not start"
  DISPLAY=:$(cat "$number_file")
  export DISPLAY
  rm -f "$number_file"
}

# The Wine prefix of the build tree, made on first use; its server stays up until the script ends.
start_wine() {
  export WINEPREFIX=$wine_prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
  if [ ! -e "$wine_prefix/.ready" ]; then
    say "Making the Wine prefix"
    rm -rf "$wine_prefix"
    mkdir -p "$wine_prefix"
    wineboot -i >/dev/null 2>&1
    # Wine has no "Arial", and DirectWrite then draws no text at all.
    wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v Arial /d 'Liberation Sans' /f >/dev/null
    wineserver -w
    touch "$wine_prefix/.ready"
  fi
  # The server stays up between programs. The first program starts the prefix's services, which hold on to its
  # output; so that is one whose output nobody waits for. It says whether there is a window manager: a virtual
  # display has none, and Wine would wait two seconds for its answer with each window, and leave to it what it
  # then never does: to maximise a window, or to put it on top.
  wineserver -p >/dev/null 2>&1 </dev/null || true
  wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d "$([ -n "$display_process" ] && echo N || echo Y)" /f \
    >/dev/null 2>&1 </dev/null
}

# Keeps a window open until the script ends, so that Wine's desktop process is there before the first test: it would
# hold on to the output of the test that happens to start it, and that test would seem to run for minutes.
keep_desktop() {
  wine winver >/dev/null 2>&1 </dev/null &
}

# Waits until the virtual display shows a picture below the window's caption; fails if none comes.
wait_for_picture() {
  local tries colours
  for ((tries = 0; tries < 240; ++tries)); do
    colours=$(import -window root -crop 900x700+50+60 +repage -format %k info: 2>/dev/null || echo 1)
    [ "$colours" -gt 8 ] && return
    sleep 0.25
  done
  return 1
}

film() { # FILE SECONDS: what the virtual display shows
  ffmpeg -y -loglevel error -f x11grab -draw_mouse 0 -framerate 30 -t "$2" -i "$DISPLAY" -pix_fmt yuv420p -crf 20 "$1" </dev/null
}
