# Functions shared by try-deb and try-tarball: a fresh Debian in a folder. Sourced, never run.
# Exit status 77 means that the machine cannot try anything: it says why.

# The Debian that was fetched once, and its packages, stay outside the clone.
cache=${TOVAK_CHROOT_CACHE:-${HOME:-/root}/.cache/tovak-chroot}
release=$(. /etc/os-release && echo "${VERSION_CODENAME-}")

cannot() {
  printf 'SKIPPED: %s\n' "$*" >&2
  exit 77
}

# The mirror of Debian that apt uses here.
mirror() {
  local found
  found=$(apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 2>/dev/null |
    awk -v "release=$release" '$2 == release && $3 == "main" { print $1; exit }')
  echo "${found:-http://deb.debian.org/debian}"
}

# fresh_debian: a new one, of the required packages only, in the folder $debian, which goes with the script.
fresh_debian() {
  [ "$(id -u)" -eq 0 ] || cannot "only root can start a program in a Debian of its own."
  unshare --mount --pid --fork true 2>/dev/null || cannot "this machine lets nobody mount anything."
  need_packages debootstrap || cannot "debootstrap cannot be had."
  mkdir -p "$cache/debs" "$root/build" || cannot "nothing can be kept in $cache."
  find "$cache" -type f -mtime +60 -name '*.deb' -delete
  debian=$(mktemp -d "$root/build/debian.XXXXXX")
  trap 'rm -rf --one-file-system "$debian"' EXIT
  local base
  base=$cache/$release-$(dpkg --print-architecture).tar
  if [ ! -f "$base" ]; then
    echo "Fetching Debian $release" >&2
    debootstrap --variant=minbase "$release" "$debian" "$(mirror)" >"$cache/debootstrap.log" 2>&1 || {
      tail -n 3 "$cache/debootstrap.log" >&2
      cannot "debootstrap got no Debian $release from $(mirror)."
    }
    rm -f "$debian"/var/cache/apt/archives/*.deb
    tar -C "$debian" --one-file-system -cf "$base.$$" . && mv "$base.$$" "$base"
  else
    tar -C "$debian" -xf "$base"
  fi
  chmod 755 "$debian"
  cp /etc/resolv.conf "$debian/etc/resolv.conf"
  inside root true 2>/dev/null || cannot "this machine lets nobody start a program in another root folder."
  mkdir -p "$debian/home/surveyor"
  chown 1000:1000 "$debian/home/surveyor"
}

# inside USER COMMAND...: runs it in the fresh Debian, as root or as surveyor. What it mounts and starts ends with it.
inside() {
  local user=0 home=/root
  [ "$1" = root ] || user=1000 home=/home/surveyor
  shift
  unshare --mount --pid --fork sh -c 'mount -t proc proc "$0/proc" && mount --bind /dev "$0/dev" && exec chroot "$@"' \
    "$debian" --userspec="$user:$user" "$debian" \
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME="$home" LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
    ${http_proxy:+"http_proxy=$http_proxy"} ${https_proxy:+"https_proxy=$https_proxy"} "$@"
}

# fetched_packages COMMAND...: an apt command that finds what an earlier trial has fetched.
fetched_packages() {
  local archives=$debian/var/cache/apt/archives status=0
  find "$cache/debs" -name '*.deb' -exec cp -t "$archives" {} +
  "$@" || status=$?
  find "$archives" -maxdepth 1 -name '*.deb' -exec cp -n -t "$cache/debs" {} +
  rm -f "$archives"/*.deb
  return $status
}
