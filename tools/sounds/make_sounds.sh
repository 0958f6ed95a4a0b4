#!/usr/bin/env bash
# Makes the wave files: the crew's speech, spoken by flite and made to sound like an intercom by sox, and the effects
# that the program `effects` computes. Makes the same bytes each time.
#
# Usage: make_sounds.sh EFFECTS FOLDER
set -euo pipefail

# File, speaker and words, spelled so that flite pronounces them correctly ("Co axe", "dee select").
lines="
action      commander  Action!
fin1        commander  Fin, tank!
hesh1       commander  Hesh, B M P!
coaxon1     commander  Co axe, transport!
on          commander  On!
onlaze      commander  On, laze!
on600       commander  On, six hundred!
on800       commander  On, eight hundred!
on900       commander  On, nine hundred!
on1000      commander  On, one thousand!
on1100      commander  On, eleven hundred!
on1200      commander  On, twelve hundred!
on1300      commander  On, thirteen hundred!
on1400      commander  On, fourteen hundred!
on1500      commander  On, fifteen hundred!
on1600      commander  On, sixteen hundred!
on1700      commander  On, seventeen hundred!
on1800      commander  On, eighteen hundred!
on2000      commander  On, two thousand!
loaded      loader     Loaded!
loadfire    loader     Loaded. Fire!
selectfin   commander  Select fin!
selechesh   commander  Select hesh!
selectcoax  commander  Select co axe!
targetstop  commander  Target, stop!
deselect    commander  Stop. dee select!
cleargun    commander  Target stop. Stop. Clear guns!
"

declare -A voices=(
    [commander]="rms --setf duration_stretch=0.8 --setf int_f0_target_mean=105"
    [loader]="awb --setf duration_stretch=0.9"
)
# In dBFS: the RMS level of each spoken line, and the peak level that effects have and speech stays below.
speech_level=-17
top=-2

die() { printf 'make_sounds: %s\n' "$*" >&2; exit 1; }

# Removes the silence at both ends.
trimmed=(silence 1 0.01 0.4% reverse silence 1 0.01 0.4% reverse)

# The RMS level of the parts that are not silent.
level_of() {
    sox "$1" -n silence -l 1 0.02 -35d -1 0.02 -35d stats 2>&1 | awk '/^RMS lev dB/ { print $4 }'
}

# Amplifies speech to the RMS level and limits its peaks. Done three times, since limiting lowers the level.
to_level() {
    local gain
    for _ in 1 2 3; do
        gain=$(awk -v is="$(level_of "$1")" -v due=$speech_level -v top=$top 'BEGIN { print due - is - top }')
        sox -R "$1" "$work/louder.wav" gain -l "$gain" gain $top
        mv "$work/louder.wav" "$1"
    done
}

# Noise in the frequency band of the intercom, of this length in seconds and this peak level in dBFS:
# noise LENGTH LEVEL KIND OUT [EFFECT...]
noise() {
    sox -R -r 16000 -n -c 1 "$4" synth "$1" "$3" gain -12 highpass 400 lowpass 3200 gain -n "$2" "${@:5}"
}

# Makes a voice sound as over an intercom: in a narrow band, compressed, with hiss and the clicks of the microphone
# switch. Steeper filters, overdrive or louder hiss would make words hard to understand.
intercom() {
    local length
    sox -R "$1" "$work/voice.wav" gain -n -12 highpass 300 highpass 300 lowpass 3400 \
        compand 0.003,0.09 6:-70,-70,-50,-32,-26,-15,0,-8 0 -70 0.005 gain -n -3 pad 0.05 0.06
    to_level "$work/voice.wav"
    length=$(soxi -D "$work/voice.wav")
    noise "$length" -44 pinknoise "$work/hiss.wav" fade t 0.004 "$length" 0.02
    noise 0.012 -24 whitenoise "$work/on.wav" fade t 0 0.012 0.010 pad 0.008
    noise 0.04 -28 whitenoise "$work/off.wav" fade t 0.002 0.04 0.03 pad "$(awk "BEGIN { print $length - 0.05 }")"
    sox -R -m -v 1 "$work/voice.wav" -v 1 "$work/hiss.wav" -v 1 "$work/on.wav" -v 1 "$work/off.wav" "$2"
}

# say FILE SPEAKER WORDS
say() {
    local voice
    read -ra voice <<<"${voices[$2]}"
    flite -voice "${voice[@]}" -t "$3" -o "$work/raw.wav"
    sox -R "$work/raw.wav" -r 16000 -c 1 "$work/dry.wav" "${trimmed[@]}"
    intercom "$work/dry.wav" "$folder/$1.wav"
}

# normalized_effect NAME: an effect at the peak level, faded out at the end.
normalized_effect() {
    "$effects" "$1" | sox -R -t dat - -b 16 "$folder/$1.wav" \
        gain -6 highpass 30 gain -n $top reverse fade t 0.05 reverse
}

# The commander reports the kill while the explosion dies away.
explode() {
    sox -R "$folder/targetstop.wav" -r 22050 "$work/report.wav" gain -3 pad 0.45
    sox -R -m -v 0.5 "$folder/explode1.wav" -v 1.4 "$work/report.wav" "$folder/explode.wav" gain -n $top
}

[ $# -eq 2 ] || die "usage: make_sounds.sh EFFECTS FOLDER"
effects=$1
folder=$2
# flite silently uses another voice if the given one is missing.
for voice in "${voices[@]%% *}"; do
    flite -lv | grep -qw "$voice" || die "flite doesn't have the voice $voice"
done
mkdir -p "$folder"
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

while read -r file speaker words; do
    [ -z "$file" ] || say "$file" "$speaker" "$words"
done <<<"$lines"
for effect in fire coax explode1; do normalized_effect "$effect"; done
explode
