# Shared by run and test: what a machine needs, how it is installed, and how a preset is built.
# Sourced with the working directory at the root of the checkout.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev libsqlite3-dev libminizip-dev zlib1g-dev
                libisal-dev fonts-dejavu-core
                libgtest-dev libpugixml-dev python3)  # the tests' own, which configuring asks for
test_packages=(python3-openpyxl clang-tidy)
# Its package would drive out a LibreOffice with windows, so it is wanted only where there is none at all.
command -v soffice >/dev/null || test_packages+=(libreoffice-calc-nogui)

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# ensure_packages PACKAGE ...: installs the Debian packages that are missing. Does nothing, and needs no network,
# where all are there.
ensure_packages() {
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    local tool
    for tool in c++ cmake ninja pkg-config; do
      command -v "$tool" >/dev/null ||
        die "$tool is missing. Install what these Debian packages hold, then run this again: $*"
    done
    return  # the libraries are CMake's to find, by name
  fi

  local package missing=()
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  local as_root=(env DEBIAN_FRONTEND=noninteractive)
  if ((EUID != 0)); then
    command -v sudo >/dev/null || die "missing packages, and no sudo. As root: apt-get install ${missing[*]}"
    as_root=(sudo "${as_root[@]}")
  fi
  local log=build/packages.log
  mkdir -p build
  say "Refreshing the list of packages"
  "${as_root[@]}" apt-get -q -o DPkg::Lock::Timeout=300 update >"$log" 2>&1 ||
    say "The list could not be refreshed ($log); trying with the one at hand"
  say "Installing ${missing[*]} (a few minutes)"
  if ! "${as_root[@]}" apt-get -q -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0 install \
      --no-install-recommends "${missing[@]}" >>"$log" 2>&1; then
    tail -n 20 "$log" >&2
    die "apt-get could not install ${missing[*]} (all of its words: $log)"
  fi
}

# build_preset PRESET [TARGET ...]: configures once (Ninja does it again when a CMake file changes) and builds
# the targets, or all of them.
build_preset() {
  local preset=$1
  shift
  if [[ ! -f build/$preset/build.ninja ]]; then
    say "Configuring build/$preset"
    cmake --preset "$preset" || die "CMake could not configure build/$preset"
  fi
  say "Building build/$preset"
  cmake --build --preset "$preset" ${@:+--target "$@"} || die "the build of $preset failed"
}
