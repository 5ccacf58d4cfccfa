#!/usr/bin/env bash
# The bytes that lxcolor prints arrive in a DMX engine: docs/ola.md, with a daemon, a configuration and ports of its own.
#   ola.sh PROGRAM      status 77: cannot be run here
set -uo pipefail

program=$1
universe=1
http_port=19090
rpc_port=9010 # the one that the clients know

skip() {
    echo "SKIPPED: $*"
    exit 77
}

for needed in olad ola_patch ola_set_dmx ola_streaming_client ola_plugin_info; do
    command -v "$needed" >/dev/null || skip "$needed is not installed (Debian package ola)"
done

# In a network of its own, where that is allowed, so that no port is taken and nothing can leave the machine.
if [ -z "${LXCOLOR_OLA_ALONE:-}" ]; then
    alone=(unshare --net)
    [ "$(id -u)" -eq 0 ] || alone=(unshare --user --map-current-user --keep-caps --net)
    if "${alone[@]}" ip link set lo up 2>/dev/null; then
        LXCOLOR_OLA_ALONE=yes exec "${alone[@]}" bash -c 'ip link set lo up && exec "$0" "$@"' "${BASH_SOURCE[0]}" "$@"
    fi
fi
for port in $http_port $rpc_port; do
    ! (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null || skip "port $port is taken"
done

work=$(mktemp -d)
daemon=
finish() {
    exec 8>&- 2>/dev/null
    if [ -n "$daemon" ]; then
        kill "$daemon" 2>/dev/null
        wait "$daemon" 2>/dev/null
    fi
    rm -rf "$work"
}
trap finish EXIT

fail() {
    echo "FAIL: $*"
    echo "--- olad:"
    tail -n 20 "$work/olad.log"
    exit 1
}

# wait_until SECONDS COMMAND...
wait_until() {
    local tries=$(($1 * 20))
    shift
    while ! "$@"; do
        ((tries-- > 0)) || return 1
        sleep 0.05
    done
}

# What the engine holds: the slots as 1,2,3.
slots_held() {
    local answer
    exec 3<>"/dev/tcp/127.0.0.1/$http_port" || return 1
    printf 'GET /get_dmx?u=%s HTTP/1.0\r\n\r\n' "$universe" >&3
    answer=$(cat <&3)
    exec 3<&-
    sed -n 's/.*"dmx": \[\([0-9,]*\)\].*/\1/p' <<<"$answer"
}
holds() { [ "$(slots_held)" = "$1" ]; }

slots() { "$program" dmx "$@" --format dec; }

# ---- The daemon, with its device for tests and no other ----

mkdir "$work/config"
for plugin in artnet e131 espnet ftdidmx gpio karate kinet milinst nanoleaf opendmx openpixelcontrol osc pathport \
    renard sandnet shownet spi stageprofi uartdmx usbdmx usbserial; do
    echo "enabled = false" >"$work/config/ola-$plugin.conf"
done
as_user=()
if [ "$(id -u)" -eq 0 ]; then # as whom it does not run
    chmod 755 "$work"
    chown -R nobody "$work/config"
    as_user=(setpriv --reuid nobody --regid nogroup --clear-groups)
fi
touch "$work/olad.log"
"${as_user[@]}" olad --config-dir "$work/config" --interface 127.0.0.1 --http-port $http_port --rpc-port $rpc_port \
    --no-http-quit --no-register-with-dns-sd --log-level 3 >"$work/olad.log" 2>&1 &
daemon=$!
patched() {
    kill -0 "$daemon" 2>/dev/null || fail "olad has ended"
    (exec 3<>"/dev/tcp/127.0.0.1/$rpc_port") 2>/dev/null && # a client that finds none starts one
        ola_patch --device 1 --port 0 --universe $universe 2>/dev/null
}
wait_until 20 patched || fail "the device for tests cannot be patched"
wait_until 20 holds "" || fail "the universe begins with slots"

# ---- Single looks ----

looks=0
look() { # SLOTS: sets them and reads them back
    [ -n "$1" ] || fail "nothing to send"
    ola_set_dmx --universe $universe --dmx "$1" || fail "ola_set_dmx $1"
    wait_until 10 holds "$1" || fail "sent $1, held $(slots_held)"
    looks=$((looks + 1))
}
for fixture in 0 1 5 6 8; do
    for color in 3200K steelblue '#123456789abc' 'deep blue=0.16,0.015'; do
        look "$(slots "$color" --fixture $fixture)"
        look "$(slots "$color" --fixture $fixture --bits 16)"
    done
done
look "$(paste -d, <(slots 3200K --fixture 6) <(echo 0,0,0) <(slots 0.16,0.015 --fixture 5))"

# ---- A stream that stays open ----

mkfifo "$work/colors"
"$program" dmx - --fixture 6 --format dec <"$work/colors" | ola_streaming_client --universe $universe &
stream=$!
exec 8>"$work/colors"
frames=0
for color in red 3200K 0.57,0.42 black steelblue; do
    echo "$color" >&8
    wait_until 10 holds "$(slots "$color" --fixture 6)" || fail "streamed $color, held $(slots_held)"
    frames=$((frames + 1))
done
exec 8>&-
wait "$stream" || fail "the stream ended with status $?"
holds "$(slots steelblue --fixture 6)" || fail "the last frame of the stream is gone"

echo "$looks looks and $frames frames came back as they were sent${LXCOLOR_OLA_ALONE:+, in a network of their own}"
