# shellcheck shell=bash
# A bare Debian 12 in a folder, for the scripts that try there what people will do on a fresh machine. Sourced after
# lib.sh, as root:
#
#   make_bare            makes it with debootstrap, with the package sources and proxies of this machine
#   within COMMAND...    runs a command in it
#
# The script's argument names the folder, which must be new; without one it is temporary. The script then runs in mounts
# of its own, which end with it; its `cleanup` is the one below.

enter_own_mounts() {
  ((EUID == 0)) || fail "hace falta ser root"
  command -v debootstrap >/dev/null || fail "instale el paquete debootstrap"
  [[ -z ${QVN_OWN_MOUNTS-} ]] || return 0
  rm -rf "$workdir"
  QVN_OWN_MOUNTS=1 exec unshare --mount --propagation private "$0" "$@"
}
enter_own_mounts "$@"

bare=${1:-$workdir/bare}
[[ ! -e $bare ]] || fail "$bare ya existe"

cleanup() {
  local folder
  for folder in proc sys dev; do ! mountpoint -q "$bare/$folder" || umount -R -l "$bare/$folder"; done
  rm -rf --one-file-system "$workdir" "$bare"
}

make_bare() {
  local folder
  debootstrap --variant=minbase bookworm "$bare" http://deb.debian.org/debian
  cp /etc/resolv.conf "$bare/etc/"
  printf '127.0.0.1\tlocalhost\n' >"$bare/etc/hosts"
  cp -r /etc/apt/apt.conf.d /etc/apt/sources.list.d "$bare/etc/apt/"
  for folder in proc sys dev; do mount --rbind "/$folder" "$bare/$folder"; done
  within apt-get -q update
}

within() {
  chroot "$bare" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}
