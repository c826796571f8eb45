#!/bin/bash
# hwsim-guest.sh - the inside of the virtual machine that hwsim-vm.sh starts.  It
# runs there as PID 1 (--guest) and as the program `hwsim` (--control), whose
# commands hwsim-vm.sh explains.  Where the guest is emulated, starting a program
# takes 0.1 s: hence bash's own means instead of sed, cat and date below.

set -euo pipefail

# ---------------------------------------------------------------------------
# The air.  One line for each access point:
#   name | SSID | band | channel | security | dBm | extras, separated by commas
# SSID:     as in C, so that it can hold any octets ("\xff")
# security: open owe wpa1 wpa2 mixed (WPA2+WPA3) sae (WPA3) eap (beacons only)
# extras:   vht80 he80 he20 hidden shy (hidden with the usual beacon interval)
# Radios 0 and 1 are the clients wlan0 and wlan1.  The access points' radios
# follow in this order, in a network name space of their own ("aps"), so that
# tests see just the client interfaces.  The BSSID of radio N is
# 02:00:00:00:NN:00, its address 10.77.N.1/24 (with a DHCP server); every
# passphrase is AP_PASS.
# ---------------------------------------------------------------------------
AP_PASS=hwsim-pass
AP_COUNTRY=DE
AP_CLIENTS=2
AP_TABLE='
home2  | Home              | 2.4 | 1   | wpa2  | -48 |
open   | <b>Free</b> %1    | 2.4 | 6   | open  | -62 |
home5  | Home              | 5   | 36  | wpa2  | -57 | vht80
secure | Secure            | 2.4 | 11  | sae   | -71 |
office | Büro 5G           | 5   | 44  | mixed | -83 | he80
six    | Home 6E           | 6   | 5   | sae   | -66 | he80
hidden | Hidden            | 2.4 | 6   | wpa2  | -77 | hidden
old    | Old\xff            | 2.4 | 13  | wpa1  | -90 |
campus | Campus            | 5   | 157 | eap   | -54 |
quiet  | Quiet             | 5   | 149 | owe   | -99 | he20
'

CTL=/run/hwsim-vm          # 9p share with the host's control folder
RUN=/run/hwsim             # the guest's own state: hostapd configs, logs, pids
APNS="ip netns exec aps"

log() { local up; read -r up _ < /proc/uptime; printf '[%6.2fs] %s\n' "$up" "$*" >&2; }

# wait_for SECONDS COMMAND...: until COMMAND succeeds; 1 if it never did
wait_for() {
    local end=$((SECONDS + $1 + 1)); shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.1
    done
}

# end_pid FILE: end the process whose pid is in FILE, if there is one
end_pid() {
    local pid
    [ -e "$1" ] || return 0
    read -r pid < "$1" || true
    kill "$pid" 2>/dev/null || true
    wait_for 10 test ! -d "/proc/$pid" || kill -9 "$pid"
    rm -f "$1"
}

# --- access points ---------------------------------------------------------

# ap_read: the table into the array AP_ROWS, fields split by '|', no blanks around
ap_read() {
    local row f
    AP_ROWS=() AP_NAMES=()
    [ ! -e $RUN/air ] || AP_TABLE=$(<$RUN/air)
    while IFS= read -r row; do
        [[ $row == *'|'* && $row != '#'* ]] || continue
        local -a fields=(); IFS='|' read -ra fields <<<"$row"
        row=
        for f in "${fields[@]}"; do
            f=${f#"${f%%[! ]*}"}; f=${f%"${f##*[! ]}"}; row+="$f|"
        done
        AP_ROWS+=("$row"); AP_NAMES+=("${row%%|*}")
    done <<<"$AP_TABLE"
}

# ap_find NAME: sets name ssid band chan sec dbm extra idx iface phy bssid freq
ap_find() {
    local i
    for i in "${!AP_NAMES[@]}"; do
        [ "${AP_NAMES[i]}" = "$1" ] || continue
        IFS='|' read -r name ssid band chan sec dbm extra <<<"${AP_ROWS[i]}"
        extra=${extra%|} idx=$((i + AP_CLIENTS)) iface=wlan$((i + AP_CLIENTS))
        printf -v bssid '02:00:00:00:%02x:00' $idx
        case $band in 2.4) freq=2407 ;; 5) freq=5000 ;; 6) freq=5950 ;; esac
        freq=$((freq + 5 * chan))
        read -r phy 2>/dev/null < "$RUN/phy.$iface" || return 1
        return 0
    done
    echo "hwsim: no access point called '$1'" >&2; return 1
}

# ap_change NAME FIELD VALUE: the access point is another one from its next start on
ap_change() {
    local row n i=-1
    case $2 in
        ssid) i=1 ;; band) i=2 ;; channel) i=3 ;; security) i=4 ;; extras) i=6 ;;
        *) echo "hwsim: no field called '$2'" >&2; return 1 ;;
    esac
    ap_find "$1"
    for row in "${AP_ROWS[@]}"; do
        local -a fields=(); IFS='|' read -ra fields <<<"$row"
        [ "${fields[0]}" != "$1" ] || fields[i]=$3
        for n in 0 1 2 3 4 5 6; do printf '%s|' "${fields[n]-}"; done
        echo
    done > $RUN/air.new
    mv $RUN/air.new $RUN/air
}

# ap_config: hostapd's settings for the access point that ap_find found
ap_config() {
    local e seg ht='[HT40+]'
    printf '%s\n' "interface=$iface" driver=nl80211 "ctrl_interface=$RUN/hostapd" \
        logger_stdout=-1 logger_stdout_level=2 "country_code=$AP_COUNTRY" ieee80211d=1 \
        utf8_ssid=1 "ssid2=P\"$ssid\"" "channel=$chan" wmm_enabled=1 ieee80211n=1
    if [ "$band" = 2.4 ]; then echo hw_mode=g; else echo hw_mode=a; fi
    case $sec in
        open)  ;;
        owe)   printf '%s\n' wpa=2 wpa_key_mgmt=OWE rsn_pairwise=CCMP ieee80211w=2 ;;
        wpa1)  printf '%s\n' wpa=1 wpa_key_mgmt=WPA-PSK wpa_pairwise=TKIP "wpa_passphrase=$AP_PASS" ;;
        wpa2)  printf '%s\n' wpa=2 wpa_key_mgmt=WPA-PSK rsn_pairwise=CCMP "wpa_passphrase=$AP_PASS" ;;
        mixed) printf '%s\n' wpa=2 'wpa_key_mgmt=WPA-PSK SAE' rsn_pairwise=CCMP ieee80211w=1 \
                   "wpa_passphrase=$AP_PASS" "sae_password=$AP_PASS" sae_require_mfp=1 ;;
        # 6 GHz wants hash-to-element; sae_pwe=2 allows both ways
        sae)   printf '%s\n' wpa=2 wpa_key_mgmt=SAE rsn_pairwise=CCMP ieee80211w=2 "sae_password=$AP_PASS" sae_pwe=2 ;;
        eap)   printf '%s\n' wpa=2 wpa_key_mgmt=WPA-EAP rsn_pairwise=CCMP ieee8021x=1 \
                   auth_server_addr=127.0.0.1 auth_server_port=1812 auth_server_shared_secret=none ;;
        *) echo "hwsim: $name: no security called '$sec'" >&2; return 1 ;;
    esac
    # 80 MHz: the centre channel of the block of four, and where the second half
    # of the 40 MHz pair lies
    case $band in
        6) seg=$((7 + (chan - 1) / 16 * 16)) ;;
        *) if [ "$chan" -lt 149 ]; then seg=$((42 + (chan - 36) / 16 * 16)); e=36
           else seg=$((155 + (chan - 149) / 16 * 16)); e=149; fi
           [ $(((chan - e) / 4 % 2)) = 0 ] || ht='[HT40-]' ;;
    esac
    for e in ${extra//,/ }; do case $e in
        vht80) printf '%s\n' "ht_capab=${ht}[SHORT-GI-20][SHORT-GI-40]" ieee80211ac=1 'vht_capab=[SHORT-GI-80]' \
                   vht_oper_chwidth=1 vht_oper_centr_freq_seg0_idx=$seg ;;
        he20)  echo ieee80211ax=1 ;;
        he80)  printf '%s\n' ieee80211ax=1 he_oper_chwidth=1 he_oper_centr_freq_seg0_idx=$seg
               if [ "$band" = 6 ]; then echo op_class=133
               else printf '%s\n' "ht_capab=$ht" ieee80211ac=1 vht_oper_chwidth=1 vht_oper_centr_freq_seg0_idx=$seg; fi ;;
        # an active scan stays 30 ms on a channel, and a hidden network does not
        # answer it: heard in each scan only with a short beacon interval
        hidden) printf '%s\n' ignore_broadcast_ssid=1 beacon_int=20 ;;
        shy)    printf '%s\n' ignore_broadcast_ssid=1 beacon_int=100 ;;  # as most are
        *) echo "hwsim: $name: no extra called '$e'" >&2; return 1 ;;
    esac; done
}

# ap_signal DBM: hwsim's receivers hear a frame at its sender's rx_rssi plus its
# sender's transmit power.  That file takes -100 .. -1, and this kernel's debugfs
# takes a negative number only as its unsigned 64 bits.
ap_signal() {
    $APNS iw dev "$iface" set txpower fixed 0
    printf '%u\n' "$1" > "/sys/kernel/debug/ieee80211/$phy/hwsim/rx_rssi"
}

# ap_start: hostapd, and wait until it beacons
ap_start() {
    ap_config > "$RUN/$name.conf"
    rm -f "$RUN/$name.log"
    on_air() { local l; l=$(<"$RUN/$name.log"); [[ $l == *AP-ENABLED* ]]; }
    if ! $APNS hostapd -B -P "$RUN/$name.pid" -f "$RUN/$name.log" "$RUN/$name.conf" >/dev/null || ! wait_for 30 on_air; then
        echo "hwsim: $name did not start:" >&2
        tail -n 15 "$RUN/$name.log" >&2
        return 1
    fi
    ap_signal "$dbm"
    $APNS ip address replace "10.77.$idx.1/24" dev "$iface"
    if [ ! -e "$RUN/$name.dhcp.pid" ]; then
        : > "$RUN/$name.leases"
        printf '%s\n' "interface $iface" "start 10.77.$idx.100" "end 10.77.$idx.200" "pidfile $RUN/$name.dhcp.pid" \
            "lease_file $RUN/$name.leases" 'option subnet 255.255.255.0' "option router 10.77.$idx.1" > "$RUN/$name.dhcp.conf"
        $APNS busybox udhcpd -S "$RUN/$name.dhcp.conf"
    fi
}

# air_up: the radios, the regulatory domain, the name space, the access points
air_up() {
    local i w pid n=$((AP_CLIENTS + ${#AP_NAMES[@]}))
    local -a pids=()
    modprobe cfg80211
    modprobe mac80211_hwsim radios="$n"
    mount -t debugfs debugfs /sys/kernel/debug 2>/dev/null || true
    for ((i = 0; i < n; i++)); do
        wait_for 10 test -e "/sys/class/net/wlan$i/phy80211/name" || { log "wlan$i did not appear"; return 1; }
        read -r w < "/sys/class/net/wlan$i/phy80211/name"; echo "$w" > "$RUN/phy.wlan$i"
    done
    # a hint that the kernel forgets when it has not read regulatory.db yet: ask again
    reg_set() { iw reg set "$AP_COUNTRY"; sleep 0.05; [[ $(iw reg get) == *"country $AP_COUNTRY:"* ]]; }
    wait_for 10 reg_set || { log "the regulatory domain stays: $(iw reg get)"; return 1; }
    log "$n radios, country $AP_COUNTRY"
    ip netns add aps
    $APNS ip link set lo up
    ip link set hwsim0 netns aps              # hwsim's own monitor of all frames
    for w in "${AP_NAMES[@]}"; do
        ap_find "$w"
        { iw phy "$phy" set netns name aps && ap_start; } & pids+=($!)
    done
    for pid in "${pids[@]}"; do wait "$pid" || { log 'an access point failed'; return 1; }; done
    log "${#pids[@]} access points on air"
    for ((i = 0; i < AP_CLIENTS; i++)); do ip link set "wlan$i" up; done
}

# --- the client's side -----------------------------------------------------

# Which programs manage wlan0 is hwsim-vm.sh's option; each leaves wlan1 alone.

# managers_up: the system bus and what the option names
managers_up() {
    [ -s /etc/machine-id ] || dbus-uuidgen --ensure=/etc/machine-id
    mkdir -p /run/dbus
    case $MANAGER in nm*) nm_prepare ;; esac
    bus_start
    # started here: D-Bus's own launcher cannot be read when qemu is not run by root
    case $MANAGER in nm*) /usr/lib/polkit-1/polkitd --no-debug > $RUN/polkitd.log 2>&1 & ;; esac
    case $MANAGER in
        nm|connman) wpa_supplicant -B -u -O $RUN/wpa -f $RUN/wpa.log ;;
        nm-iwd)     iwd_start && echo "$(<$RUN/manager.pid)" > $RUN/iwd.pid ;;
    esac
    case $MANAGER in nm*) udevadm settle --timeout=20 || true ;; esac
    [ "$MANAGER" = bus ] || manager_start
    log "the system bus is up, wlan0 is managed by ${MANAGER/bus/nobody}"
}

bus_start() { dbus-daemon --system --fork --nopidfile --print-pid > $RUN/bus.pid; }

manager_start() {
    case $MANAGER in
        nm*) nm_start ;;
        iwd|wpa|connman) "${MANAGER}_start" ;;
        *) echo "hwsim: nobody manages wlan0 here" >&2; return 1 ;;
    esac
}

nm_prepare() {
    mkdir -p /run/NetworkManager/conf.d /etc/NetworkManager/system-connections
    mount -t tmpfs -o mode=0700 tmpfs /etc/NetworkManager/system-connections   # none of this machine's
    cat > /run/NetworkManager/conf.d/hwsim.conf <<EOF
[main]
plugins=keyfile
dhcp=internal
dns=none
rc-manager=unmanaged
no-auto-default=*
[keyfile]
unmanaged-devices=*,except:interface-name:wlan0
[connectivity]
enabled=false
[device-hwsim]
wifi.scan-rand-mac-address=no
EOF
    [ "$MANAGER" = nm ] || echo 'wifi.backend=iwd' >> /run/NetworkManager/conf.d/hwsim.conf
    # NetworkManager waits for udev to have seen an interface
    /lib/systemd/systemd-udevd --daemon
    udevadm trigger --action=add --subsystem-match=net --subsystem-match=rfkill
}

nm_start() {
    NetworkManager --debug --log-level=INFO >> $RUN/nm.log 2>&1 & echo $! > $RUN/manager.pid
    nm_ready() { [ "$(nmcli -t -g GENERAL.STATE device show wlan0)" = '30 (disconnected)' ]; }
    wait_for 60 nm_ready || { log "NetworkManager does not manage wlan0"; nmcli device >&2 || true; tail -n 30 $RUN/nm.log >&2; return 1; }
}

# iwd_start: it makes wlan0 anew, under another index
iwd_start() {
    mkdir -p /var/lib/iwd
    mountpoint -q /var/lib/iwd || mount -t tmpfs -o mode=0700 tmpfs /var/lib/iwd
    /usr/libexec/iwd -p "$(<$RUN/phy.wlan0)" >> $RUN/iwd.log 2>&1 & echo $! > $RUN/manager.pid
    # (iwctl would have the bus start another one, which knows nothing of our options)
    iwd_named() { [[ $(dbus-send --system --print-reply --dest=org.freedesktop.DBus / org.freedesktop.DBus.ListNames) == *net.connman.iwd* ]]; }
    iwd_ready() { iwd_named && [[ $(iwctl station list) == *wlan0* ]]; }
    wait_for 60 iwd_ready || { log "iwd does not manage wlan0"; tail -n 30 $RUN/iwd.log >&2; return 1; }
}

wpa_start() {
    printf '%s\n' "ctrl_interface=$RUN/wpa" "country=$AP_COUNTRY" sae_pwe=2 > $RUN/wpa.conf
    wpa_supplicant -B -u -i wlan0 -D nl80211 -c $RUN/wpa.conf -P $RUN/manager.pid -f $RUN/wpa.log >/dev/null
    wpa_ready() { wpa_cli -p $RUN/wpa -i wlan0 ping; }
    wait_for 60 wpa_ready || { log "wpa_supplicant does not manage wlan0"; tail -n 30 $RUN/wpa.log >&2; return 1; }
}

connman_start() {
    mkdir -p /var/lib/connman
    mountpoint -q /var/lib/connman || mount -t tmpfs -o mode=0700 tmpfs /var/lib/connman
    connmand -n -r -i wlan0 >> $RUN/connman.log 2>&1 & echo $! > $RUN/manager.pid
    connman_ready() { connmanctl enable wifi || true; [[ $(connmanctl technologies) == *'Type = wifi'*'Powered = True'* ]]; }
    wait_for 60 connman_ready || { log "ConnMan does not manage wlan0"; connmanctl technologies >&2; tail -n 30 $RUN/connman.log >&2; return 1; }
}

# run_control FILE START stop|start|halt|resume: on the program whose pid is in FILE
run_control() {
    case $3 in
        stop)   end_pid "$1" ;;
        start)  "$2" ;;
        halt)   kill -STOP "$(<"$1")" ;;
        resume) kill -CONT "$(<"$1")" ;;
        *) return 2 ;;
    esac
}

# roam NAME: the joined wlan0 goes over to another access point of its network; 3 where iwd, which
# chooses itself, does it
roam() {
    [[ $MANAGER != *iwd ]] || return 3
    ap_find "$1"
    # (joined by `station`, it would go back to the access point that was named there)
    [[ $MANAGER == nm* ]] || wpa_cli -p $RUN/wpa -i wlan0 set_network 0 bssid "$bssid" >/dev/null
    [ "$(wpa_cli -p $RUN/wpa -i wlan0 roam "$bssid")" = OK ] || { echo "hwsim: no roaming to $name" >&2; return 1; }
    there() { [[ $(wpa_cli -p $RUN/wpa -i wlan0 status) == *"bssid=$bssid"*wpa_state=COMPLETED* ]]; }
    wait_for 40 there || { echo "hwsim: wlan0 did not roam to $name" >&2; return 1; }
}

# managed_station [NAME]: whoever manages wlan0 joins that access point, or leaves
managed_station() {
    local net password=()
    wpa() { wpa_cli -p $RUN/wpa -i wlan0 "$@"; }
    if [ $# = 0 ]; then
        case $MANAGER in
            nm*) nmcli device disconnect wlan0 ;;
            iwd) iwctl station wlan0 disconnect ;;
            wpa) wpa remove_network all ;;
        esac >/dev/null
        return
    fi
    ap_find "$1"
    case $MANAGER in
        nm*) [ "$sec" = open ] || password=(password "$AP_PASS")
             # (with iwd, that chooses the BSSID)
             [ "$MANAGER" = nm-iwd ] || password+=(bssid "$bssid")
             try() { nmcli device wifi connect "$(printf %b "$ssid")" "${password[@]}"; } ;;
        iwd) [ "$sec" = open ] || password=(--passphrase "$AP_PASS")
             # (it knows those that it has heard, so a scan comes first; by name: it chooses the BSSID)
             try() { iwctl "${password[@]}" station wlan0 connect "$(printf %b "$ssid")" && return; iwctl station wlan0 scan; sleep 2; false; } ;;
        wpa) wpa remove_network all >/dev/null
             net=$(wpa add_network)
             station_network | while IFS='=' read -r key value; do wpa set_network "$net" "$key" "$value" >/dev/null; done
             wpa enable_network "$net" >/dev/null
             try() { [[ $(wpa status) == *wpa_state=COMPLETED* ]]; } ;;
        *) echo "hwsim: $MANAGER is not asked to join" >&2; return 1 ;;
    esac
    wait_for 60 try || { echo "hwsim: $MANAGER did not join $name" >&2; try >&2; return 1; }
}

# session_up UID NAME: what systemd-logind would have written for somebody who
# sits at the machine; polkit reads just these files and the cgroup's name, which
# this process gets
session_up() {
    local s=/run/systemd
    mkdir -p $s/sessions $s/users $s/seats $s/machines
    printf '%s\n' "UID=$1" "USER=$2" ACTIVE=1 IS_DISPLAY=1 STATE=active REMOTE=0 TYPE=wayland \
        CLASS=user SEAT=seat0 VTNR=1 SCOPE=session-1.scope > $s/sessions/1
    printf '%s\n' "NAME=$2" STATE=active DISPLAY=1 SESSIONS=1 SEATS=seat0 ACTIVE_SESSIONS=1 \
        ACTIVE_SEATS=seat0 ONLINE_SESSIONS=1 ONLINE_SEATS=seat0 > "$s/users/$1"
    printf '%s\n' IS_SEAT0=1 ACTIVE=1 "ACTIVE_UID=$1" SESSIONS=1 "UIDS=$1" > $s/seats/seat0
    mkdir -p "/sys/fs/cgroup/user.slice/user-$1.slice/session-1.scope"
    echo $BASHPID > "/sys/fs/cgroup/user.slice/user-$1.slice/session-1.scope/cgroup.procs"
}

# user_make USER, unless there is one (useradd would want to read /etc/shadow)
user_make() {
    local uid
    if getent passwd "$1" >/dev/null; then return; fi
    uid=$((4200 + $(wc -l < /etc/passwd)))
    echo "$1:x:$uid:$uid::/nonexistent:/bin/sh" >> /etc/passwd
    echo "$1:x:$uid:" >> /etc/group
}

# user_group USER GROUP: make it a member
user_group() {
    local line lines=
    user_make "$1"
    getent group "$2" >/dev/null || echo "$2:x:$((4200 + $(wc -l < /etc/group))):" >> /etc/group
    while IFS= read -r line; do
        [[ $line != "$2":* ]] || { [[ $line == *: ]] || line+=,; line+=$1; }
        lines+=$line$'\n'
    done < /etc/group
    printf %s "$lines" > /etc/group
}

# as_user [--session] USER COMMAND...
as_user() {
    local session=0 user uid
    [ "$1" != --session ] || { session=1; shift; }
    user=$1; shift
    user_make "$user"
    uid=$(id -u "$user")
    mkdir -p "$RUN/home.$user" "/run/user/$uid"
    chown "$user:" "$RUN/home.$user" "/run/user/$uid"
    chmod 700 "$RUN/home.$user" "/run/user/$uid"
    [ $session = 0 ] || session_up "$uid" "$user"
    exec setpriv --reuid "$user" --regid "$(id -g "$user")" --init-groups \
        env HOME="$RUN/home.$user" USER="$user" LOGNAME="$user" XDG_RUNTIME_DIR="/run/user/$uid" "$@"
}

# station_network: a network block for the access point that ap_find found
station_network() {
    printf '%s\n' "ssid=P\"$ssid\"" "bssid=$bssid" scan_ssid=1 "scan_freq=$freq"
    case $sec in
        open) echo key_mgmt=NONE ;;
        owe)  printf '%s\n' key_mgmt=OWE ieee80211w=2 ;;
        wpa1|wpa2) printf '%s\n' key_mgmt=WPA-PSK "psk=\"$AP_PASS\"" ;;
        sae|mixed) printf '%s\n' key_mgmt=SAE ieee80211w=2 "sae_password=\"$AP_PASS\"" ;;
    esac
}

# station IFACE [NAME]: join that access point; no NAME: leave
station() {
    local dev=$1 conf=$RUN/station.$1.conf
    case $dev:$MANAGER in
        wlan0:|wlan0:bus|wlan[!0]:*) ;;
        *) shift; managed_station "$@"; return ;;
    esac
    end_pid "$RUN/station.$dev.pid"
    ip address flush dev "$dev"
    [ $# -gt 1 ] || return 0
    ap_find "$2"
    printf '%s\n' "ctrl_interface=$RUN/wpa" "country=$AP_COUNTRY" sae_pwe=2 'network={' "$(station_network)" '}' > "$conf"
    wpa_supplicant -B -i "$dev" -D nl80211 -c "$conf" -P "$RUN/station.$dev.pid" -f "$RUN/station.$dev.log" >/dev/null
    joined() { [[ $(wpa_cli -p "$RUN/wpa" -i "$dev" status) == *wpa_state=COMPLETED* ]]; }
    wait_for 40 joined || { echo "hwsim: $dev did not join $name:" >&2; tail -n 15 "$RUN/station.$dev.log" >&2; return 1; }
    ip address add "10.77.$idx.2/24" dev "$dev"
}

control() {
    local cmd=${1:-} n up; shift || true
    case $cmd in
        list)
            for n in "${AP_NAMES[@]}"; do
                ap_find "$n"
                up=off; [ ! -e "$RUN/$n.pid" ] || up=on
                read -r dbm < "/sys/kernel/debug/ieee80211/$phy/hwsim/rx_rssi"
                [[ $extra != *hidden* && $extra != *shy* ]] || ssid=
                [ "$band" != 6 ] || chan=$((6000 + chan))     # as the back end gives it
                printf '%s|%s|%s|%s|%s|%s|%s\n' "$n" $up "$bssid" "$chan" "$sec" "$dbm" "$ssid"
            done ;;
        stop)    for n; do ap_find "$n"; end_pid "$RUN/$name.pid"; done ;;
        start)   [ $# -gt 0 ] || set -- "${AP_NAMES[@]}"
                 for n; do ap_find "$n"; end_pid "$RUN/$name.pid"; ap_start; done ;;
        change)  ap_change "$@" ;;
        signal)  ap_find "$1"; ap_signal "$2" ;;
        station) station "$@" ;;
        roam)    roam "$@" ;;
        block)   echo 1 > "$(echo /sys/class/net/"$1"/phy80211/rfkill*/soft)" ;;
        unblock) echo 0 > "$(echo /sys/class/net/"$1"/phy80211/rfkill*/soft)"; ip link set "$1" up ;;
        unplug)  [ -e /run/netns/drawer ] || ip netns add drawer
                 iw phy "$(<"$RUN/phy.$1")" set netns name drawer ;;
        plug)    ip netns exec drawer iw phy "$(<"$RUN/phy.$1")" set netns 1; ip link set "$1" up ;;
        nm|manager) run_control $RUN/manager.pid manager_start "$1" ;;
        bus)     run_control $RUN/bus.pid bus_start "$1" ;;
        group)   user_group "$@" ;;
        as)      as_user "$@" ;;
        *) echo 'usage: hwsim list | stop NAME... | start [NAME...] | change NAME FIELD VALUE' \
               '| signal NAME DBM | station IFACE [NAME] | roam NAME' \
               '| block IFACE | unblock IFACE | unplug IFACE | plug IFACE | nm stop | nm start' \
               '| as [--session] USER COMMAND...' >&2; return 2 ;;
    esac
}

# --- PID 1 -----------------------------------------------------------------

guest_end() {       # STATUS: tell the host and stop the machine, at once
    echo "$1" > $CTL/rc
    echo b > /proc/sysrq-trigger      # a reset; with qemu's -no-reboot, the end
    sleep 60
}

guest() {
    exec >/dev/ttyS0 2>&1 </dev/null
    trap 'log "set-up failed"; guest_end setup' EXIT
    : > $CTL/alive
    export PATH=$RUN/bin:/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin
    export HOME=$RUN/home LANG=C.UTF-8 TERM=dumb HWSIM=1
    . $CTL/config                      # MANAGER CWD
    log "guest up, $(uname -r)"
    mkdir -p $RUN/bin $RUN/home "/lib/modules/$(uname -r)" /dev/pts /dev/shm
    mount --bind /run/modules "/lib/modules/$(uname -r)"
    mount -t devpts devpts /dev/pts
    mount -t tmpfs tmpfs /dev/shm
    mount -t cgroup2 cgroup2 /sys/fs/cgroup
    ln -sfn /proc/self/fd /dev/fd
    ln -sfn fd/0 /dev/stdin; ln -sfn fd/1 /dev/stdout; ln -sfn fd/2 /dev/stderr
    hostname hwsim
    ip link set lo up
    printf '#!/bin/sh\nexec bash %s/guest.sh --control "$@"\n' $CTL > $RUN/bin/hwsim
    chmod 755 $RUN/bin/hwsim
    air_up
    [ -z "$MANAGER" ] || managers_up

    local -a cmd=() env=()
    local rc c1 c2
    mapfile -d '' -t cmd < $CTL/argv
    mapfile -d '' -t env < $CTL/env
    cd "$CWD" 2>/dev/null || cd /
    # through pipes, as under CTest (and a virtio port can be opened only once)
    mkfifo $RUN/stdout $RUN/stderr
    cat $RUN/stdout > /dev/vport0p1 & c1=$!
    cat $RUN/stderr > /dev/vport0p2 & c2=$!
    log "running: ${cmd[*]}"
    trap - EXIT; set +e
    env "${env[@]}" "${cmd[@]}" > $RUN/stdout 2> $RUN/stderr
    rc=$?
    # all of its output; but something it left running may keep the pipes open
    drained() { [ ! -d /proc/$c1 ] && [ ! -d /proc/$c2 ]; }
    wait_for 2 drained
    log "exit status $rc"
    guest_end $rc
}

case ${1-} in
    --guest)  ap_read; guest ;;
    --control) shift; . $CTL/config; ap_read; control "$@" ;;
esac
