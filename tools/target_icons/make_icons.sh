#!/usr/bin/env bash
# Draws the target icons of the shipped ranges, and more icons for makers of ranges. Each is drawn twice: in daylight,
# and by its heat for thermal ranges. vehicles.inc has the vehicles, icon.pov the materials and the light.
#
# Usage: make_icons.sh MAKE_ICON FOLDER
#     MAKE_ICON   the program that combines pictures into an icon file
set -euo pipefail
[ $# -eq 2 ] || { echo "usage: make_icons.sh MAKE_ICON FOLDER" >&2; exit 1; }
make_icon=$(realpath "$1")
folder=$(realpath "$2")
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Largest first, for programs that read only the first picture of an icon.
sizes=(256 192 128 96 64 48 32 24 16)

# Daylight icon, thermal icon, and the values that icon.pov explains. The icons of the shipped ranges show a vehicle
# from the front and above, so that its width and height are at least three quarters of those of the picture: the
# sights treat the middle of the picture as the middle of the vehicle. The vehicle's lowest point is just above the
# lower edge. After a change of a vehicle or a view, find the last three values anew: draw with a large Side and
# measure.
#     name          hot name           vehicle turret aside above middle bottom   side
icons="target1       thermal1           1       -21    14.5  26    -0.153 -1.469   5.795
       target2       thermal2           2       -33    21.5  24     0.018 -1.208   5.544
       target3       thermal3           3         0    30    19    -0.007 -1.123   6.051
       tank_side     tank_side_hot      1         0    90     5    -0.701 -0.406   8.865
       tank_front    tank_front_hot     1         0     4     9     0.028 -0.556   4.325
       carrier_side  carrier_side_hot   2         0    90     5     0.100 -0.345   7.158
       carrier_front carrier_front_hot  2         0     6     9     0.023 -0.494   3.998
       truck_side    truck_side_hot     3         0    90     5    -0.110 -0.312   7.600
       truck_rear    truck_rear_hot     3         0   148    12    -0.010 -0.789   6.229"

calc() { awk "BEGIN { print $1 }"; }

# draw OUT SIZE PASS VALUES...: one pass of icon.pov.
draw() {
    local out=$1 size=$2 names=(Pass Vehicle Turret Aside Above Middle Bottom Side) values=() name
    shift 2
    for name in "${names[@]}"; do values+=("Declare=$name=$1"); shift; done
    # The barrel of the tank is at least 1.24 pixels wide in a picture of the usual width, 6.5 metres. Samples per
    # pixel: 4 to 16 in each direction.
    local samples=$((1024 / size > 16 ? 16 : 1024 / size < 4 ? 4 : 1024 / size))
    povray +I"$here/icon.pov" +L"$here" +O"$out" +W"$size" +H"$size" +UA +A0.0 +AM1 +R$samples -J -D -GA \
        "${values[@]}" Declare=Thinnest="$(calc "4.03 / $size")" >"$out.log" 2>&1 || { cat "$out.log" >&2; exit 1; }
}

# picture SIZE NAME HOT-NAME VALUES...: both pictures of an icon in one size.
picture() {
    local size=$1 name=$2 hot=$3 at="$work/$2-$1" pass
    shift 3
    for pass in 0 1 2; do draw "$at.$pass.png" "$size" $pass "$@"; done
    # The shadow: its opacity rises with the share of the light that the vehicle keeps off the ground. A loss below a
    # tenth isn't shown: even far from the vehicle a little of the low sky is hidden. The shadow fades out
    # towards the edges of the picture.
    local low high
    low=$(calc "$size * 0.05") high=$(calc "$size * 0.95 - 1")
    convert "$at.1.png" -alpha off -colorspace gray -negate -level 10%,100% -evaluate multiply 0.8 \
        \( -size "${size}x$size" xc:black -fill white -draw "rectangle $low,$low $high,$high" \
           -blur "0x$(calc "$size * 0.04")" \) -compose Multiply -composite "$at.shadow.png"
    # The air between the vehicle and the viewer makes it paler and bluer. Black becomes a * (1 - e), white
    # a * (1 - e) + e: a is the colour of the air, 80%, 85%, 90%; e = exp(-1.2 km * the extinction in
    # landscape/sky.cpp).
    convert \( -size "${size}x$size" xc:'rgb(7%,8%,6%)' "$at.shadow.png" -alpha off -compose CopyOpacity -composite \) \
        \( "$at.0.png" -channel RGB +level-colors 'rgb(5.7%,7.4%,10.4%),rgb(98.6%,98.7%,98.9%)' \
           -unsharp 0x0.6+0.5+0 +channel \) -compose Over -composite -strip -depth 8 "$work/$name-$size.png"
    # A thermal sight shows soft edges.
    local blur
    blur="0x$(calc "$size / 130")"
    convert \( "$at.2.png" -background gray80 -flatten -blur "$blur" \) \
        \( "$at.2.png" -alpha extract -blur "$blur" \) -compose CopyOpacity -composite -strip -depth 8 \
        "$work/$hot-$size.png"
}

while read -r -a icon; do
    for size in "${sizes[@]}"; do picture "$size" "${icon[@]}" </dev/null & done
    wait   # if a picture could not be drawn, make_icon fails
    for name in "${icon[@]:0:2}"; do
        pictures=()
        for size in "${sizes[@]}"; do pictures+=("$work/$name-$size.png"); done
        "$make_icon" "$folder/$name.ico" "${pictures[@]}"
    done
done <<<"$icons"
