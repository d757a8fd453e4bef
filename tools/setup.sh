# Shared by the scripts of the project (./run, ./test, bench/run and those in tools/): installs what is missing from
# Debian's packages, configures and builds. Source it; it moves to the root of the project.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD

build_packages=(g++ cmake ninja-build ccache libfmt-dev libcli11-dev libeigen3-dev libgtest-dev libgmock-dev
                libbenchmark-dev qt6-base-dev qt6-svg-dev libqt6svg6 qt6-translations-l10n fonts-ipafont-gothic)
display_packages=(qt6-wayland xdg-utils)  # what the windows need of a desktop
test_packages=(poppler-utils              # reads the PDF files back
               python3-ezdxf librecad)    # read the DXF files
fuzz_packages=(clang libclang-rt-14-dev)

# need PACKAGE...: installs those that are missing. Asks nothing; quick when nothing is missing.
need() {
  command -v dpkg-query > /dev/null || return 0 # not Debian: the configuration tells what it lacks
  local missing=() package
  local have
  have=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2> /dev/null || true)
  for package in "$@"; do
    grep -qx "installed $package" <<< "$have" || missing+=("$package")
  done
  [[ ${#missing[@]} -eq 0 ]] && return 0
  echo "Installing from Debian's packages: ${missing[*]}"
  local as_root=()
  if [[ $EUID -ne 0 ]]; then
    command -v sudo > /dev/null || { echo "These packages need root, and there is no sudo." >&2; exit 1; }
    as_root=(sudo)
  fi
  mkdir -p build
  local log=build/install.log
  if ! { "${as_root[@]}" apt-get update -q &&
         "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get install -q -y --no-install-recommends "${missing[@]}"; } > "$log" 2>&1 < /dev/null; then
    tail -n 20 "$log" >&2
    echo "The installation failed; the whole log is $log." >&2
    exit 1
  fi
}

# build PRESET [TARGET...]: configures once and builds what is out of date.
build() {
  local preset=$1 folder=build/$1
  shift
  # A build folder that was copied or moved with the project points to the old place.
  if [[ -f $folder/CMakeCache.txt ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"; then
    rm -rf "$folder"
  fi
  if [[ ! -f $folder/build.ninja ]]; then
    cmake --preset "$preset" > /dev/null
  fi
  local targets=()
  [[ $# -gt 0 ]] && targets=(--target "$@")
  echo "Building ($preset)"
  local command=(cmake --build --preset "$preset" "${targets[@]}")
  if [[ -t 1 ]]; then
    "${command[@]}" # ninja shows its progress
  else
    "${command[@]}" > "$folder/build.log" 2>&1 || { cat "$folder/build.log"; exit 1; }
  fi
}
