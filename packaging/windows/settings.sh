# What the scripts of this folder share: versions, places and the compiler. Sourced, never run; the caller has set `root`
# to the folder of the project.

target=x86_64-w64-mingw32
windows_cache=${TOVAK_WINDOWS_CACHE:-$HOME/.cache/tovak-windows}
sources=$windows_cache/sources
windows_build=$root/build/windows

# Debian's source packages, with the SHA-256 of the .dsc file, which holds the checksums of the other files.
library_packages=(
  "sqlite3 3.40.1-2+deb12u2 ee3459ae9d00939741c7708fc1b8ce1bde12d8c3fb1dfa005bbbc8651d884e23"
  "tiff 4.5.0-6+deb12u4 b32082304d725936078d687303fcf771c9ecf738b505f9a66a29e8ba282c8615"
  "proj 9.1.1-1 f23c3adc6ff6d42fa031be921f1a44e681071c7018909f8d45393974e8cde541"
)

toolchain_packages=(g++-mingw-w64-x86-64-posix libz-mingw-w64-dev cmake ninja-build)
fetch_packages=(dpkg-dev)
library_build_packages=(gcc make sqlite3)
wine_packages=(wine wine64 python3)
installer_packages=(nsis zip)

# The name of the folder that holds the libraries: other versions, another compiler or other ways to build them come out
# in another folder.
library_key() {
  local folder=$root/packaging/windows
  {
    printf '%s\n' "${library_packages[@]}"
    $target-g++-posix --version | head -n 1
    cat "$folder/build-deps" "$folder/toolchain.cmake"
  } | sha256sum | cut -c 1-16
}

# Where the libraries are, or will be.
library_folder() {
  printf '%s/%s' "$windows_cache" "$(library_key)"
}

say() {
  printf '%s\n' "$*" >&2
}
