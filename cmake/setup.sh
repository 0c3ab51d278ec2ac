# Functions shared by ./run, ./test, bench/run and .ci/run: packages and the build. Sourced, never run.
# Everything they print goes to standard error. The caller has set `root` to the folder of the project.

core_packages=(g++ cmake ninja-build libproj-dev)
build_packages=("${core_packages[@]}" qt6-base-dev)

# The packages of the list that are not installed, one a line.
missing_packages() {
  local installed
  # A package it has never heard of makes dpkg-query fail; that package is simply not installed.
  installed=$({ dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true; } |
    sed -n 's/ installed$//p')
  printf '%s\n' "$@" | grep -vxF -e "$installed" || true
}

# Installs what is missing of the packages. Fails with their names where it cannot. On a system without dpkg it lets
# the build find out what is missing.
need_packages() {
  command -v dpkg-query >/dev/null || return 0
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "$(id -u)" -ne 0 ] || ! command -v apt-get >/dev/null; then
    printf 'Missing packages: %s\nThey can be installed by root only: apt-get install %s\n' \
      "${missing[*]}" "${missing[*]}" >&2
    return 1
  fi
  printf 'Installing %s\n' "${missing[*]}" >&2
  local install=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300 -o Dpkg::Use-Pty=0
    install --no-install-recommends "${missing[@]}")
  # The package lists of a new machine are empty or old: they are fetched only when the first try fails.
  if ! "${install[@]}" </dev/null >/dev/null 2>&1; then
    apt-get -qq update </dev/null >&2 || true
    "${install[@]}" </dev/null >&2 || true
  fi
  mapfile -t missing < <(missing_packages "${missing[@]}")
  [ ${#missing[@]} -gt 0 ] || return 0
  printf 'Missing packages that apt-get could not install: %s\n' "${missing[*]}" >&2
  return 1
}

# configured PRESET [OPTION=VALUE]: whether the build folder stands and was configured with the option.
configured() {
  local folder=$root/build/$1
  [ -f "$folder/build.ninja" ] && { [ -z "${2-}" ] || grep -qxE "${2%%=*}:[A-Z]+=${2#*=}" "$folder/CMakeCache.txt"; }
}

# configure PRESET [OPTION=VALUE...]
configure() {
  local preset=$1
  shift
  (cd "$root" && cmake --preset "$preset" "${@/#/-D}") >&2
}

# build PRESET TARGET...: says nothing when everything is up to date.
build() {
  local folder=$root/build/$1
  shift
  ninja -C "$folder" -n "$@" 2>/dev/null | grep -q 'no work to do' || ninja -C "$folder" "$@" >&2
}
