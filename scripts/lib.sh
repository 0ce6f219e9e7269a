# shellcheck shell=bash
# Shell functions that the scripts of this folder and .ci/run share. It is sourced, not run:
#
#   . "$(dirname "${BASH_SOURCE[0]}")/lib.sh"
#
# It sets `root` (the checkout) and `workdir` (a temporary folder, removed when the script ends in whatever way). A script
# with more to clear away defines its own `cleanup`.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
workdir=$(mktemp -d "${TMPDIR:-/tmp}/qvn.XXXXXX")

# Debian leaves the folder of the database servers out of the path of ordinary users.
export PATH="$PATH:/usr/sbin:/sbin"

# A build folder keeps the launcher with which it was configured first.
if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
fi

cleanup() { rm -rf "$workdir"; }
# Any further signal would cut the clearing away short.
trap 'trap "" INT TERM HUP; cleanup' EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# fail TEXT: ends the script with a message.
fail() {
  printf '%s: %s\n' "${0##*/}" "$1" >&2
  exit 1
}

# phase TITLE COMMAND...: runs the command and prints one line with the seconds that it took. What the command says is
# shown only when it fails; its status is then the script's.
phase() {
  local title=$1 start=$SECONDS status=0
  shift
  printf '%s: ' "$title"
  "$@" >"$workdir/phase.log" 2>&1 </dev/null || status=$?
  if ((status == 0)); then
    printf '%d s\n' $((SECONDS - start))
    return
  fi
  printf 'falló a los %d s\n' $((SECONDS - start))
  cat "$workdir/phase.log" >&2
  exit "$status"
}

# is_configured FOLDER [OPTION]: that folder of build/ has been configured since the presets last changed and, when an
# option is named, with that option on. Later changes of CMakeLists.txt files are seen by the build itself.
is_configured() {
  local preset_file=$root/CMakePresets.json cache=$root/build/$1/CMakeCache.txt
  [[ -f $root/build/$1/build.ninja && ! $preset_file -nt $cache ]] || return 1
  [[ $# -lt 2 ]] || grep -q "^$2:[A-Z]*=ON$" "$cache"
}

# configure PRESET, build PRESET [ARGUMENT...]: CMake reads its presets from the current folder.
configure() { (cd "$root" && cmake --preset "$1"); }
build() { (cd "$root" && cmake --build --preset "$@"); }
