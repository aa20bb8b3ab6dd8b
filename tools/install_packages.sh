# Installs what is missing of the Debian packages named as arguments; nothing when all are there.
# Sourced by start, check, measure, fuzz and package.
install_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ "${#missing[@]}" -eq 0 ] && return 0
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
}

# What the program is built from and runs on.
program_packages=(g++ cmake ninja-build pkg-config libpcre2-dev qt6-base-dev qt6-qpa-plugins
                  libqt6svg6 libpng-dev qt6-image-formats-plugins fonts-dejavu-core)
# What shows it where no display is, and what writes the tags that the tour starts from.
tour_packages=(xvfb id3v2 exiv2)
check_packages=(git libgtest-dev libgmock-dev clang-format clang-tidy python3)
# What makes the packages, and what looks at the desktop's files in them.
package_packages=(dpkg-dev file desktop-file-utils appstream)
measure_packages=(libbenchmark-dev)
fuzz_packages=(clang libclang-rt-dev)

jobs=$(nproc)
