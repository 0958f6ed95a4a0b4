# shellcheck shell=bash
# Functions that operate the trainer by mouse and keys, as a user does. Needs xdotool, imagemagick, Xvfb and
# openbox. `pictures` is the folder for screenshots. Windows are given by title, places in pixels of a form of
# 1024 x 768.

# Starts an X server, with the first free display number from FIRST_DISPLAY (default 90) up, and openbox. Adds their
# process ids to the array `helpers`; the script that sources this file must end these processes at its own end.
open_display() {
    local number=${FIRST_DISPLAY:-90}
    while [ -e "/tmp/.X11-unix/X$number" ]; do number=$((number + 1)); done
    export DISPLAY=:$number
    Xvfb "$DISPLAY" -screen 0 1280x1024x24 >/dev/null 2>&1 &
    helpers+=($!)
    for _ in $(seq 100); do [ -e "/tmp/.X11-unix/X$number" ] && break; sleep 0.1; done
    openbox >/dev/null 2>&1 &
    helpers+=($!)
}

# shellcheck disable=SC2154 # `pictures` is set by the script that sources this
picture() { import -window root "$pictures/$1.png"; }

window() { xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1; }

await() {   # TITLE [SECONDS]
    for _ in $(seq $((${2:-30} * 10))); do [ -n "$(window "$1")" ] && return; sleep 0.1; done
    picture missing
    say "there is no window $1"
    return 1
}

click() { xdotool mousemove --window "$(window "$1")" "$2" "$3" sleep 0.3 click 1 sleep 0.5; }   # TITLE X Y

# Answers yes to the question in the box over the window of this title.
answer_yes() {
    for _ in $(seq 100); do
        [ "$(xdotool getactivewindow 2>/dev/null)" = "$(window "$1")" ] || break
        sleep 0.2
    done
    sleep 1
    picture question
    xdotool key alt+y
}

# Types a name into the file dialog of this title.
save_as() {
    await "$1"
    sleep 4
    picture file_dialog
    xdotool key ctrl+a type --delay 60 "$2"
    xdotool sleep 0.5 key Return sleep 2
}

editor="PRACTICE EDITOR"

# Goes from the first box to the set-up screen.
to_the_editor() {
    await "V. O. R. N." 60
    for _ in $(seq 20); do   # the first Return closes the box, the next clicks START
        sleep 2 && [ -n "$(window "$editor")" ] && break
        xdotool key Return
    done
    await "$editor"
    sleep 1
}

# Selects a practice that is fired by keyboard: large FIN targets that stay until destroyed.
set_up() {
    click "$editor" 800 385   # KBoard
    click "$editor" 394 440   # DST / Fin
    click "$editor" 650 357   # Till destroyed
    for _ in 1 2 3 4 5 6 7 8; do click "$editor" 215 460; done   # TARGET SIZE
    for _ in 1 2 3 4; do click "$editor" 215 561; done           # TARGET KILL AREA
}

# The aim point on the visual sight, and the sight as width x height + left + top.
aim_x=618 aim_y=145 sight=808x605+204+41

# Prints how far the middle of the target is right of and below the aim point, in pixels; nothing if there is no target.
# The target icons have been replaced by magenta squares.
offset() {
    import -silent -window "$(window "V.O.R.N. VISUAL")" miff:- |
        convert - -crop "$sight" +repage -alpha off -fuzz 15% -fill black +opaque magenta -format '%w %h %@' info: 2>/dev/null |
        awk -v x=$aim_x -v y=$aim_y -v sight="$sight" '{
            split(sight, s, "+"); split($3, a, "[x+]")
            if (a[1] < $1 && a[1] > 2) printf "%d %d\n", a[3] + a[1] / 2 + s[2] - x, a[4] + a[2] / 2 + s[3] - y }'
}

# Holds a key, longer if the sight must move by more pixels.
move() { xdotool keydown "$1" sleep "$(awk -v d="${2#-}" 'BEGIN { print (d > 60 ? 0.35 : d > 15 ? 0.12 : 0.03) }')" keyup "$1"; }

lay_on() {
    local at x y
    for _ in $(seq 60); do
        at=$(offset)
        [ -n "$at" ] || { sleep 1; continue; }
        read -r x y <<<"$at"
        [ "${x#-}" -le 3 ] && [ "${y#-}" -le 3 ] && return
        [ "${x#-}" -le 3 ] || move "$([ "$x" -lt 0 ] && echo h || echo j)" "$x"
        [ "${y#-}" -le 3 ] || move "$([ "$y" -lt 0 ] && echo u || echo n)" "$y"
        sleep 0.3
    done
    say "the gun could not be laid on the target: $at"
    return 1
}

# Starts a practice and destroys its first target.
destroy_a_target() {
    click "$editor" 318 28   # START PRACTICE
    answer_yes "$editor"
    await "V.O.R.N. VISUAL"
    sleep 2
    xdotool key alt+s   # START SIM
    for _ in $(seq 30); do [ -n "$(offset)" ] && break; sleep 1; done
    sleep 3
    for _ in 1 2 3; do
        xdotool key e
        lay_on
        picture laid_on
        xdotool key a sleep 1 keydown s sleep 4 keyup s sleep 5
        picture laid
        xdotool key d sleep 4
        picture fired
        [ -n "$(offset)" ] || return 0
    done
    say "the target is still up"
    return 1
}

debrief="DEBRIEF SCREEN"

# Goes from the practice back to the set-up screen and saves the practice. In the debrief, saves the record and prints
# the report to a PDF file. The system must have no printer: the program doesn't ask for a PDF file otherwise.
save_all() {   # PRACTICE RECORD PDF
    click "V.O.R.N. VISUAL" 87 152   # RETURNT TO SETUP
    await "$editor"
    sleep 1
    click "$editor" 188 30   # SAVE PRACTICE
    save_as "SAVE PRACTICE SETUP" "$1"
    click "$editor" 550 28   # DEBRIEF
    answer_yes "$editor"
    await "$debrief"
    sleep 2
    picture debrief
    click "$debrief" 60 12   # SAVE
    save_as "^SAVE$" "$2"
    click "$debrief" 280 12   # PRINT
    answer_yes "$debrief"
    save_as "THERE IS NO PRINTER" "$3"
    picture printed
}

# Ends the program by the exit button of the debrief.
leave() {
    click "$debrief" 720 12
    answer_yes "$debrief"
}
