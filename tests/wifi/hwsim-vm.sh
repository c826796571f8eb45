#!/bin/bash
# hwsim-vm.sh - run a command in a small virtual machine that has a real
# kernel Wi-Fi stack, simulated radios (mac80211_hwsim) and live hostapd
# access points.
#
#   hwsim-vm.sh [OPTION...] [--] COMMAND [ARG...]
#
# The guest boots Debian's own kernel and sees this machine's root file system
# (read-only over 9p, with a throw-away tmpfs on top), so COMMAND is the same
# binary, at the same path, as here.  Nothing the guest writes reaches this
# machine.  The guest has no network card.  COMMAND runs as root, with an empty
# $HOME, no input, and this working directory.
#
# Options:
#   --timeout S     kill the machine after S seconds, boot included (default 300)
#   --nm            start udev, D-Bus, polkit, wpa_supplicant and NetworkManager,
#                   which manages wlan0 (and leaves wlan1 alone)
#   --nm-iwd        the same with iwd instead of wpa_supplicant
#   --iwd, --wpa, --connman   start D-Bus and iwd, wpa_supplicant or ConnMan (over
#                   wpa_supplicant), which manages wlan0 and leaves wlan1 alone;
#                   Debian's rules let root and the group netdev talk to the first
#                   two, and everybody to ConnMan
#   --bus           start D-Bus and nobody who manages wlan0
#   --env NAME[=V]  hand an environment variable to COMMAND (repeatable)
#   --accel A       auto (default), kvm or tcg;   --smp N (2);   --memory MIB (1024)
#   --verbose       also show the guest's console on stderr
#   --check         only say what is missing on this machine; 0 = nothing
#
# Exit status: COMMAND's own; 124 = the time ran out; 125 = the machine or its
# access points did not come up (the guest's log is on stderr); 2 = wrong use;
# 77 = this machine lacks something (for CTest's SKIP_RETURN_CODE).
#
# In the guest, the program `hwsim` (on PATH, root only) changes the air:
#   hwsim list                        one line for each access point:
#                                     name|on or off|BSSID|channel|security|dBm|SSID
#                                     (a channel at 6 GHz with 6000 added)
#   hwsim stop NAME...                take access points off the air
#   hwsim start [NAME...]             put them (no NAME: all) on the air, anew
#   hwsim change NAME FIELD VALUE     another ssid, band, channel, security or extras (see
#                                     hwsim-guest.sh) from its next start on
#   hwsim signal NAME DBM             how strong it is heard, -100 .. -1 (until stopped)
#   hwsim station IFACE [NAME]        join (no NAME: leave), with wpa_supplicant; where
#                                     wlan0 has a manager, that joins (ConnMan cannot)
#   hwsim roam NAME                   the joined wlan0 goes over to that access point of the
#                                     same name (not with iwd, which chooses itself)
#   hwsim block IFACE | unblock IFACE that radio's rfkill soft switch
#   hwsim unplug IFACE | plug IFACE   the radio leaves the machine / comes back
#   hwsim manager stop | start | halt | resume   whoever manages wlan0 ends, begins,
#                                     is there but does nothing (SIGSTOP), goes on;
#                                     `hwsim nm ...` is the same
#   hwsim bus stop | start | halt | resume       the system bus
#   hwsim group USER GROUP            USER (made if need be) is in GROUP from the next
#                                     `hwsim as USER` on
#   hwsim as [--session] USER COMMAND run COMMAND as USER (made if it does not exist);
#                                     with --session polkit sees USER in an active local
#                                     session, as on a desktop, otherwise as over ssh
# Logs and settings: /run/hwsim/NAME.{log,conf}, nm.log, station.IFACE.log.
#
# Debian packages: qemu-system-x86 busybox-static kmod iproute2 iw hostapd
# wpasupplicant wireless-regdb; for --nm also network-manager dbus polkitd udev; for
# the others also dbus and iwd or connman.
# No root is needed.  The kernel package is downloaded once with `apt-get
# download` and not installed; the few parts used (16 MB) are kept in
# a subfolder of ${HWSIM_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/hwsim-vm}.  Delete it
# for a newer kernel.  HWSIM_KERNEL_DEB=FILE.deb uses that package instead.
# For debugging: HWSIM_KARGS (kernel arguments instead of "quiet loglevel=4")
# and HWSIM_CPU (qemu's -cpu under TCG).

set -euo pipefail

# kernel modules: those that the initramfs loads, in this order, and those that are
# there to be asked for; what iwd wants stands in the last two lines
MODULES_FIRST='virtio_pci 9pnet_virtio 9p overlay virtio_console virtio_rng'
MODULES_LATER='mac80211_hwsim ccm gcm cmac ctr ecb michael_mic veth tun
    af_alg algif_hash algif_skcipher algif_aead algif_rng cbc hmac md4 md5 sha1_generic
    sha512_generic des_generic pkcs8_key_parser'

die() { echo "hwsim-vm: $1" >&2; exit "${2:-125}"; }

# check_host: ends with 77 when something is missing, naming the packages
check_host() {
    local -a miss=()
    need() { command -v "$1" >/dev/null || miss+=("$2"); }
    need qemu-system-x86_64 qemu-system-x86
    need modprobe kmod
    need ip iproute2
    need iw iw
    need hostapd hostapd
    need wpa_supplicant wpasupplicant
    need setpriv util-linux
    { [ -f /bin/busybox ] && ! head -c 4096 /bin/busybox | LC_ALL=C grep -qa ld-linux; } || miss+=(busybox-static)
    [ -e /lib/firmware/regulatory.db ] || miss+=(wireless-regdb)
    [ -z "$MANAGER" ] || need dbus-daemon dbus
    case $MANAGER in nm*)
        need NetworkManager network-manager
        need /usr/lib/polkit-1/polkitd polkitd
        need /lib/systemd/systemd-udevd udev ;;
    esac
    case $MANAGER in *iwd) need /usr/libexec/iwd iwd ;; connman) need connmand connman ;; esac
    [ -e "$CACHE/ready" ] || [ -n "${HWSIM_KERNEL_DEB:-}" ] || need apt-get apt
    [ ${#miss[@]} = 0 ] || die "this machine lacks these Debian packages: ${miss[*]}" 77
}

# make_kernel: fill the cache: vmlinuz, and root/ with the few modules wanted
make_kernel() {
    local deb ver m
    mkdir -p "$(dirname "$CACHE")"
    TMPCACHE=$(mktemp -d "$CACHE.new.XXXXXX")
    trap 'rm -rf "$TMPCACHE"' EXIT
    local t=$TMPCACHE
    if [ -n "${HWSIM_KERNEL_DEB:-}" ]; then deb=$HWSIM_KERNEL_DEB
    else
        m=$(apt-cache depends linux-image-amd64 2>/dev/null | sed -n 's/.*Depends: \(linux-image-[0-9].*\)$/\1/p' | head -n 1)
        [ -n "$m" ] || die 'no linux-image-amd64 in the package lists (apt-get update, or HWSIM_KERNEL_DEB)' 77
        echo "hwsim-vm: downloading $m (once)" >&2
        (cd "$t" && apt-get -q download "$m") > "$t/log" 2>&1 || { cat "$t/log" >&2; die "cannot download $m" 77; }
        deb=$(echo "$t"/linux-image-*.deb)
    fi
    mkdir "$t/deb"
    dpkg-deb --fsys-tarfile "$deb" | tar -x -C "$t/deb" --wildcards './boot/vmlinuz-*' '*lib/modules/*/modules.*' \
        '*lib/modules/*/kernel/net/*' '*lib/modules/*/kernel/fs/*' '*lib/modules/*/kernel/crypto/*' \
        '*lib/modules/*/kernel/lib/*' '*lib/modules/*/kernel/arch/*' '*lib/modules/*/kernel/drivers/virtio/*' \
        '*lib/modules/*/kernel/drivers/char/*' '*lib/modules/*/kernel/drivers/net/*'
    [ ! -d "$t/deb/usr/lib" ] || mv "$t/deb/usr/lib" "$t/deb/lib"     # Debian 13
    find "$t/deb/lib" -name '*.ko.xz' -exec xz -d {} +
    ver=$(basename "$t"/deb/lib/modules/*)
    mv "$t/deb/boot/vmlinuz-$ver" "$t/vmlinuz"
    depmod -b "$t/deb" "$ver"
    mods() { local x; for x; do modprobe -d "$t/deb" -S "$ver" --show-depends "$x"; done | awk '$1 == "insmod" && !s[$2]++ {print $2}'; }
    mods $MODULES_FIRST > "$t/first"
    mods $MODULES_LATER > "$t/later"
    sort -u "$t/first" "$t/later" | while read -r m; do install -D -m 644 "$m" "$t/root${m#"$t/deb"}"; done
    cp "$t"/deb/lib/modules/"$ver"/modules.{order,builtin,builtin.modinfo} "$t/root/lib/modules/$ver/"
    depmod -b "$t/root" "$ver"
    sed -i "s,^$t/deb,," "$t/first"
    rm -rf "$t/deb" "$t/later" "$t/log" "$t"/*.deb
    echo "$ver" > "$t/ready"
    mv -T "$t" "$CACHE" 2>/dev/null || [ -e "$CACHE/ready" ] || die "cannot make $CACHE"  # or another run was first
    rm -rf "$t"; trap - EXIT
}

# make_initrd FILE: busybox, the modules, and an /init that turns to the 9p root
make_initrd() {
    local r=$WORK/initrd
    mkdir -p "$r"/{bin,dev,proc,sys,ro,rw,new}
    cp /bin/busybox "$r/bin/busybox"
    cp -a "$CACHE/root/lib" "$CACHE/first" "$r/"
    cat > "$r/init" <<'EOF'
#!/bin/busybox sh
b=/bin/busybox
die() { echo "initramfs: $1"; echo b > /proc/sysrq-trigger; $b sleep 60; }
$b mount -t proc proc /proc; $b mount -t sysfs sysfs /sys; $b mount -t devtmpfs dev /dev
exec > /dev/ttyS0 2>&1 < /dev/null
while read m; do $b insmod $m || echo "insmod $m failed"; done < /first
# the host's files are taken not to change meanwhile: cache=loose is much faster
i=0; until $b mount -t 9p -o ro,trans=virtio,version=9p2000.L,cache=loose,msize=512000 root /ro; do
    i=$((i+1)); [ $i -lt 50 ] || die 'no root file system over 9p'; $b sleep 0.1; done
$b mount -t tmpfs tmpfs /rw; $b mkdir /rw/up /rw/work
$b mount -t overlay -o lowerdir=/ro,upperdir=/rw/up,workdir=/rw/work overlay /new || die 'no overlay'
$b mount -t tmpfs -o mode=0755 tmpfs /new/run
$b mkdir /new/run/hwsim-vm
$b mount -t 9p -o trans=virtio,version=9p2000.L control /new/run/hwsim-vm || die 'no control folder'
$b cp -a /lib/modules/* /new/run/modules
for d in dev proc sys; do $b mount --move /$d /new/$d; done
# switch_root, not chroot: the kernel looks for regulatory.db from PID 1's root
exec $b switch_root /new /bin/bash /run/hwsim-vm/guest.sh --guest
EOF
    chmod 755 "$r/init"
    (cd "$r" && find . | busybox cpio -o -H newc 2>/dev/null) > "$1"
    rm -rf "$r"
}

# kvm_real: a /dev/kvm with VT-x or AMD-V behind it.  (Some cloud machines offer
# one without; there an ordinary kernel hangs or crawls, and TCG does fine.)
kvm_real() { [ -w /dev/kvm ] && grep -q -m1 -wE 'vmx|svm' /proc/cpuinfo; }

# run_qemu ACCEL: until the guest ends; sets rc to qemu's (or timeout's) status
run_qemu() {
    # q35, for its HPET: microvm now and then hangs under TCG, calibrating the TSC
    local -a acc=(-accel "tcg,thread=multi,tb-size=256" -cpu "${HWSIM_CPU:-Nehalem,+rdrand}")
    [ "$1" = tcg ] || acc=(-accel kvm -cpu host)
    local -a q=(qemu-system-x86_64 -M q35 "${acc[@]}" -smp "$SMP" -m "$MEM"
        -nodefaults -no-user-config -no-reboot -display none -monitor none
        -kernel "$CACHE/vmlinuz" -initrd "$WORK/initrd.img"
        -append "console=ttyS0 ${HWSIM_KARGS:-quiet loglevel=4} panic=-1 no_timer_check mitigations=off net.ifnames=0 random.trust_cpu=on"
        -serial "file:$WORK/console"
        -device virtio-serial-pci
        -chardev "file,id=out,path=$WORK/out" -device virtserialport,chardev=out,nr=1
        -chardev "file,id=err,path=$WORK/err" -device virtserialport,chardev=err,nr=2
        -device virtio-rng-pci
        -fsdev local,id=root,path=/,security_model=none,readonly=on,multidevs=remap
        -device virtio-9p-pci,fsdev=root,mount_tag=root
        -fsdev "local,id=ctl,path=$WORK/ctl,security_model=none"
        -device virtio-9p-pci,fsdev=ctl,mount_tag=control)

    local p_out p_err p_con=
    rm -f "$WORK/out" "$WORK/err"; mkfifo "$WORK/out" "$WORK/err"
    : > "$WORK/console"
    cat < "$WORK/out" & p_out=$!
    cat < "$WORK/err" >&2 & p_err=$!
    [ "$VERBOSE" = 0 ] || { tail -n +1 -f "$WORK/console" >&2 & p_con=$!; }
    # in the background, so that a signal to this script is seen at once; and if
    # this script is killed outright, timeout is told, which ends qemu
    setpriv --pdeathsig TERM timeout --kill-after=5 "$TIMEOUT" "${q[@]}" < /dev/null > "$WORK/qemu.log" 2>&1 & P_QEMU=$!
    rc=0; wait $P_QEMU || rc=$?
    P_QEMU=
    # (a qemu that never opened the pipes leaves their readers waiting)
    while kill -0 $p_out 2>/dev/null || kill -0 $p_err 2>/dev/null; do
        : <> "$WORK/out"; : <> "$WORK/err"; sleep 0.05
    done
    [ -z "$p_con" ] || { sleep 0.2; kill $p_con; wait $p_con 2>/dev/null || true; }
}

main() {
    TIMEOUT=300 MANAGER= ACCEL=auto SMP=2 MEM=1024 VERBOSE=0
    local -a env=()
    local check=0
    while [ $# -gt 0 ]; do
        case $1 in
            --timeout|--env|--accel|--smp|--memory)
                [ $# -gt 1 ] || die "$1 wants a value" 2 ;;&
            --timeout) TIMEOUT=$2; shift ;;
            --nm|--nm-iwd|--iwd|--wpa|--connman|--bus) MANAGER=${1#--} ;;
            --env)     case $2 in *=*) env+=("$2") ;; *) env+=("$2=${!2-}") ;; esac; shift ;;
            --accel)   ACCEL=$2; shift ;;
            --smp)     SMP=$2; shift ;;
            --memory)  MEM=$2; shift ;;
            --verbose) VERBOSE=1 ;;
            --check)   check=1 ;;
            -h|--help) sed -n '2,/^$/s/^# \{0,1\}//p' "$0"; exit 0 ;;
            --) shift; break ;;
            -*) die "no option $1 (see --help)" 2 ;;
            *) break ;;
        esac
        shift
    done
    PATH=$PATH:/usr/sbin:/sbin
    CACHE=${HWSIM_CACHE:-${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}/hwsim-vm}
    CACHE+=/$(echo "$MODULES_FIRST $MODULES_LATER" | cksum | cut -d ' ' -f 1)     # another list, another folder
    check_host
    [ $check = 0 ] || exit 0
    [ $# -gt 0 ] || die 'no command (see --help)' 2
    [ -e "$CACHE/ready" ] || make_kernel

    WORK=$(mktemp -d "${TMPDIR:-/tmp}/hwsim-vm.XXXXXX")
    P_QEMU=
    trap '[ -z "$P_QEMU" ] || { kill $P_QEMU; wait $P_QEMU; } 2>/dev/null; rm -rf "$WORK"' EXIT
    trap 'exit 143' TERM INT HUP
    mkdir "$WORK/ctl"
    cp "$(dirname "$0")/hwsim-guest.sh" "$WORK/ctl/guest.sh"
    printf '%s\0' "$@" > "$WORK/ctl/argv"
    : > "$WORK/ctl/env"; [ ${#env[@]} = 0 ] || printf '%s\0' "${env[@]}" > "$WORK/ctl/env"
    printf '%s=%q\n' MANAGER "$MANAGER" CWD "$PWD" > "$WORK/ctl/config"
    make_initrd "$WORK/initrd.img"

    local accel=$ACCEL end
    if [ "$accel" = auto ]; then if kvm_real; then accel=kvm; else accel=tcg; fi; fi
    run_qemu $accel
    if [ "$ACCEL" = auto ] && [ $accel = kvm ] && [ ! -e "$WORK/ctl/alive" ] && [ $rc != 124 ]; then
        echo 'hwsim-vm: KVM does not work here, using TCG' >&2
        run_qemu tcg
    fi
    end=$(cat "$WORK/ctl/rc" 2>/dev/null || true)
    case $end in
        ''|setup)
            [ $VERBOSE = 1 ] || tail -n 40 "$WORK/console" >&2
            cat "$WORK/qemu.log" >&2
            if [ $rc = 124 ] || [ $rc = 137 ]; then die "the time ran out ($TIMEOUT s)" 124; fi
            die "the machine did not come up (qemu's status $rc)" ;;
        *) exit "$end" ;;
    esac
}

main "$@"
