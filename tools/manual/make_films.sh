#!/bin/bash
# Makes the moving pictures of the manual: an animated GIF for each sequence of frames NAME-000.png, NAME-001.png, ...
#
#     make_films.sh FRAMES FOLDER
set -euo pipefail

frames=$1
folder=$2
for first in "$frames"/*-000.png; do
    name=$(basename "$first" -000.png)
    convert -delay 10 "$frames/$name"-*.png -dither None -colors 128 gif:- |
        gifsicle --loopcount=forever --optimize=3 --lossy=60 --colors 128 --output "$folder/film_$name.gif" -
done
