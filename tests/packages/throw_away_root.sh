# For the tests of the packages: a root of its own to install into, and a view in which it is the machine's. The
# machine is not touched, and nobody needs to be root. Sourced; $1 is the folder of the packages.
# shellcheck shell=bash
set -eu
packages=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
root=$scratch/root

fail() {
    echo "$*" >&2
    exit 1
}

# as_root COMMAND...: what dpkg needs to be told is that it is root; files of ours look like root's.
as_root() {
    unshare --user --map-root-user "$@"
}

# The packages that ours depend on are what the machine has; nothing else is installed in the new root.
prepare_root() {
    local dpkg=$root/var/lib/dpkg name
    mkdir -p "$dpkg/info" "$dpkg/updates" "$dpkg/triggers"
    touch "$dpkg/status" "$dpkg/available"
    for deb in "$packages"/*.deb; do
        dpkg-deb -f "$deb" Depends
    done | tr ',|' '\n\n' | sed -E 's/^ *([^ ]+).*/\1/' | sort -u >"$scratch/wanted"
    while read -r name; do
        if dpkg -s "$name" >"$scratch/stanza" 2>/dev/null && grep -q '^Status: install ok installed' "$scratch/stanza"; then
            cat "$scratch/stanza" >>"$dpkg/status"
            echo >>"$dpkg/status"
            touch "$dpkg/info/$name.list" "$dpkg/info/$name:$(dpkg --print-architecture).list"
        fi
    done <"$scratch/wanted"
}

install_packages() {
    prepare_root
    as_root dpkg --root="$root" --install "$packages"/*.deb >"$scratch/dpkg.log" 2>&1 || {
        cat "$scratch/dpkg.log" >&2
        fail "dpkg does not install the packages"
    }
}

# installed COMMAND...: runs it where the new root's /usr is the machine's, with a project directory of its own
# ($scratch/project), without a display, and with nothing of the build's environment.
installed() {
    mkdir -p "$scratch/project" "$scratch/lower/tabrix/project" "$scratch/home"
    mkdir -p -m 700 "$scratch/run" # or Qt shares one with other users of the machine
    # shellcheck disable=SC2016
    env -i HOME="$scratch/home" PATH=/usr/bin:/bin LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen \
        XDG_RUNTIME_DIR="$scratch/run" \
        unshare --user --map-root-user --mount sh -c '
        mount -t overlay overlay -o "lowerdir=$1/usr:$2:/usr" /usr && mount --bind "$3" /usr/tabrix/project || exit 125
        shift 3
        exec "$@"' sh "$root" "$scratch/lower" "$scratch/project" "$@"
}

# pixel FILE.png X Y: the colour as #rrggbb.
pixel() {
    python3 - "$@" <<'EOT'
import struct, sys, zlib
data, x, y = open(sys.argv[1], "rb").read(), int(sys.argv[2]), int(sys.argv[3])
chunks, at = {}, 8
while at < len(data):
    size, kind = struct.unpack(">I4s", data[at : at + 8])
    chunks[kind] = chunks.get(kind, b"") + data[at + 8 : at + 8 + size]
    at += 12 + size
width, _, depth, colour = struct.unpack(">IIBB", chunks[b"IHDR"][:10])
assert depth == 8 and colour in (2, 6), "not a true-colour picture"
channels = 3 if colour == 2 else 4
raw, above, stride = zlib.decompress(chunks[b"IDAT"]), None, width * channels
for row in range(y + 1):
    kind, line = raw[row * (stride + 1)], bytearray(raw[row * (stride + 1) + 1 : (row + 1) * (stride + 1)])
    above = above or bytearray(stride)
    for i in range(stride):
        left = line[i - channels] if i >= channels else 0
        corner = above[i - channels] if i >= channels else 0
        guess = left + above[i] - corner
        paeth = min((left, above[i], corner), key=lambda value: abs(guess - value))
        line[i] = (line[i] + (0, left, above[i], (left + above[i]) // 2, paeth)[kind]) & 255
    above = line
print("#%02x%02x%02x" % tuple(above[x * channels : x * channels + 3]))
EOT
}
