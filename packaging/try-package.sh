#!/usr/bin/env bash
# Installs the packages of build/packages with apt on a fresh Debian 12 in a folder, and starts the
# installed program there on a virtual display, as a user who may write nothing outside the home folder.
# Needs root, debootstrap and the network, and takes some minutes. A picture is left in build/packages.
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

root=$(mktemp -d)
chmod 755 "$root"  # its users are to get in
cleanup() {
  umount "$root/proc" 2>/dev/null || true
  mountpoint -q "$root/proc" || rm -rf --one-file-system "$root"
}
trap cleanup EXIT

debootstrap --variant=minbase bookworm "$root" ${DEBIAN_MIRROR:+"$DEBIAN_MIRROR"} > build/packages/debootstrap.log
mount -t proc proc "$root/proc"
cp /etc/resolv.conf "$root/etc/"
printf 'exit 101\n' > "$root/usr/sbin/policy-rc.d" && chmod +x "$root/usr/sbin/policy-rc.d"
cp build/packages/*.deb "$root/tmp/"
in_root() { env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 \
  ${http_proxy:+http_proxy="$http_proxy"} chroot "$root" "$@"; }
in_root apt-get update -q
in_root sh -c 'apt-get install -q -y --no-install-recommends /tmp/*.deb'
in_root dpkg --audit
# What only this trial needs comes after what the package itself must bring.
in_root apt-get install -q -y --no-install-recommends xvfb xauth xdotool imagemagick > /dev/null
in_root useradd --create-home engineer

in_root su engineer -c '
  cd && exec xvfb-run -a -s "-screen 0 1280x900x24" sh -ec "
    vardel > vardel.log 2>&1 & program=\$!
    timeout 60 xdotool search --sync --class vardel > windows
    sleep 3
    import -window root picture.png
    kill \$program
    wait \$program || true
    cat vardel.log"'
cp "$root/home/engineer/picture.png" build/packages/installed.png
test -s "$root/home/engineer/.config/vardel/Vardel.ini"
in_root sh -c 'test "$(vardel --version)" = "Vardel $(dpkg-query -W -f "\${Version}" vardel)"'
in_root vardel-calc | grep -F 143.129
in_root sh -c 'vardel-calc heights --site "0 0" --antenna 9 --elevation /usr/bin 2>&1 || true' | grep -F 'holds no raster'
in_root su engineer -c 'python3 -c "import vardel; print(vardel.itu529_loss(450, 10))"' | grep -q ^143.129
in_root dpkg --verify vardel vardel-calc vardel-terrain libvardel-models-dev python3-vardel
in_root apt-get remove -q -y vardel vardel-calc vardel-terrain libvardel-models-dev python3-vardel > /dev/null
test ! -e "$root/usr/lib/vardel" && test ! -e "$root/usr/bin/vardel"
echo "The packages install, start, and go again. The picture is build/packages/installed.png."
