# Shared by run and test: what a machine needs, how it is installed, and how a preset is built.
# Sourced with the working directory at the root of the checkout.

build_packages=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-tools-dev libsqlite3-dev libminizip-dev zlib1g-dev
                libisal-dev libcairo2-dev fonts-dejavu-core
                libgtest-dev libpugixml-dev libqt6opengl6-dev python3)  # the tests' own, which configuring asks for
sanitizer_packages=(clang libclang-rt-dev llvm)  # the last names the places that they find
test_packages=("${sanitizer_packages[@]}" python3-openpyxl poppler-utils clang-tidy doxygen libqt6sql6-sqlite
               at-spi2-core dbus gir1.2-atspi-2.0 python3-gi python3-xlib xvfb)  # a screen reader's view of Qt
# Its package would drive out a LibreOffice with windows, so it is wanted only where there is none at all.
command -v soffice >/dev/null || test_packages+=(libreoffice-calc-nogui)
windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix libz-mingw-w64-dev googletest  # its sources
                  mingw-w64-tools libwine-dev fp-utils nsis  # type libraries, compiled help, the installer
                  wine wine64 fonts-wine fonts-liberation xvfb x11-utils)

debian_packages=(dpkg-dev file lintian)

say() { printf '== %s\n' "$*"; }

die() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

has_apt() { command -v dpkg-query >/dev/null && command -v apt-get >/dev/null; }

# as_root COMMAND ...
as_root() {
  if ((EUID == 0)); then
    env DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo env DEBIAN_FRONTEND=noninteractive "$@"
  fi
}

can_be_root() { ((EUID == 0)) || command -v sudo >/dev/null; }

# missing_packages PACKAGE ...: those of them that are not installed, one a line.
missing_packages() {
  local package
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || echo "$package"
  done
}

# install LOG PACKAGE ...: by apt, with all of its words in LOG. Takes nothing away from the machine.
install() {
  local log=$1 apt=(apt-get -q -o DPkg::Lock::Timeout=300)
  shift
  mkdir -p build
  say "Installing $* (a few minutes)"
  as_root "${apt[@]}" update >"$log" 2>&1 ||
    say "The list of packages could not be refreshed ($log); trying with the one at hand"
  as_root "${apt[@]}" -y -o Dpkg::Use-Pty=0 install --no-install-recommends --no-remove "$@" >>"$log" 2>&1
}

# ensure_packages PACKAGE ...: installs the Debian packages that are missing. Does nothing, and needs no network,
# where all are there.
ensure_packages() {
  if ! has_apt; then
    local tool
    for tool in c++ cmake ninja pkg-config; do
      command -v "$tool" >/dev/null ||
        die "$tool is missing. Install what these Debian packages hold, then run this again: $*"
    done
    return  # the libraries are CMake's to find, by name
  fi

  local missing log=build/packages.log
  mapfile -t missing < <(missing_packages "$@")
  ((${#missing[@]})) || return 0
  can_be_root || die "missing packages, and no sudo. As root: apt-get install ${missing[*]}"
  if ! install "$log" "${missing[@]}"; then
    tail -n 20 "$log" >&2
    die "apt-get could not install ${missing[*]} (all of its words: $log)"
  fi
}

# ensure_wine32: whether 32-bit Windows programs can run here. Tries once for each build folder to install what they
# need: the other architecture's packages are not always in step with the machine's own, least of all the updates.
ensure_wine32() {
  local log=build/wine32.log
  [[ ! -x /usr/lib/wine/wine ]] || return 0
  has_apt && can_be_root && [[ ! -f $log ]] || return 1
  as_root dpkg --add-architecture i386 || return 1
  install "$log" wine32:i386 || install "$log" -t "$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)" wine32:i386
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
